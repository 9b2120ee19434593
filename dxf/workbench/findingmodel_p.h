// SPDX-License-Identifier: GPL-2.0-or-later
// What a user should know about a plan, as a list, and the way from there to the sheets.
#pragma once

#include <QAbstractListModel>
#include <kelo_base/dxf/DxfDrawing.h>
#include <kelo_base/dxf/PlanFinding.h>
#include <optional>
#include <span>
#include <vector>

/// "Line 12: ..." for each, in the order given.
class FindingModel : public QAbstractListModel
{
    Q_OBJECT

public:
    static constexpr int kSeverityRole = Qt::UserRole; ///< a Severity as int

    explicit FindingModel(QObject *parent = nullptr) : QAbstractListModel(parent) {}

    /// Replaces all rows (a model reset).
    void setFindings(std::vector<PlanFinding> diagnostics);
    /// The one in a row that exists.
    [[nodiscard]] const PlanFinding &findingAt(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;

private:
    std::vector<PlanFinding> m_diagnostics;
};

namespace dxftools {

/// The sheet to look at: the one whose insert the diagnostic means, else the first that uses the
/// block that it means. Nothing when none of the sheets is concerned.
/// @param sheets  those shown, in export order
[[nodiscard]] std::optional<quint32>
sheetOf(const PlanFinding &diagnostic, const DxfDrawing &drawing, std::span<const quint32> sheets);

/// The rows of the findings that mean a sheet's insert or its block.
[[nodiscard]] std::vector<int> findingsOf(quint32 sheet, const DxfDrawing &drawing,
                                          const FindingModel &findings);

} // namespace dxftools
