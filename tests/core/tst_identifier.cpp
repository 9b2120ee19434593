// SPDX-License-Identifier: GPL-2.0-or-later
// Identifiers, and the digests behind some of them.
#include <kelo_base/core/Md5Signator.h>
#include <kelo_base/core/ObjectId.h>
#include <kelo_base/core/Uid.h>

#include <QHash>
#include <QtTest>
#include <map>
#include <unordered_map>

using Tz::Bits128;
using Tz::ObjectId;

namespace {

/// Long division in bytes, one digit at a time: an independent way to the same digits.
std::string uidByLongDivision(const Bits128 &value)
{
    std::string digits(25, 'A');
    unsigned char bytes[16]; // the most significant one first
    for (std::size_t i = 0; i < 16; ++i)
        bytes[15 - i] = static_cast<unsigned char>(value.words[i / 4] >> (8 * (i % 4)));
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
        unsigned int remainder = 0;
        for (unsigned char &byte : bytes) {
            const unsigned int part = remainder * 256 + byte;
            byte = static_cast<unsigned char>(part / 36);
            remainder = part % 36;
        }
        *digit = static_cast<char>(remainder < 26 ? 'A' + remainder : '0' + remainder - 26);
    }
    return digits;
}

std::string uidOf(const Bits128 &value, unsigned int digits)
{
    char text[26] = "not written";
    return Tz::CreateUid(text, &value, digits);
}

/// Words of few bits, of all bits, and of any: borders of the divisions come up often.
Bits128 randomValue(QRandomGenerator &random)
{
    Bits128 value;
    for (std::uint32_t &word : value.words) {
        const std::uint32_t words[] = {0, 1, ~0U, 2'176'782'336U, 2'176'782'335U, random()};
        word = words[random.bounded(6)];
    }
    return value;
}

} // namespace

class TestIdentifier : public QObject
{
    Q_OBJECT

private slots:
    void agreesWithLongDivision();
    void refusesWhatDoesNotFit_data();
    void refusesWhatDoesNotFit();
    void survivesNullPointers();
    void readsBytesFromTheLeastSignificant();
    void namesEqualDataEqually();
    void makesNewOnes();
    void takesTexts_data();
    void takesTexts();
    void isAKey();
    void digestsPieces_data();
    void digestsPieces();
};

void TestIdentifier::agreesWithLongDivision()
{
    QRandomGenerator random(36);
    for (int i = 0; i < 20'000; ++i) {
        const Bits128 value = randomValue(random);
        const std::string all = uidByLongDivision(value);
        QCOMPARE(uidOf(value, 25), all);
        const unsigned int digits = random.bounded(1U, 25U);
        const bool fits = all.find_first_not_of('A') >= 25 - digits;
        QCOMPARE(uidOf(value, digits), fits ? all.substr(25 - digits) : std::string());
    }
}

void TestIdentifier::refusesWhatDoesNotFit_data()
{
    QTest::addColumn<quint32>("value");
    QTest::addColumn<unsigned int>("digits");
    QTest::addColumn<std::string>("uid");
    QTest::newRow("no digits") << 0U << 0U << std::string();
    QTest::newRow("too many digits") << 0U << 26U << std::string();
    QTest::newRow("the greatest digit") << 35U << 1U << std::string("9");
    QTest::newRow("one more than a digit holds") << 36U << 1U << std::string();
    QTest::newRow("filled up in front") << 36U << 3U << std::string("ABA");
    QTest::newRow("zero") << 0U << 25U << std::string(25, 'A');
}

void TestIdentifier::refusesWhatDoesNotFit()
{
    QFETCH(const quint32, value);
    QFETCH(const unsigned int, digits);
    QTEST(uidOf({{value, 0, 0, 0}}, digits), "uid");
}

void TestIdentifier::survivesNullPointers()
{
    char text[26] = "old";
    const Bits128 value;
    QVERIFY(!Tz::CreateUid(nullptr, &value, 25));
    QCOMPARE(*Tz::CreateUid(text, nullptr, 25), '\0');
    QCOMPARE(*Tz::CreateHashUid25(text, nullptr, 3), '\0');
    QVERIFY(ObjectId(static_cast<const char *>(nullptr)).IsEmpty());
    ObjectId id("OLD");
    id.CreateHashId(nullptr, 3);
    QCOMPARE(id, ObjectId());
}

void TestIdentifier::readsBytesFromTheLeastSignificant()
{
    const unsigned char bytes[16] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    QCOMPARE(Bits128::FromBytes(bytes),
             (Bits128{{0x04030201, 0x08070605, 0x0C0B0A09, 0x100F0E0D}}));
}

