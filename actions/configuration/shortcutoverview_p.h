// SPDX-License-Identifier: GPL-2.0-or-later
// All shortcuts on paper.
#pragma once

#include <QString>

class ActionShortCutList;
class QIODevice;

namespace menuconfig {

class ActionCatalogue;

/// A page of its own, in two columns where the reader has room: the functions with a shortcut, by
/// category. @param configName  is in the title, as it is
[[nodiscard]] QString shortcutOverviewHtml(const ActionCatalogue &catalogue,
                                           const ActionShortCutList &shortcuts,
                                           const QString &configName);

/// The same as PDF on A4 paper, with two columns and page numbers. False when the device fails.
bool writeShortcutOverviewPdf(QIODevice &device, const ActionCatalogue &catalogue,
                              const ActionShortCutList &shortcuts, const QString &configName);

/// Replaces the file, or leaves it as it was: HTML where its name ends like that, else PDF. A
/// sentence when that fails; else empty.
[[nodiscard]] QString saveShortcutOverview(const QString &path, const ActionCatalogue &catalogue,
                                           const ActionShortCutList &shortcuts,
                                           const QString &configName);

} // namespace menuconfig
