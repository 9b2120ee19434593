// SPDX-License-Identifier: GPL-2.0-or-later
// Data scopes: paths, files, signals.
#include "tests/support/MessageLog.h"
#include "tests/support/TemporaryHome.h"

#include <kelo_base/core/UserDataManager.h>

#include <QSettings>
#include <QtTest>
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
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

} // namespace

/// Every test begins with a home of its own and without a manager.
class TestUserData : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void composesPaths_data();
    void composesPaths();
    void cleansNames();
    void createsOnlyWhatIsPrepared();
    void findsTheFileOfAScope_data();
    void findsTheFileOfAScope();
    void savesWhatListenersPut();
    void announcesOnceUntilReopened();
    void survivesItsListeners_data();
    void survivesItsListeners();
    void setsDamagedFilesAside();
    void keepsLinks();
    void keepsWhatOthersSavedMeanwhile();
    void keepsValuesThatCannotBeSaved();

private:
    [[nodiscard]] QString base() const { return m_home->filePath(u"Documents/Büro & Co/Karten"_s); }
    [[nodiscard]] QString settingsFile() const { return base() + u"/config/settings.ini"_s; }

    std::optional<TemporaryHome> m_home;
};

void TestUserData::init()
{
    QCoreApplication::setOrganizationName(u"Büro & Co"_s);
    QCoreApplication::setApplicationName(u"Karten"_s); // temporary directories bear it as well
    m_home.emplace();
}

void TestUserData::cleanup()
{
    UserDataManagerI::Destroy();
    m_home.reset();
}

void TestUserData::composesPaths_data()
{
    QTest::addColumn<ObjectId>("id");
    QTest::addColumn<bool>("hasProjectsFolder");
    QTest::addColumn<QString>("project");
    QTest::newRow("id") << ObjectId("AB1") << false << u"/AB1"_s;
    QTest::newRow("no id") << ObjectId() << false << u"/0"_s;
    QTest::newRow("below projects") << ObjectId("AB1") << true << u"/projects/AB1"_s;
    QTest::newRow("no id below projects") << ObjectId() << true << u"/projects/0"_s;
    QTest::newRow("umlaut") << ObjectId("\xC4") << false << u"/Ä"_s;
}

void TestUserData::composesPaths()
{
    QFETCH(const ObjectId, id);
    QFETCH(const bool, hasProjectsFolder);
    QFETCH(const QString, project);
    UserDataManagerI &manager = UserDataManager();
    manager.SetUseProjectSubDirectory(hasProjectsFolder);
    const QString p = base() + project;
    const QString paths[][2] = {
        {manager.GetStorageBaseDirectory(false), base()},
        {manager.GetPathForUserSpecificFile(u"n"_s), base() + u"/n"_s},
        {manager.MakeSettingsConfigFilename(), settingsFile()},
        {manager.GetStorageDirectoryForModule(u"m"_s, false), base() + u"/data/m"_s},
        {manager.GetPathForModuleSpecificFile(u"m"_s, u"n"_s), base() + u"/data/m/n"_s},
        {manager.GetStorageDirectoryForProject(id), p},
        {manager.GetPathForProjectSpecificFile(id, u"n"_s), p + u"/n"_s},
        {manager.MakeSettingsConfigFilename(id), p + u"/config/settings.ini"_s},
        {manager.GetStorageDirectoryForProjectModule(id, u"m"_s, false), p + u"/data/m"_s},
        {manager.GetPathForProjectModuleSpecificFile(id, u"m"_s, u"n"_s), p + u"/data/m/n"_s}};
    for (const auto &[actual, expected] : paths)
        QCOMPARE(actual, expected);
    manager.OpenProjectConfigFiles(id);
    QCOMPARE(manager.GetLayoutConfigFile(DataScopeProject, true).fileName(),
             p + u"/config/layout.ini"_s);
    QVERIFY(!QFileInfo::exists(m_home->filePath(u"Documents"_s)));
}

void TestUserData::cleansNames()
{
    QCoreApplication::setOrganizationName(u"/Org/"_s);
    QCoreApplication::setApplicationName(u" App /"_s);
    const QString expected = m_home->filePath(u"Documents/Org/ App "_s);
    QCOMPARE(UserDataManager().GetStorageBaseDirectory(false), expected);
}

