// SPDX-License-Identifier: GPL-2.0-or-later
// Identifiers, natural order, digests and lookups beside what one would take instead.
#include "core/configfile_p.h"
#include "ratio.h"

#include <kelo_base/core/Md5Signator.h>
#include <kelo_base/core/NaturalOrder.h>
#include <kelo_base/core/ObjectId.h>
#include <kelo_base/core/Uid.h>
#include <kelo_base/core/UserDataManager.h>

#include <QCollator>
#include <QCoreApplication>
#include <QCryptographicHash>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QUuid>
#include <algorithm>
#include <cstdlib>

// Counts what is allocated: Qt's containers come here as well as operator new.
static std::size_t s_allocations = 0;
extern "C" void *__libc_malloc(std::size_t size); // NOLINT: the C library's name
extern "C" void *malloc(std::size_t size)
{
    ++s_allocations;
    return __libc_malloc(size);
}

namespace {

using namespace Qt::Literals::StringLiterals;

/// Reports the allocations of each iteration while it lives.
class AllocationCount
{
public:
    explicit AllocationCount(benchmark::State &state) : m_state(state), m_before(s_allocations) {}
    ~AllocationCount()
    {
        m_state.counters["allocations"] = benchmark::Counter(
            static_cast<double>(s_allocations - m_before), benchmark::Counter::kAvgIterations);
    }
    Q_DISABLE_COPY_MOVE(AllocationCount)

private:
    benchmark::State &m_state;
    std::size_t m_before;
};

// ---- Identifiers -----------------------------------------------------------------------------

Tz::Bits128 someValue()
{
    return {{0x89ABCDEF, 0x01234567, 0xFEDCBA98, 0x76543210}};
}

void uidOurs(benchmark::State &state)
{
    Tz::Bits128 value = someValue();
    char text[26];
    for (auto _ : state) {
        ++value.words[0];
        benchmark::DoNotOptimize(Tz::CreateUid(text, &value, 25));
    }
}

/// The plain way: one digit after the other by long division.
void uidPeer(benchmark::State &state)
{
    Tz::Bits128 value = someValue();
    char text[26] = "";
    for (auto _ : state) {
        ++value.words[0];
        Tz::Bits128 rest = value;
        for (std::size_t digit = 25; digit-- > 0;) {
            std::uint64_t remainder = 0;
            for (std::size_t i = 4; i-- > 0;) {
                const std::uint64_t part = remainder << 32 | rest.words[i];
                rest.words[i] = static_cast<std::uint32_t>(part / 36);
                remainder = part % 36;
            }
            text[digit] = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789"[remainder];
        }
        benchmark::DoNotOptimize(text);
    }
    char ours[26];
    if (std::string(Tz::CreateUid(ours, &value, 25)) != text)
        state.SkipWithError("the digits differ");
}
BENCHMARK(uidOurs);
BENCHMARK(uidPeer);

void randomIdOurs(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(Tz::CreateRandomId());
}

void randomIdPeer(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(QUuid::createUuid());
}
BENCHMARK(randomIdOurs);
BENCHMARK(randomIdPeer);

// ---- Natural order ---------------------------------------------------------------------------

/// As in a plan: some districts, each with numbered sheets, some of them with a suffix. Made once:
/// each time anew they would lie elsewhere in memory, and sorting waits for memory most of all.
const QStringList &sheetNames(qsizetype count)
{
    static QStringList names;
    if (names.size() == count)
        return names;
    QRandomGenerator random(2);
    const QString districts[] = {u"Altstadt"_s, u"Nordring"_s, u"Hafen West"_s, u"Süd"_s,
                                 u"DGK5"_s};
    const QString suffixes[] = {u""_s, u""_s, u"a"_s, u" Blatt 2"_s, u"_v10"_s};
    for (names.clear(); names.size() < count;)
        names << districts[random.bounded(5)] + u' ' + QString::number(random.bounded(20'000)) +
                     suffixes[random.bounded(5)] + u".dxf"_s;
    return names;
}

template <typename Less>
void sortNames(benchmark::State &state, Less less)
{
    const QStringList &names = sheetNames(state.range());
    for (auto _ : state) {
        state.PauseTiming();
        QStringList sorted = names;
        sorted.detach();
        state.ResumeTiming();
        std::sort(sorted.begin(), sorted.end(), less);
        state.PauseTiming();
        if (!std::is_sorted(sorted.cbegin(), sorted.cend(), less))
            state.SkipWithError("not sorted");
        sorted.clear();
        state.ResumeTiming();
    }
}

void againstCollatorOurs(benchmark::State &state)
{
    sortNames(state, caseInsensitiveNaturalOrderLessThen);
}

void againstCollatorPeer(benchmark::State &state)
{
    QCollator collator(QLocale::German); // numeric mode needs a language
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    sortNames(state, [&](const QString &a, const QString &b) { return collator(a, b); });
}

void againstPlainSortOurs(benchmark::State &state)
{
    sortNames(state, caseSensitiveNaturalOrderLessThen);
}

void againstPlainSortPeer(benchmark::State &state)
{
    sortNames(state, [](const QString &a, const QString &b) { return a < b; });
}
BENCHMARK(againstCollatorOurs)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(againstCollatorPeer)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(againstPlainSortOurs)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(againstPlainSortPeer)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

/// Twice the digits are to take twice the time.
void equalDigits(benchmark::State &state)
{
    const QString a = u"7"_s.repeated(state.range());
    const QString b = u' ' + a;
    const AllocationCount count(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(caseInsensitiveNaturalOrderLessThen(a, b));
    state.SetComplexityN(state.range());
}
BENCHMARK(equalDigits)->Arg(100'000)->Arg(200'000)->Complexity(benchmark::oN);

// ---- Digests ---------------------------------------------------------------------------------

constexpr unsigned int kPiece = 4096;

void md5Ours(benchmark::State &state)
{
    const QByteArray piece(kPiece, 'x');
    char digest[16];
    for (auto _ : state) {
        Tz::Md5Signator signator;
        for (int i = 0; i < 256; ++i)
            signator.Add(piece.constData(), kPiece);
        benchmark::DoNotOptimize(signator.Signature(digest));
    }
    state.SetBytesProcessed(state.iterations() * 256 * kPiece);
}

void md5Peer(benchmark::State &state)
{
    const QByteArray piece(kPiece, 'x');
    for (auto _ : state) {
        QCryptographicHash hash(QCryptographicHash::Md5);
        for (int i = 0; i < 256; ++i)
            hash.addData(piece);
        benchmark::DoNotOptimize(hash.resultView());
    }
    state.SetBytesProcessed(state.iterations() * 256 * kPiece);
}
BENCHMARK(md5Ours);
BENCHMARK(md5Peer);

// ---- Saving ----------------------------------------------------------------------------------

/// Changes one of many keys and saves, as a program does that keeps the place of a window.
template <typename Save>
void saveOneKey(benchmark::State &state, QSettings &settings, Save save)
{
    const int keys = static_cast<int>(state.range());
    for (int key = 0; key < keys; ++key)
        settings.setValue(u"Group%1/key%2"_s.arg(key / 20).arg(key),
                          u"some text, and %1"_s.arg(key));
    save();
    int round = 0;
    for (auto _ : state) {
        settings.setValue(u"Group0/key0"_s, ++round);
        save();
    }
    QFile file(settings.fileName());
    const QByteArray last = "key0=" + QByteArray::number(round) + '\n';
    if (!file.open(QIODevice::ReadOnly) || !file.readAll().contains(last))
        state.SkipWithError("not saved");
}

void saveOurs(benchmark::State &state)
{
    const QTemporaryDir directory;
    ConfigFile file(directory.filePath(u"settings.ini"_s));
    saveOneKey(state, file, [&] { file.save(); });
}

void savePeer(benchmark::State &state)
{
    const QTemporaryDir directory;
    QSettings file(directory.filePath(u"settings.ini"_s), QSettings::IniFormat);
    saveOneKey(state, file, [&] { file.sync(); });
}
BENCHMARK(saveOurs)->Arg(200)->Arg(5'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(savePeer)->Arg(200)->Arg(5'000)->Unit(benchmark::kMicrosecond);

// ---- Lookups ---------------------------------------------------------------------------------

/// A manager in a home of its own.
class Manager
{
public:
    Manager()
    {
        qputenv("HOME", QFile::encodeName(m_home.path()));
        QCoreApplication::setOrganizationName(u"Organisation"_s);
        QCoreApplication::setApplicationName(u"Application"_s);
    }
    ~Manager() { UserDataManagerI::Destroy(); }
    Q_DISABLE_COPY_MOVE(Manager)
    UserDataManagerI *operator->() const { return &UserDataManager(); }

private:
    QTemporaryDir m_home;
};

template <typename Lookup>
void lookUp(benchmark::State &state, Lookup lookup)
{
    const Manager manager;
    const QString name = u"file.txt"_s;
    benchmark::DoNotOptimize(lookup(manager, name));
    const AllocationCount count(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(lookup(manager, name));
}

void baseDirectory(benchmark::State &state)
{
    lookUp(state,
           [](const Manager &m, const QString &) { return m->GetStorageBaseDirectory(false); });
}

void fileOfScope(benchmark::State &state)
{
    lookUp(state, [](const Manager &m, const QString &) {
        return &m->GetSettingsConfigFile(DataScopeUser, true);
    });
}

void userFilePath(benchmark::State &state) // one allocation: the result
{
    lookUp(state, [](const Manager &m, const QString &name) {
        return m->GetPathForUserSpecificFile(name);
    });
}
BENCHMARK(baseDirectory);
BENCHMARK(fileOfScope);
BENCHMARK(userFilePath);

} // namespace

KELO_RATIO_MAIN()
