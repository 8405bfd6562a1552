/// Benchmarks beside their floors: the same work done bare, measured in the same run, so that a
/// figure is a ratio and holds on any machine.
#pragma once

#include <cstddef>

namespace bench {

/// A benchmark whose time must stay within a multiple of another's, or below an absolute time.
struct Limit {
    const char* name;
    const char* floor;  ///< null: `most` is a time in nanoseconds
    double most;        ///< ratio to the floor
};

/// Declares a limit; at program start.
struct DeclareLimit {
    explicit DeclareLimit(Limit limit);
};

/// Allocations of the process so far, through `operator new`.
std::size_t Allocations();

}  // namespace bench
