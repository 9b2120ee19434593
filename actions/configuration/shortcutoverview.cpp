// SPDX-License-Identifier: GPL-2.0-or-later
// Writes the overview of shortcuts as HTML and PDF.
#include "actions/configuration/shortcutoverview_p.h"

#include "actions/configuration/actioncatalogue_p.h"
#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPainter>
#include <QPdfWriter>
#include <QTextDocument>
#include <QTextOption>
#include <kelo_base/actions/ActionShortCutList.h>
#include <kelo_base/core/ReplacedFile.h>

using namespace Qt::Literals::StringLiterals;

namespace menuconfig {

namespace {

constexpr int kDotsPerInch = 300;
constexpr int kMargin = 15;       ///< millimetres of the paper
constexpr double kGap = 0.06;     ///< between the columns, as part of the width
constexpr double kBodySize = 9;   ///< points
constexpr double kTitleSize = 16; ///< points

struct OverviewTexts
{
    Q_DECLARE_TR_FUNCTIONS(ShortcutOverview)

public:
    static QString title(const QString &configName)
    {
        return tr("Keyboard Shortcuts: %1").arg(configName);
    }
    static QString page(int number, int count)
    {
        return tr("Page %1 of %2").arg(number).arg(count);
    }
    static QString notWritten(const QString &path)
    {
        return tr("%1 cannot be written.").arg(QDir::toNativeSeparators(path));
    }
    static QString nothing() { return tr("No function has a shortcut."); }
};

bool isMirrored()
{
    return QGuiApplication::layoutDirection() == Qt::RightToLeft;
}

/// A table for each category, whose name is repeated where a column breaks it.
QString body(const ActionCatalogue &catalogue, const ActionShortCutList &shortcuts)
{
    QString html;
    const ActionInfo *last = nullptr;
    for (const ActionInfo &info : catalogue.actions()) {
        if (!shortcuts.HasSequenceAssigned(info.id))
            continue;
        if (!last || last->category != info.category) {
            const QString category = catalogue.categoryText(info.category).toHtmlEscaped();
            html += last ? u"</tbody></table>\n"_s : QString();
            html += u"<table width=\"100%\"><thead><tr><th colspan=\"2\" align=\"left\">%1</th>"
                    "</tr></thead><tbody>\n"_s.arg(category);
        }
        const QString keys =
            shortcuts.GetSequenceById(info.id).toString(QKeySequence::NativeText).toHtmlEscaped();
        html += u"<tr><td width=\"62%\">"_s + info.text.toHtmlEscaped() + u"</td><td><b>"_s + keys +
                u"</b></td></tr>\n"_s;
        last = &info;
    }
    return last ? html + u"</tbody></table>\n"_s
                : u"<p>"_s + OverviewTexts::nothing() + u"</p>\n"_s;
}

void paintTitle(QPainter &painter, const QRectF &area, const QString &title)
{
    QFont font = painter.font();
    font.setPointSizeF(kTitleSize);
    painter.save();
    painter.setFont(font);
    const QString cut =
        painter.fontMetrics().elidedText(title, Qt::ElideRight, static_cast<int>(area.width()));
    const Qt::Alignment side = isMirrored() ? Qt::AlignRight : Qt::AlignLeft;
    painter.drawText(area, cut, QTextOption(Qt::AlignTop | side));
    painter.restore();
}

/// Column @p column of the text, counted over all pages, with its corner at the origin.
void paintColumn(QPainter &painter, QTextDocument &text, int column)
{
    const QSizeF size = text.pageSize();
    const QRectF part(QPointF(0, column * size.height()), size);
    painter.translate(0, -part.top());
    painter.setClipRect(part);
    QAbstractTextDocumentLayout::PaintContext context;
    context.clip = part;
    context.palette.setColor(QPalette::Text, Qt::black);
    text.documentLayout()->draw(&painter, context);
}

} // namespace

QString shortcutOverviewHtml(const ActionCatalogue &catalogue, const ActionShortCutList &shortcuts,
                             const QString &configName)
{
    const QString title = OverviewTexts::title(configName).toHtmlEscaped();
    return u"<!DOCTYPE html>\n<html dir=\"%1\"><head><meta charset=\"utf-8\"><title>"_s.arg(
               isMirrored() ? u"rtl"_s : u"ltr"_s) +
           title +
           u"</title>\n<style>body { font-family: sans-serif } main { columns: 2 22em } "
           "table { border-collapse: collapse; margin-bottom: 1em } "
           "tr { break-inside: avoid } thead { break-after: avoid } "
           "th { text-align: start; border-bottom: 1px solid } "
           "td { padding: 0.1em 0.5em 0.1em 0; vertical-align: top }</style></head>\n"
           "<body><h1>"_s +
           title + u"</h1>\n<main>\n"_s + body(catalogue, shortcuts) + u"</main></body></html>\n"_s;
}

bool writeShortcutOverviewPdf(QIODevice &device, const ActionCatalogue &catalogue,
                              const ActionShortCutList &shortcuts, const QString &configName)
{
    QBuffer pdf; // whole before any of it is written
    pdf.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&pdf);
        writer.setResolution(kDotsPerInch);
        writer.setPageSize(QPageSize(QPageSize::A4));
        writer.setPageMargins(QMarginsF(kMargin, kMargin, kMargin, kMargin),
                              QPageLayout::Millimeter);
        writer.setTitle(OverviewTexts::title(configName));
        QPainter painter(&writer);
        QFont font = QGuiApplication::font();
        font.setPointSizeF(kBodySize);
        painter.setFont(font);
        const double line = QFontMetricsF(font, &writer).height();
        const QSizeF paper(writer.width(), writer.height());
        const double head = 3 * line;
        const double foot = 2 * line;
        const double width = paper.width() * (1 - kGap) / 2;

