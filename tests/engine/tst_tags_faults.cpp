// Tags that can't be read or written: an error that is told, and a file that keeps its sound.
#include "core/Errors.h"
#include "engine/FullDisk.h"
#include "engine/TagTools.h"

#include <QDir>
#include <QTest>

#include <sys/stat.h>

using namespace tools;

namespace {

void addKinds()
{
    QTest::addColumn<QString>("kind");
    QTest::addRow("MP3") << "mp3";
    QTest::addRow("Ogg Vorbis") << "ogg";
    QTest::addRow("WMA") << "wma";
}

}

class tst_tags_faults : public QObject {
    Q_OBJECT
private slots:
    void whatIsNoFileFails_data();
    void whatIsNoFileFails();
    void aWriteProtectedFileFails_data() { addKinds(); }
    void aWriteProtectedFileFails();
    void aFullDiskFailsAndLeavesTheFile_data() { addKinds(); }
    void aFullDiskFailsAndLeavesTheFile();
    void aFullDiskFailsVersionOne();
    void anOggFileOfAnotherCodecFails();
    void aDamagedFileFails_data();
    void aDamagedFileFails();
    void otherVersionsAreRefused_data();
    void otherVersionsAreRefused();
    void aFailingReadKeepsWhatWasRead();
};

void tst_tags_faults::whatIsNoFileFails_data()
{
    QTest::addColumn<QString>("name");
    QTest::addRow("a missing file") << "missing";
    QTest::addRow("a folder") << "folder";
    QTest::addRow("a pipe") << "pipe";
}

void tst_tags_faults::whatIsNoFileFails()
{
    QFETCH(QString, name);
    Folder folder;
    QVERIFY(QDir().mkdir(folder / "folder"));
    QCOMPARE(::mkfifo(QFile::encodeName(folder / "pipe").constData(), 0600), 0);
    TagEngine tag;
    QVERIFY_THROWS_EXCEPTION(EngineError, tag.ReadFrom(folder / name));
    QVERIFY_THROWS_EXCEPTION(EngineError, tag.WriteTo(folder / name));
    QVERIFY(!QFileInfo::exists(folder / "missing"));
}

void tst_tags_faults::aWriteProtectedFileFails()
{
    QFETCH(QString, kind);
    Folder folder;
    const QString path = soundFile(folder, kind);
    const QByteArray before = contents(path);
    QVERIFY(QFile::setPermissions(path, QFile::ReadOwner));
    QVERIFY_THROWS_EXCEPTION(EngineError, writeTag(path, 1, {}));
    QVERIFY_THROWS_EXCEPTION(EngineError, writeTag(path, 2, {}));
    QCOMPARE(contents(path), before);
}

void tst_tags_faults::aFullDiskFailsAndLeavesTheFile()
{
    QFETCH(QString, kind);
    Folder folder;
    const QString path = soundFile(folder, kind);
    const QByteArray before = contents(path);
    {
        const FullDisk disk(static_cast<rlim_t>(before.size()) + 100);
        QVERIFY_THROWS_EXCEPTION(EngineError,
                                 writeTag(path, 2, {"Title", "", "", QString(2000, 'c'), 1, 1999}));
    }
    QCOMPARE(contents(path), before);
}

void tst_tags_faults::aFullDiskFailsVersionOne()
{
    Folder folder;
    const QString path = soundFile(folder, "mp3");
    const QByteArray before = contents(path);
    {
        const FullDisk disk(static_cast<rlim_t>(before.size()) + 100);
        QVERIFY_THROWS_EXCEPTION(EngineError, writeTag(path, 1, {}));
    }
    QCOMPARE(contents(path), before);
}

void tst_tags_faults::anOggFileOfAnotherCodecFails()
{
    Folder folder;
    run("ffmpeg", {"-v", "error", "-f", "lavfi", "-i", "sine=d=1", "-c:a", "flac", folder / "a.ogg"});
    QCOMPARE(readTag(folder / "a.ogg"), QString("||||-1|0"));
    QVERIFY_THROWS_EXCEPTION(EngineError, writeTag(folder / "a.ogg", 2, {}));
}

void tst_tags_faults::aDamagedFileFails_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("kept");
    QTest::addRow("an Ogg file of 100 bytes") << "ogg" << 100;
    QTest::addRow("a WMA file of 20 bytes") << "wma" << 20;
}

void tst_tags_faults::aDamagedFileFails()
{
    QFETCH(QString, kind);
    QFETCH(int, kept);
    Folder folder;
    const QString path = soundFile(folder, kind);
    QVERIFY(QFile::resize(path, kept));
    const QByteArray before = contents(path);
    QVERIFY_THROWS_EXCEPTION(EngineError, writeTag(path, 2, {}));
    QCOMPARE(contents(path), before);
}

void tst_tags_faults::otherVersionsAreRefused_data()
{
    QTest::addColumn<int>("version");
    for (const int version : {0, 3, -1}) QTest::addRow("%d", version) << version;
}

void tst_tags_faults::otherVersionsAreRefused()
{
    QFETCH(int, version);
    TagEngine tag;
    QVERIFY_THROWS_EXCEPTION(EngineError, tag.SetTagVersion(version));
}

void tst_tags_faults::aFailingReadKeepsWhatWasRead()
{
    Folder folder;
    const QString path = soundFile(folder, "mp3");
    writeTag(path, 2, {});
    TagEngine tag;
    tag.ReadFrom(path);
    QVERIFY_THROWS_EXCEPTION(EngineError, tag.ReadFrom(folder / "missing"));
    QCOMPARE(tag.GetTitle(), QString("A title"));
}

QTEST_GUILESS_MAIN(tst_tags_faults)
#include "tst_tags_faults.moc"
