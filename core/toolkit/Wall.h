// Where an error that no procedure traps ends: a box with its text, then the end of the process.
#pragma once

#include <exception>
#include <functional>
#include <utility>

/// Shows the fatal box for the error and ends the process. Tests put their own function here.
extern std::function<void(const std::exception&)> fatal;

/// Ends the process at once. Tests put their own function here.
extern std::function<void(int status)> endProcess;

/// Wraps a handler, so that no exception crosses the toolkit's frames.
template <typename Handler>
auto guarded(Handler handler)
{
    return [handler = std::move(handler)](auto&&... arguments) mutable {
        try {
            handler(std::forward<decltype(arguments)>(arguments)...);
        } catch (const std::exception& error) {
            fatal(error);
        }
    };
}
