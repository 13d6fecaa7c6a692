#pragma once

#include <cstddef>

// What the process has allocated and not freed yet, counted by every allocation: pixels that a library maps for itself
// included. Only in programs that are linked with Allocations.cpp.
struct Allocations
{
    long long blocks;
    long long bytes;

    static Allocations alive();
};
