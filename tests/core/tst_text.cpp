// SPDX-License-Identifier: GPL-2.0-or-later
// Texts: narrow and wide, file names, protocol links.
#include <kelo_base/core/FileName.h>
#include <kelo_base/core/ProtocolLink.h>
#include <kelo_base/core/StringTools.h>

#include <QtTest>
#include <memory>

using namespace Qt::Literals::StringLiterals;
using namespace std::string_literals;
using Change = std::string (*)(std::string);

namespace {

/// The in-place form by which one form of text is changed; each wide and copying form must agree.
#define KELO_FORMS(function)                                                                       \
    [](std::string text) {                                                                         \
        std::u16string wide = Tz::StringToWString(text);                                           \
        const std::string copy = Tz::function(std::as_const(text));                                \
        const std::u16string wideCopy = Tz::function(std::as_const(wide));                         \
        Tz::function(text);                                                                        \
        Tz::function(wide);                                                                        \
        const bool agree = copy == text && Tz::WStringToString(wide) == text && wideCopy == wide;  \
        return agree ? text : "forms differ: "s + text;                                            \
    }

/// Replaces by the narrow function, and by the wide one, which must agree.
#define KELO_REPLACED(function, from, to)                                                          \
    [](std::string text) {                                                                         \
        std::u16string wide = Tz::StringToWString(text);                                           \
        Tz::function(text, from, to);                                                              \
        Tz::function(wide, u##from, u##to);                                                        \
        return Tz::WStringToString(wide) == text ? text : "forms differ: "s + text;                \
    }

} // namespace

class TestText : public QObject
{
    Q_OBJECT

private slots:
    void changes_data();
    void changes();
    void widensAndNarrows();
    void narrowsIntoABuffer_data();
    void narrowsIntoABuffer();
    void makesNamesSafe_data();
    void makesNamesSafe();
    void knowsLinks_data();
    void knowsLinks();
};

void TestText::changes_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<std::string>("text");
    QTest::addColumn<std::string>("changed");
    const auto row = [](const char *name, Change change, const std::string &from,
                        const std::string &to) { QTest::newRow(name) << change << from << to; };
    row("pipe to LF", KELO_FORMS(ReplacePipeWithNewLine), "a||b\0|"s, "a\n\nb\0\n"s);
    row("LF to pipe", KELO_FORMS(ReplaceNewLineWithPipe), "\na\r\n"s, "|a\r|"s);
    row("CR LF to pipe", KELO_FORMS(ReplaceCRLFWithPipe), "\r\na\r\r\n\n\r"s, "|a\r|\n\r"s);
    row("pipe to CR LF", KELO_FORMS(ReplacePipeWithCRLF), "|a|"s, "\r\na\r\n"s);
    row("nothing to CR LF", KELO_FORMS(ReplacePipeWithCRLF), ""s, ""s);
    row("character", KELO_REPLACED(ReplaceCharWithChar, 'a', '\0'), "aba"s, "\0b\0"s);
    row("string", KELO_REPLACED(ReplaceStringWithChar, "aa", 'x'), "aaaba"s, "xaba"s);
    row("empty string", KELO_REPLACED(ReplaceStringWithChar, "", 'x'), "ab"s, "ab"s);
    row("by itself", KELO_REPLACED(ReplaceCharWithString, 'a', "aa"), "aba"s, "aabaa"s);
    row("by nothing", KELO_REPLACED(ReplaceCharWithString, 'a', ""), "aba"s, "b"s);
    row(
        "quotes", [](std::string t) { return Tz::MakeQuotedString(t); }, "a\"\0"s, "\"a\"\0\""s);
    const Change toUpper = [](std::string text) { return Tz::ToUpper(text); };
    row("upper case", toUpper, "az1_\0z"s, "AZ1_\0Z"s);
    row("umlauts", toUpper, "\xE4\xF7\xFE"s, "\xC4\xF7\xDE"s);
    row("no room for the upper case", toUpper, "\xB5\xDF\xFF"s, "\xB5\xDF\xFF"s);
}

