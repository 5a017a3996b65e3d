// A new file on disk, written in large blocks. It grows under a temporary name beside its place until
// `takePlace` renames it over what was there: the old file is never written to, and whoever reads it keeps
// its sound.
#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <vector>

class OutputFile {
public:
    /// Makes the file under a temporary name. Throws EngineError when that can't be done, or when at `path`
    /// stands something that must not be replaced: a folder, a device, a pipe, a write-protected file.
    explicit OutputFile(const QString& path);

    /// Closes without a word about failures; removes the file when it never took its place.
    ~OutputFile();

    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    /// Renames the file over `path`. A link at `path` is replaced, not followed.
    void takePlace();

    /// Appends. Throws EngineError when the disk doesn't take it; everything after that throws too.
    void write(const void* bytes, std::size_t count);

    /// Overwrites bytes written earlier. Works after a failed `write` as well, within what is on the disk.
    void writeAt(std::int64_t offset, const void* bytes, std::size_t count);

    /// Appends a hole, which reads as zeros and takes no room on the disk.
    void skip(std::int64_t count);

    /// Brings what is buffered to the disk.
    void flush();

    /// Bytes so far; after a failure, those that reached the disk.
    std::int64_t size() const;

    /// Writes what is buffered and closes. Throws EngineError when that, or anything before it, failed.
    void close();

private:
    void makeTemporary();
    void append(const char* bytes, std::size_t count);
    std::size_t writeSome(const char* bytes, std::size_t count, std::int64_t offset);
    [[noreturn]] void fail(const char* what);

    QByteArray path_;
    QByteArray temporary_;    // empty once the file has taken its place
    int descriptor_ = -1;
    std::vector<char> buffer_;
    std::int64_t flushed_ = 0;    // bytes on the disk
    bool failed_ = false;
    QString reason_;    // of the first failure
};
