#include "engine/FileWindow.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr std::int64_t fewestBytes = 512;

}

const std::uint8_t* FileWindow::look(std::int64_t at, std::int64_t bytes)
{
    if (at >= file_.size()) return nullptr;
    if (!holds(at, bytes)) {
        const bool onward = at >= at_ && at <= end();
        reach_ = onward ? std::clamp(2 * reach_, fewestBytes, mostBytes) : fewestBytes;
        reach_ = std::max(reach_, bytes);
        bytes_.resize(static_cast<std::size_t>(reach_));
        at_ = at;
        const std::size_t got = file_.readAt(at, bytes_.data(), bytes_.size());
        std::fill(bytes_.begin() + std::ptrdiff_t(got), bytes_.end(), std::uint8_t(0));
    }
    return bytes_.data() + (at - at_);
}

std::size_t FileWindow::read(std::int64_t at, std::uint8_t* to, std::size_t bytes)
{
    const std::int64_t there = std::clamp<std::int64_t>(file_.size() - at, 0, std::int64_t(bytes));
    if (there > mostBytes / 4 && !holds(at, there))
        return file_.readAt(at, to, static_cast<std::size_t>(there));
    if (there > 0) std::memcpy(to, look(at, there), static_cast<std::size_t>(there));
    return static_cast<std::size_t>(there);
}
