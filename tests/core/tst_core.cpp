// SPDX-License-Identifier: GPL-2.0-or-later
// Identifiers, texts, natural order, and the small services of the core.
#include "core/platform/platform.h"
#include "tests/support/System.h"
#include <kelo_base/core/FileName.h>
#include <kelo_base/core/History.h>
#include <kelo_base/core/Md5Signator.h>
#include <kelo_base/core/NaturalOrder.h>
#include <kelo_base/core/ObjectId.h>
#include <kelo_base/core/Process.h>
#include <kelo_base/core/ProtocolLink.h>
#include <kelo_base/core/ScopedOverrideCursor.h>
#include <kelo_base/core/StringTools.h>
#include <kelo_base/core/ThreadName.h>
#include <kelo_base/core/Uid.h>

#include <QtTest>
#include <map>
#include <memory>
#include <set>
#include <thread>
#include <unordered_map>

using namespace Qt::Literals::StringLiterals;
using namespace std::string_literals;
using Tz::Bits128;
using Tz::ObjectId;

namespace {

/// Long division, one digit at a time: an independent way to the same digits.
std::string uidByLongDivision(Bits128 value)
{
    std::string digits(25, ' ');
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
        std::uint64_t rest = 0;
        for (const std::size_t word : {3U, 2U, 1U, 0U}) {
            rest = rest << 32 | value.words[word];
            value.words[word] = static_cast<std::uint32_t>(rest / 36);
            rest %= 36;
        }
        *digit = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789"[rest];
    }
    return digits;
}

std::string uidOf(const Bits128 &value, unsigned int digits)
{
    char text[26] = "not written";
    return Tz::CreateUid(text, &value, digits);
}

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

constexpr auto sensitive = caseSensitiveNaturalOrderLessThen;
constexpr auto insensitive = caseInsensitiveNaturalOrderLessThen;

/// The rule by way of tokens: runs of digits, and single characters. Slow, and written differently.
QStringList tokensOf(const QString &text)
{
    QStringList tokens;
    for (qsizetype i = 0; i < text.size() && !text[i].isNull(); ++i) {
        if (i > 0 && text[i].isDigit() && text[i - 1].isDigit())
            tokens.last() += text[i];
        else if (!text[i].isSpace())
            tokens << text[i];
    }
    return tokens;
}

bool comesBefore(const QString &a, const QString &b)
{
    const QStringList x = tokensOf(a), y = tokensOf(b);
    const auto [p, q] = std::mismatch(x.begin(), x.end(), y.begin(), y.end());
    if (p == x.end() || q == y.end())
        return q != y.end();
    const bool areNumbers = p->front().isDigit() && q->front().isDigit();
    const bool areIntegers = areNumbers && p->front() != u'0' && q->front() != u'0';
    return areIntegers && p->size() != q->size() ? p->size() < q->size() : *p < *q;
}

QString randomName(QRandomGenerator &random)
{
    static const QStringView parts[] = {u"0", u"1",      u"9", u"a", u"B",
                                        u" ", u"\u00A0", u"😀", u"€", {u"", 1}};
    QString name;
    for (quint32 length = random.bounded(9U); length > 0; --length)
        name += parts[random.bounded(10U)];
    return name;
}

} // namespace

