// SPDX-License-Identifier: GPL-2.0-or-later
// INI text: the toolkit's own INI format has to write and read the same.
#include "core/initext_p.h"

#include <QtTest>

using namespace Qt::Literals::StringLiterals;
using Settings = QSettings::SettingsMap;

class TestIniText : public QObject
{
    Q_OBJECT

private slots:
    void writesWhatTheToolkitWrites();
    void readsWhatTheToolkitReads();
    void noticesWhatItCannotRead_data();
    void noticesWhatItCannotRead();

private:
    QString newFile() { return m_dir.filePath(u"%1.ini"_s.arg(++m_files)); }
    QByteArray writtenByToolkit(const Settings &values);
    Settings readByToolkit(const QByteArray &text);

    QTemporaryDir m_dir;
    int m_files = 0; // the toolkit remembers files by name
};

QByteArray TestIniText::writtenByToolkit(const Settings &values)
{
    QSettings settings(newFile(), QSettings::IniFormat);
    for (auto value = values.begin(); value != values.end(); ++value)
        settings.setValue(value.key(), value.value());
    settings.sync();
    QFile file(settings.fileName());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

Settings TestIniText::readByToolkit(const QByteArray &text)
{
    QFile file(newFile());
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        return {};
    file.close();
    const QSettings settings(file.fileName(), QSettings::IniFormat);
    Settings values;
    for (const QString &key : settings.allKeys())
        values.insert(key, settings.value(key));
    return values;
}

void TestIniText::writesWhatTheToolkitWrites()
{
    Settings values{{u"int"_s, -5},
                    {u"double"_s, 0.1},
                    {u"bool"_s, true},
                    {u"empty"_s, QString()},
                    {u"G/nothing"_s, QVariant()},
                    {u"G/size"_s, QSize(3, -4)},
                    {u"G/point"_s, QPoint(-1, 2)},
                    {u"G/rect"_s, QRect(1, 2, 30, 40)},
                    {u"G/bytes"_s, QByteArray("\0\xFF(,\")", 6)},
                    {u"G/float point"_s, QPointF(0.5, -1)},
                    {u"G/when"_s, QDateTime(QDate(2026, 11, 24), QTime(1, 2, 3), Qt::UTC)},
                    {u"G/none"_s, QStringList()},
                    {u"G/one"_s, QStringList(u"a, b"_s)},
                    {u"G/list"_s, QStringList({u" a"_s, u"@b"_s, u""_s, u"c;d"_s})},
                    {u"G/mixed"_s, QVariantList({1, QSize(1, 2), u"x"_s})},
                    {u"General/explicit"_s, 1},
                    {u"Straße Nr. 5/\u20AC/a-b_c.d\\e"_s, 1}};
    const QString parts[] = {u"a"_s,  u"F1"_s,   u"@"_s,    u"@@"_s,  u"@Size(1 2)"_s, u"\""_s,
                             u"\\"_s, u","_s,    u";"_s,    u"="_s,   u" "_s,          u"\t"_s,
                             u"\n"_s, u"\x01"_s, u"\x7F"_s, u"ä€😀"_s, QString(u'\0')};
    QRandomGenerator random(5);
    for (int i = 0; i < 3000; ++i) {
        QString text;
        for (quint32 length = random.bounded(5U); length > 0; --length)
            text += parts[random.bounded(quint32(std::size(parts)))];
        values.insert(u"Texts/%1"_s.arg(i), text);
    }
    const QByteArray text = initext::textOf(values);
    QCOMPARE(text.split('\n'), writtenByToolkit(values).split('\n'));
    const initext::Parsed back = initext::parse(text);
    QVERIFY(back.isWhole);
    QCOMPARE(back.values, readByToolkit(text));
    QCOMPARE(back.values.size(), values.size());
    QCOMPARE(back.values.value(u"G/bytes"_s), values.value(u"G/bytes"_s));
    QCOMPARE(initext::textOf({}), QByteArray());
}

void TestIniText::readsWhatTheToolkitReads()
{
    const QByteArray parts[] = {"\n",
                                "\n",
                                "=",
                                "=",
                                "[a]\n",
                                "[General]\n",
                                "[%General]\n",
                                "a",
                                "k",
                                "\"",
                                "\\",
                                ",",
                                ";",
                                " ",
                                "\t",
                                "\r\n",
                                "\\x41",
                                "\\101",
                                "%41",
                                "%U0041",
                                "%",
                                "@",
                                "@Invalid()",
                                "@Size(1 2)",
                                "@ByteArray(x)",
                                "@Rect(1 2 3)",
                                "\\\n",
                                "ä",
                                "B",
                                "]",
                                "[",
                                "#"};
    QRandomGenerator random(6);
    for (int i = 0; i < 3000; ++i) {
        QByteArray text = "k=";
        for (quint32 length = random.bounded(14U); length > 0; --length)
            text += parts[random.bounded(quint32(std::size(parts)))];
        QVERIFY2(initext::parse(text).values == readByToolkit(text), text.constData());
    }
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
    QTEST(initext::parse(text).isWhole, "isWhole");
}

QTEST_GUILESS_MAIN(TestIniText)
#include "tst_initext.moc"
