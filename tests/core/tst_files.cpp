// SPDX-License-Identifier: GPL-2.0-or-later
// Names of files survive being read and written; a file is replaced as a whole or not at all.
#include "tests/support/FileBytes.h"
#include "tests/support/System.h"

#include <kelo_base/core/FileName.h>
#include <kelo_base/core/ReplacedFile.h>

#include <QtTest>
#include <fstream>
#include <set>
#include <string>

using namespace Qt::Literals::StringLiterals;
using Kind = FileFault::Kind;

namespace {

/// A folder of its own for each test.
struct Folder
{
    QString path(const QByteArray &name) const
    {
        return FileNameFromBytes(dir.path().toUtf8() + '/' + name);
    }
    void put(const QByteArray &name, const QByteArray &text, unsigned int mode = 0644) const
    {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(text), text.size());
        std::filesystem::permissions(SystemPath(path(name)), std::filesystem::perms(mode));
    }
    QByteArray text(const QByteArray &name) const
    {
        std::ifstream file(SystemPath(path(name)), std::ios::binary);
        const std::string text(std::istreambuf_iterator<char>(file), {});
        return file ? QByteArray::fromStdString(text) : "no file"_ba;
    }
    int mode(const QByteArray &name) const
    {
        return static_cast<int>(std::filesystem::status(SystemPath(path(name))).permissions());
    }
    std::set<std::string> names() const
    {
        std::set<std::string> all;
        for (const auto &entry : std::filesystem::directory_iterator(dir.path().toStdString()))
            all.insert(entry.path().filename().string());
        return all;
    }
    ~Folder()
    {
        std::error_code ignored; // the toolkit cannot name all of them
        std::filesystem::remove_all(dir.path().toStdString(), ignored);
    }
    QTemporaryDir dir;
};

/// Writes the text to the file; gives why not.
FileFault replace(const QString &path, const QByteArray &text)
{
    ReplacedFile file(path);
    const bool isThere = file.Open() && file.Device().write(text) == text.size() && file.Commit();
    return isThere ? FileFault() : file.Fault();
}

} // namespace

