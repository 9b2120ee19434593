// SPDX-License-Identifier: GPL-2.0-or-later
// The plans used last, newest first.
#pragma once

#include <QStringList>

class QSettings;

/// Paths, each once. Two spellings of a path ("a/./b", "a//b") are one; links and the case of
/// letters are not looked into, for that would ask the disk, which may be a sleeping server.
class RecentPlans
{
public:
    static constexpr qsizetype kMost = 10; ///< as many as a menu shows well; older ones drop out

    /// Puts a path in front, wherever it stood before. An empty one adds nothing.
    /// @param path  absolute; a relative one would mean another file in the next session
    void Add(const QString &path);
    void Remove(const QString &path);
    /// With "/" as separator on all systems.
    [[nodiscard]] const QStringList &Paths() const { return m_paths; }
    friend bool operator==(const RecentPlans &, const RecentPlans &) = default;

private:
    QStringList m_paths;
};

namespace dxftools {

/// What is stored, with the rules of the list applied to it: files may be edited by hand.
[[nodiscard]] RecentPlans readRecentPlans(QSettings &settings);
void writeRecentPlans(QSettings &settings, const RecentPlans &plans);

} // namespace dxftools
