// SPDX-License-Identifier: GPL-2.0-or-later
// Reads DXF plans: file, scanner, gate, parser, drawing.
#include "dxf/read/asciiscanner_p.h"
#include "dxf/read/binaryscanner_p.h"
#include "dxf/read/fileformat_p.h"
#include "dxf/read/plangate_p.h"
#include "dxf/read/readertext_p.h"
#include <QFile>
#include <kelo_base/core/FileName.h>
#include <kelo_base/dxf/DxfReader.h>

namespace {

/// Enough to tell what kind of file it is.
constexpr std::size_t kHead = 4096;

struct Fault
{
    qint64 position = 0; ///< 0: concerns the file as a whole
    QString message;     ///< empty: no fault
};

/// What the source has to say; empty when reading went well so far.
QString sourceFault(const ByteSource &source, const QIODevice &device)
{
    switch (source.state()) {
    case ByteSource::State::Open:
    case ByteSource::State::End:
        break;
    case ByteSource::State::Failed:
        return ReaderText::tr("Cannot be read: %1").arg(device.errorString());
    case ByteSource::State::Cancelled:
        return ReaderText::tr("Reading was cancelled");
    }
    return source.sizeIsUnchanged() ? QString()
                                    : ReaderText::tr("Was changed while it was being read");
}

/// Sends all pairs through the gate.
template <typename Scanner>
Fault readPairs(Scanner &&scanner, PlanGate &gate)
{
    DxfPair pair;
    ScanResult result = ScanResult::Pair;
    do
        result = gate.skipsEntity() ? scanner.nextEntity(pair) : scanner.next(pair);
    while (result == ScanResult::Pair && gate.take(pair));
    if (result == ScanResult::Error)
        return {scanner.errorPosition(), scanner.errorMessage()};
    if (!gate.errorMessage().isEmpty())
        return {gate.errorPosition(), gate.errorMessage()};
    if (!gate.hasSections())
        return {0, ReaderText::tr("There is no section in it, so it is no DXF drawing")};
    if (!gate.isFinished())
        return {0, ReaderText::tr("The end mark (EOF) is missing; the file looks cut short")};
    return {};
}

DxfReadResult failed(const QString &name, const Fault &fault, bool isBinary)
{
    DxfReadResult result;
    const bool hasOffset = isBinary && fault.position > 0;
    result.error =
        DxfReadError{.file = name,
                     .line = isBinary ? 0 : fault.position,
                     .message = hasOffset ? ReaderText::tr("at byte %1: %2")
                                                .arg(QString::number(fault.position), fault.message)
                                          : fault.message};
    return result;
}

DxfReadResult readFrom(ByteSource &source, QIODevice &device, const QString &name,
                       const DxfReadOptions &options)
{
    while (source.unread().size() < kHead && source.more()) {
    }
    const bool isBinary = source.unread().starts_with(kBinarySentinel);
    Fault fault;
    DxfConvertCreationAdapter adapter;
    adapter.setOptions(options);
    PlanGate gate(adapter);
    const bool isOpen =
        source.state() == ByteSource::State::Open || source.state() == ByteSource::State::End;
    if (isOpen && !isBinary)
        fault.message = whyNoDxf(source.unread());
    if (isOpen && fault.message.isEmpty())
        fault = isBinary ? readPairs(BinaryScanner(source), gate)
                         : readPairs(AsciiScanner(source), gate);
    const QString worse = sourceFault(source, device);
    if (!worse.isEmpty())
        fault = {0, worse};
    if (!fault.message.isEmpty())
        return failed(name, fault, isBinary);
    DxfReadResult result{
        .drawing = adapter.takeDrawing(), .diagnostics = adapter.takeDiagnostics(), .error = {}};
    result.drawing.SetBinary(isBinary);
    for (PlanFinding &diagnostic : result.diagnostics) {
        diagnostic.file = name;
        if (isBinary)
            diagnostic.line = 0;
    }
    return result;
}

} // namespace

DxfReadResult ReadDxf(QIODevice &device, const QString &name, const PlanProgress &progress,
                      const DxfReadOptions &options)
{
    if (!DxfDrawing().SetEncoding(options.encoding))
        return failed(name, {0, ReaderText::tr("'%1' is no encoding").arg(options.encoding)},
                      false);
    ByteSource source(device, progress);
    DxfReadResult result;
    try {
        result = readFrom(source, device, name, options);
    } catch (const std::exception &exception) { // the parser, or memory
        result = failed(name, {0, QString::fromLocal8Bit(exception.what())}, false);
    }
    result.cancelled = source.state() == ByteSource::State::Cancelled;
    return result;
}

DxfReadResult ReadDxfFile(const QString &path, const PlanProgress &progress,
                          const DxfReadOptions &options)
{
    const QString name = ReadableFileName(path);
    std::error_code ignored;
    const std::filesystem::file_status status = std::filesystem::status(SystemPath(path), ignored);
    if (!std::filesystem::exists(status))
        return failed(name, {0, ReaderText::tr("File '%1' does not exist").arg(name)}, false);
    if (std::filesystem::is_directory(status))
        return failed(name, {0, ReaderText::tr("Is a folder, not a plan")}, false);
    QFile file;
    if (!OpenForReading(file, path))
        return failed(name, {0, ReaderText::tr("Cannot be opened: %1").arg(file.errorString())},
                      false);
    return ReadDxf(file, name, progress, options);
}
