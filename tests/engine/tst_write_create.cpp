// What `Create` does to what stands at its path.
#include "core/Errors.h"
#include "engine/WriteTools.h"

#include <QDir>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace tools;

class tst_write_create : public QObject {
    Q_OBJECT
private slots:
    void aReaderOfTheOldFileKeepsItsSound();
    void aReplacedFileIsWhole();
    void aLinkIsReplacedAndNotFollowed();
    void aDeadLinkIsReplaced();
    void aFailingCreateLeavesTheOldFile();
    void whatIsNoFileIsLeftAlone_data();
    void whatIsNoFileIsLeftAlone();
    void aFolderThatIsMissingFails();
    void noTemporaryNameStays();
    void halfWrittenSoundIsOnDiskUnderItsName();
    void theModeFollowsTheMask();
    void closingWhatWasNeverCreatedDoesNothing();
    void creatingAgainEndsTheFileBefore();
    void destroyingAnOpenWriterCompletesTheFile();
    void writingWithoutCreateFails();
};

void tst_write_create::aReaderOfTheOldFileKeepsItsSound()
{
    Folder folder;
    putContents(folder / "a.wav", "old sound");
    QFile reader(folder / "a.wav");
    QVERIFY(reader.open(QIODevice::ReadOnly));

    FileWriter writer;
    save(writer, folder / "a.wav", music(8000, 2, 1000));
    QCOMPARE(reader.readAll(), QByteArray("old sound"));
}

void tst_write_create::aReplacedFileIsWhole()
{
    Folder folder;
    putContents(folder / "a.wav", QByteArray(100000, 'x'));
    const SampleArray sound = music(44100, 2, 1000);
    FileWriter writer;
    save(writer, folder / "a.wav", sound);
    QCOMPARE(decode(folder / "a.wav"), sound);
}

void tst_write_create::aLinkIsReplacedAndNotFollowed()
{
    Folder folder;
    putContents(folder / "target", "precious");
    QVERIFY(QFile::link(folder / "target", folder / "a.wav"));

    FileWriter writer;
    save(writer, folder / "a.wav", music(44100, 2, 100));
    QCOMPARE(contents(folder / "target"), QByteArray("precious"));
    QVERIFY(!QFileInfo(folder / "a.wav").isSymLink());
}

void tst_write_create::aDeadLinkIsReplaced()
{
    Folder folder;
    QVERIFY(QFile::link(folder / "nowhere", folder / "a.wav"));
    FileWriter writer;
    save(writer, folder / "a.wav", music(44100, 2, 100));
    QVERIFY(!QFileInfo::exists(folder / "nowhere"));
    QVERIFY(QFileInfo(folder / "a.wav").size() > 0);
}

void tst_write_create::aFailingCreateLeavesTheOldFile()
{
    Folder folder;
    putContents(folder / "a.mp3", "old sound");
    FileWriter writer("libno-such-encoder.so.0");
    writer.SetFormatMP3Simple(44100, 128, 2);
    QVERIFY_THROWS_EXCEPTION(EngineError, writer.Create(folder / "a.mp3"));
    QCOMPARE(contents(folder / "a.mp3"), QByteArray("old sound"));
    QCOMPARE(folder.files(), QStringList{"a.mp3"});
    writer.Close();
}

void tst_write_create::whatIsNoFileIsLeftAlone_data()
{
    QTest::addColumn<QString>("name");
    QTest::addRow("a folder") << "folder";
    QTest::addRow("a pipe") << "pipe";
    QTest::addRow("a write-protected file") << "protected";
}

void tst_write_create::whatIsNoFileIsLeftAlone()
{
    QFETCH(QString, name);
    Folder folder;
    QVERIFY(QDir().mkdir(folder / "folder"));
    QCOMPARE(::mkfifo(QFile::encodeName(folder / "pipe").constData(), 0600), 0);
    putContents(folder / "protected", "precious");
    QVERIFY(QFile::setPermissions(folder / "protected", QFile::ReadOwner));
    struct stat before, after;
    ::lstat(QFile::encodeName(folder / name).constData(), &before);
    const QStringList files = folder.files();

    FileWriter writer;
    QVERIFY_THROWS_EXCEPTION(EngineError, writer.Create(folder / name));
    QCOMPARE(::lstat(QFile::encodeName(folder / name).constData(), &after), 0);
    QCOMPARE(after.st_ino, before.st_ino);
    QCOMPARE(after.st_size, before.st_size);
    QCOMPARE(folder.files(), files);
}

void tst_write_create::aFolderThatIsMissingFails()
{
    Folder folder;
    FileWriter writer;
    QVERIFY_THROWS_EXCEPTION(EngineError, writer.Create(folder / "missing/a.wav"));
    QVERIFY(!writer.isOpen());
    writer.Close();
}

void tst_write_create::noTemporaryNameStays()
{
    Folder folder;
    FileWriter writer;
    writer.Create(folder / "a.wav");
    QCOMPARE(folder.files(), QStringList{"a.wav"});
    writer.Close();
    QCOMPARE(folder.files(), QStringList{"a.wav"});
}

void tst_write_create::halfWrittenSoundIsOnDiskUnderItsName()
{
    Folder folder;
    FileWriter writer;
    writer.Create(folder / "a.wav");
    writer.WriteArray(music(44100, 2, 500000));
    QVERIFY(QFileInfo(folder / "a.wav").size() > 1000000);
}

void tst_write_create::theModeFollowsTheMask()
{
    Folder folder;
    const mode_t mask = ::umask(027);
    FileWriter writer;
    save(writer, folder / "a.wav", {});
    ::umask(mask);
    struct stat status;
    QCOMPARE(::stat(QFile::encodeName(folder / "a.wav").constData(), &status), 0);
    QCOMPARE(static_cast<int>(status.st_mode & 0777), 0640);
}

void tst_write_create::closingWhatWasNeverCreatedDoesNothing()
{
    FileWriter writer;
    writer.Close();
    writer.Close();
    QVERIFY(!writer.isOpen());
}

void tst_write_create::creatingAgainEndsTheFileBefore()
{
    Folder folder;
    const SampleArray sound = music(44100, 2, 3000);
    FileWriter writer;
    writer.Create(folder / "a.wav");
    writer.WriteArray(sound);
    writer.Create(folder / "b.wav");
    QCOMPARE(decode(folder / "a.wav"), sound);
}

void tst_write_create::destroyingAnOpenWriterCompletesTheFile()
{
    Folder folder;
    const SampleArray sound = music(44100, 2, 3000);
    {
        FileWriter writer;
        writer.Create(folder / "a.wav");
        writer.WriteArray(sound);
    }
    QCOMPARE(decode(folder / "a.wav"), sound);
}

void tst_write_create::writingWithoutCreateFails()
{
    FileWriter writer;
    QVERIFY_THROWS_EXCEPTION(EngineError, writer.WriteArray({1, 2}));
    QVERIFY_THROWS_EXCEPTION(EngineError, writer.SetInputFormat(44100, 2));
}

QTEST_GUILESS_MAIN(tst_write_create)
#include "tst_write_create.moc"
