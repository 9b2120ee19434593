// SPDX-License-Identifier: GPL-2.0-or-later
// Data scopes: paths, files and their text, signals.
#include "core/initext_p.h"
#include "tests/support/FileBytes.h"
#include "tests/support/MessageLog.h"
#include "tests/support/System.h"
#include "tests/support/TemporaryHome.h"

#include <kelo_base/core/UserDataManager.h>

#include <QLockFile>
#include <optional>
#include <stdexcept>

using namespace Qt::Literals::StringLiterals;
using Tz::ObjectId;

namespace {

QStringList copiesOf(const QString &fileName)
{
    const QFileInfo file(fileName);
    return file.dir().entryList({file.fileName() + u".broken*"_s});
}

/// @param ours  answers for keys that the toolkit has, but does not hand out (with "//" in them)
QSettings::SettingsMap readByToolkit(const QString &fileName, const QByteArray &text,
                                     const QSettings::SettingsMap &ours)
{
    writeBytes(fileName, text);
    const QSettings settings(fileName, QSettings::IniFormat);
    QSettings::SettingsMap values;
    for (const QString &key : settings.allKeys()) {
        const QStringList names = key.split(u'/');
        const bool isHandedOut = !names.contains(QString()) && settings.contains(key);
        values.insert(key, isHandedOut ? settings.value(key) : ours.value(key));
    }
    return values;
}

} // namespace