class TestFiles : public QObject
{
    Q_OBJECT

private slots:
    void namesKeepTheirBytes_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("readable");
        QTest::newRow("plain") << "a b.dxf"_ba << u"a b.dxf"_s;
        QTest::newRow("UTF-8, of each length") << "\u00FC\u20AC\U0001F5FA"_ba << u"ü€🗺"_s;
        QTest::newRow("Latin-1") << "M\xFCnchen/S\xFC\xDF"_ba << u"M\uFFFDnchen/S\uFFFD\uFFFD"_s;
        QTest::newRow("cut short") << "a\xE2\x82"_ba << u"a\uFFFD\uFFFD"_s;
        QTest::newRow("a surrogate in UTF-8") << "\xED\xB3\xBC"_ba << u"\uFFFD\uFFFD\uFFFD"_s;
        QTest::newRow("none") << ""_ba << u""_s;
    }

    void namesKeepTheirBytes()
    {
        KELO_UNIX_ONLY("names are no bytes there");
        QFETCH(const QByteArray, bytes);
        QFETCH(const QString, readable);
        const QString name = FileNameFromBytes(bytes);
        QCOMPARE(QByteArray::fromStdString(SystemPath(name).string()), bytes);
        QCOMPARE(ReadableFileName(name), readable);
        QCOMPARE(HasForeignBytes(name), readable.contains(QChar::ReplacementCharacter));
    }

    void knowsAFileByAllItsNames()
    {
        KELO_UNIX_ONLY("links in the tree are the system's own business there");
        const Folder folder;
        folder.put("a", "");
        folder.put("other", "");
        QVERIFY(QFile::link(u"a"_s, folder.path("link")));
        QVERIFY(QFile::link(folder.path("link"), folder.path("chain")));
        QVERIFY(QFile::link(u"none"_s, folder.path("dangling")));
        QVERIFY(AreSameFile(folder.path("a"), folder.path("./chain")));
        QVERIFY(!AreSameFile(folder.path("a"), folder.path("other")));
        QVERIFY(!AreSameFile(folder.path("none"), folder.path("none")));
        QVERIFY(AreSameFile(FollowLinks(folder.path("chain")), folder.path("a")));
        QCOMPARE(FollowLinks(folder.path("dangling")), folder.path("none"));
        QCOMPARE(FollowLinks(u"a/b"_s), u"a/b"_s);
    }

    void takesEveryLegalName()
    {
        KELO_UNIX_ONLY("names there are shorter, and no bytes");
        for (const QByteArray &name : {"a"_ba, QByteArray(255, 'x'), "\xFC.txt"_ba}) {
            const Folder folder;
            for (const QByteArray &text : {"one"_ba, "two"_ba})
                QCOMPARE(replace(folder.path(name), text).kind, Kind::None);
            QCOMPARE(folder.text(name), "two"_ba);
            QCOMPARE(folder.names(), std::set{name.toStdString()});
        }
    }

    void keepsLinksAndPermissions()
    {
        KELO_UNIX_ONLY("there are neither permissions nor links of that kind");
        const Folder folder;
        folder.put("private", "older, and longer", 0600);
        QVERIFY(QFile::link(u"private"_s, folder.path("link")));
        QVERIFY(QFile::link(u"later"_s, folder.path("dangling")));
        const testsystem::FileMask mask(027);
        QCOMPARE(replace(folder.path("link"), "new").kind, Kind::None);
        QCOMPARE(replace(folder.path("dangling"), "new").kind, Kind::None);
        QVERIFY(QFileInfo(folder.path("link")).isSymLink());
        QCOMPARE(folder.text("private"), "new"_ba);
        QCOMPARE(folder.mode("private"), 0600);
        QCOMPARE(folder.text("later"), "new"_ba);
        QCOMPARE(folder.mode("later"), 0640);
    }

    void refusesWhatIsNoPlaceForAFile_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<Kind>("kind");
        QTest::newRow("a folder") << "folder"_ba << Kind::IsFolder;
        QTest::newRow("a file that nobody may write to")
            << "protected"_ba << Kind::IsWriteProtected;
        QTest::newRow("a folder that is not there") << "none/a"_ba << Kind::System;
        QTest::newRow("a name that is too long") << QByteArray(256, 'x') << Kind::System;
        QTest::newRow("links in a circle") << "circle"_ba << Kind::System;
        QTest::newRow("a file as a folder") << "protected/a"_ba << Kind::System;
    }

    void refusesWhatIsNoPlaceForAFile()
    {
        QFETCH(const QByteArray, name);
        QFETCH(const Kind, kind);
        if (name == "circle")
            KELO_UNIX_ONLY("there are no such links");
        const Folder folder;
        folder.put("protected", "older", 0444);
        QVERIFY(QDir().mkdir(folder.path("folder")));
        QVERIFY(QFile::link(u"elcric"_s, folder.path("circle")));
        QVERIFY(QFile::link(u"circle"_s, folder.path("elcric")));
        const std::set<std::string> names = folder.names();
        const FileFault fault = replace(folder.path(name), "new");
        QCOMPARE(fault.kind, kind);
        QCOMPARE(fault.reason.isEmpty(), kind != Kind::System);
        QCOMPARE(folder.text("protected"), "older"_ba);
        QCOMPARE(folder.names(), names);
    }

    void leavesNothingOfAnUnfinishedFile()
    {
        const Folder folder;
        folder.put("a", "older");
        for (const char *name : {"a", "new"}) {
            ReplacedFile file(folder.path(name));
            QVERIFY(file.Open());
            QCOMPARE(file.HasOlder(), name == "a"_ba);
            QCOMPARE(file.Device().write("half"), 4);
        }
        QCOMPARE(folder.text("a"), "older"_ba);
        QCOMPARE(folder.names(), std::set<std::string>{"a"});
    }

    void tellsOfALastPartWithoutRoom()
    {
        KELO_UNIX_ONLY("nothing limits the size of files");
        const Folder folder;
        folder.put("a", "older");
        const FileFault fault = [&] {
            const testsystem::ResourceLimit fullDisk(testsystem::ResourceLimit::FileSize, 1000);
            return replace(folder.path("a"), QByteArray(1500, 'x'));
        }();
        QCOMPARE(fault.kind, Kind::System);
        QCOMPARE(fault.reason, u"File too large"_s);
        QCOMPARE(folder.text("a"), "older"_ba);
        QCOMPARE(folder.names(), std::set<std::string>{"a"});
    }

    void writesToDevicesDirectly()
    {
        KELO_UNIX_ONLY("devices are not in the tree");
        QCOMPARE(replace(u"/dev/null"_s, "x").kind, Kind::None);
        QCOMPARE(QFileInfo(u"/dev/null"_s).isFile(), false);
        const FileFault fault = replace(u"/dev/full"_s, "x");
        QCOMPARE(fault.kind, Kind::System);
        QCOMPARE(fault.reason, u"No space left on device"_s);
    }
};

QTEST_APPLESS_MAIN(TestFiles)
#include "tst_files.moc"
