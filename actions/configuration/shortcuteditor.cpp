// SPDX-License-Identifier: GPL-2.0-or-later
// The field for a shortcut, its sentence, and the ways out.
#include "actions/configuration/shortcuteditor_p.h"

#include "actions/configuration/keytext_p.h"
#include "actions/configuration/shortcutmodel_p.h"
#include "actions/configuration/strokerecorder_p.h"
#include "actions/configuration/workingcopy_p.h"
#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace menuconfig {

ShortcutEditor::ShortcutEditor(ShortcutModel &model, WorkingCopy &copy, QWidget *parent)
    : QWidget(parent),
      m_model(model),
      m_copy(copy),
      m_title(new QLabel),
      m_field(new QLineEdit),
      m_recorder(new StrokeRecorder(m_field)),
      m_sentence(new QLabel)
{
    m_field->setObjectName(u"edtShortcut"_s);
    m_field->setAccessibleName(tr("Shortcut"));
    m_field->setPlaceholderText(tr("Type a shortcut, such as Ctrl+K, or record it"));
    m_sentence->setObjectName(u"lblSentence"_s);
    m_sentence->setTextFormat(Qt::PlainText);
    m_title->setTextFormat(Qt::PlainText);
    m_title->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    layOut();
    connect(m_field, &QLineEdit::textEdited, this, &ShortcutEditor::readText);
    connect(m_field, &QLineEdit::returnPressed, this, &ShortcutEditor::finish);
    connect(m_recorder, &StrokeRecorder::recorded, this,
            [this](const QKeySequence &sequence) { consider(sequence); });
    connect(m_recorder, &StrokeRecorder::stopped, this, [this] {
        m_record->setText(tr("Recor&d (F2)"));
        m_recorder->sequence().isEmpty() ? restore() : finish();
    });
    connect(&copy, &WorkingCopy::changed, this, &ShortcutEditor::restore);
    setAction(std::nullopt);
}

void ShortcutEditor::layOut()
{
    auto *rows = new QVBoxLayout(this);
    rows->setContentsMargins({});
    auto *entry = new QHBoxLayout;
    m_record = addButton(u"btnRecord"_s, tr("Recor&d (F2)"), &ShortcutEditor::toggleRecording);
    m_assign = addButton(u"btnAssign"_s, tr("Ass&ign"), &ShortcutEditor::finish);
    m_remove = addButton(u"btnRemove"_s, tr("Re&move"), &ShortcutEditor::removeShortcut);
    entry->addWidget(m_field, 1);
    for (QPushButton *button : {m_record, m_assign, m_remove})
        entry->addWidget(button);
    auto *answer = new QHBoxLayout;
    m_reassign = addButton(u"btnReassign"_s, tr("Re&assign"), &ShortcutEditor::reassign);
    m_keep = addButton(u"btnKeepBoth"_s, tr("&Keep both"), &ShortcutEditor::keep);
    m_cancel = addButton(u"btnKeepOld"_s, tr("Kee&p the old one"), &ShortcutEditor::restore);
    m_sentence->setWordWrap(true);
    m_sentence->setMinimumHeight(2 * fontMetrics().lineSpacing());
    answer->addWidget(m_sentence, 1);
    for (QPushButton *button : {m_reassign, m_keep, m_cancel}) {
        QSizePolicy policy = button->sizePolicy();
        policy.setRetainSizeWhenHidden(button == m_cancel); // the rows shall not jump
        button->setSizePolicy(policy);
        answer->addWidget(button);
    }
    rows->addWidget(m_title);
    rows->addLayout(entry);
    rows->addLayout(answer);
}

QPushButton *ShortcutEditor::addButton(const QString &name, const QString &text,
                                       void (ShortcutEditor::*slot)())
{
    auto *button = new QPushButton(text);
    button->setObjectName(name);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, slot);
    return button;
}

void ShortcutEditor::setAction(std::optional<int> id)
{
    m_id.reset(); // what a recording gives now is nobody's
    m_recorder->stop();
    m_id = id;
    setEnabled(id.has_value());
    m_title->setText(id ? tr("Shortcut of “%1”").arg(m_model.surroundings().catalogue.nameOf(*id))
                        : tr("Choose a function to change its shortcut"));
    restore();
}

void ShortcutEditor::startRecording()
{
    if (m_id && !m_recorder->isRecording())
        toggleRecording();
}

void ShortcutEditor::toggleRecording()
{
    if (m_recorder->isRecording())
        return m_recorder->stop();
    m_recorder->start();
    m_record->setText(tr("S&top recording"));
    say(tr("Press up to four keys; a pause ends the recording."));
}

void ShortcutEditor::readText()
{
    consider(sequenceFromText(m_field->text()));
}

void ShortcutEditor::consider(std::optional<QKeySequence> sequence)
{
    m_wanted = std::move(sequence);
    const bool isAnother =
        m_id && m_wanted && *m_wanted != m_copy.current().shortcuts.GetSequenceById(*m_id);
    const std::vector<Rival> rivals =
        isAnother ? m_model.rivalsOf(*m_id, *m_wanted) : std::vector<Rival>();
    const bool areActions = std::ranges::all_of(
        rivals, [](const Rival &rival) { return rival.kind == OwnerKind::Action; });
    m_assign->setEnabled(isAnother && rivals.empty());
    m_reassign->setVisible(!rivals.empty() && areActions);
    m_keep->setVisible(!rivals.empty() && std::ranges::all_of(rivals, &Rival::canCoexist));
    m_cancel->setVisible(isAnother || !m_wanted);
    if (!m_wanted)
        say(tr("This cannot be read as keys."));
    else
        say(sentenceAbout(rivals, *m_wanted, m_model.surroundings().catalogue));
}

/// Only what is in nobody's way needs no answer.
void ShortcutEditor::finish()
{
    if (m_assign->isEnabled() && m_wanted)
        assign(*m_wanted);
}

void ShortcutEditor::keep()
{
    if (m_wanted)
        assign(*m_wanted);
}

void ShortcutEditor::removeShortcut()
{
    assign(QKeySequence());
}

void ShortcutEditor::assign(const QKeySequence &sequence)
{
    if (!m_id)
        return;
    MenuConfiguration next = m_copy.current();
    next.shortcuts.AssignKeySequence(*m_id, sequence);
    const QString name = m_model.surroundings().catalogue.nameOf(*m_id);
    m_copy.edit(next, sequence.isEmpty() ? tr("remove the shortcut of “%1”").arg(name)
                                         : tr("shortcut of “%1”").arg(name));
}

void ShortcutEditor::reassign()
{
    if (!m_id || !m_wanted)
        return;
    MenuConfiguration next = m_copy.current();
    next.shortcuts = reassigned(next.shortcuts, m_model.surroundings(), *m_id, *m_wanted);
    m_copy.edit(next, tr("reassign %1").arg(m_wanted->toString(QKeySequence::NativeText)));
}

void ShortcutEditor::restore()
{
    const QKeySequence current =
        m_id ? m_copy.current().shortcuts.GetSequenceById(*m_id) : QKeySequence();
    m_field->setText(current.toString(QKeySequence::NativeText));
    consider(current);
    m_remove->setEnabled(!current.isEmpty());
}

void ShortcutEditor::say(const QString &sentence)
{
    if (sentence == m_sentence->text())
        return;
    m_sentence->setText(sentence);
    if (sentence.isEmpty())
        return;
    QAccessibleEvent alert(m_sentence, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

} // namespace menuconfig
