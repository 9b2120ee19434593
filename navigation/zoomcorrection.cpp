// SPDX-License-Identifier: GPL-2.0-or-later
// The table of zoom-factor corrections: where it comes from, and what it says of a scale.
#include "core/settings_p.h"
#include "navigation/viewgeometry_p.h"
#include "navigation/zoomcorrection_p.h"
#include <QCoreApplication>
#include <QFile>
#include <cmath>
#include <iterator>
#include <kelo_base/core/Interpolate.h>
#include <optional>

using namespace Qt::Literals::StringLiterals;

namespace zoomcorrection {

namespace {

// Names in the settings file, and of it: a format, never changed.
constexpr QLatin1StringView kDirectory{"/config"};
constexpr QLatin1StringView kFileName{"settings.ini"};
constexpr QLatin1StringView kGroup{"IPC"};
constexpr QLatin1StringView kArray{"HeightScaleFactor"};
constexpr QLatin1StringView kScaleKey{"Scale"};
constexpr QLatin1StringView kFactorKey{"Factor"};

Table builtInTable()
{
    return {{200'000, 40}, {100'000, 30}, {50'000, 23}, {25'000, 20}, {10'000, 18},
            {5'000, 13},   {2'000, 11},   {1'000, 11},  {100, 1}};
}

std::optional<double> finiteNumber(const QVariant &value)
{
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    return isNumber && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

Table readTable(QSettings &settings)
{
    Table table;
    const SettingsGroup group(settings, kGroup);
    const SettingsReadArray array(settings, kArray);
    for (unsigned int i = 0; i < array.size(); ++i) {
        const auto scale = finiteNumber(array.value(i, kScaleKey));
        const auto factor = finiteNumber(array.value(i, kFactorKey));
        if (scale && factor)
            table.insert_or_assign(*scale, viewgeometry::truncated<int>(*factor));
    }
    return table;
}

} // namespace

QString settingsFile()
{
    return QCoreApplication::applicationDirPath() + kDirectory + u'/' + kFileName;
}

Table loadTable(const QString &file)
{
    if (!QFile::exists(file))
        return builtInTable();
    QSettings settings(file, QSettings::IniFormat);
    return readTable(settings);
}

int factorFor(const Table &table, double scale)
{
    const auto above = table.lower_bound(scale); // at the scale itself, if it is there
    if (above == table.end())
        return -1;
    if (above->first == scale || above == table.begin())
        return above->second;
    const auto below = std::prev(above);
    return viewgeometry::truncated<int>(qor::InterpolateValueLinear(
        above->first, above->second, below->first, below->second, scale));
}

} // namespace zoomcorrection
