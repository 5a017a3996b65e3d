#include "support/Registre.h"

#include "core/Declaration.h"
#include "core/Errors.h"
#include "support/IniFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <sys/stat.h>

namespace {

constexpr qsizetype longestValue = 254;
constexpr auto ownerOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner;

QString& programFolderInForce()
{
    static QString folder;
    return folder;
}

void placeIniIn(const QString& folder)
{
    IniFolder = folder;
    IniPath = folder + QStringLiteral("Quillon.ini");
}

void makeFolder(const QString& path)
{
    if (!QDir().mkdir(path)) throw EngineError(QStringLiteral("can't make %1").arg(path));
    QFile::setPermissions(path, ownerOnly);
}

}

void LocateIniFile()
{
    QString path;
    skipFaults([&] { path = SpecialFolderPath(applicationDataFolder); });
    if (path.isEmpty() || !FolderExists(path)) {
        placeIniIn(programFolder() + QLatin1Char('/'));
        return;
    }
    if (!path.endsWith(QLatin1Char('/'))) path += QLatin1Char('/');
    path += QStringLiteral("Tonehaven/");
    skipFaults([&] {
        if (!FolderExists(path)) makeFolder(path);
    });
    placeIniIn(path);
}

QString IniRead(const QString& file, const QString& section, const QString& key)
{
    return readIniValue(file, section, key).left(longestValue);    // Kept: longer values come back cut
}

void IniWrite(const QString& file, const QString& section, const QString& key, const QString& value)
{
    writeIniValue(file, section, key, value);
}

bool FileExists(const QString& path)
{
    const QFileInfo file(path);
    return !path.isEmpty() && !path.endsWith(QLatin1Char('/')) && file.exists() && !file.isDir();
}

bool FolderExists(const QString& path)
{
    return QFileInfo(path.endsWith(QLatin1Char('/')) && path.size() > 1 ? path.chopped(1) : path).isDir();
}

QString SpecialFolderPath(int id)
{
    if (id != applicationDataFolder) return {};
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    if (!folder.isEmpty() && !FolderExists(folder)) {    // a new user has none yet
        QDir().mkpath(QFileInfo(folder).path());
        skipFaults([&] { makeFolder(folder); });
    }
    return folder;
}

QString TrimAtNull(const QString& text)
{
    return text.section(QChar(u'\0'), 0, 0);
}

QString programFolder()
{
    const QString& folder = programFolderInForce();
    return folder.isEmpty() ? QCoreApplication::applicationDirPath() : folder;
}

void setProgramFolder(const QString& folder)
{
    programFolderInForce() = folder;
}

QString languageFile(const QString& name)
{
    return programFolder() + QStringLiteral("/Lang/") + name + QStringLiteral(".lng");
}
