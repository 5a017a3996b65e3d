#include "engine/SourceFile.h"

#include "core/Errors.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

// Not to wait keeps a pipe without a writer from holding the program up; for files it changes nothing.
SourceFile::SourceFile(const QString& path)
    : path_(path), handle_(::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK))
{
    if (handle_ < 0) throw EngineError(QStringLiteral("cannot open %1").arg(path));
    struct stat about {};
    if (::fstat(handle_, &about) != 0 || !S_ISREG(about.st_mode)) {
        ::close(handle_);
        throw EngineError(QStringLiteral("%1 is no file").arg(path));
    }
    size_ = about.st_size;
}

SourceFile::~SourceFile()
{
    ::close(handle_);
}

std::size_t SourceFile::readAt(std::int64_t offset, void* to, std::size_t bytes) const
{
    std::size_t done = 0;
    while (done < bytes) {
        const ssize_t got = ::pread(handle_, static_cast<char*>(to) + done, bytes - done,
                                    offset + static_cast<std::int64_t>(done));
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) break;
        done += static_cast<std::size_t>(got);
    }
    return done;
}
