// The settings file and the small questions to the file system, with real files.
#include "core/Declaration.h"
#include "support/LameLibrary.h"
#include "support/Registre.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace {

void write(const QString& path, const QByteArray& content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("can't write a test file");
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

int modeOf(const QString& path)
{
    struct stat status {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? static_cast<int>(status.st_mode & 0777)
                                                                     : -1;
}

/// Runs this program anew to write one key, by a user whom permissions bind: the superuser lays its powers
/// down.
int writeKeyAsPlainUser(const QString& file)
{
    QStringList command{QCoreApplication::applicationFilePath(), "write", file};
    if (::geteuid() == 0) command = QStringList{"setpriv", "--bounding-set=-all"} + command;
    return QProcess::execute(command.first(), command.mid(1));
}

}

class tst_registre : public QObject {
    Q_OBJECT

private slots:
    void init();

    void theIniFileLiesInTheFolderOfApplicationData();
    void theSettingsFolderIsTheUsersAlone();
    void aFolderThatIsThereIsLeftAsItIs();
    void aTrailingSeparatorGetsNoSecondOne();
    void aNewUserGetsAFolderOfApplicationData();
    void withoutApplicationDataTheIniFileLiesBesideTheProgram();
    void aSettingsFolderThatCannotBeMadeLosesTheSettings();
    void aMissingFileReadsAsNothing();
    void aKeyIsFoundInAnyCase();
    void aValueOf254CharactersIsWhole();
    void aLongerValueComesBackCut_data();
    void aLongerValueComesBackCut();
    void anEmptyValueStaysInTheFile();
    void aFileThatMayNotBeWrittenStaysAsItIs();
    void aFolderInPlaceOfTheFileReadsAsNothing();
    void aLinkedIniFileStaysALink();
    void aFileIsThereOrNot();
    void aFolderIsThereOrNot();
    void aTextEndsAtItsFirstZero();
    void onlyTheFolderOfApplicationDataIsKnown();
    void theLanguageFilesLieBelowTheProgram();
    void theLibraryIsLookedForInEachFolderEachTime();
    void aFolderOfLibrariesWithASeparatorGetsNoSecondOne();

private:
    QString path(const QString& name) const { return folder_->filePath(name); }

    std::optional<QTemporaryDir> folder_;
};

void tst_registre::init()
{
    folder_.emplace();
    QDir(folder_->path()).mkdir("config");
    QDir(folder_->path()).mkdir("program");
    qputenv("XDG_CONFIG_HOME", path("config").toLocal8Bit());
    setProgramFolder(path("program"));
    IniPath.clear();
    IniFolder.clear();
}

void tst_registre::theIniFileLiesInTheFolderOfApplicationData()
{
    LocateIniFile();
    QCOMPARE(IniPath, path("config/Tonehaven/Quillon.ini"));
    QCOMPARE(IniFolder, path("config/Tonehaven/"));
    QVERIFY(QDir(path("config/Tonehaven")).exists());
    QVERIFY(!QFile::exists(IniPath));    // it comes with the first key
}

void tst_registre::theSettingsFolderIsTheUsersAlone()
{
    LocateIniFile();
    QCOMPARE(modeOf(path("config/Tonehaven")), 0700);
}

void tst_registre::aFolderThatIsThereIsLeftAsItIs()
{
    QDir(path("config")).mkdir("Tonehaven");
    write(path("config/Tonehaven/Quillon.ini"), "[Lang]\nVal=French\n");
    LocateIniFile();
    QCOMPARE(IniRead(IniPath, "Lang", "Val"), "French");
}

void tst_registre::aTrailingSeparatorGetsNoSecondOne()
{
    qputenv("XDG_CONFIG_HOME", (path("config") + '/').toLocal8Bit());
    LocateIniFile();
    QCOMPARE(IniPath, path("config/Tonehaven/Quillon.ini"));
}

void tst_registre::aNewUserGetsAFolderOfApplicationData()
{
    qputenv("XDG_CONFIG_HOME", path("new/.config").toLocal8Bit());
    LocateIniFile();
    QCOMPARE(IniPath, path("new/.config/Tonehaven/Quillon.ini"));
    QCOMPARE(modeOf(path("new/.config")), 0700);
}

void tst_registre::withoutApplicationDataTheIniFileLiesBesideTheProgram()
{
    write(path("file"), "no folder");
    qputenv("XDG_CONFIG_HOME", path("file/config").toLocal8Bit());
    LocateIniFile();
    QCOMPARE(IniPath, path("program/Quillon.ini"));
    QCOMPARE(IniFolder, path("program/"));
    IniWrite(IniPath, "Lang", "Val", "French");
    QCOMPARE(IniRead(IniPath, "Lang", "Val"), "French");
}

void tst_registre::aSettingsFolderThatCannotBeMadeLosesTheSettings()
{
    write(path("config/Tonehaven"), "a file");
    LocateIniFile();
    QCOMPARE(IniPath, path("config/Tonehaven/Quillon.ini"));
    IniWrite(IniPath, "Lang", "Val", "French");
    QCOMPARE(IniRead(IniPath, "Lang", "Val"), "");
    QCOMPARE(contentOf(path("config/Tonehaven")), "a file");
}

void tst_registre::aMissingFileReadsAsNothing()
{
    QCOMPARE(IniRead(path("none.ini"), "Lang", "Val"), "");
}

void tst_registre::aKeyIsFoundInAnyCase()
{
    IniWrite(path("a.ini"), "Lang", "Val", "Español");
    QCOMPARE(IniRead(path("a.ini"), "LANG", "vAL"), "Español");
}

void tst_registre::aValueOf254CharactersIsWhole()
{
    const QString value(254, 'x');
    IniWrite(path("a.ini"), "A", "key", value);
    QCOMPARE(IniRead(path("a.ini"), "A", "key"), value);
}

void tst_registre::aLongerValueComesBackCut_data()
{
    QTest::addColumn<int>("length");
    QTest::addRow("by its last character") << 255;
    QTest::addRow("by its half") << 508;
}

void tst_registre::aLongerValueComesBackCut()
{
    QFETCH(int, length);
    IniWrite(path("a.ini"), "A", "key", QString(length, 'x'));
    QCOMPARE(IniRead(path("a.ini"), "A", "key"), QString(254, 'x'));
    QCOMPARE(contentOf(path("a.ini")).count('x'), length);
}

void tst_registre::anEmptyValueStaysInTheFile()
{
    IniWrite(path("a.ini"), "A", "key", "x");
    IniWrite(path("a.ini"), "A", "key", "");
    QCOMPARE(contentOf(path("a.ini")), "[A]\nkey=\n");
}

void tst_registre::aFileThatMayNotBeWrittenStaysAsItIs()
{
    const QString file = path("config/a.ini");
    write(file, "[Lang]\nVal=French\n");
    QFile::setPermissions(file, QFile::ReadOwner);
    QCOMPARE(writeKeyAsPlainUser(file), 0);
    QCOMPARE(contentOf(file), "[Lang]\nVal=French\n");
    QCOMPARE(QDir(path("config")).entryList(QDir::Files), QStringList{"a.ini"});
    QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner);
    QCOMPARE(writeKeyAsPlainUser(file), 0);
    QCOMPARE(contentOf(file), "[Lang]\nVal=written\n");
}

