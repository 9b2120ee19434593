// SPDX-License-Identifier: GPL-2.0-or-later
// What repeated looks at a file tell: whether it is whole, and how long it has lain there.
#pragma once

#include <QByteArray>
#include <optional>

namespace channel {

enum class Progress {
    Growing, ///< more may come
    Whole,
    Abandoned, ///< not whole, and nothing came for long
};

/// A file is whole when it ends with the end mark. Without one, when it kept the same bytes for
/// @p settle, its last line has an end, and all is there that its command has.
/// @param unchanged, settle  in milliseconds; abandoned is what does not become whole in ten times
///                           the latter
[[nodiscard]] Progress progressOf(const QByteArray &bytes, qint64 unchanged, qint64 settle);

/// All times in milliseconds; "now" is that of steadyNow().
class FileWatch
{
public:
    /// Nothing was there.
    void lookAtNothing(qint64 now);
    /// What was there is done with; another may be there already.
    void forget() { m_since.reset(); }
    /// The file was there and held this.
    void lookAt(const QByteArray &bytes, qint64 now);
    /// Since the look that first showed what the last one showed.
    [[nodiscard]] qint64 unchanged(qint64 now) const { return m_since ? now - *m_since : 0; }
    /// How long the file has lain there. Clocks jump, so file times count only within what the
    /// looks leave open: not less than it was seen, not more than since it was seen missing.
    [[nodiscard]] qint64 age(qint64 byFileTimes, qint64 now) const;

private:
    QByteArray m_bytes;
    std::optional<qint64> m_since;   ///< of the first look that showed these bytes
    std::optional<qint64> m_missing; ///< of the last look that showed nothing
};

} // namespace channel
