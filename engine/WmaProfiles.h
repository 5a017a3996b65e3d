// The list of formats that WMA output offers, by number.
#pragma once

#include <QString>

#include <cstdint>

struct WmaProfile {
    std::int32_t rate;        ///< Hz
    std::int32_t channels;    ///< 1 or 2
    std::int32_t bitrate;     ///< kbit/s

    /// One line for the user.
    QString text() const;
};

std::int32_t wmaProfileCount();

/// Profile 1 to `wmaProfileCount`; throws EngineError for other numbers.
const WmaProfile& wmaProfile(std::int32_t number);
