// Memory that is counted and can run out: the allocation functions of every test program are replaced.
#pragma once

#include <gtest/gtest.h>

#include <atomic>

namespace memory {

extern std::atomic<long> g_blocks;      ///< in use
extern std::atomic<long> g_allocations; ///< ever made
extern thread_local long g_failAfter;   ///< allocations of this thread that still succeed; -1: all

/// Calls `operation` with memory for 0, 1, 2 ... allocations until it returns true, and `check` after each failure.
/// @return how often it failed
template <class Operation, class Check> int FailEachTime(Operation operation, Check check, int most = 20) {
    for (int allocations = 0; allocations < most; ++allocations) {
        const long blocks = g_blocks;
        g_failAfter = allocations;
        const bool done = operation();
        g_failAfter = -1;
        if (done)
            return allocations;
        const long left = g_blocks - blocks;
        check();
        EXPECT_LE(left, 0) << "memory was kept after " << allocations << " allocations";
    }
    ADD_FAILURE() << "never succeeded";
    return -1;
}

} // namespace memory
