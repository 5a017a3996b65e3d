#include "support/TempFolder.h"

#include "core/Errors.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <cerrno>
#include <fcntl.h>
#include <map>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int mostPrograms = 100;
const QString lockName = QStringLiteral("quillon.lock");

// Ours alone: made 0700, or found as a folder (not a link) of this user and closed to others.
bool makeOwnFolder(const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    if (::mkdir(name.constData(), 0700) == 0) return true;
    struct stat status {};
    if (::lstat(name.constData(), &status) != 0 || !S_ISDIR(status.st_mode) || status.st_uid != ::geteuid())
        return false;
    return (status.st_mode & 0777) == 0700 || ::chmod(name.constData(), 0700) == 0;
}

// The folder that the user names, or one of the user's own where that is none.
QString baseFolder()
{
    const QString chosen = qEnvironmentVariable("TMPDIR");
    if (!chosen.isEmpty() && QFileInfo(chosen).isDir()) return QDir::cleanPath(chosen);
    const QString cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
    QDir().mkpath(cache);
    const QString own = cache + QStringLiteral("/quillon");
    if (!makeOwnFolder(own)) throw EngineError(QStringLiteral("%1 is not a folder of this user").arg(own));
    return own;
}

// The lock goes with the process, however it ends.
bool lock(const QString& folder)
{
    const QByteArray name = QFile::encodeName(folder + QLatin1Char('/') + lockName);
    const int file = ::open(name.constData(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (file < 0) return false;
    // Some file systems have no locks: there the folder is taken as it is.
    if (::flock(file, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK) return true;
    ::close(file);
    return false;
}

QString claimBelow(const QString& base)
{
    for (int n = 1; n <= mostPrograms; ++n) {
        const QString folder = n == 1 ? base : base + QStringLiteral("/quillon-%1").arg(n);
        if (n > 1 && !makeOwnFolder(folder)) continue;
        if (lock(folder)) return folder + QLatin1Char('/');
    }
    throw EngineError(QStringLiteral("no folder for work files below %1").arg(base));
}

}

QString temporaryFolder()
{
    static std::map<QString, QString> claimed;
    const QString base = baseFolder();
    const auto known = claimed.find(base);
    if (known != claimed.end() && QFile::exists(known->second + lockName)) return known->second;
    return claimed[base] = claimBelow(base);
}
