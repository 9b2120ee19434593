// SPDX-License-Identifier: GPL-2.0-or-later
// The tree of shortcuts between its filter and its editor.
#include "actions/configuration/shortcutspage_p.h"

#include "actions/configuration/menuconfigtexts_p.h"
#include "actions/configuration/shortcuteditor_p.h"
#include "actions/configuration/shortcutmodel_p.h"
#include "actions/configuration/strokerecorder_p.h"
#include "actions/configuration/workingcopy_p.h"
#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QToolButton>
#include <QTreeView>

using namespace Qt::Literals::StringLiterals;

namespace menuconfig {

ShortcutsPage::ShortcutsPage(ActionManager &actions, WorkingCopy &copy, QWidget *parent)
    : QWidget(parent),
      m_copy(copy),
      m_model(new ShortcutModel(actions, copy, this)),
      m_tree(new QTreeView),
      m_filter(new QLineEdit),
      m_keys(new StrokeRecorder(m_filter)),
      m_findKeys(new QToolButton),
      m_onlyConflicts(new QCheckBox),
      m_onlyChanged(new QCheckBox),
      m_reset(new QToolButton),
      m_editor(new ShortcutEditor(*m_model, copy))
{
    layOut();
    connectAll();
}

void ShortcutsPage::layOut()
{
    m_tree->setObjectName(u"treeShortcuts"_s);
    m_tree->setAccessibleName(tr("Functions and their shortcuts"));
    m_tree->setUniformRowHeights(true); // thousands of rows
    m_tree->setAllColumnsShowFocus(true);
    m_tree->setAlternatingRowColors(true);
    m_tree->setModel(m_model);
    m_tree->header()->resizeSection(ShortcutModel::TextColumn,
                                    fontMetrics().averageCharWidth() * 45);
    for (const int column : {ShortcutModel::ShortcutColumn, ShortcutModel::DefaultColumn})
        m_tree->header()->resizeSection(column, fontMetrics().averageCharWidth() * 24);
    m_tree->installEventFilter(this);
    m_filter->setObjectName(u"edtFilter"_s);
    m_filter->setPlaceholderText(tr("Find by text or keys"));
    m_filter->setAccessibleName(tr("Filter"));
    m_filter->setClearButtonEnabled(true);
    m_findKeys->setObjectName(u"btnFindKeys"_s);
    m_findKeys->setText(tr("Press ke&ys"));
    m_findKeys->setToolTip(tr("Find functions by pressing their keys"));
    m_findKeys->setCheckable(true);
    m_onlyConflicts->setObjectName(u"chkConflicts"_s);
    m_onlyChanged->setObjectName(u"chkChanged"_s);
    m_reset->setObjectName(u"btnReset"_s);
    m_reset->setText(tr("&Reset"));
    m_reset->setPopupMode(QToolButton::InstantPopup);
    auto *menu = new QMenu(m_reset);
    menu->addAction(tr("&This shortcut"), this, &ShortcutsPage::resetRow);
    menu->addAction(tr("This &category…"), this, &ShortcutsPage::resetCategory);
    menu->addAction(tr("&Everything…"), this, &ShortcutsPage::resetAll);
    m_reset->setMenu(menu);

    auto *top = new QHBoxLayout;
    top->addWidget(m_filter, 1);
    for (QWidget *widget :
         std::initializer_list<QWidget *>{m_findKeys, m_onlyConflicts, m_onlyChanged, m_reset})
        top->addWidget(widget);
    auto *rows = new QVBoxLayout(this);
    rows->addLayout(top);
    rows->addWidget(m_tree, 1);
    rows->addWidget(m_editor);
}

void ShortcutsPage::connectAll()
{
    connect(m_filter, &QLineEdit::textEdited, this, &ShortcutsPage::filter);
    connect(m_filter, &QLineEdit::textChanged, this, [this](const QString &text) {
        if (text.isEmpty() && !m_keys->isRecording())
            filter(); // the button that clears the field edits nothing
    });
    connect(m_onlyConflicts, &QCheckBox::toggled, this, &ShortcutsPage::filter);
    connect(m_onlyChanged, &QCheckBox::toggled, this, &ShortcutsPage::filter);
    connect(m_findKeys, &QToolButton::toggled, this, &ShortcutsPage::toggleKeySearch);
    connect(m_keys, &StrokeRecorder::recorded, this, &ShortcutsPage::filter);
    connect(m_keys, &StrokeRecorder::stopped, m_findKeys,
            [this] { m_findKeys->setChecked(false); });
    connect(m_model, &ShortcutModel::countsChanged, this, &ShortcutsPage::showCounts);
    connect(m_model, &QAbstractItemModel::modelReset, this, [this] {
        expandCategories();
        if (m_id)
            select(*m_id);
    });
    connect(m_tree->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex &current) {
                m_id = m_model->idOf(current);
                m_editor->setAction(m_id);
            });
}

