// SPDX-License-Identifier: GPL-2.0-or-later
// The language in which the library and the toolkit speak to people.
#include <kelo_base/core/Translation.h>

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>
#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QLatin1StringView kOurs{"kelo_base_translation"}; // the catalogues' object name

/// Whether the environment asks for the language of programs instead of one of people.
bool isPlainEnvironment()
{
    for (const char *name : {"LC_ALL", "LC_MESSAGES", "LANG"})
        if (const QByteArray value = qgetenv(name); !value.isEmpty())
            return value == "C" || value == "POSIX" || value.startsWith("C.");
    return false;
}

QStringList languagesOf(const QLocale &locale)
{
    const bool isSystem = locale == QLocale::system();
    return isSystem && isPlainEnvironment() ? QStringList() : locale.uiLanguages();
}

std::unique_ptr<QTranslator> catalogue(const QString &name, const QString &folder)
{
    auto translator = std::make_unique<QTranslator>();
    translator->setObjectName(kOurs);
    return translator->load(name, folder) ? std::move(translator) : nullptr;
}

void install(std::unique_ptr<QTranslator> translator)
{
    if (!translator || !QCoreApplication::installTranslator(translator.get()))
        return;
    translator->setParent(QCoreApplication::instance());
    static_cast<void>(translator.release()); // its parent's now
}

} // namespace

bool InstallTranslation(const QLocale &locale)
{
    QCoreApplication *application = QCoreApplication::instance();
    // A translator that dies is no longer asked.
    qDeleteAll(application->findChildren<QTranslator *>(kOurs, Qt::FindDirectChildrenOnly));
    for (const QString &language : languagesOf(locale)) {
        const QLocale spoken(language);
        if (spoken.language() == QLocale::English)
            return false; // preferred to what follows
        auto own = catalogue("kelo_base_"_L1 + spoken.name(), u":/kelo_base/translations"_s);
        if (!own)
            continue;
        install(catalogue("qtbase_"_L1 + spoken.name(),
                          QLibraryInfo::path(QLibraryInfo::TranslationsPath)));
        install(std::move(own));
        return true;
    }
    return false;
}

QString InstalledTranslation()
{
    const auto *ours =
        QCoreApplication::instance()->findChild<QTranslator *>(kOurs, Qt::FindDirectChildrenOnly);
    return ours ? QLocale(ours->language()).bcp47Name() : u"en"_s;
}