        QTextDocument text;
        text.documentLayout()->setPaintDevice(&writer);
        text.setDefaultFont(font);
        text.setDocumentMargin(0);
        text.setHtml(u"<div dir=\"%1\">"_s.arg(isMirrored() ? u"rtl"_s : u"ltr"_s) +
                     body(catalogue, shortcuts) + u"</div>"_s);
        text.setPageSize(QSizeF(width, paper.height() - head - foot));
        const int columns = text.pageCount();
        const int pages = (columns + 1) / 2;
        for (int column = 0; column < columns; ++column) {
            const int page = column / 2 + 1;
            const bool isSecond = column % 2 != 0;
            if (!isSecond && page > 1)
                writer.newPage();
            if (!isSecond) {
                paintTitle(painter, QRectF(QPointF(), QSizeF(paper.width(), head)),
                           OverviewTexts::title(configName));
                painter.drawText(QRectF(0, paper.height() - line, paper.width(), line),
                                 Qt::AlignCenter, OverviewTexts::page(page, pages));
            }
            painter.save();
            painter.translate(isSecond != isMirrored() ? paper.width() - width : 0, head);
            paintColumn(painter, text, column);
            painter.restore();
        }
    }
    return device.write(pdf.data()) == pdf.size();
}

QString saveShortcutOverview(const QString &path, const ActionCatalogue &catalogue,
                             const ActionShortCutList &shortcuts, const QString &configName)
{
    const QString ending = QFileInfo(path).suffix().toLower();
    const bool isHtml = ending == u"html"_s || ending == u"htm"_s;
    const auto write = [&](QIODevice &device) {
        if (!isHtml)
            return writeShortcutOverviewPdf(device, catalogue, shortcuts, configName);
        const QByteArray html = shortcutOverviewHtml(catalogue, shortcuts, configName).toUtf8();
        return device.write(html) == html.size();
    };
    ReplacedFile file(path);
    const bool isWritten = file.Open() && write(file.Device()) && file.Commit();
    return isWritten ? QString() : OverviewTexts::notWritten(path);
}

} // namespace menuconfig
