// SPDX-License-Identifier: GPL-2.0-or-later
// Asks under which name a file is to be saved.
#include "dxf/workbench/savequestion_p.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QPointer>
#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace {

/// "svg" of "Drawing (*.svg)".
QString suffixOf(const QString &filter)
{
    static const QRegularExpression pattern(uR"(\*\.(\w+))"_s);
    return pattern.match(filter).captured(1);
}

/// A button's text without the dots that promise a question: this is the question.
QString titleOf(QString text)
{
    static const QRegularExpression dots(uR"(\s*(\.\.\.|…)$)"_s);
    return text.remove(dots);
}

void followFilter(QFileDialog &dialog, const QString &filter)
{
    const QString suffix = suffixOf(filter);
    const QFileInfo name(dialog.selectedFiles().value(0));
    dialog.setDefaultSuffix(suffix);
    dialog.selectFile(name.completeBaseName() + u'.' + suffix);
}

} // namespace

QString dxftools::askForTarget(QWidget *parent, const QString &plan, const SaveQuestion &question)
{
    const QFileInfo info(plan);
    // Not on the stack: it is its parent's, which may be deleted while it is open.
    const QPointer<QFileDialog> dialog =
        new QFileDialog(parent, titleOf(question.title), info.path(), question.filters);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(question.suffix);
    dialog->selectFile(info.completeBaseName() + u'.' + question.suffix);
    QObject::connect(dialog, &QFileDialog::filterSelected, dialog,
                     [&dialog](const QString &filter) { followFilter(*dialog, filter); });
    const bool isChosen = dialog->exec() == QDialog::Accepted && dialog;
    const QString target = isChosen ? dialog->selectedFiles().value(0) : QString();
    delete dialog.data();
    return target;
}
