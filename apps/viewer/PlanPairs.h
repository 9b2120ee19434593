// SPDX-License-Identifier: GPL-2.0-or-later
// The pairs of group code and value of a DXF file, ASCII or binary, one after the other.
#pragma once

#include <QFile>
#include <string>
#include <string_view>

struct PlanPair
{
    int code = 0;
    std::string_view value; ///< of a binary file, numbers as text; good until the next pair
};

/// Reads in pieces, so that a plan may be larger than memory. Ends at the first thing that makes no
/// sense: who wants to know what that was asks the reader of the sheets.
class PlanPairs
{
public:
    /// False when the file cannot be read.
    bool open(const QString &path);
    /// False at the end.
    bool next(PlanPair &pair);
    [[nodiscard]] qint64 done() const { return m_done; }
    [[nodiscard]] qint64 size() const { return m_file.size(); }

private:
    bool fill();
    [[nodiscard]] bool has(std::size_t bytes);
    bool takeLine(std::string_view &line);
    bool nextAscii(PlanPair &pair);
    bool nextBinary(PlanPair &pair);
    bool takeCode(int &code);
    bool takeText(std::string_view &text);
    template <typename Number>
    bool takeNumber(std::string_view &text);

    QFile m_file;
    std::string m_bytes;
    std::size_t m_at = 0; ///< the first byte that was not taken
    qint64 m_done = 0;
    std::string m_number;
    bool m_isBinary = false;
    bool m_hasWideCodes = false;
};
