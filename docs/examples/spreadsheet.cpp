// SPDX-License-Identifier: GPL-2.0-or-later
// A table in a file, row after row.
#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <kelo_base/spreadsheet/TableWriter.h>

using namespace Qt::Literals::StringLiterals;

using namespace spreadsheet;

namespace {

Result WriteSheets(const QString &file)
{
    //! [table]
    Sheet sheet{.name = u"Sheets"_s, .columns = {}};
    sheet.columns = {{.title = u"number"_s, .type = ColumnType::Integer}, {.title = u"name"_s}};
    Target target;
    target.file = file;
    target.format = FormatOf(file).value_or(Format::Csv);
    TableWriter writer(target);
    writer.BeginSheet(sheet);
    writer.AddRow(std::vector<Cell>{qint64{7}, u"007"_s}); // the text stays a text
    return writer.Finish(); // only now the file takes the place of an older one
    //! [table]
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication app(argc, argv);
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"sheets.csv"_s);
    QFile file(path);
    const bool isWritten = WriteSheets(path) && file.open(QIODevice::ReadOnly);
    return isWritten && file.readAll() == "number,name\r\n7,007\r\n" ? 0 : 1;
}
