// SPDX-License-Identifier: GPL-2.0-or-later
// Natural order of names.
#include <kelo_base/core/NaturalOrder.h>

#include <QRegularExpression>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The rule by way of tokens: runs of digits, and single characters. Slow, and written differently.
QStringList tokensOf(const QString &text)
{
    QStringList tokens;
    for (qsizetype i = 0; i < text.size() && !text[i].isNull(); ++i) {
        const bool continues = i > 0 && text[i].isDigit() && text[i - 1].isDigit();
        if (continues)
            tokens.last() += text[i];
        else if (!text[i].isSpace())
            tokens << text[i];
    }
    return tokens;
}

bool comesBefore(const QString &a, const QString &b)
{
    const QStringList x = tokensOf(a);
    const QStringList y = tokensOf(b);
    const auto [p, q] = std::mismatch(x.begin(), x.end(), y.begin(), y.end());
    if (p == x.end() || q == y.end())
        return q != y.end();
    const bool areNumbers = p->front().isDigit() && q->front().isDigit();
    const bool areIntegers = areNumbers && p->front() != u'0' && q->front() != u'0';
    return areIntegers && p->size() != q->size() ? p->size() < q->size() : *p < *q;
}

QString randomName(QRandomGenerator &random)
{
    static const QString parts[] = {u"0"_s, u"1"_s,      u"9"_s, u"a"_s, u"B"_s,
                                    u" "_s, u"\u00A0"_s, u"😀"_s, u"€"_s, QString(u'\0')};
    QString name;
    for (quint32 length = random.bounded(9U); length > 0; --length)
        name += parts[random.bounded(quint32(std::size(parts)))];
    return name;
}

} // namespace

class TestNaturalOrder : public QObject
{
    Q_OBJECT

private slots:
    void comparesAsPeopleCount_data();
    void comparesAsPeopleCount();
    void takesAsEqual_data();
    void takesAsEqual();
    void agreesWithTokens();
    void isAStrictWeakOrder();
    void goesInCirclesWithDigitsOfSeveralScripts();
    void readsLongRunsOnce();
};

void TestNaturalOrder::comparesAsPeopleCount_data()
{
    QTest::addColumn<QString>("smaller");
    QTest::addColumn<QString>("greater");
    QTest::newRow("numbers count as numbers") << u"sheet2"_s << u"sheet10"_s;
    QTest::newRow("equally long ones by their first difference")
        << u"sheet1299"_s << u"sheet1301"_s;
    QTest::newRow("numbers beyond 64 bits") << u"9"_s.repeated(30) << u"1"_s + u"0"_s.repeated(30);
    // Digits with a zero in front are read as decimals: .01 before .1
    QTest::newRow("a leading zero compares from the left") << u"x01"_s << u"x1"_s;
    QTest::newRow("so even a longer one comes first") << u"x0999"_s << u"x1"_s;
    QTest::newRow("a decimal that ends first is smaller") << u"x00"_s << u"x001"_s;
    QTest::newRow("the start of a name") << u"sheet"_s << u"sheet 1"_s;
    QTest::newRow("a blank parts numbers") << u"1 2"_s << u"12"_s;
    QTest::newRow("what follows equal numbers decides") << u"7a9"_s << u"7b1"_s;
    QTest::newRow("digits of another script") << u"٢"_s << u"١٠"_s;
    QTest::newRow("nothing") << u""_s << u"a"_s;
}

void TestNaturalOrder::comparesAsPeopleCount()
{
    QFETCH(const QString, smaller);
    QFETCH(const QString, greater);
    QVERIFY(caseSensitiveNaturalOrderLessThen(smaller, greater));
    QVERIFY(!caseSensitiveNaturalOrderLessThen(greater, smaller));
    QVERIFY(caseInsensitiveNaturalOrderLessThen(smaller, greater));
    QVERIFY(!caseInsensitiveNaturalOrderLessThen(greater, smaller));
}

void TestNaturalOrder::takesAsEqual_data()
{
    QTest::addColumn<QString>("a");
    QTest::addColumn<QString>("b");
    QTest::addColumn<bool>("onlyInsensitively");
    QTest::newRow("nothing") << u""_s << QString() << false;
    QTest::newRow("blanks") << u"a 1"_s << u" a1\t\u00A0"_s << false;
    QTest::newRow("case") << u"Blatt 7"_s << u"bLATT7"_s << true;
    QTest::newRow("umlauts") << u"Übersicht"_s << u"üBERSICHT"_s << true;
    QTest::newRow("what stands behind a NUL") << u"a\0b"_s << u"a"_s << false;
}

void TestNaturalOrder::takesAsEqual()
{
    QFETCH(const QString, a);
    QFETCH(const QString, b);
    QFETCH(const bool, onlyInsensitively);
    QVERIFY(!caseInsensitiveNaturalOrderLessThen(a, b));
    QVERIFY(!caseInsensitiveNaturalOrderLessThen(b, a));
    const bool differs =
        caseSensitiveNaturalOrderLessThen(a, b) || caseSensitiveNaturalOrderLessThen(b, a);
    QCOMPARE(differs, onlyInsensitively);
}

void TestNaturalOrder::agreesWithTokens()
{
    QRandomGenerator random(10);
    for (int i = 0; i < 50'000; ++i) {
        const QString common = randomName(random);
        const QString a = common + randomName(random);
        const QString b = common + randomName(random);
        QCOMPARE(caseSensitiveNaturalOrderLessThen(a, b), comesBefore(a, b));
        QCOMPARE(caseInsensitiveNaturalOrderLessThen(a, b), comesBefore(a.toUpper(), b.toUpper()));
    }
}

void TestNaturalOrder::isAStrictWeakOrder()
{
    QRandomGenerator random(11);
    const auto less = caseSensitiveNaturalOrderLessThen;
    for (int i = 0; i < 50'000; ++i) {
        const QString common = randomName(random);
        const QString a = common + randomName(random);
        const QString b = common + randomName(random);
        const QString c = common + randomName(random);
        QVERIFY(!less(a, a));
        QVERIFY(!less(a, b) || !less(b, a));
        QVERIFY(!less(a, b) || !less(b, c) || less(a, c));
        // Neither smaller nor greater is transitive as well: what is between a and b is so too.
        QVERIFY(!less(a, c) || less(a, b) || less(b, c));
    }
}

/// The exception that the header names; sorting must not be given such names.
void TestNaturalOrder::goesInCirclesWithDigitsOfSeveralScripts()
{
    QVERIFY(caseSensitiveNaturalOrderLessThen(u"10"_s, u"a"_s));
    QVERIFY(caseSensitiveNaturalOrderLessThen(u"a"_s, u"٩"_s));
    QVERIFY(caseSensitiveNaturalOrderLessThen(u"٩"_s, u"10"_s));
}

/// A second look at each digit of a run would take hours here; the time limit of tests would tell.
void TestNaturalOrder::readsLongRunsOnce()
{
    const QString run = u" "_s + u"7"_s.repeated(2'000'000);
    QVERIFY(!caseSensitiveNaturalOrderLessThen(u"a"_s + run, u"a "_s + run));
    QVERIFY(caseSensitiveNaturalOrderLessThen(run + u"1"_s, run + u"2"_s));
}

QTEST_APPLESS_MAIN(TestNaturalOrder)
#include "tst_naturalorder.moc"
