// SPDX-License-Identifier: GPL-2.0-or-later
// Commands that go out to the partner program.
#include <kelo_base/ipc/KeloIPCCommand.h>

#include "ipc/channel_p.h"

#include <QSettings>
#include <QStringBuilder>
#include <charconv>
#include <iterator>
#include <kelo_base/ipc/KeloIPCFacade.h>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Six decimals, as "%lf" writes them: the exact binary value rounded half to even.
QString decimalText(double value)
{
    char text[320]; // the longest finite double takes 317
    const auto fixed = std::chars_format::fixed;
    const auto [end, error] = std::to_chars(text, std::end(text), value, fixed, 6);
    return QString::fromLatin1(text, end - text);
}

QString item(QLatin1StringView key, const QString &value)
{
    return key % channel::kKeyValueSeparator % value;
}

QString item(QLatin1StringView key, double value)
{
    return item(key, decimalText(value));
}

QString item(QLatin1StringView key, const QPointF &point)
{
    return item(key, decimalText(point.x()) % u';' % decimalText(point.y()));
}

QString polygonItem(const QString &filename)
{
    return item("PolygonFile"_L1, KeloIPCFacadeI::MakeDataFileParameter(filename));
}

} // namespace

KeloIPCCommand::~KeloIPCCommand() = default;

QString KeloIPCCommand::GetParameterText() const
{
    QStringList parameters{item(channel::kBringToFront, m_bringToFront ? u"1"_s : u"0"_s)};
    SaveParameters(parameters);
    return parameters.join(channel::kParameterSeparator);
}

void KeloIPCCommand::SaveToSettings(QSettings &settings) const
{
    settings.setValue(channel::kCommandTypeKey, QString(channel::kNamedCommand));
    settings.setValue(channel::kCommandIdKey, GetCommandName());
    settings.setValue(channel::kParametersKey, GetParameterText());
}

QString MoveToPositionCommand::GetCommandName() const
{
    return u"MoveToPosition"_s;
}

void MoveToPositionCommand::SaveParameters(QStringList &parameters) const
{
    parameters << item("TopLeft"_L1, m_topLeft) << item("BottomRight"_L1, m_bottomRight)
               << item("Center"_L1, m_center) << item(channel::kNorthDeviation, m_northDeviation)
               << item(channel::kViewingHeight, m_viewingHeight);
    if (!m_polygonFilename.isEmpty())
        parameters << polygonItem(m_polygonFilename);
}

QString MoveToObjectCommand::GetCommandName() const
{
    return u"MoveToObject"_s;
}

void MoveToObjectCommand::SaveParameters(QStringList &parameters) const
{
    parameters << item(channel::kObjectId, m_objectId) << item("ClickPosition"_L1, m_clickPosition)
               << item(channel::kNorthDeviation, m_northDeviation)
               << item(channel::kViewingHeight, m_viewingHeight);
}

QString HighlightPolygonsCommand::GetCommandName() const
{
    return u"HighlightPolygons"_s;
}

void HighlightPolygonsCommand::SaveParameters(QStringList &parameters) const
{
    parameters << polygonItem(m_polygonFilename);
}
