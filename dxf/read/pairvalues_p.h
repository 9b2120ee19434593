// SPDX-License-Identifier: GPL-2.0-or-later
// Reads the values of pairs, and refuses the plan where one cannot be used.
#pragma once

#include "dxf/read/pair_p.h"
#include <QString>
#include <optional>
#include <string_view>

/// Group codes of what sheets are made of.
namespace groupcode {
inline constexpr int kEntity = 0;
inline constexpr int kText = 1;
inline constexpr int kName = 2; ///< also a section's name and an attribute's tag
inline constexpr int kMoreText = 3;
inline constexpr int kHandle = 5;
inline constexpr int kVariable = 9;
inline constexpr int kX = 10;
inline constexpr int kY = 20;
inline constexpr int kScaleX = 41;
inline constexpr int kScaleY = 42;
inline constexpr int kColumnSpacing = 44;
inline constexpr int kRowSpacing = 45;
inline constexpr int kAngle = 50;
inline constexpr int kFlags = 70; ///< of an insert, its columns
inline constexpr int kRows = 71;
inline constexpr int kCount = 90;
inline constexpr int kEmbeddedObject = 101;
inline constexpr int kExtrusionX = 210;
inline constexpr int kExtrusionY = 220;
inline constexpr int kExtrusionZ = 230;
inline constexpr int kComment = 999;
inline constexpr int kDataText = 1000;
inline constexpr int kDataApplication = 1001;
inline constexpr int kDataHandle = 1005;
} // namespace groupcode

/// A value that gives nothing has refused the plan; the first refusal counts.
class PairValues
{
public:
    static constexpr std::size_t kLongestText = 65'536;

    /// The value as text; lives until the scanner reads on, a number's until the next call.
    [[nodiscard]] std::optional<std::string_view> text(const DxfPair &pair);
    [[nodiscard]] std::optional<qint64> integer(const DxfPair &pair);
    /// A finite number. Converted here once and for all.
    [[nodiscard]] std::optional<double> coordinate(const DxfPair &pair);
    /// Of what not every plan needs: NaN where there is no finite number, and nothing refused.
    [[nodiscard]] double number(const DxfPair &pair);
    /// The same for an integer; @p otherwise where there is none.
    [[nodiscard]] int smallInteger(const DxfPair &pair, int otherwise);

    /// Gives false, for the caller to do so as well.
    bool refuse(qint64 position, const QString &message);
    bool refuseLongText(const DxfPair &pair);
    [[nodiscard]] qint64 errorPosition() const { return m_errorPosition; }
    [[nodiscard]] const QString &errorMessage() const { return m_errorMessage; }

private:
    DxfPair::Scratch m_scratch{};
    qint64 m_errorPosition = 0;
    QString m_errorMessage;
};