void TestIdentifier::namesEqualDataEqually()
{
    // The MD5 of nothing, d41d8cd98f00b204e9800998ecf8427e, as a number from its last byte on.
    const Bits128 empty{{0xd98c1dd4, 0x04b2008f, 0x980980e9, 0x7e42f8ec}};
    ObjectId id;
    id.CreateHashId(nullptr, 0);
    QCOMPARE(id.c_str(), uidByLongDivision(empty).c_str());
    ObjectId other;
    other.CreateHashId("a", 1);
    QVERIFY(id != other);
    id.CreateHashId("a", 1);
    QCOMPARE(id, other);
}

void TestIdentifier::makesNewOnes()
{
    const QRegularExpression form(QStringLiteral("^[A-P][A-Z0-9]{24}$")); // below 2^128
    QSet<ObjectId> made;
    for (int i = 0; i < 1000; ++i) {
        const ObjectId id = Tz::CreateRandomId();
        QVERIFY(form.match(QString::fromLatin1(id.c_str())).hasMatch());
        made << id;
    }
    QCOMPARE(made.size(), 1000);
}

void TestIdentifier::takesTexts_data()
{
    QTest::addColumn<std::u16string>("text");
    QTest::addColumn<std::string>("id");
    QTest::newRow("empty") << std::u16string() << std::string();
    QTest::newRow("30 characters") << std::u16string(30, u'X') << std::string(25, 'X');
    QTest::newRow("25 characters") << std::u16string(25, u'X') << std::string(25, 'X');
    QTest::newRow("umlaut") << std::u16string(u"\u00C4B")
                            << std::string("\xC4"
                                           "B");
    QTest::newRow("a NUL ends it") << std::u16string(u"A\0B", 3) << std::string("A");
    QTest::newRow("the low byte counts") << std::u16string(u"A\u0142B") << std::string("ABB");
    QTest::newRow("a low byte of 0 ends it") << std::u16string(u"A\u0100B") << std::string("A");
}

void TestIdentifier::takesTexts()
{
    QFETCH(const std::u16string, text);
    QFETCH(const std::string, id);
    ObjectId assigned("an older and longer identifier");
    assigned = ObjectId(text);
    QCOMPARE(std::string(assigned.c_str()), id);
    QCOMPARE(assigned, ObjectId(id + std::string("\0junk", 5)));
    QCOMPARE(assigned, ObjectId(id.c_str()));
    QCOMPARE(assigned.IsEmpty(), id.empty());
    QCOMPARE(ObjectId(assigned.as_wstring()), assigned);
    QCOMPARE(assigned.as_wstring().size(), id.size());
}

void TestIdentifier::isAKey()
{
    const ObjectId ids[] = {ObjectId(), ObjectId("A"), ObjectId("AB"), ObjectId("B"),
                            ObjectId("\xC4")};
    std::map<ObjectId, int> ordered;
    std::unordered_map<ObjectId, int> hashed;
    QHash<ObjectId, int> qHashed;
    for (int i = 4; i >= 0; --i)
        ordered[ids[i]] = hashed[ids[i]] = qHashed[ids[i]] = i;
    int expected = 0;
    for (const auto &[id, i] : ordered) { // bytes above 127 come last
        QCOMPARE(i, expected++);
        QCOMPARE(hashed.at(id), i);
        QCOMPARE(qHashed.value(id), i);
    }
    QCOMPARE(expected, 5);
}

void TestIdentifier::digestsPieces_data()
{
    QTest::addColumn<unsigned int>("length");
    for (const unsigned int length : {0U, 1U, 55U, 56U, 63U, 64U, 65U, 1000U}) // around a block
        QTest::addRow("%u bytes", length) << length;
}

void TestIdentifier::digestsPieces()
{
    QFETCH(const unsigned int, length);
    const QByteArray data(length, '\xE4');
    Tz::Md5Signator signator;
    QVERIFY(signator.Add(data.data(), length / 3));
    QVERIFY(signator.Add(nullptr, 0));
    QVERIFY(signator.Add(data.data() + length / 3, length - length / 3));
    QByteArray digest(16, ' ');
    QCOMPARE(signator.Signature(digest.data()), digest.constData());
    QCOMPARE(digest, QCryptographicHash::hash(data, QCryptographicHash::Md5));
    QVERIFY(!signator.Add("more", 4));
    QByteArray again(16, ' ');
    signator.Signature(again.data());
    QCOMPARE(again, digest);
}

QTEST_GUILESS_MAIN(TestIdentifier)
#include "tst_identifier.moc"
