// SPDX-License-Identifier: GPL-2.0-or-later
// Texts follow the language installed, the toolkit's too.
#include "dxf/sheets/dxftooltexts_p.h"
#include "tests/support/System.h"
#include <QDialogButtonBox>
#include <QPushButton>
#include <QtTest>
#include <kelo_base/core/Translation.h>

using namespace Qt::Literals::StringLiterals;

class TestTranslation : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { InstallTranslation(QLocale::c()); }
    void followsTheLocale_data();
    void followsTheLocale();
    void followsTheEnvironment_data();
    void followsTheEnvironment();
};

void TestTranslation::followsTheLocale_data()
{
    QTest::addColumn<QLocale>("before");
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<bool>("isGerman");
    const QLocale german(QLocale::German);
    const QLocale english(QLocale::English);
    QTest::newRow("German") << english << german << true;
    QTest::newRow("another country's German") << english << QLocale(u"de_AT"_s) << true;
    QTest::newRow("English in place of German") << german << english << false;
    QTest::newRow("a language without catalogue") << german << QLocale(QLocale::Finnish) << false;
    QTest::newRow("no language") << german << QLocale::c() << false;
}

void TestTranslation::followsTheLocale()
{
    QFETCH(const QLocale, before);
    QFETCH(const QLocale, locale);
    QFETCH(const bool, isGerman);
    InstallTranslation(before);
    QCOMPARE(InstallTranslation(locale), isGerman);
    QCOMPARE(DxfToolTexts::SheetsDrawn(1), isGerman ? u"1 Blatt"_s : u"1 sheet"_s);
    QCOMPARE(DxfToolTexts::SheetsDrawn(2), isGerman ? u"2 Blätter"_s : u"2 sheets"_s);
    const QDialogButtonBox box(QDialogButtonBox::Cancel);
    QCOMPARE(box.button(QDialogButtonBox::Cancel)->text().remove(u'&'),
             isGerman ? u"Abbrechen"_s : u"Cancel"_s);
    QCOMPARE(qApp->findChildren<QTranslator *>().size(), isGerman ? 2 : 0);
}

void TestTranslation::followsTheEnvironment_data()
{
    // The toolkit reads the environment once, so a program of its own answers.
    QTest::addColumn<QStringList>("variables");
    QTest::addColumn<bool>("isGerman");
    const auto row = [](const char *name, const QStringList &variables, bool isGerman) {
        QTest::newRow(name) << variables << isGerman;
    };
    row("all", {u"LC_ALL=de_DE.UTF-8"_s, u"LANG=en_US.UTF-8"_s}, true);
    row("messages alone", {u"LC_MESSAGES=de_AT.UTF-8"_s, u"LANG=en_US.UTF-8"_s}, true);
    row("a list of languages", {u"LANG=en_US.UTF-8"_s, u"LANGUAGE=de:en"_s}, true);
    row("a language unknown before", {u"LANG=fi_FI.UTF-8"_s, u"LANGUAGE=fi:de"_s}, true);
    row("English before", {u"LANG=en_US.UTF-8"_s, u"LANGUAGE=en:de"_s}, false);
    row("numbers alone", {u"LC_NUMERIC=de_DE.UTF-8"_s, u"LANG=en_US.UTF-8"_s}, false);
    // As scripts ask for texts that they can read, whatever their user's LANGUAGE.
    row("plain", {u"LC_ALL=C"_s, u"LANG=de_DE.UTF-8"_s, u"LANGUAGE=de"_s}, false);
    row("plain with UTF-8", {u"LANG=C.UTF-8"_s, u"LANGUAGE=de"_s}, false);
    row("nothing", {}, false);
}

void TestTranslation::followsTheEnvironment()
{
    KELO_UNIX_ONLY("the language is a setting there, and no variable");
    QFETCH(const QStringList, variables);
    QFETCH(const bool, isGerman);
    QProcess process;
    QStringList command;
    for (const QString &inherited : {u"LANG"_s, u"LANGUAGE"_s, u"LC_ALL"_s, u"LC_MESSAGES"_s})
        command << u"-u"_s << inherited;
    command << variables << QCoreApplication::applicationFilePath() << u"--text"_s;
    process.start(u"env"_s, command);
    QVERIFY(process.waitForFinished());
    QCOMPARE(QString::fromUtf8(process.readAllStandardOutput()),
             isGerman ? u"Blatt"_s : u"sheet"_s);
}

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    if (app.arguments().value(1) == "--text"_L1) {
        InstallTranslation();
        std::fputs(qUtf8Printable(DxfToolTexts::SheetInPreview()), stdout);
        return 0;
    }
    TestTranslation test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_translation.moc"
