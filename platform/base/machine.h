/// The machine: the one folder in which the layer keeps everything it knows.
///
/// `registry.sqlite` (the registry), `Windows/` (INI files, System32, the driver directory) and
/// `machine.log` (programs started). Paths that the plug-in sees are the platform's: `C:\...` is
/// the machine's folder itself, so `C:\Windows` is its `Windows/`; any other file of the system is
/// seen below `Z:\`.
#pragma once

#include <filesystem>

namespace platform {

/// Chooses the machine of this process and makes the folder and its sub-folders when missing.
/// What is held of an earlier machine is let go. Throws
/// `std::filesystem::filesystem_error` when the folder cannot be made. Not while handles of the
/// layer are open.
void UseMachine(const std::filesystem::path& folder);

/// The machine in use; empty before the first `UseMachine`.
[[nodiscard]] const std::filesystem::path& MachineFolder();

/// The driver's directory of the machine, `Windows/System32/spool/drivers/x64/3`.
[[nodiscard]] std::filesystem::path DriverFolder();

/// Has every later change of the machine call an operation first, which lets go of what it holds of
/// the one in use. \param letGo  a function that lives as long as the process; given twice it is
/// called once.
void WhenMachineChanges(void (*letGo)());

}  // namespace platform
