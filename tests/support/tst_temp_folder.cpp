// The folder for work files: the user's own, one for each running program.
#include "core/Errors.h"
#include "support/TempFolder.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>
#include <optional>
#include <sys/stat.h>

namespace {

int modeOf(const QString& path)
{
    struct stat status {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0) return -1;
    return static_cast<int>(status.st_mode & 0777);
}

void make(const QString& path, mode_t mode)
{
    if (::mkdir(QFile::encodeName(path).constData(), 0700) != 0) qFatal("can't make a test folder");
    if (::chmod(QFile::encodeName(path).constData(), mode) != 0) qFatal("can't open a test folder");
}

/// Another running program that asked for its folder and holds it until it is let go.
class OtherProgram {
public:
    OtherProgram()
    {
        process_.start(QCoreApplication::applicationFilePath(), {"claim"});
        if (!process_.waitForReadyRead()) qFatal("the other program says nothing");
        folder = QString::fromLocal8Bit(process_.readLine().trimmed());
    }
    ~OtherProgram()
    {
        process_.closeWriteChannel();
        process_.waitForFinished();
    }
    QString folder;

private:
    QProcess process_;
};

}

class tst_temp_folder : public QObject {
    Q_OBJECT

private slots:
    void init();

    void theFolderIsTheUsersOwnBelowTheCache();
    void aFolderThatIsOpenToOthersIsClosed();
    void aLinkInItsPlaceIsNotFollowed();
    void aFileInItsPlaceIsRefused();
    void theSameProgramKeepsItsFolder();
    void aFolderThatWasRemovedIsMadeAgain();
    void theFolderOfTheEnvironmentIsTaken();
    void aFolderOfTheEnvironmentThatIsNoneIsPassedOver();
    void aSecondProgramWorksInASubFolder();
    void aThirdProgramWorksInAnother();
    void theFolderIsFreeOnceItsProgramHasEnded();
    void aLinkInPlaceOfASubFolderIsNotFollowed();
    void aLockThatIsALinkIsNotFollowed();

private:
    QString path(const QString& name) const { return folder_->filePath(name); }

    std::optional<QTemporaryDir> folder_;
};

void tst_temp_folder::init()
{
    folder_.emplace();
    qunsetenv("TMPDIR");
    qputenv("XDG_CACHE_HOME", path("cache").toLocal8Bit());
}

void tst_temp_folder::theFolderIsTheUsersOwnBelowTheCache()
{
    QCOMPARE(temporaryFolder(), path("cache/quillon/"));
    QCOMPARE(modeOf(path("cache/quillon")), 0700);
}

void tst_temp_folder::aFolderThatIsOpenToOthersIsClosed()
{
    make(path("cache"), 0755);
    make(path("cache/quillon"), 0777);
    QCOMPARE(temporaryFolder(), path("cache/quillon/"));
    QCOMPARE(modeOf(path("cache/quillon")), 0700);
}

void tst_temp_folder::aLinkInItsPlaceIsNotFollowed()
{
    make(path("cache"), 0755);
    make(path("elsewhere"), 0700);
    QVERIFY(QFile::link(path("elsewhere"), path("cache/quillon")));
    QVERIFY_EXCEPTION_THROWN(temporaryFolder(), EngineError);
    QVERIFY(QDir(path("elsewhere")).isEmpty());
}

void tst_temp_folder::aFileInItsPlaceIsRefused()
{
    make(path("cache"), 0755);
    QFile file(path("cache/quillon"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY_EXCEPTION_THROWN(temporaryFolder(), EngineError);
}

void tst_temp_folder::theSameProgramKeepsItsFolder()
{
    const QString first = temporaryFolder();
    QCOMPARE(temporaryFolder(), first);
}

void tst_temp_folder::aFolderThatWasRemovedIsMadeAgain()
{
    const QString first = temporaryFolder();
    QVERIFY(QDir(path("cache")).removeRecursively());
    QCOMPARE(temporaryFolder(), first);
    QVERIFY(QDir(first).exists());
}

void tst_temp_folder::theFolderOfTheEnvironmentIsTaken()
{
    make(path("chosen"), 0755);
    qputenv("TMPDIR", (path("chosen") + '/').toLocal8Bit());
    QCOMPARE(temporaryFolder(), path("chosen/"));
    QCOMPARE(modeOf(path("chosen")), 0755);
    QVERIFY(!QFile::exists(path("cache")));
}

void tst_temp_folder::aFolderOfTheEnvironmentThatIsNoneIsPassedOver()
{
    qputenv("TMPDIR", path("none").toLocal8Bit());
    QCOMPARE(temporaryFolder(), path("cache/quillon/"));
}

void tst_temp_folder::aSecondProgramWorksInASubFolder()
{
    QCOMPARE(temporaryFolder(), path("cache/quillon/"));
    const OtherProgram second;
    QCOMPARE(second.folder, path("cache/quillon/quillon-2/"));
    QCOMPARE(modeOf(second.folder), 0700);
}

void tst_temp_folder::aThirdProgramWorksInAnother()
{
    const OtherProgram first, second;
    QCOMPARE(first.folder, path("cache/quillon/"));
    QCOMPARE(second.folder, path("cache/quillon/quillon-2/"));
    QCOMPARE(temporaryFolder(), path("cache/quillon/quillon-3/"));
}

void tst_temp_folder::theFolderIsFreeOnceItsProgramHasEnded()
{
    {
        const OtherProgram first;
        QCOMPARE(first.folder, path("cache/quillon/"));
    }
    QCOMPARE(temporaryFolder(), path("cache/quillon/"));
}

void tst_temp_folder::aLinkInPlaceOfASubFolderIsNotFollowed()
{
    make(path("elsewhere"), 0700);
    temporaryFolder();
    QVERIFY(QFile::link(path("elsewhere"), path("cache/quillon/quillon-2")));
    const OtherProgram second;
    QCOMPARE(second.folder, path("cache/quillon/quillon-3/"));
    QVERIFY(QDir(path("elsewhere")).isEmpty());
}

void tst_temp_folder::aLockThatIsALinkIsNotFollowed()
{
    make(path("chosen"), 0755);
    QVERIFY(QFile::link(path("victim"), path("chosen/quillon.lock")));
    qputenv("TMPDIR", path("chosen").toLocal8Bit());
    QCOMPARE(temporaryFolder(), path("chosen/quillon-2/"));
    QVERIFY(!QFile::exists(path("victim")));
}

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    if (argc == 2 && qstrcmp(argv[1], "claim") == 0) {
        std::puts(temporaryFolder().toLocal8Bit().constData());
        std::fflush(stdout);
        return std::getchar() == EOF ? 0 : 1;    // until the test lets go
    }
    tst_temp_folder tests;
    return QTest::qExec(&tests, argc, argv);
}
#include "tst_temp_folder.moc"
