/// The machine of a fuzz target.
#pragma once

#include <cstdlib>
#include <filesystem>

#include "tests/support/test_machine.h"

namespace fuzz {

/// Makes the target's machine, for as long as the process lives: in memory where there is such a
/// place, because most of the time would go by for the disk otherwise.
inline void UseMachineInMemory() {
    if (std::filesystem::is_directory("/dev/shm")) ::setenv("TMPDIR", "/dev/shm", 1);
    static const tests::TestMachine machine;
}

}  // namespace fuzz