/// Every test begins with a home of its own and without a manager.
class TestUserData : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        QCoreApplication::setOrganizationName(u"/Büro & Co/"_s);
        QCoreApplication::setApplicationName(u"Karten"_s); // temporary directories bear it as well
        m_home.emplace();
        m_base = m_home->filePath(u"Documents/Büro & Co/Karten"_s);
        m_file = m_base + u"/config/settings.ini"_s;
    }

    void cleanup() { UserDataManagerI::Destroy(); }

    void noticesDamagedText()
    {
        for (const char *whole :
             {"", "; a\n\n \t\n[G] \n;b\n", "\xEF\xBB\xBF[G]\r\nk=1", "k=\"a;\";b\"\nl=1\\\n2"})
            QVERIFY(initext::parse(whole).isWhole);
        for (const char *damaged :
             {"[G\nk=1\n", "[G]\nk=1\nnonsense\n", "[G]\nk=\xE4\n", "[G] k=1\n", "k=\"a\nl=\"b\n",
              "k=1\nl=\"a", "k=@Variant(\\0\\0)", "k=1, @DateTime(x)\n"})
            QVERIFY2(!initext::parse(damaged).isWhole, damaged);
        QVERIFY(!initext::parse(QByteArray(64, '\0')).isWhole); // as after a power cut
    }

    /// Texts of all that has a meaning, mixed at random, and the same as values.
    void readsAndWritesAsTheToolkitDoes()
    {
        const QByteArrayList parts =
            QByteArray("=|\n|\r\n|\"|\\|,|;| |[|]\n|%|U|00E4|41|x1|@|@@|@Size(|1 |)|\\x8|\\0|\\n|"
                       "@Point(|a|B|k=|\t|\\t|\xC3\xA4|[%gEneral]\n|[General]\n|@String(|@Variant(|"
                       "\xF0\x9F\x98\x80|general|\n[G")
                .split('|');
        QRandomGenerator random(13);
        for (int round = 0; round < 3000; ++round) {
            QByteArray text;
            for (quint32 length = random.bounded(40U); length > 0; --length)
                text += parts[random.bounded(int(parts.size()))];
            // The toolkit remembers files: another of equal name, size and time would not be read.
            const QString name = m_home->filePath(u"%1-%2.ini"_s.arg(round));
            const QSettings::SettingsMap ours = initext::parse(text).values;
            QCOMPARE(ours, readByToolkit(name.arg(1), text, ours));
            const QByteArray written = initext::textOf(ours);
            const QSettings::SettingsMap again = initext::parse(written).values;
            QCOMPARE(again, readByToolkit(name.arg(2), written, again));
            QCOMPARE(initext::textOf(again), written);
        }
    }

    void losesNoValueInText()
    {
        KELO_UNIX_ONLY("the toolkit's own files, to which it compares, ignore case there");
        const QSettings::SettingsMap values{
            {u"empty"_s, QString()},
            {u"G/size"_s, QSize(3, -4)},
            {u"G/bytes"_s, QByteArray("\0\xFF(,\")", 6)},
            {u"G/list"_s, QStringList({u" a"_s, u"@b"_s, u"c;d"_s})},
            {u"G/lists"_s, QVariantList({QRect(1, -2, 3, 4), QVariant(), u"\1f\0"_s})},
            {u"G/none"_s, QVariantList()},
            {u"G/one"_s, QVariantList{QVariant(1.5)}},
            {u"G/time"_s, QDateTime(QDate(2026, 1, 2), QTime(3, 4), Qt::UTC)},
            {u"G/number"_s, 0.1},
            {u"G/char"_s, QChar(u'x')},
            {u"G/map"_s, QVariantMap({{u"a"_s, 1}})},
            {u"General/explicit"_s, u"x"_s},
            {u"general/other case"_s, u"y"_s},
            {u"GENERAL/"_s, u"no key"_s},
            {u""_s, u"neither key nor group"_s},
            {u"/"_s, u"empty ones"_s},
            {u"G/a/"_s, u"its end"_s},
            {u"Straße Nr. 5/\u20AC/a-b_c.d"_s, u"\"ä€😀\", =;\n"_s}};
        const QByteArray text = initext::textOf(values);
        QSettings::SettingsMap read = initext::parse(text).values;
        QCOMPARE(read, readByToolkit(m_home->filePath(u"t.ini"_s), text, read));
        QCOMPARE(read[u"G/number"_s].toDouble(), 0.1); // the toolkit makes a text of it,
        QVERIFY(!read[u"G/none"_s].isValid());         // and nothing of an empty list
        read[u"G/number"_s] = 0.1;
        read[u"G/none"_s] = QVariantList();
        for (auto value = values.begin(); value != values.end(); ++value)
            QCOMPARE(read.take(value.key()), value.value());
        QVERIFY(read.isEmpty());
        // Beyond the toolkit's own: halves of pairs and the byte-order mark come back too.
        const QSettings::SettingsMap odd{{u"k"_s, QString(QChar(0xD83D)) + u"d\uFEFF"_s},
                                         {u"l"_s, u"\uFEFF"_s + QChar(0xDE00)}};
        QCOMPARE(initext::parse(initext::textOf(odd)).values, odd);
        QCOMPARE(initext::parse("k=\uFEFFa\\t\uFEFF").values[u"k"_s], u"\uFEFFa\t\uFEFF"_s);
    }

    void composesPaths()
    {
        const UserDataManagerI &manager = UserDataManager();
        QCOMPARE(manager.GetStorageBaseDirectory(false), m_base);
        QCOMPARE(manager.GetPathForUserSpecificFile(u"n"_s), m_base + u"/n"_s);
        QCOMPARE(manager.MakeSettingsConfigFilename(), m_file);
        QCOMPARE(manager.GetStorageDirectoryForModule(u"m"_s, false), m_base + u"/data/m"_s);
        QCOMPARE(manager.GetPathForModuleSpecificFile(u"m"_s, u"n"_s), m_base + u"/data/m/n"_s);
        const auto check = [&](const ObjectId &id, bool hasProjectsFolder, const QString &project) {
            UserDataManager().SetUseProjectSubDirectory(hasProjectsFolder);
            const QString p = m_base + project, pm = p + u"/data/m"_s;
            QCOMPARE(manager.GetStorageDirectoryForProject(id), p);
            QCOMPARE(manager.GetPathForProjectSpecificFile(id, u"n"_s), p + u"/n"_s);
            QCOMPARE(manager.MakeSettingsConfigFilename(id), p + u"/config/settings.ini"_s);
            QCOMPARE(manager.GetStorageDirectoryForProjectModule(id, u"m"_s, false), pm);
            QCOMPARE(manager.GetPathForProjectModuleSpecificFile(id, u"m"_s, u"n"_s), pm + u"/n"_s);
        };
        check(ObjectId("\xC4"), false, u"/Ä"_s);
        check(ObjectId(), true, u"/projects/0"_s);
        QVERIFY(!QFileInfo::exists(m_home->filePath(u"Documents"_s))); // nothing was prepared
        for (const QString &path : {manager.GetStorageDirectoryForProjectModule({}, u"m"_s, true),
                                    manager.GetStorageDirectoryForModule(u"m"_s, true)})
            QVERIFY(QFileInfo(path).isDir());
        manager.PrepareStorageDirectoryForProject(ObjectId("Q"));
        QVERIFY(QFileInfo(m_base + u"/projects/Q"_s).isDir());
    }

    void findsTheFileOfAScope()
    {
        /// flags: s for strict, u and p while the user's and the project's files are open
        const auto check = [this](int scope, QStringView flags, QString file, bool logs) {
            UserDataManagerI &manager = UserDataManager();
            if (!flags.contains(u'u'))
                manager.CloseUserConfigFiles();
            if (flags.contains(u'p'))
                manager.OpenProjectConfigFiles(ObjectId("P"));
            QCOMPARE(manager.HasOpenProject(), flags.contains(u'p'));
            QString line = u"UserDataManagerI::GetLayoutConfigFile : Requested data scope  %1 "
                           "not available"_s;
            for (const auto get : {&UserDataManagerI::GetLayoutConfigFile,
                                   &UserDataManagerI::GetSettingsConfigFile}) {
                const MessageLog log;
                try {
                    QCOMPARE((manager.*get)(DataScopeId(scope), flags.contains(u's')).fileName(),
                             m_base + file);
                } catch (const std::runtime_error &error) {
                    QCOMPARE(QString::fromLatin1(error.what()), file);
                }
                QCOMPARE(log.lines(), logs ? QStringList(line.arg(scope)) : QStringList());
                line.replace(u"Layout"_s, u"Settings"_s);
                file.replace(u"layout"_s, u"settings"_s);
            }
            UserDataManagerI::Destroy();
        };
        const QString user = u"/config/layout.ini"_s, none = u"Invalid Scope"_s;
        check(0, u"su", user, false);
        check(1, u"sup", u"/P"_s + user, false);
        check(1, u"p", u"/P"_s + user, false);
        check(1, u"u", user, true);
        check(1, u"su", none, false);
        check(2, u"up", user, true);
        check(2, u"sup", none, false);
        check(0, u"p", none, true);
    }

    void savesWhatListenersPut()
    {
        UserDataManagerI &manager = UserDataManager();
        int announced = 0;
        connect(&manager, &UserDataManagerI::onSavingUserConfigFiles, this,
                [&](QSettings &file) { file.setValue(u"G/ü"_s, u"für%1"_s.arg(++announced)); });
        connect(&manager, &UserDataManagerI::onSavingProjectConfigFiles, this,
                [](QSettings &settings) { settings.setValue("project"_L1, true); });
        manager.OpenProjectConfigFiles(ObjectId("P"));
        manager.GetLayoutConfigFile(DataScopeProject, true).setValue("size"_L1, QSize(1, 2));
        manager.SetUseProjectSubDirectory(true); // moves no open file
        manager.Shutdown();
        manager.SaveUserConfigFiles(); // announces nothing: all is closed
        QCOMPARE(bytesOf(m_file), "[G]\n%FC=f\xC3\xBCr1\n"_ba);
        QCOMPARE(bytesOf(m_base + u"/P/config/settings.ini"_s), "[General]\nproject=true\n"_ba);
        QCOMPARE(bytesOf(m_base + u"/P/config/layout.ini"_s), "[General]\nsize=@Size(1 2)\n"_ba);
        QVERIFY(!QFileInfo::exists(m_base + u"/config/layout.ini"_s)); // nothing to write
        manager.OpenUserConfigFiles();
        manager.OpenUserConfigFiles();
        UserDataManagerI::Destroy();
        QCOMPARE(announced, 3);
    }

    void survivesItsListeners()
    {
        const auto check = [this](auto act, auto trigger) {
            UserDataManagerI &manager = UserDataManager();
            manager.OpenProjectConfigFiles(ObjectId("P"));
            int announced = 0;
            connect(&manager, &UserDataManagerI::onSavingUserConfigFiles, this,
                    [&](QSettings &file) {
                        file.setValue("value"_L1, ++announced);
                        act();
                        file.setValue("after"_L1, announced); // it is still there
                    });
            connect(&manager, &UserDataManagerI::onSavingProjectConfigFiles, this, act);
            trigger();
            UserDataManagerI::Destroy();
            QVERIFY(announced >= 1 && announced <= 3);
            const QString text = u"[General]\nafter=%1\nvalue=%1\n"_s.arg(announced);
            QCOMPARE(bytesOf(m_file), text.toUtf8());
        };
        void (*const deeds[])() = {
            [] { UserDataManager().SaveUserConfigFiles(); }, [] { UserDataManager().CloseAll(); },
            [] { UserDataManager().OpenUserConfigFiles(); }, [] { UserDataManagerI::Destroy(); },
            [] { // destroys, and begins anew
                UserDataManagerI::Destroy();
                UserDataManager().OpenProjectConfigFiles(ObjectId("Q"));
            }};
        for (int pair = 0; pair < 20; ++pair)
            check(deeds[pair % 5], deeds[pair % 4]);

        int announced = 0;
        connect(&UserDataManager(), &UserDataManagerI::onSavingUserConfigFiles, this,
                [&](QSettings &file) {
                    file.setValue("value"_L1, -++announced);
                    throw std::runtime_error("of a listener");
                });
        for (int save = 1; save < 4; ++save) {
            QVERIFY_EXCEPTION_THROWN(UserDataManager().SaveUserConfigFiles(), std::runtime_error);
            QCOMPARE(announced, save);
        }
        const MessageLog log;
        UserDataManagerI::Destroy();
        QCOMPARE(log.lines().size(), 1);
        QCOMPARE(bytesOf(m_file).right(9), "value=-4\n"_ba);
    }

    void setsDamagedFilesAsideAndKeepsLinks()
    {
        KELO_UNIX_ONLY("about links, permissions and a full disk");
        const QByteArray damaged = "[G]\nk=1\nnonsense \xFF\n";
        const QString target = m_home->filePath(u"elsewhere.ini"_s);
        writeBytes(target, damaged);
        const QFile::Permissions secret = QFile::ReadOwner | QFile::WriteOwner;
        QVERIFY(QFile::setPermissions(target, secret));
        QVERIFY(QDir().mkpath(m_base + u"/config"_s) && QFile::link(target, m_file));
        const MessageLog log;
        QSettings &settings = UserDataManager().GetSettingsConfigFile(DataScopeUser, true);
        const QSignalSpy failures(&UserDataManager(), &UserDataManagerI::saveFailed);
        {
            const testsystem::ResourceLimit fullDisk(testsystem::ResourceLimit::FileSize,
                                                     100); // only the copy has room
            for (int i = 0; i < 50; ++i)
                save(settings, "G/l", u"x"_s.repeated(200));
            QCOMPARE(copiesOf(target), QStringList());
            QCOMPARE(failures.size(), 1); // not once a second
            QVERIFY(failures[0][0].toString().contains(target));
        }
        settings.setValue("G/l"_L1, 2);
        QCoreApplication::processEvents(); // the event loop writes as well
        QVERIFY(QFileInfo(m_file).isSymLink());
        QCOMPARE(bytesOf(target), "[G]\nk=1\nl=2\n"_ba);
        save(settings, "G/l", 3);
        QCOMPARE(failures.size(), 1);
        QCOMPARE(log.lines().size(), 1);
        const QRegularExpression named(
            u"^ConfigFile::save .*\"([^\"]*\\.ini\\.broken-\\d{8}-\\d{6})\"$"_s);
        const QString copy = named.match(log.lines()[0]).captured(1);
        QCOMPARE(bytesOf(copy), damaged);
        QVERIFY(!(QFile::permissions(copy) & (QFile::ReadGroup | QFile::ReadOther)));
        for (int start = 0; start < 3; ++start) { // the same damage once more
            UserDataManagerI::Destroy();
            writeBytes(target, damaged);
            UserDataManager().GetSettingsConfigFile(DataScopeUser, true).setValue("l"_L1, start);
        }
        UserDataManagerI::Destroy();
        QCOMPARE(copiesOf(target), QStringList(QFileInfo(copy).fileName()));
    }

    void replacesNoFileThatItCouldNotRead()
    {
        QByteArray stored = "[G]\n";
        for (int i = 100; i < 300; ++i)
            stored += "k" + QByteArray::number(i) + "=1\n";
        writeBytes(m_file, stored);
        qputenv("TMPDIR", "/nowhere");
        UserDataManager().GetSettingsConfigFile(DataScopeUser, true).setValue("G/a"_L1, 1);
        UserDataManagerI::Destroy();
        qunsetenv("TMPDIR");
        stored.insert(4, "a=1\n");
        QCOMPARE(bytesOf(m_file), stored);

        writeBytes(m_file, stored += "z=1\n"); // others have written
        {
            const testsystem::ResourceLimit noFile(testsystem::ResourceLimit::OpenFiles, 0);
            UserDataManager().SaveUserConfigFiles();
        }
        QSettings &settings = UserDataManager().GetSettingsConfigFile(DataScopeUser, true);
        save(settings, "G/a", 2);
        QCOMPARE(bytesOf(m_file), stored.replace("a=1", "a=2"));
        QCOMPARE(settings.value("G/z"_L1), u"1"_s);

        const QDateTime time = QFileInfo(m_file).lastModified();
        writeBytes(m_file, stored.replace("z=1", "y=5")); // of equal size and time
        QFile file(m_file);
        QVERIFY(file.open(QIODevice::ReadWrite) &&
                file.setFileTime(time, QFileDevice::FileModificationTime));
        file.close();
        save(settings, "G/a", 3);
        QCOMPARE(bytesOf(m_file), stored.replace("a=2", "a=3"));
    }

    void waitsForNoOne()
    {
        writeBytes(m_file + u".lock"_s, ""); // of one that died while it took the lock
        QSettings &settings = UserDataManager().GetSettingsConfigFile(DataScopeUser, true);
        save(settings, "k", 1);
        QCOMPARE(bytesOf(m_file), "[General]\nk=1\n"_ba);

        QLockFile lock(m_file + u".lock"_s);
        QVERIFY(lock.tryLock(0));
        settings.setValue("k"_L1, 2);
        const MessageLog log;
        UserDataManagerI::Destroy();
        const QRegularExpression named(
            u"^ConfigFile::save .* locked by process %1 \\(tst_userdata\\) : .*/settings.ini$"_s
                .arg(QCoreApplication::applicationPid()));
        QCOMPARE(log.lines().filter(named).size(), 1);
        QCOMPARE(bytesOf(m_file), "[General]\nk=1\n"_ba);
        lock.unlock();
        QTRY_COMPARE(bytesOf(m_file), "[General]\nk=2\n"_ba);
    }

    void keepsWhatOthersSavedAndWhatCannotBeSaved()
    {
        const QString folder = m_base + u"/config"_s;
        writeBytes(folder, "a file where the folder should be");
        QSettings &settings = UserDataManager().GetSettingsConfigFile(DataScopeUser, true);
        save(settings, "k", 99);
        QVERIFY(settings.value("k"_L1) == 99 && QFile::remove(folder));
        UserDataManager().SaveUserConfigFiles();
        QCOMPARE(bytesOf(m_file), "[General]\nk=99\n"_ba);
        // Equal size and equal time must not hide that another process has saved.
        QDateTime last = QDateTime::fromSecsSinceEpoch(0);
        for (int i = 10; i < 60; ++i) {
            save(settings, "k", i);
            const QDateTime saved = QFileInfo(m_file).lastModified();
            QVERIFY(saved > std::exchange(last, saved));
        }
        writeBytes(m_file, "[General]\nforeign=x\nk=1\n");
        save(settings, "k", 2);
        QCOMPARE(bytesOf(m_file), "[General]\nforeign=x\nk=2\n"_ba);
    }

private:
    static void save(QSettings &settings, const char *key, const QVariant &value)
    {
        settings.setValue(QLatin1StringView(key), value);
        UserDataManager().SaveUserConfigFiles();
    }

    std::optional<TemporaryHome> m_home;
    QString m_base, m_file;
};

QTEST_GUILESS_MAIN(TestUserData)
#include "tst_userdata.moc"
