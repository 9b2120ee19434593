// SPDX-License-Identifier: GPL-2.0-or-later
// Settings as INI text: nothing is lost on the way, and damage is noticed.
#include "core/initext_p.h"

#include <QtTest>

using namespace Qt::Literals::StringLiterals;

class TestIniText : public QObject
{
    Q_OBJECT

private slots:
    void losesNothing();
    void noticesWhatItCannotRead_data();
    void noticesWhatItCannotRead();
};

void TestIniText::losesNothing()
{
    const QSettings::SettingsMap values{{u"int"_s, u"-5"_s},
                                        {u"empty"_s, QString()},
                                        {u"G/size"_s, QSize(3, -4)},
                                        {u"G/bytes"_s, QByteArray("\0\xFF(,\")", 6)},
                                        {u"G/list"_s, QStringList({u" a"_s, u"@b"_s, u"c;d"_s})},
                                        {u"General/explicit"_s, u"x"_s},
                                        {u"Straße Nr. 5/\u20AC/a-b_c.d"_s, u"\"ä€😀\", =;\n"_s}};
    const auto text = initext::textOf(values);
    QVERIFY(text);
    const auto back = initext::parse(*text);
    QVERIFY(back && back->isWhole);
    QCOMPARE(back->values, values);
    QCOMPARE(initext::textOf({}), QByteArray());
}

void TestIniText::noticesWhatItCannotRead_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("isWhole");
    QTest::newRow("nothing") << ""_ba << true;
    QTest::newRow("comments and blank lines") << "; a\n\n \t\n[G]\n;b\n"_ba << true;
    QTest::newRow("byte-order mark, no end of line") << "\xEF\xBB\xBF[G]\r\nk=1"_ba << true;
    QTest::newRow("section without end") << "[G\nk=1\n"_ba << false;
    QTest::newRow("line without equal sign") << "[G]\nk=1\nnonsense\n"_ba << false;
    QTest::newRow("zeros, as after a power cut") << QByteArray(64, '\0') << false;
    QTest::newRow("no UTF-8") << "[G]\nk=\xE4\n"_ba << false;
}

void TestIniText::noticesWhatItCannotRead()
{
    QFETCH(const QByteArray, text);
    QTEST(initext::parse(text).value().isWhole, "isWhole");
}

QTEST_GUILESS_MAIN(TestIniText)
#include "tst_initext.moc"
