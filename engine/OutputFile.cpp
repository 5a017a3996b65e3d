#include "engine/OutputFile.h"

#include "core/Errors.h"

#include <QFile>
#include <QRandomGenerator>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr std::size_t blockSize = 512 * 1024;

/// Only a file or a link may be replaced, and only a file that somebody may write to.
void checkReplaceable(const QByteArray& path)
{
    struct stat old;
    if (::lstat(path.constData(), &old) != 0) {
        if (errno == ENOENT) return;
        throw EngineError(QString::fromLocal8Bit(path) + ": " + QString::fromLocal8Bit(std::strerror(errno)));
    }
    if (S_ISLNK(old.st_mode)) return;
    if (!S_ISREG(old.st_mode)) throw EngineError(QString::fromLocal8Bit(path) + ": not a plain file");
    if ((old.st_mode & 0222) == 0 || ::access(path.constData(), W_OK) != 0)
        throw EngineError(QString::fromLocal8Bit(path) + ": write-protected");
}

QByteArray temporaryName(const QByteArray& path)
{
    const auto number = QByteArray::number(QRandomGenerator::system()->generate64(), 36);
    return path.left(path.lastIndexOf('/') + 1) + ".quillon-" + number + ".part";
}

}

OutputFile::OutputFile(const QString& path) : path_(QFile::encodeName(path))
{
    checkReplaceable(path_);
    makeTemporary();
    buffer_.reserve(blockSize);
}

OutputFile::~OutputFile()
{
    skipFaults([&] { close(); });
    if (!temporary_.isEmpty()) ::unlink(temporary_.constData());
}

void OutputFile::makeTemporary()
{
    do {
        temporary_ = temporaryName(path_);
        descriptor_ =
            ::open(temporary_.constData(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
    } while (descriptor_ < 0 && (errno == EEXIST || errno == EINTR));
    if (descriptor_ < 0) {
        temporary_.clear();
        fail("can't be created");
    }
}

void OutputFile::takePlace()
{
    if (std::rename(temporary_.constData(), path_.constData()) != 0) fail("can't be put in place");
    temporary_.clear();
}

void OutputFile::write(const void* bytes, std::size_t count)
{
    if (failed_) throw EngineError(reason_);
    const char* from = static_cast<const char*>(bytes);
    if (buffer_.size() + count > blockSize) flush();
    if (count >= blockSize)
        append(from, count);
    else
        buffer_.insert(buffer_.end(), from, from + count);
}

void OutputFile::writeAt(std::int64_t offset, const void* bytes, std::size_t count)
{
    if (!failed_) flush();
    const char* from = static_cast<const char*>(bytes);
    while (count > 0) {
        const std::size_t written = writeSome(from, count, offset);
        from += written;
        count -= written;
        offset += static_cast<std::int64_t>(written);
    }
}

void OutputFile::skip(std::int64_t count)
{
    flush();
    if (::ftruncate(descriptor_, flushed_ + count) != 0) fail("can't grow");
    flushed_ += count;
}

std::int64_t OutputFile::size() const
{
    return flushed_ + (failed_ ? 0 : static_cast<std::int64_t>(buffer_.size()));
}

void OutputFile::flush()
{
    if (failed_) throw EngineError(reason_);
    append(buffer_.data(), buffer_.size());
    buffer_.clear();
}

void OutputFile::append(const char* bytes, std::size_t count)
{
    while (count > 0) {
        const std::size_t written = writeSome(bytes, count, flushed_);
        bytes += written;
        count -= written;
        flushed_ += static_cast<std::int64_t>(written);
    }
}

std::size_t OutputFile::writeSome(const char* bytes, std::size_t count, std::int64_t offset)
{
    ssize_t written;
    do written = ::pwrite(descriptor_, bytes, count, offset);
    while (written < 0 && errno == EINTR);
    if (written <= 0) fail("can't be written");
    return static_cast<std::size_t>(written);
}

void OutputFile::close()
{
    if (descriptor_ < 0) return;
    if (!failed_) skipFaults([&] { flush(); });
    // Linux releases the descriptor even when close reports an error.
    const int closed = ::close(std::exchange(descriptor_, -1));
    if (failed_) throw EngineError(reason_);
    if (closed != 0) fail("can't be completed");
}

void OutputFile::fail(const char* what)
{
    const QString cause = QString::fromLocal8Bit(std::strerror(errno));
    failed_ = true;
    reason_ = QString::fromLocal8Bit(path_) + ' ' + what + ": " + cause;
    throw EngineError(reason_);
}
