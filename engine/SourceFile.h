// A sound file on disk, read by position in bounded pieces. Shared by everything that reads the same file, so
// that a decoder started again still reads the file that was opened, whatever lies under its name by then.
#pragma once

#include <QString>

#include <cstdint>

class SourceFile {
public:
    /// Throws EngineError where there is no ordinary file that can be read.
    explicit SourceFile(const QString& path);
    ~SourceFile();
    SourceFile(const SourceFile&) = delete;
    SourceFile& operator=(const SourceFile&) = delete;

    std::int64_t size() const { return size_; }    ///< bytes, when it was opened
    const QString& path() const { return path_; }

    /// Reads up to `bytes` at `offset`; fewer only at the end of the file. An error reads as the end.
    std::size_t readAt(std::int64_t offset, void* to, std::size_t bytes) const;

private:
    QString path_;
    int handle_;
    std::int64_t size_ = 0;
};