void TestUserData::createsOnlyWhatIsPrepared()
{
    const UserDataManagerI &manager = UserDataManager();
    const QString paths[] = {
        manager.GetStorageBaseDirectory(true), manager.GetStorageDirectoryForModule(u"m"_s, true),
        manager.GetStorageDirectoryForProjectModule(ObjectId("P"), u"m"_s, true)};
    for (const QString &path : paths)
        QVERIFY(QFileInfo(path).isDir());
    manager.PrepareStorageDirectoryForProject(ObjectId("Q"));
    QCOMPARE(QDir(base()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList({u"data"_s, u"P"_s, u"Q"_s}));
}

void TestUserData::findsTheFileOfAScope_data()
{
    QTest::addColumn<int>("scope");
    QTest::addColumn<bool>("strict");
    QTest::addColumn<bool>("isUserOpen");
    QTest::addColumn<bool>("isProjectOpen");
    QTest::addColumn<QString>("file");
    QTest::addColumn<bool>("logs");
    const QString user = u"Karten/config"_s;
    const QString project = u"Karten/P/config"_s;
    QTest::newRow("user") << 0 << true << true << false << user << false;
    QTest::newRow("project") << 1 << true << true << true << project << false;
    QTest::newRow("project, without the user's") << 1 << false << false << true << project << false;
    QTest::newRow("no project") << 1 << false << true << false << user << true;
    QTest::newRow("no project, strictly") << 1 << true << true << false << QString() << false;
    QTest::newRow("unknown") << 2 << false << true << true << user << true;
    QTest::newRow("unknown, strictly") << 2 << true << true << true << QString() << false;
    QTest::newRow("after closing") << 0 << false << false << true << QString() << true;
}

void TestUserData::findsTheFileOfAScope()
{
    QFETCH(const int, scope);
    QFETCH(const bool, strict);
    QFETCH(const bool, isUserOpen);
    QFETCH(const bool, isProjectOpen);
    QFETCH(const QString, file);
    QFETCH(const bool, logs);
    UserDataManagerI &manager = UserDataManager();
    if (!isUserOpen)
        manager.CloseUserConfigFiles();
    if (isProjectOpen)
        manager.OpenProjectConfigFiles(ObjectId("P"));
    QCOMPARE(manager.HasOpenProject(), isProjectOpen);
    const auto check = [&](auto get, const QString &name, const QString &function) {
        const MessageLog log;
        try {
            const QSettings &settings = (manager.*get)(static_cast<DataScopeId>(scope), strict);
            QVERIFY(!file.isEmpty());
            QVERIFY2(settings.fileName().endsWith(file + name), qPrintable(settings.fileName()));
        } catch (const std::runtime_error &error) {
            QVERIFY(file.isEmpty());
            QCOMPARE(error.what(), "Invalid Scope");
        }
        const QString line = u"UserDataManagerI::%1 : Requested data scope  %2 not available"_s;
        QCOMPARE(log.lines(), logs ? QStringList(line.arg(function).arg(scope)) : QStringList());
    };
    check(&UserDataManagerI::GetLayoutConfigFile, u"/layout.ini"_s, u"GetLayoutConfigFile"_s);
    check(&UserDataManagerI::GetSettingsConfigFile, u"/settings.ini"_s, u"GetSettingsConfigFile"_s);
}

void TestUserData::savesWhatListenersPut()
{
    UserDataManagerI &manager = UserDataManager();
    connect(&manager, &UserDataManagerI::onSavingUserConfigFiles, this,
            [](QSettings &settings) { settings.setValue(u"G/ü"_s, u"für"_s); });
    connect(&manager, &UserDataManagerI::onSavingProjectConfigFiles, this,
            [](QSettings &settings) { settings.setValue("project"_L1, true); });
    manager.OpenProjectConfigFiles(ObjectId("P"));
    manager.GetLayoutConfigFile(DataScopeProject, true).setValue("size"_L1, QSize(1, 2));
    manager.SetUseProjectSubDirectory(true); // moves no open file
    manager.Shutdown();
    QCOMPARE(bytesOf(settingsFile()), "[G]\n%FC=f\xC3\xBCr\n"_ba);
    QCOMPARE(bytesOf(base() + u"/P/config/settings.ini"_s), "[General]\nproject=true\n"_ba);
    QCOMPARE(bytesOf(base() + u"/P/config/layout.ini"_s), "[General]\nsize=@Size(1 2)\n"_ba);
    QVERIFY(!QFileInfo::exists(base() + u"/config/layout.ini"_s)); // nothing to write
    QCOMPARE(QSettings::defaultFormat(), QSettings::IniFormat);
}

void TestUserData::announcesOnceUntilReopened()
{
    UserDataManagerI &manager = UserDataManager();
    int announced = 0;
    connect(&manager, &UserDataManagerI::onSavingUserConfigFiles, this, [&] { ++announced; });
    manager.CloseUserConfigFiles();
    manager.CloseUserConfigFiles();
    manager.SaveUserConfigFiles();
    QCOMPARE(announced, 1);
    manager.OpenUserConfigFiles();
    manager.OpenUserConfigFiles();
    QCOMPARE(announced, 2);
    UserDataManagerI::Destroy();
    QCOMPARE(announced, 3);
}

void TestUserData::survivesItsListeners_data()
{
    using Act = void (*)();
    QTest::addColumn<Act>("act");
    const auto row = [](const char *name, Act act) { QTest::newRow(name) << act; };
    row("save again", [] { UserDataManager().SaveUserConfigFiles(); });
    row("close", [] { UserDataManager().CloseUserConfigFiles(); });
    row("reopen", [] { UserDataManager().OpenUserConfigFiles(); });
    row("shut down", [] { UserDataManager().Shutdown(); });
    row("destroy", [] { UserDataManagerI::Destroy(); });
    row("destroy and begin anew", [] {
        UserDataManagerI::Destroy();
        UserDataManager().OpenProjectConfigFiles(ObjectId("Q"));
    });
}

void TestUserData::survivesItsListeners()
{
    using Act = void (*)();
    QFETCH(const Act, act);
    for (const Act trigger :
         {+[] { UserDataManager().SaveUserConfigFiles(); }, +[] { UserDataManager().CloseAll(); },
          +[] { UserDataManager().OpenUserConfigFiles(); }, +[] { UserDataManagerI::Destroy(); }}) {
        UserDataManagerI &manager = UserDataManager();
        manager.OpenUserConfigFiles();
        manager.OpenProjectConfigFiles(ObjectId("P"));
        int announced = 0;
        const auto first = connect(
            &manager, &UserDataManagerI::onSavingUserConfigFiles, this, [&](QSettings &settings) {
                settings.setValue("value"_L1, ++announced);
                act();
                settings.setValue("after"_L1, announced); // the file given is still there
            });
        const auto project =
            connect(&manager, &UserDataManagerI::onSavingProjectConfigFiles, this, act);
        trigger();
        disconnect(first);
        disconnect(project);
        UserDataManagerI::Destroy();
        QVERIFY(announced >= 1 && announced <= 3);
        const QByteArray text = bytesOf(settingsFile());
        QCOMPARE(text,
                 "[General]\nafter=%1\nvalue=%1\n"_ba.replace("%1", QByteArray::number(announced)));
    }
}

void TestUserData::setsDamagedFilesAside()
{
    const QByteArray damaged = "[G]\nk=1\nnonsense \xFF\n";
    writeBytes(settingsFile(), damaged);
    const MessageLog log;
    UserDataManagerI &manager = UserDataManager();
    QSettings &settings = manager.GetSettingsConfigFile(DataScopeUser, true);
    const QDir directory(base() + u"/config"_s);
    const auto copies = [&] { return directory.entryList({u"settings.ini.broken-*"_s}); };
    manager.SaveUserConfigFiles(); // nothing to write
    QCOMPARE(copies().size(), 0);
    settings.setValue("G/l"_L1, 2);
    QCoreApplication::processEvents(); // writes, as the event loop does some time after a change
    QCOMPARE(bytesOf(settingsFile()), "[G]\nk=1\nl=2\n"_ba);
    settings.setValue("G/l"_L1, 3);
    manager.SaveUserConfigFiles();
    QCOMPARE(copies().size(), 1);
    QVERIFY(QRegularExpression(u"^settings\\.ini\\.broken-\\d{8}-\\d{6}$"_s)
                .match(copies()[0])
                .hasMatch());
    QCOMPARE(bytesOf(directory.filePath(copies()[0])), damaged);
    QCOMPARE(log.lines().size(), 1);
    QVERIFY(log.lines()[0].endsWith(u'"' + directory.filePath(copies()[0]) + u'"'));
}

void TestUserData::keepsLinks()
{
    const QString target = m_home->filePath(u"elsewhere.ini"_s);
    writeBytes(target, "[G]\nk=1\n");
    QVERIFY(QDir().mkpath(base() + u"/config"_s));
    QVERIFY(QFile::link(target, settingsFile()));
    UserDataManager().GetSettingsConfigFile(DataScopeUser, true).setValue("G/l"_L1, 2);
    UserDataManager().SaveUserConfigFiles();
    QVERIFY(QFileInfo(settingsFile()).isSymLink());
    QCOMPARE(bytesOf(target), "[G]\nk=1\nl=2\n"_ba);
}

/// Equal size and equal time must not hide that another process has saved.
void TestUserData::keepsWhatOthersSavedMeanwhile()
{
    UserDataManagerI &manager = UserDataManager();
    QSettings &settings = manager.GetSettingsConfigFile(DataScopeUser, true);
    QDateTime last;
    for (int i = 100; i < 150; ++i) {
        settings.setValue("k"_L1, i);
        manager.SaveUserConfigFiles();
        const QDateTime saved = QFileInfo(settingsFile()).lastModified();
        QVERIFY(!last.isValid() || saved > last);
        last = saved;
    }
    writeBytes(settingsFile(), "[General]\nforeign=x\nk=1\n");
    settings.setValue("k"_L1, 2);
    manager.SaveUserConfigFiles();
    QCOMPARE(bytesOf(settingsFile()), "[General]\nforeign=x\nk=2\n"_ba);
}

void TestUserData::keepsValuesThatCannotBeSaved()
{
    writeBytes(base() + u"/config"_s, "a file where the folder should be");
    UserDataManagerI &manager = UserDataManager();
    QSettings &settings = manager.GetSettingsConfigFile(DataScopeUser, true);
    settings.setValue("k"_L1, 1);
    manager.SaveUserConfigFiles();
    QCOMPARE(settings.value("k"_L1), 1);
    QVERIFY(QFile::remove(base() + u"/config"_s));
    manager.SaveUserConfigFiles();
    QCOMPARE(bytesOf(settingsFile()), "[General]\nk=1\n"_ba);
}

QTEST_GUILESS_MAIN(TestUserData)
#include "tst_userdata.moc"
