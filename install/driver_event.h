/// What is done when the driver is removed, and the name of its colour profile.
#pragma once

#include <windows.h>

#include "common/text.h"

namespace oemui {

/// Size of the uninstaller's command line, in characters with terminator.
inline constexpr std::size_t kCommandLineCapacity = 264;

/// The longest program name that is started.
inline constexpr std::size_t kMaxExecutableLength = 249;

/// Starts the family's uninstaller when the driver is removed (DRIVER_EVENT_DELETE), and does not
/// wait for it. Spooler's thread.
/// \return E_NOTIMPL always.
HRESULT HandleDriverEvent(DWORD event);

/// Builds the uninstaller's command line: the program, the settings file, each with a blank behind.
/// \return false, and nothing written, when the program is empty or longer than 249 characters.
bool BuildUninstallCommand(TextView executable, TextView settingsFile,
                           WCHAR (&commandLine)[kCommandLineCapacity]);

/// Names the colour profile, "OEMPROFILE.icm".
/// \param queryMode  QCP_DEVICEPROFILE; any other mode is refused and touches nothing.
/// \param profile    receives 30 bytes with terminator; null asks for the size.
/// \param size       in: bytes at `profile`, at least 32; out: 32 for the device profile.
/// \param flags      QCP_PROFILEDISK on success: the answer is a file name.
/// \return S_OK, or E_FAIL with ERROR_INSUFFICIENT_BUFFER when the buffer is missing or short.
HRESULT QueryColorProfile(ULONG queryMode, void* profile, ULONG* size, DWORD* flags);

}  // namespace oemui
