/// @file Require.h
/// What must hold whatever the input is; where it does not, the fuzzer has a finding.
#pragma once

#include <cstdio>
#include <cstdlib>

inline void Require(bool holds, const char* what) {
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}