class TestCore : public QObject
{
    Q_OBJECT

private slots:
    void agreesWithLongDivision()
    {
        QRandomGenerator random(36);
        for (int i = 0; i < 20'000; ++i) {
            Bits128 value; // of words around the borders of the divisions, or any
            for (std::uint32_t &word : value.words)
                word = std::array{0U, 1U, ~0U, 2'176'782'336U, random()}[random.bounded(5U)];
            const std::string all = uidByLongDivision(value);
            QCOMPARE(uidOf(value, 25), all);
            const unsigned int digits = random.bounded(1U, 25U);
            const bool fits = all.find_first_not_of('A') >= 25 - digits;
            QCOMPARE(uidOf(value, digits), fits ? all.substr(25 - digits) : std::string());
        }
        QCOMPARE(uidOf({{35, 0, 0, 0}}, 1), "9"s);
        QVERIFY(uidOf({{36, 0, 0, 0}}, 1).empty() && uidOf({}, 0).empty() && uidOf({}, 26).empty());
        QVERIFY(!Tz::CreateUid(nullptr, std::array<Bits128, 1>().data(), 25));
        char text[26] = "old";
        QCOMPARE(*Tz::CreateUid(text, nullptr, 25), '\0');
    }

    void namesEqualDataEquallyAndNewOnesAnew()
    {
        ObjectId id("OLD");
        id.CreateHashId(nullptr, 3);
        QCOMPARE(id, ObjectId(static_cast<const char *>(nullptr)));
        id.CreateHashId("a", 1); // 0cc175b9c0f1b6a831c399e269772661, a number from its last byte on
        const Bits128 a{{0xb975c10c, 0xa8b6f1c0, 0xe299c331, 0x61267769}};
        QCOMPARE(id.c_str(), uidByLongDivision(a).c_str());
        const QRegularExpression form(u"^[A-P][A-Z0-9]{24}$"_s); // below 2^128
        std::set<ObjectId> made;
        for (int i = 0; i < 1000; ++i)
            QVERIFY(form.match(QLatin1StringView(made.emplace(Tz::kCreateNew).first->c_str()))
                        .hasMatch());
        QCOMPARE(made.size(), 1000U);
    }

    void takesTexts()
    {
        const auto check = [](const std::u16string &text, const std::string &id) {
            ObjectId assigned("an older and longer identifier");
            assigned = ObjectId(text);
            QCOMPARE(std::string(assigned.c_str()), id);
            QCOMPARE(assigned, ObjectId(id + "\0junk"s));
            QCOMPARE(assigned, ObjectId(id.c_str()));
            QCOMPARE(ObjectId(assigned.as_wstring()), assigned);
            QCOMPARE(assigned.as_wstring().size(), id.size());
        };
        check(std::u16string(30, u'X'), std::string(25, 'X'));
        check(u"\u00C4\u0142"s, "\xC4\x42"s); // the low byte counts
        check(u"A\u0100B"s, "A"s);            // and is a NUL here
    }

    void isAKey()
    {
        std::map<ObjectId, int> ordered;
        std::unordered_map<ObjectId, int> hashed;
        QHash<ObjectId, int> qHashed;
        int number = 0;
        for (const ObjectId id : {"\xC4", "B", "AB", "A", ""})
            ordered[id] = hashed[id] = qHashed[id] = ++number;
        for (const auto &[id, i] : ordered) // bytes above 127 come last
            QVERIFY(i == number-- && hashed.at(id) == i && qHashed.value(id) == i);
        QCOMPARE(number, 0);
    }

    void digestsPieces()
    {
        Tz::Md5Signator signator;
        QVERIFY(signator.Add("abc", 2) && signator.Add(nullptr, 0) && signator.Add("c", 1));
        QByteArray first(16, ' '), again(16, ' ');
        QCOMPARE(signator.Signature(first.data()), first.constData());
        QCOMPARE(first.toHex(), "900150983cd24fb0d6963f7d28e17f72"_ba);
        QVERIFY(!signator.Add("more", 4));
        QVERIFY(signator.Signature(again.data()) && again == first);
    }

    void comparesAsPeopleCount()
    {
        /// order: by case, and regardless of it
        const auto check = [](const QString &a, const QString &b, const char *order) {
            for (const auto less : {sensitive, insensitive})
                QCOMPARE(less(a, b) - less(b, a), '=' - *order++);
        };
        check(u"sheet2"_s, u"sheet10"_s, "<<");
        check(u"9"_s.repeated(30), u"1"_s + u"0"_s.repeated(30), "<<"); // beyond 64 bits
        // Digits with a zero in front are read as decimals: .01 before .1
        check(u"x01"_s, u"x1"_s, "<<");
        check(u"x00"_s, u"x001"_s, "<<");
        // With "10" before "a" a circle, as the header says; sorting must not be given such names.
        check(u"a"_s, u"٩"_s, "<<");
        check(u"٩"_s, u"10"_s, "<<");
        check(u"a 1"_s, u" a1\t\u00A0"_s, "==");
        check(u"üBERSICHT7"_s, u"Übersicht 7"_s, ">=");
        check(u"a\0b"_s, u"a"_s, "==");
    }

    void agreesWithTokensAndIsAStrictWeakOrder()
    {
        QRandomGenerator random(10);
        for (int i = 0; i < 50'000; ++i) {
            const QString common = randomName(random), a = common + randomName(random),
                          b = common + randomName(random), c = common + randomName(random);
            QCOMPARE(sensitive(a, b), comesBefore(a, b));
            QCOMPARE(insensitive(a, b), comesBefore(a.toUpper(), b.toUpper()));
            QVERIFY(!sensitive(a, a) && (!sensitive(a, b) || !sensitive(b, a)));
            QVERIFY(!sensitive(a, b) || !sensitive(b, c) || sensitive(a, c));
            // Neither smaller nor greater is transitive as well.
            QVERIFY(!sensitive(a, c) || sensitive(a, b) || sensitive(b, c));
        }
    }

    void changes()
    {
        QCOMPARE(KELO_FORMS(ReplacePipeWithNewLine)("a||b\0|"s), "a\n\nb\0\n"s);
        QCOMPARE(KELO_FORMS(ReplaceNewLineWithPipe)("\na\r\n"s), "|a\r|"s);
        QCOMPARE(KELO_FORMS(ReplaceCRLFWithPipe)("\r\na\r\r\n\n\r"s), "|a\r|\n\r"s);
        QCOMPARE(KELO_FORMS(ReplacePipeWithCRLF)("|a|"s), "\r\na\r\n"s);
        std::string text = "abaaa";
        Tz::ReplaceStringWithChar(text, "", 'x');
        Tz::ReplaceStringWithChar(text, "aa", 'a');
        QCOMPARE(text, "abaa"s);
        Tz::ReplaceCharWithString(text, 'a', "aa");
        QCOMPARE(text, "aabaaaa"s);
        Tz::ReplaceCharWithString(text, 'b', "");
        Tz::ReplaceCharWithChar(text, 'a', '\0');
        Tz::AppendString(text, "\0b"s);
        QCOMPARE(text, "\0\0\0\0\0\0\0b"s);
        std::u16string wide = u"a";
        Tz::AppendString(wide, u"\0b"s);
        QCOMPARE(wide, u"a\0b"s);
        QCOMPARE(Tz::MakeQuotedString("a\"\0"s), "\"a\"\0\""s);
        // What does not fit into a byte as a capital letter stays.
        QCOMPARE(Tz::ToUpper("az1_\0z\xE4\xF7\xFE\xB5\xDF\xFF"s),
                 "AZ1_\0Z\xC4\xF7\xDE\xB5\xDF\xFF"s);
        QVERIFY(Tz::Contains(text, '\0') && Tz::Contains(u"\u20AC"s, u'\u20AC'));
        QVERIFY(!Tz::Contains(text, 'c') && !Tz::Contains(u""s, u'\0'));
    }

    void widensAndNarrows()
    {
        QCOMPARE(Tz::StringToWString("a\0\xE4\xFF"s), u"a\0\u00E4\u00FF"s);
        QCOMPARE(Tz::WStringToString(u"a\0\u00E4\u20AC"s), "a\0\xE4\xAC"s);
        const std::unique_ptr<unsigned short[]> copy(Tz::CharPointerToWCharPointer("\xE4z"));
        QVERIFY(copy[0] == 0xE4 && copy[2] == 0);
        const std::unique_ptr<char[]> back(Tz::WCharPointerToCharPointer(copy.get()));
        QCOMPARE(back.get(), "\xE4z");
        QVERIFY(!Tz::CharPointerToWCharPointer(nullptr) && !Tz::WCharPointerToCharPointer(nullptr));
        char buffer[] = "----";
        QVERIFY(!Tz::WCharPointerToCharPointer(nullptr, buffer, 4));
        QVERIFY(!Tz::WCharPointerToCharPointer(copy.get(), buffer, 2)); // no room for the NUL
        QCOMPARE(buffer, "----");
        QVERIFY(Tz::WCharPointerToCharPointer(copy.get(), buffer, 3));
        QCOMPARE(std::string(buffer, 4), "\xE4z\0-"s);
    }

    void makesFileNamesSafeAndKnowsLinks()
    {
        QCOMPARE(NormalizeFileName(u" \\/:*?\"<>|\r\n& Ü."_s), u" ____________ Ü."_s);
        const auto check = [](QString text, const QString &kind, const QString &target) {
            QCOMPARE(IsShellLink(text), kind == GetShellTargetPrefix());
            QCOMPARE(IsIPCLink(text), kind == GetIPCTargetPrefix());
            QCOMPARE(IsProtocolLink(text), !kind.isEmpty());
            RemoveProtocolPrefix(text);
            QCOMPARE(text, target);
        };
        check(u"Shell:calc"_s, u"shell:"_s, u"calc"_s);
        check(u"IPC:ABC:1"_s, u"ipc:"_s, u"ABC:1"_s);
        check(u"http://x"_s, u""_s, u"//x"_s); // any prefix goes
        check(u" ipc:1"_s, u""_s, u"1"_s);
        check(u"shell"_s, u""_s, u"shell"_s);
    }

    void findsProcesses()
    {
        KELO_UNIX_ONLY("about names that a kernel cuts");
        // The kernel knows 15 characters of this name only; the second argument must not count.
        const QTemporaryDir dir;
        const QString program = dir.filePath(u"a_name_of_more_than_15_letters.exe"_s);
        QVERIFY(QFile::link(u"/bin/sh"_s, program));
        QProcess process;
        process.start(program, {u"-c"_s, u"read line; : no_such_argument_4711"_s});
        QTRY_VERIFY(IsProcessRunning(u"than_15_letters.EXE"_s));
        QVERIFY(!IsProcessRunning(u"no_such_argument_4711"_s));
        process.closeWriteChannel();
        QVERIFY(process.waitForFinished() && !IsProcessRunning(u"than_15_letters"_s));
    }

    void tellsProcessesApart()
    {
        KELO_UNIX_ONLY("about what a process leaves behind; scripts/windows-check looks at it");
        using namespace platform;
        const std::uint64_t own = processStartTime(currentProcess());
        QVERIFY(own > kUnknownStart && isStillRunning(currentProcess(), own));
        QVERIFY(!isStillRunning(currentProcess(), own - 1)); // the number alone is not enough
        const QTemporaryDir dir;
        const QString program = dir.filePath(u"a) S 1 2 (b"_s); // looks like what follows the name
        QVERIFY(QFile::link(QStandardPaths::findExecutable(u"sleep"_s), program));
        const std::uint32_t child = testsystem::startSleeper(program);
        const std::uint64_t start = processStartTime(child);
        QVERIFY(start >= own && isStillRunning(child, start));
        testsystem::end(child);
        QTRY_VERIFY(!isStillRunning(child, start)); // though nobody has waited for it yet
        QVERIFY(testsystem::takeNoteOf(child));
        for (const std::uint32_t none : {0U, child, 0xFFFFFFFFU})
            QCOMPARE(processStartTime(none), 0U);
    }

    void namesThreads()
    {
        KELO_UNIX_ONLY("debuggers alone know them");
        QByteArray name;
        std::thread([&name] {
            SetThreadName("a long worker ü"); // more than the kernel keeps
            SetThreadName(nullptr);
            name = testsystem::threadName();
        }).join();
        QCOMPARE(name, "a long worker "); // never half a character
    }

    void keepsHistories()
    {
        const QTemporaryDir dir;
        QSettings settings(dir.filePath(u"a.ini"_s), QSettings::IniFormat);
        settings.setValue("H/foreign"_L1, 1);
        WriteHistoryToFile(settings, u"H"_s, {u"a"_s, u"b"_s, u"c"_s, u"d"_s});
        const QStringList shorter{u"x, y"_s, u""_s, u"ü\n@"_s};
        WriteHistoryToFile(settings, u"H"_s, shorter);
        QStringList entries{u"kept"_s};
        ReadHistoryFromFile(settings, u"H"_s, entries);
        QCOMPARE(entries, QStringList(u"kept"_s) + shorter);
        QVERIFY(settings.contains("H/foreign"_L1) && !settings.contains("H/MRU.Array/4/Text"_L1));
        QCOMPARE(settings.value("H/MRU.Array/3/Text"_L1), QVariant(shorter.last()));

        WriteHistoryToFile(settings, u"H"_s, {u"a"_s, u"b"_s, u"c"_s});
        settings.remove("H/MRU.Array/2"_L1);
        const auto check = [&](const QString &damagedSize, const QString &read) {
            settings.setValue("H/MRU.Array/size"_L1, damagedSize);
            ReadHistoryFromFile(settings, u"H"_s, entries = {});
            QCOMPARE(entries.join(u','), read);
        };
        check(u"3"_s, u"a,,c"_s);
        check(u"1"_s, u"a"_s);
        check(u"2000000000"_s, u"a,,c"_s);
        check(u"x"_s, u""_s);
    }

    void popsOneCursorMoreAfterRestoring()
    {
        const auto shape = [] {
            const QCursor *const cursor = QGuiApplication::overrideCursor();
            return cursor ? cursor->shape() : Qt::ArrowCursor;
        };
        const qor::QtScopedOverrideCursor outer(Qt::CrossCursor);
        {
            qor::QtScopedOverrideCursor cursor(Qt::WaitCursor);
            cursor = outer; // copies nothing
            QGuiApplication::setOverrideCursor(Qt::BusyCursor);
            cursor.RestoreCursor();
            QCOMPARE(shape(), Qt::WaitCursor);
        }
        QCOMPARE(shape(), Qt::CrossCursor);
    }
};

QTEST_MAIN(TestCore)
#include "tst_core.moc"
