// SPDX-License-Identifier: GPL-2.0-or-later
// Tells what kind of file a user gave as a plan.
#include "dxf/read/fileformat_p.h"
#include "dxf/read/pair_p.h"
#include "dxf/read/readertext_p.h"
#include <algorithm>

namespace {

using namespace std::string_view_literals;

QString whySignature(std::string_view head)
{
    const bool isDwg = head.size() >= 6 && head.starts_with("AC") &&
                       std::all_of(head.begin() + 2, head.begin() + 6,
                                   [](char c) { return c >= '0' && c <= '9'; });
    if (isDwg)
        return ReaderText::tr("This is a DWG drawing (%1); save it as DXF first")
            .arg(shownText(head.substr(0, 6)));
    if (head.starts_with("AutoCAD DXB"))
        return ReaderText::tr("This is a DXB drawing; save it as DXF first");
    if (head.starts_with("%PDF-"))
        return ReaderText::tr("This is a PDF document; export the drawing as DXF instead");
    if (head.starts_with("PK\x03\x04"))
        return ReaderText::tr("This is a ZIP archive; unpack it first");
    if (head.starts_with("\x1F\x8B"))
        return ReaderText::tr("This is a gzip archive; unpack it first");
    return {};
}

bool isUtf16(std::string_view head)
{
    if (head.starts_with("\xFF\xFE") || head.starts_with("\xFE\xFF"))
        return true;
    const std::string_view start = head.substr(0, 16);
    return start.size() == 16 && std::ranges::count(start, '\0') == 8 && start[0] != start[1];
}

bool isText(std::string_view head)
{
    return std::ranges::none_of(head, [](char character) {
        const auto byte = static_cast<unsigned char>(character);
        return byte < 0x20 && "\t\n\r\f\x1a"sv.find(character) == std::string_view::npos;
    });
}

bool isGroupCode(std::string_view line)
{
    const std::string_view code = trimmed(line);
    return !code.empty() && code.find_first_not_of("0123456789") == std::string_view::npos;
}

} // namespace

QString whyNoDxf(std::string_view head)
{
    if (head.empty())
        return ReaderText::tr("The file is empty");
    QString reason = whySignature(head);
    if (!reason.isEmpty())
        return reason;
    if (isUtf16(head))
        return ReaderText::tr("This is text in UTF-16; save it as DXF in UTF-8 or ANSI");
    if (head.starts_with("\xEF\xBB\xBF"))
        head.remove_prefix(3);
    const std::string_view firstLine = head.substr(0, head.find_first_of("\r\n"));
    if (!isGroupCode(firstLine))
        return isText(head) ? ReaderText::tr("This is text, but no DXF drawing")
                            : ReaderText::tr("This is no DXF drawing");
    const bool hasOnlyReturns =
        head.find('\r') != std::string_view::npos && head.find('\n') == std::string_view::npos;
    if (hasOnlyReturns)
        return ReaderText::tr("The lines end with CR alone; save the plan with LF or CR LF");
    return {};
}
