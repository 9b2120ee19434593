// SPDX-License-Identifier: GPL-2.0-or-later
// Finds, reads and remembers style sheets.
#include <kelo_base/actions/StyleSheet.h>

#include "core/programfiles_p.h"
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <algorithm>
#include <kelo_base/core/NaturalOrder.h>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QLatin1StringView kFileKey{"MenuConfigDialog/StyleSheetFile"}; ///< a format

struct StyleTexts
{
    Q_DECLARE_TR_FUNCTIONS(StyleSheet)
};

} // namespace

QStringList StyleSheetFiles()
{
    QStringList files =
        QDir(styleSheetFolder()).entryList({u"*.stylesheet"_s}, QDir::Files, QDir::NoSort);
    std::sort(files.begin(), files.end(), caseInsensitiveNaturalOrderLessThen);
    return files;
}

QString UseStyleSheet(const QString &file)
{
    QFile source(styleSheetFolder() + u'/' + file);
    QString sheet;
    if (!file.isEmpty() && source.open(QIODevice::ReadOnly))
        sheet = QString::fromUtf8(source.readAll());
    if (source.error() != QFile::NoError)
        return StyleTexts::tr("The style sheet %1 could not be read: %2.")
            .arg(QDir::toNativeSeparators(source.fileName()), source.errorString());
    qApp->setStyleSheet(sheet);
    return QString();
}

QString StoredStyleSheet(const QSettings &settings)
{
    return settings.value(kFileKey).toString();
}

void StoreStyleSheet(QSettings &settings, const QString &file)
{
    if (file.isEmpty())
        settings.remove(kFileKey);
    else
        settings.setValue(kFileKey, file);
}
