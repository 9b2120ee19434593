// SPDX-License-Identifier: GPL-2.0-or-later
// The guards around settings arrays.
#include "core/settings_p.h"
#include <QtTest>

using namespace Qt::Literals::StringLiterals;

class TestSettings : public QObject
{
    Q_OBJECT

private slots:
    void limitsSizesFromDisk_data();
    void limitsSizesFromDisk();
    void leavesNoStaleElements();
};

void TestSettings::limitsSizesFromDisk_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<unsigned int>("size");
    QTest::newRow("plain") << u"3"_s << 3U;
    QTest::newRow("negative") << u"-5"_s << 0U;
    QTest::newRow("two billion") << u"2000000000"_s << 100'000U;
    QTest::newRow("no number") << u"many"_s << 0U;
}

void TestSettings::limitsSizesFromDisk()
{
    QFETCH(const QString, stored);
    QFETCH(const unsigned int, size);
    const QTemporaryDir dir;
    QSettings settings(dir.filePath(u"a.ini"_s), QSettings::IniFormat);
    settings.setValue("Menus/size"_L1, stored);
    QCOMPARE(SettingsReadArray(settings, "Menus"_L1).size(), size);
}

void TestSettings::leavesNoStaleElements()
{
    const QTemporaryDir dir;
    QSettings settings(dir.filePath(u"a.ini"_s), QSettings::IniFormat);
    settings.setValue("G/foreign"_L1, 1);
    for (const int count : {3, 1}) {
        const SettingsGroup group(settings, "G"_L1);
        SettingsWriteArray array(settings, "A"_L1);
        for (int i = 0; i < count; ++i) {
            array.nextElement();
            array.setValue("K"_L1, i);
        }
    }
    QCOMPARE(settings.allKeys(), QStringList({u"G/A/1/K"_s, u"G/A/size"_s, u"G/foreign"_s}));
}

QTEST_GUILESS_MAIN(TestSettings)
#include "tst_settings.moc"