void TestText::changes()
{
    QFETCH(const Change, change);
    QFETCH(const std::string, text);
    QTEST(change(text), "changed");
}

void TestText::widensAndNarrows()
{
    const std::string narrow = "a\0\xE4\xFF"s;
    const std::u16string wide = u"a\0\u00E4\u00FF"s;
    QCOMPARE(Tz::StringToWString(narrow), wide);
    QCOMPARE(Tz::WStringToString(wide), narrow);
    QCOMPARE(Tz::WStringToString(u"\u20AC"s), "\xAC"s);
    const std::unique_ptr<unsigned short[]> copy(Tz::CharPointerToWCharPointer("\xE4z"));
    QCOMPARE(copy[0], 0xE4);
    QCOMPARE(copy[2], 0);
    const std::unique_ptr<char[]> back(Tz::WCharPointerToCharPointer(copy.get()));
    QCOMPARE(back.get(), "\xE4z");
    QVERIFY(!Tz::CharPointerToWCharPointer(nullptr));
    QVERIFY(!Tz::WCharPointerToCharPointer(nullptr));
    std::string text = "a";
    Tz::AppendString(text, "\0b"s);
    QCOMPARE(text, "a\0b"s);
    QVERIFY(Tz::Contains(text, '\0') && Tz::Contains(u"\u20AC"s, u'\u20AC'));
    QVERIFY(!Tz::Contains(text, 'c') && !Tz::Contains(u""s, u'\0'));
}

void TestText::narrowsIntoABuffer_data()
{
    QTest::addColumn<unsigned int>("size");
    QTest::addColumn<std::string>("buffer");
    QTest::newRow("no room") << 0U << "----"s;
    QTest::newRow("no room for the NUL") << 2U << "----"s;
    QTest::newRow("just enough") << 3U << "ab\0-"s;
}

void TestText::narrowsIntoABuffer()
{
    QFETCH(const unsigned int, size);
    const unsigned short wide[] = {'a', 'b', 0};
    std::string buffer = "----";
    QCOMPARE(Tz::WCharPointerToCharPointer(wide, buffer.data(), size), size >= 3);
    QTEST(buffer, "buffer");
    QVERIFY(!Tz::WCharPointerToCharPointer(nullptr, buffer.data(), 4));
}

void TestText::makesNamesSafe_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("safe");
    QTest::newRow("some") << u"a/b:c&d"_s << u"a_b_c_d"_s;
    QTest::newRow("all twelve") << u"\\/:*?\"<>|\r\n&"_s << u"____________"_s;
    QTest::newRow("the rest stays") << u" Übersicht (1).dxf. "_s << u" Übersicht (1).dxf. "_s;
    QTest::newRow("nothing") << u""_s << u""_s;
}

void TestText::makesNamesSafe()
{
    QFETCH(const QString, name);
    QTEST(NormalizeFileName(name), "safe");
}

void TestText::knowsLinks_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("target");
    QTest::newRow("shell") << u"Shell:calc"_s << u"shell:"_s << u"calc"_s;
    QTest::newRow("ipc") << u"IPC:123"_s << u"ipc:"_s << u"123"_s;
    QTest::newRow("the first colon counts") << u"ipc:ABC:1"_s << u"ipc:"_s << u"ABC:1"_s;
    QTest::newRow("any prefix goes") << u"http://x"_s << u""_s << u"//x"_s;
    QTest::newRow("not in front") << u" ipc:1"_s << u""_s << u"1"_s;
    QTest::newRow("no colon") << u"shell"_s << u""_s << u"shell"_s;
    QTest::newRow("nothing") << u""_s << u""_s << u""_s;
}

void TestText::knowsLinks()
{
    QFETCH(QString, text);
    QFETCH(const QString, kind);
    QCOMPARE(IsShellLink(text), kind == GetShellTargetPrefix());
    QCOMPARE(IsIPCLink(text), kind == GetIPCTargetPrefix());
    QCOMPARE(IsProtocolLink(text), !kind.isEmpty());
    RemoveProtocolPrefix(text);
    QTEST(text, "target");
}

QTEST_APPLESS_MAIN(TestText)
#include "tst_text.moc"
