// SPDX-License-Identifier: GPL-2.0-or-later
// The group "viewer/plans" of a project's settings.
#include "PlanState.h"

#include <QFileInfo>
#include <QSettings>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QLatin1StringView kX{"/X"};
constexpr QLatin1StringView kY{"/Y"};
constexpr QLatin1StringView kScale{"/MetresPerPixel"};
constexpr QLatin1StringView kAngle{"/NorthAngle"};
constexpr QLatin1StringView kBackdrop{"/Backdrop"};
constexpr QLatin1StringView kPlaced{"/Placed"};

QString groupOf(const QString &plan)
{
    return u"viewer/plans/"_s + QFileInfo(plan).fileName();
}

} // namespace

Tz::ObjectId projectOf(const QString &plan)
{
    const QByteArray folder = QFileInfo(plan).absolutePath().toUtf8();
    Tz::ObjectId id;
    id.CreateHashId(folder.constData(), static_cast<unsigned int>(folder.size()));
    return id;
}

void writePlanState(QSettings &project, const QString &plan, const PlanState &state)
{
    const QString group = groupOf(plan);
    project.setValue(group + kX, state.pose.middle().x());
    project.setValue(group + kY, state.pose.middle().y());
    project.setValue(group + kScale, state.pose.metresPerPixel());
    project.setValue(group + kAngle, state.pose.angle());
    project.setValue(group + kBackdrop, state.isBackdropShown);
    project.setValue(group + kPlaced, state.isPlaced);
}

std::optional<PlanState> readPlanState(QSettings &project, const QString &plan)
{
    const QString group = groupOf(plan);
    bool areNumbers = true;
    const auto number = [&](QLatin1StringView key) {
        bool isNumber = false;
        const double value = project.value(group + key).toDouble(&isNumber);
        areNumbers = areNumbers && isNumber && std::isfinite(value);
        return value;
    };
    const QPointF middle(number(kX), number(kY));
    const double scale = number(kScale);
    const double angle = number(kAngle);
    if (!areNumbers || scale <= 0)
        return std::nullopt;
    return PlanState{ViewPose(middle, scale, angle),
                     project.value(group + kBackdrop, true).toBool(),
                     project.value(group + kPlaced, false).toBool()};
}