/// QTreeView::expandAll() would keep an index of each function, which takes several times as long
/// as all the rest of a key in the filter.
void ShortcutsPage::expandCategories()
{
    for (int row = 0; row < m_model->rowCount(); ++row)
        m_tree->expand(m_model->index(row, 0));
}

void ShortcutsPage::setSurroundings(Surroundings given)
{
    m_model->setSurroundings(std::move(given));
}

void ShortcutsPage::showCounts()
{
    m_onlyConflicts->setText(tr("Con&flicts only (%1)").arg(m_model->conflictCount()));
    m_onlyChanged->setText(tr("C&hanged only (%1)").arg(m_model->changedCount()));
}

void ShortcutsPage::filter()
{
    const std::optional<int> chosen = m_id;
    RowQuery query{{}, {}, m_onlyConflicts->isChecked(), m_onlyChanged->isChecked()};
    if (m_keys->isRecording())
        query.pressed = m_keys->sequence();
    else
        query.text = m_filter->text();
    m_model->setQuery(std::move(query));
    if (!chosen || m_tree->currentIndex().isValid())
        return;
    m_id.reset();
    m_editor->setAction(std::nullopt);
}

void ShortcutsPage::toggleKeySearch(bool isOn)
{
    if (!isOn)
        return m_keys->stop();
    m_keys->start();
    filter();
}

void ShortcutsPage::select(int id)
{
    const QModelIndex index = m_model->indexOf(id);
    if (!index.isValid())
        return;
    m_tree->setCurrentIndex(index);
    m_tree->scrollTo(index);
}

void ShortcutsPage::showAction(int id)
{
    if (!m_model->surroundings().catalogue.find(id))
        return;
    if (!m_model->indexOf(id).isValid()) {
        m_onlyConflicts->setChecked(false);
        m_onlyChanged->setChecked(false);
        m_keys->stop();
        m_filter->clear();
        filter();
    }
    select(id);
    m_tree->setFocus();
}

bool ShortcutsPage::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_tree || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    if (key->key() == Qt::Key_F2)
        m_editor->startRecording();
    else if (key->key() == Qt::Key_Delete)
        m_editor->removeShortcut();
    else
        return false;
    return true;
}

void ShortcutsPage::resetRow()
{
    if (m_id)
        reset({*m_id}, OwnKeys::Drop, tr("reset a shortcut"));
}

void ShortcutsPage::resetCategory()
{
    reset(m_model->idsOfCategory(m_tree->currentIndex()), OwnKeys::Keep, tr("reset a category"));
}

void ShortcutsPage::resetAll()
{
    std::vector<int> ids;
    ids.reserve(m_model->surroundings().catalogue.actions().size());
    for (const ActionInfo &info : m_model->surroundings().catalogue.actions())
        ids.push_back(info.id);
    reset(ids, OwnKeys::Keep, tr("reset all shortcuts"));
}

/// What changes is listed first, unless it is the one row that was meant.
void ShortcutsPage::reset(const std::vector<int> &ids, OwnKeys ownKeys, const QString &step)
{
    MenuConfiguration next = m_copy.current();
    next.shortcuts = withDefaults(next.shortcuts, m_model->surroundings(), ids, ownKeys);
    const Difference difference = differenceOf(m_copy.current(), next);
    QStringList lines;
    for (const ShortcutChange &change : difference.shortcuts)
        lines << tr("%1: %2 → %3")
                     .arg(m_model->surroundings().catalogue.nameOf(change.id),
                          Texts::shortcut(change.before.value_or(QKeySequence())),
                          Texts::shortcut(change.after.value_or(QKeySequence())));
    const bool isPlain = ids.size() <= 1 && lines.size() <= 1;
    if (isPlain || agrees(lines))
        m_copy.edit(next, step);
}

/// Shows what will change. False, and this may be gone, when the user wants none of it.
bool ShortcutsPage::agrees(const QStringList &lines)
{
    constexpr qsizetype kShown = 15;
    const qsizetype hidden = std::max<qsizetype>(lines.size() - kShown, 0);
    // Not on the stack: it is its parent's, which may be deleted while it is open.
    const QPointer<QMessageBox> box = new QMessageBox(
        QMessageBox::Question, tr("Reset"), QString(),
        lines.isEmpty() ? QMessageBox::Ok : QMessageBox::Ok | QMessageBox::Cancel, this);
    box->setText(lines.isEmpty() ? tr("All of these have their defaults already.")
                                 : tr("These shortcuts will change:"));
    box->setInformativeText(lines.first(lines.size() - hidden).join(u'\n') +
                            (hidden > 0 ? u'\n' + tr("and %1 more").arg(hidden) : QString()));
    if (hidden > 0)
        box->setDetailedText(lines.join(u'\n'));
    box->setTextFormat(Qt::PlainText);
    const bool isWanted = box->exec() == QMessageBox::Ok && box;
    delete box.data();
    return isWanted;
}

} // namespace menuconfig
