// SPDX-License-Identifier: GPL-2.0-or-later
// Tells people what to name when they ask for help.
#include "dxf/workbench/aboutdialog_p.h"

#include "dxf/workbench/dxfdialogtexts_p.h"
#include "dxf/workbench/panelparts_p.h"
#include <QBoxLayout>
#include <QClipboard>
#include <QDialog>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <kelo_base/core/Environment.h>

using namespace Qt::Literals::StringLiterals;

namespace {

QPlainTextEdit *textOf(const Environment &environment)
{
    auto *text = new QPlainTextEdit(environment.ToText());
    text->setReadOnly(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text->setTabChangesFocus(true);
    text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    text->setAccessibleName(DxfDialogTexts::AboutTitle());
    return text;
}

/// Most lines in one piece, as far as the screen allows.
QSize sizeFor(const QPlainTextEdit &text, const QScreen &screen)
{
    const QFontMetrics metrics(text.font());
    const QSize wanted(90 * metrics.averageCharWidth(), 26 * metrics.lineSpacing());
    return wanted.boundedTo(screen.availableSize() * 0.8);
}

} // namespace

void workbench::showAbout(QWidget *parent)
{
    auto *dialog = new QDialog(parent);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(DxfDialogTexts::AboutTitle());
    QPlainTextEdit *const text = textOf(DescribeEnvironment());
    QPushButton *const copy = pushButton(DxfDialogTexts::CopyText(), u"btnCopy"_s);
    QPushButton *const close = pushButton(DxfDialogTexts::Close(), u"btnCloseAbout"_s);
    QObject::connect(copy, &QPushButton::clicked, text,
                     [text] { QGuiApplication::clipboard()->setText(text->toPlainText()); });
    QObject::connect(close, &QPushButton::clicked, dialog, &QDialog::close);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(copy);
    buttons->addWidget(close);
    auto *column = new QVBoxLayout(dialog);
    column->addWidget(text);
    column->addLayout(buttons);
    dialog->resize(sizeFor(*text, *parent->screen()));
    dialog->open();
}
