// SPDX-License-Identifier: GPL-2.0-or-later
// A table model as a file, in one call.
#include <kelo_base/spreadsheet/TableWriter.h>

#include <QAbstractItemModel>
#include <QUrl>

namespace spreadsheet {
namespace {

constexpr int kRowsLookedAt = 100; ///< for the type of a column

Cell cellOf(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        return {};
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::LongLong:
        return value.toLongLong();
    case QMetaType::ULong:
    case QMetaType::ULongLong: {
        bool fits = false;
        const qint64 number = value.toString().toLongLong(&fits);
        return fits ? Cell(number) : Cell(value.toString());
    }
    case QMetaType::Float:
    case QMetaType::Double:
        return value.toDouble();
    case QMetaType::QDate:
        return value.toDate();
    case QMetaType::QTime:
        return value.toTime();
    case QMetaType::QDateTime:
        return value.toDateTime();
    case QMetaType::QUrl:
        return Link{value.toUrl().toString(), {}};
    default:
        return value.toString();
    }
}

ColumnType typeOf(const Cell &cell)
{
    struct Types
    {
        ColumnType operator()(std::monostate) { return ColumnType::Text; }
        ColumnType operator()(const QString &) { return ColumnType::Text; }
        ColumnType operator()(qint64) { return ColumnType::Integer; }
        ColumnType operator()(double) { return ColumnType::Number; }
        ColumnType operator()(bool) { return ColumnType::Boolean; }
        ColumnType operator()(QDate) { return ColumnType::Date; }
        ColumnType operator()(QTime) { return ColumnType::Time; }
        ColumnType operator()(const QDateTime &) { return ColumnType::DateTime; }
        ColumnType operator()(const Link &) { return ColumnType::Link; }
    };
    return std::visit(Types(), cell);
}

/// The type of the first value in the column.
ColumnType guessedType(const QAbstractItemModel &model, int column, int role)
{
    const int rows = std::min(model.rowCount(), kRowsLookedAt);
    for (int row = 0; row < rows; ++row) {
        const Cell cell = cellOf(model.index(row, column).data(role));
        if (!std::holds_alternative<std::monostate>(cell))
            return typeOf(cell);
    }
    return ColumnType::Text;
}

} // namespace

Result ExportModel(const QAbstractItemModel &model, const ModelChoice &choice, Target target)
{
    TableWriter writer(std::move(target));
    Sheet sheet;
    sheet.name = choice.sheetName;
    QList<int> columns;
    for (int column = 0; column < model.columnCount(); ++column) {
        if (choice.hiddenColumns.contains(column))
            continue;
        const qsizetype place = columns.size();
        Column shown;
        shown.title = model.headerData(column, Qt::Horizontal).toString();
        shown.type = place < choice.columnTypes.size() ? choice.columnTypes[place]
                                                       : guessedType(model, column, choice.role);
        sheet.columns << shown;
        columns << column;
    }
    writer.BeginSheet(sheet);
    std::vector<Cell> cells(static_cast<std::size_t>(columns.size()));
    for (int row = 0; row < model.rowCount(); ++row) {
        for (std::size_t i = 0; i < cells.size(); ++i)
            cells[i] =
                cellOf(model.index(row, columns[static_cast<qsizetype>(i)]).data(choice.role));
        if (!writer.AddRow(cells))
            break;
    }
    return writer.Finish();
}

} // namespace spreadsheet
