// SPDX-License-Identifier: GPL-2.0-or-later
// Names a sheet across plans: "/plans/village.dxf#12".
#pragma once

#include <QString>

/// A plan, or one of its sheets. As a text it names documents in links and stored views.
struct SheetAddress
{
    QString plan;  ///< full name of its file
    QString sheet; ///< number, see SheetLayer::title(); empty: the plan as a whole

    [[nodiscard]] QString toText() const;
    [[nodiscard]] static SheetAddress fromText(const QString &text);
    friend bool operator==(const SheetAddress &, const SheetAddress &) = default;
};
