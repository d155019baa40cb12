/// @file ThisSystem.h
/// What tests must know of the system that they run on.
#pragma once

#include <cstddef>

#ifndef _WIN32
#include <algorithm>
#include <sys/resource.h>
#endif

namespace system_under_test {

#ifdef _WIN32
constexpr bool kWindows = true;
#else
constexpr bool kWindows = false;
#endif

/// Whether a connection that finds the queue of a listener full waits; elsewhere it is refused.
#ifdef __linux__
constexpr bool kFullListenersAreSilent = true;
#else
constexpr bool kFullListenersAreSilent = false;
#endif

/// Lets this process open so many descriptors. @return false: this user may not
inline bool AllowDescriptors([[maybe_unused]] std::size_t count) {
#ifndef _WIN32
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    if (limit.rlim_cur < count) {
        limit.rlim_cur = std::min<rlim_t>(count, limit.rlim_max);
        setrlimit(RLIMIT_NOFILE, &limit);
    }
    return limit.rlim_cur >= count;
#else
    return true;
#endif
}

} // namespace system_under_test
