// A piece of a file in memory, which moves along as it is read. It grows while reading goes on without a gap,
// and is small again after each leap, so that leaping over most of a file costs little.
#pragma once

#include "engine/SourceFile.h"

#include <vector>

class FileWindow {
public:
    explicit FileWindow(const SourceFile& file) : file_(file) {}

    /// The bytes at that place, until the next call. The file's end is followed by zeros; null behind it. At
    /// most `mostBytes` at once.
    const std::uint8_t* look(std::int64_t at, std::int64_t bytes);

    /// Reads any number of bytes; returns how many the file has.
    std::size_t read(std::int64_t at, std::uint8_t* to, std::size_t bytes);

    static constexpr std::int64_t mostBytes = 64 * 1024;

private:
    bool holds(std::int64_t at, std::int64_t bytes) const { return at >= at_ && at + bytes <= end(); }
    std::int64_t end() const { return at_ + std::int64_t(bytes_.size()); }

    const SourceFile& file_;
    std::int64_t at_ = 0;
    std::int64_t reach_ = 0;    ///< bytes that the next piece has
    std::vector<std::uint8_t> bytes_;
};
