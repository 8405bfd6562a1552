/// The machine that a test runs on: one of its own off Windows, the real one on it.
#pragma once

#include <filesystem>
#include <string>

namespace tests {

/// Off Windows: makes an empty machine and uses it, and notes what is open.
void EnterFreshMachine();

/// Off Windows: removes the machine.
/// \return the objects that were opened since and are not closed, by kind; empty when there are
///         none.
std::string LeaveMachine();

/// Where INI files given by a bare name lie.
std::filesystem::path WindowsFolder();

}  // namespace tests
