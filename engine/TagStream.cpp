#include "engine/TagStream.h"

#include "core/Errors.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr long blockSize = 1024 * 1024;

[[noreturn]] void refuse(const QByteArray& name, const QString& reason)
{
    throw EngineError(QString::fromLocal8Bit(name) + ": " + reason);
}

QString systemText(int error)
{
    return QString::fromLocal8Bit(std::strerror(error));
}

}

TagStream::TagStream(const QString& path, Access access) : name_(QFile::encodeName(path)), access_(access)
{
    // Without blocking: a pipe is refused below, not waited for.
    const int mode = access == Access::Write ? O_RDWR : O_RDONLY;
    descriptor_ = ::open(name_.constData(), mode | O_CLOEXEC | O_NONBLOCK);
    if (descriptor_ < 0) refuse(name_, systemText(errno));
    struct stat status;
    const bool plain = ::fstat(descriptor_, &status) == 0 && S_ISREG(status.st_mode);
    if (!plain || (access == Access::Write && (status.st_mode & 0222) == 0)) {
        ::close(descriptor_);
        refuse(name_, plain ? "write-protected" : "not a plain file");
    }
    formerLength_ = static_cast<long>(status.st_size);
}

TagStream::~TagStream()
{
    ::close(descriptor_);
}

void TagStream::checkWritten() const
{
    if (error_ != 0) refuse(name_, systemText(error_));
}

TagLib::ByteVector TagStream::readBlock(unsigned long length)
{
    const long left = std::max(0L, this->length() - position_);
    const auto count = std::min(length, static_cast<unsigned long>(left));
    TagLib::ByteVector bytes(static_cast<unsigned int>(count), '\0');
    const unsigned long got = readAt(position_, bytes.data(), count);
    bytes.resize(static_cast<unsigned int>(got));
    position_ += static_cast<long>(got);
    return bytes;
}

void TagStream::writeBlock(const TagLib::ByteVector& data)
{
    remember(position_, data.size());
    if (writeAt(position_, data.data(), data.size()))
        position_ += static_cast<long>(data.size());
    else
        takeBack();
}

void TagStream::insert(const TagLib::ByteVector& data, unsigned long start, unsigned long replace)
{
    const long from = static_cast<long>(start);
    const long growth = static_cast<long>(data.size()) - static_cast<long>(replace);
    if (growth > 0 && !makeRoom(from + static_cast<long>(replace), growth)) {
        takeBack();
        return;
    }
    if (growth > 0) keep();
    position_ = from;
    writeBlock(data);
    if (growth < 0) removeBlock(start + data.size(), static_cast<unsigned long>(-growth));
}

void TagStream::removeBlock(unsigned long start, unsigned long length)
{
    const long end = this->length();
    const long distance = static_cast<long>(length);
    std::vector<char> block(static_cast<std::size_t>(blockSize));
    for (long at = static_cast<long>(start) + distance; at < end; at += blockSize) {
        const auto count = static_cast<unsigned long>(std::min(blockSize, end - at));
        if (readAt(at, block.data(), count) != count) fail();
        if (!writeAt(at - distance, block.data(), count)) return;
    }
    truncate(std::max(static_cast<long>(start), end - distance));
    keep();
}

void TagStream::seek(long offset, Position from)
{
    if (from == Current)
        offset += position_;
    else if (from == End)
        offset += length();
    position_ = std::max(0L, offset);
}

long TagStream::length()
{
    struct stat status;
    return ::fstat(descriptor_, &status) == 0 ? static_cast<long>(status.st_size) : 0;
}

void TagStream::truncate(long length)
{
    if (error_ == 0 && ::ftruncate(descriptor_, length) != 0) fail();
}

/// Moves everything from `from` on up. The room behind the end is taken first, so that a full disk shows
/// before anything has moved.
bool TagStream::makeRoom(long from, long distance)
{
    const long end = length();
    const std::vector<char> zeros(static_cast<std::size_t>(std::min(distance, blockSize)));
    for (long at = end; at < end + distance; at += blockSize) {
        const auto count = static_cast<unsigned long>(std::min(blockSize, end + distance - at));
        if (!writeAt(at, zeros.data(), count)) return false;
    }
    return moveUp(from, end, distance);
}

bool TagStream::moveUp(long from, long end, long distance)
{
    std::vector<char> block(static_cast<std::size_t>(blockSize));
    while (end > from) {
        const long at = std::max(from, end - blockSize);
        const auto count = static_cast<unsigned long>(end - at);
        if (readAt(at, block.data(), count) != count) fail();
        if (!writeAt(at + distance, block.data(), count)) return false;
        end = at;
    }
    return true;
}

bool TagStream::writeAt(long offset, const char* bytes, unsigned long count)
{
    while (error_ == 0 && count > 0) {
        const ssize_t written = ::pwrite(descriptor_, bytes, count, offset);
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) {
            fail();
            break;
        }
        bytes += written;
        offset += written;
        count -= static_cast<unsigned long>(written);
    }
    return error_ == 0;
}

unsigned long TagStream::readAt(long offset, char* bytes, unsigned long count) const
{
    unsigned long got = 0;
    while (got < count) {
        const ssize_t part = ::pread(descriptor_, bytes + got, count - got, offset + static_cast<long>(got));
        if (part < 0 && errno == EINTR) continue;
        if (part <= 0) break;
        got += static_cast<unsigned long>(part);
    }
    return got;
}

void TagStream::remember(long offset, unsigned long count)
{
    const long end = std::min(length(), offset + static_cast<long>(count));
    if (error_ != 0 || end <= offset) return;
    TagLib::ByteVector bytes(static_cast<unsigned int>(end - offset), '\0');
    readAt(offset, bytes.data(), bytes.size());
    former_.push_back({offset, bytes});
}

/// Puts back what was written over, latest first; that takes no room. The error stays.
void TagStream::takeBack()
{
    const int error = std::exchange(error_, 0);
    for (auto former = former_.rbegin(); former != former_.rend(); ++former)
        writeAt(former->offset, former->bytes.data(), former->bytes.size());
    truncate(formerLength_);
    former_.clear();
    error_ = error;
}

/// From here on nothing that was written before can be taken back.
void TagStream::keep()
{
    former_.clear();
    formerLength_ = length();
}

void TagStream::fail()
{
    if (error_ == 0) error_ = errno != 0 ? errno : EIO;
}
