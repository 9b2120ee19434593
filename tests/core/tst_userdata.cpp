// SPDX-License-Identifier: GPL-2.0-or-later
// Data scopes: paths, files and their text, signals.
#include "core/initext_p.h"
#include "tests/support/MessageLog.h"
#include "tests/support/TemporaryHome.h"

#include <kelo_base/core/UserDataManager.h>

#include <optional>
#include <stdexcept>

using namespace Qt::Literals::StringLiterals;
using Tz::ObjectId;

namespace {

QByteArray bytesOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeBytes(const QString &fileName, const QByteArray &bytes)
{
    QFile file(fileName);
    QVERIFY(QDir().mkpath(QFileInfo(fileName).path()));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
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
        for (const char *whole : {"", "; a\n\n \t\n[G]\n;b\n", "\xEF\xBB\xBF[G]\r\nk=1"})
            QVERIFY(initext::parse(whole)->isWhole);
        for (const char *damaged : {"[G\nk=1\n", "[G]\nk=1\nnonsense\n", "[G]\nk=\xE4\n"})
            QVERIFY(!initext::parse(damaged)->isWhole);
        QVERIFY(!initext::parse(QByteArray(64, '\0'))->isWhole); // as after a power cut
    }

    void losesNoValueInText()
    {
        const QSettings::SettingsMap values{
            {u"empty"_s, QString()},
            {u"G/size"_s, QSize(3, -4)},
            {u"G/bytes"_s, QByteArray("\0\xFF(,\")", 6)},
            {u"G/list"_s, QStringList({u" a"_s, u"@b"_s, u"c;d"_s})},
            {u"General/explicit"_s, u"x"_s},
            {u"Straße Nr. 5/\u20AC/a-b_c.d"_s, u"\"ä€😀\", =;\n"_s}};
        const auto text = initext::textOf(values);
        QVERIFY(text);
        QCOMPARE(initext::parse(*text)->values, values);
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
    }

    void setsDamagedFilesAsideAndKeepsLinks()
    {
        const QByteArray damaged = "[G]\nk=1\nnonsense \xFF\n";
        const QString target = m_home->filePath(u"elsewhere.ini"_s);
        writeBytes(target, damaged);
        QVERIFY(QDir().mkpath(m_base + u"/config"_s) && QFile::link(target, m_file));
        const MessageLog log;
        QSettings &settings = UserDataManager().GetSettingsConfigFile(DataScopeUser, true);
        settings.setValue("G/l"_L1, 2);
        QCoreApplication::processEvents(); // the event loop writes as well
        QVERIFY(QFileInfo(m_file).isSymLink());
        QCOMPARE(bytesOf(target), "[G]\nk=1\nl=2\n"_ba);
        settings.setValue("G/l"_L1, 3);
        UserDataManager().SaveUserConfigFiles();
        QCOMPARE(log.lines().size(), 1);
        const QRegularExpression named(u"\"([^\"]*\\.ini\\.broken-\\d{8}-\\d{6})\"$"_s);
        QCOMPARE(bytesOf(named.match(log.lines()[0]).captured(1)), damaged);
    }

    void keepsWhatOthersSavedAndWhatCannotBeSaved()
    {
        const QString folder = m_base + u"/config"_s;
        writeBytes(folder, "a file where the folder should be");
        QSettings &settings = UserDataManager().GetSettingsConfigFile(DataScopeUser, true);
        settings.setValue("k"_L1, 99);
        UserDataManager().SaveUserConfigFiles();
        QVERIFY(settings.value("k"_L1) == 99 && QFile::remove(folder));
        UserDataManager().SaveUserConfigFiles();
        QCOMPARE(bytesOf(m_file), "[General]\nk=99\n"_ba);
        // Equal size and equal time must not hide that another process has saved.
        QDateTime last = QDateTime::fromSecsSinceEpoch(0);
        for (int i = 10; i < 60; ++i) {
            settings.setValue("k"_L1, i);
            UserDataManager().SaveUserConfigFiles();
            const QDateTime saved = QFileInfo(m_file).lastModified();
            QVERIFY(saved > std::exchange(last, saved));
        }
        writeBytes(m_file, "[General]\nforeign=x\nk=1\n");
        settings.setValue("k"_L1, 2);
        UserDataManager().SaveUserConfigFiles();
        QCOMPARE(bytesOf(m_file), "[General]\nforeign=x\nk=2\n"_ba);
    }

private:
    std::optional<TemporaryHome> m_home;
    QString m_base, m_file;
};

QTEST_GUILESS_MAIN(TestUserData)
#include "tst_userdata.moc"
