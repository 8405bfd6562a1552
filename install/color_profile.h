/// The name of the driver's colour profile.
#pragma once

#include <windows.h>

namespace oemui {

/// Names the colour profile, "OEMPROFILE.icm".
/// \param queryMode  QCP_DEVICEPROFILE; any other mode is refused and touches nothing.
/// \param profile    receives 30 bytes with terminator; null asks for the size.
/// \param size       in: bytes at `profile`, at least 32; out: 32 for the device profile.
/// \param flags      QCP_PROFILEDISK on success: the answer is a file name.
/// \return S_OK, or E_FAIL with ERROR_INSUFFICIENT_BUFFER when the buffer is missing or short.
[[nodiscard]] HRESULT QueryColorProfile(ULONG queryMode, void* profile, ULONG* size, DWORD* flags);

}  // namespace oemui
