// SPDX-License-Identifier: GPL-2.0-or-later
// Pieces that the panels of the workbench dialog are put together from.
#pragma once

#include <QString>
#include <QtGlobal>

class QColor;
class QLabel;
class QLayout;
class QPalette;
class QPushButton;
class QToolButton;
class QWidget;

namespace workbench {

/// A button that Enter in a filter field does not press.
[[nodiscard]] QPushButton *pushButton(const QString &text, const QString &name);
/// A flat button with an icon; its text is told by tool tip and screen readers.
/// @param icon  of ":/kelo_base/images/", without its suffix
[[nodiscard]] QToolButton *iconButton(const QString &text, const QString &name,
                                      const QString &icon);
/// A caption whose mnemonic leads to the widget.
[[nodiscard]] QLabel *buddyLabel(const QString &text, QWidget *buddy);
/// A widget for a layout in a splitter, or to be disabled as a whole.
[[nodiscard]] QWidget *widgetFor(QLayout *layout);
/// A caption as screen readers say it: without mnemonics and the colon.
[[nodiscard]] QString spoken(const QString &caption);

/// Between the palette's text and its base: as faint as can be and still be read by everybody.
[[nodiscard]] QColor quietInk(const QPalette &palette);

} // namespace workbench
