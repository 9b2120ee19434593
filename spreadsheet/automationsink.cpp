// SPDX-License-Identifier: GPL-2.0-or-later
// Files that the installed spreadsheet program writes, from a workbook that the library made.
#include "spreadsheet/officeprogram_p.h"
#include "spreadsheet/sink_p.h"

#include <QCoreApplication>
#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;

namespace spreadsheet {
namespace {

constexpr int kSecondsAtLeast = 60;
constexpr qint64 kCellsASecond = 20'000; ///< far less than any machine does

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Spreadsheet)
};

/// A target in the temporary folder instead of the wanted one.
Target workbookIn(const QTemporaryDir &folder, Target target)
{
    target.file = folder.filePath(u"table.xlsx"_s);
    target.format = Format::Xlsx;
    return target;
}

class AutomationSink : public Sink
{
public:
    explicit AutomationSink(const Target &target)
        : m_target(target),
          m_workbook(makeXlsxSink(workbookIn(m_folder, target), dialectFor(target.format)))
    {
    }

    [[nodiscard]] Limits limits() const override { return m_workbook->limits(); }

    void beginSheet(const Sheet &sheet) override { m_workbook->beginSheet(sheet); }
    void putHeader(int column, const QString &title) override
    {
        m_workbook->putHeader(column, title);
    }
    void putText(int column, const QString &text) override { m_workbook->putText(column, text); }
    void putNumber(int column, double number) override { m_workbook->putNumber(column, number); }
    void putInteger(int column, qint64 number) override { m_workbook->putInteger(column, number); }
    void putBoolean(int column, bool value) override { m_workbook->putBoolean(column, value); }
    void putDate(int column, QDate date) override { m_workbook->putDate(column, date); }
    void putTime(int column, QTime time) override { m_workbook->putTime(column, time); }
    void putDateTime(int column, const QDateTime &time) override
    {
        m_workbook->putDateTime(column, time);
    }
    void putLink(int column, const Link &link) override { m_workbook->putLink(column, link); }
    void endRow() override
    {
        ++m_rows;
        m_workbook->endRow();
    }
    void endSheet(const QList<double> &widths) override
    {
        m_columns = widths.size();
        m_workbook->endSheet(widths);
    }
    [[nodiscard]] bool hasFailed() const override { return m_workbook->hasFailed(); }

    [[nodiscard]] QString finish(const std::function<bool()> &goesOn) override
    {
        if (!m_folder.isValid())
            return notWritten(m_target.file, m_folder.errorString());
        bool isCancelled = false;
        const auto asks = [&] {
            isCancelled |= !goesOn();
            return !isCancelled;
        };
        if (const QString error = m_workbook->finish(asks); !error.isEmpty() || isCancelled)
            return error;
        const QString written = m_folder.filePath(u"written"_s);
        const qint64 seconds = kSecondsAtLeast + m_rows * m_columns / kCellsASecond;
        const QString why = convertTable(findOfficeProgram(), m_folder.filePath(u"table.xlsx"_s),
                                         written, m_target.format, static_cast<int>(seconds), asks);
        if (isCancelled)
            return {};
        return why.isEmpty() ? putInPlace(written, m_target.file, asks)
                             : notWritten(m_target.file, why);
    }

private:
    QTemporaryDir m_folder; ///< of the workbook and of what becomes of it
    Target m_target;
    std::unique_ptr<Sink> m_workbook;
    qint64 m_rows = 0;
    qint64 m_columns = 0;
};

} // namespace

BackEndState automationState()
{
    const OfficeProgram program = findOfficeProgram();
    if (!program.fault.isEmpty())
        return {BackEnd::Automation, {}, program.fault};
    return {BackEnd::Automation,
            {Format::Xlsx, Format::Ods, Format::Pdf},
            Texts::tr("%1 %2.").arg(program.name, program.version)};
}

std::unique_ptr<Sink> makeAutomationSink(const Target &target)
{
    return std::make_unique<AutomationSink>(target);
}

} // namespace spreadsheet