void tst_registre::aFolderInPlaceOfTheFileReadsAsNothing()
{
    QDir(folder_->path()).mkdir("a.ini");
    IniWrite(path("a.ini"), "A", "key", "x");
    QCOMPARE(IniRead(path("a.ini"), "A", "key"), "");
    QVERIFY(QDir(path("a.ini")).isEmpty());
}

void tst_registre::aLinkedIniFileStaysALink()
{
    write(path("real.ini"), "[A]\nkey=x\n");
    QVERIFY(QFile::link(path("real.ini"), path("a.ini")));
    IniWrite(path("a.ini"), "A", "key", "y");
    QVERIFY(QFileInfo(path("a.ini")).isSymLink());
    QCOMPARE(contentOf(path("real.ini")), "[A]\nkey=y\n");
}

void tst_registre::aFileIsThereOrNot()
{
    write(path("file"), "");
    QVERIFY(FileExists(path("file")));
    QVERIFY(!FileExists(path("none")));
    QVERIFY(!FileExists(QString()));
    QVERIFY(!FileExists(path("program")));
    QVERIFY(!FileExists(path("program") + '/'));
    QVERIFY(!FileExists(path("file") + '/'));
}

void tst_registre::aFolderIsThereOrNot()
{
    QVERIFY(FolderExists(path("program")));
    QVERIFY(FolderExists(path("program") + '/'));
    QVERIFY(!FolderExists(path("none")));
    QVERIFY(FolderExists("/"));
}

void tst_registre::aTextEndsAtItsFirstZero()
{
    QCOMPARE(TrimAtNull(QString::fromLatin1("/home\0rest\0", 11)), "/home");
    QCOMPARE(TrimAtNull("/home"), "/home");
    QCOMPARE(TrimAtNull(QString::fromLatin1("\0x", 2)), "");
    QCOMPARE(TrimAtNull(QString()), "");
}

void tst_registre::onlyTheFolderOfApplicationDataIsKnown()
{
    QCOMPARE(SpecialFolderPath(applicationDataFolder), path("config"));
    QCOMPARE(SpecialFolderPath(5), "");
}

void tst_registre::theLanguageFilesLieBelowTheProgram()
{
    QCOMPARE(languageFile("Español"), path("program/Lang/Español.lng"));
}

void tst_registre::theLibraryIsLookedForInEachFolderEachTime()
{
    const LameLibraryPlace platform = lameLibraryPlace();
    lameLibraryPlace() = {{path("none"), path("program")}, "library.so.0"};
    QVERIFY(!LameEncoderPresent());
    write(path("program/library.so.0"), "");
    QVERIFY(LameEncoderPresent());
    QFile::remove(path("program/library.so.0"));
    QVERIFY(!LameEncoderPresent());
    lameLibraryPlace() = platform;
}

void tst_registre::aFolderOfLibrariesWithASeparatorGetsNoSecondOne()
{
    const LameLibraryPlace platform = lameLibraryPlace();
    lameLibraryPlace() = {{path("program/")}, "library.so.0"};
    write(path("program/library.so.0"), "");
    QVERIFY(LameEncoderPresent());
    QCOMPARE(lameLibraryFolder(), path("program") + '/');
    lameLibraryPlace().folders = QStringList{path("program")};
    QCOMPARE(lameLibraryFolder(), path("program") + '/');
    lameLibraryPlace() = platform;
}

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    if (argc == 3 && qstrcmp(argv[1], "write") == 0) {
        IniWrite(QString::fromLocal8Bit(argv[2]), "Lang", "Val", "written");
        return 0;
    }
    tst_registre tests;
    return QTest::qExec(&tests, argc, argv);
}
#include "tst_registre.moc"
