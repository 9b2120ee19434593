// SPDX-License-Identifier: GPL-2.0-or-later
// Names in the order in which people count, and an application that starts and stops in order.
#include <QCoreApplication>
#include <QSettings>
#include <algorithm>
#include <kelo_base/core/CoreFacade.h>
#include <kelo_base/core/NaturalOrder.h>
#include <kelo_base/core/UserDataManager.h>

using namespace Qt::Literals::StringLiterals;

namespace {

QStringList InOrder(QStringList sheets)
{
    //! [order]
    std::ranges::sort(sheets, caseInsensitiveNaturalOrderLessThen); // Sheet1, sheet2, sheet10
    //! [order]
    return sheets;
}

bool StartAndStop()
{
    bool isOpen = false;
    //! [facade]
    const auto open = [&isOpen](QString &) { return isOpen = true; };
    const auto close = [&isOpen] { isOpen = false; };
    CoreFacadeI &core = CoreFacadeI::Instance();
    core.Join({u"window"_s, open, close, {u"settings"_s}});
    const bool isWhole = core.Start(); // the settings first, then the window
    UserDataManager().GetSettingsConfigFile(DataScopeUser, true).setValue(u"zoom"_s, 4);
    //! [facade]
    const bool wasOpen = isOpen;
    CoreFacadeI::Destroy(); // saves the settings, then closes the window
    return isWhole && wasOpen && !isOpen;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication app(argc, argv);
    QCoreApplication::setOrganizationName(u"kelo"_s);
    QCoreApplication::setApplicationName(u"example"_s);
    const QString order = InOrder({u"sheet10"_s, u"sheet2"_s, u"Sheet1"_s}).join(u' ');
    return order == u"Sheet1 sheet2 sheet10" && StartAndStop() ? 0 : 1;
}
