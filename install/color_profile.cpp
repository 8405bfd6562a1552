#include "install/color_profile.h"

#include <cstring>

#include "common/oem_driver_interface.h"

namespace oemui {
namespace {

constexpr WCHAR kProfileName[] = TEXT("OEMPROFILE.icm");
static_assert(sizeof kProfileName == 30);

/// The size reported for the profile's name, in bytes; two more than it needs.
constexpr ULONG kProfileSize = 32;

}  // namespace

HRESULT QueryColorProfile(ULONG queryMode, void* profile, ULONG* size, DWORD* flags) {
    if (queryMode != QCP_DEVICEPROFILE || size == nullptr) return E_FAIL;
    const ULONG room = *size;
    *size = kProfileSize;
    if (profile == nullptr || room < kProfileSize) {
        ::SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return E_FAIL;
    }
    // The caller's buffer is a row of bytes: it need not be aligned for text.
    std::memcpy(profile, kProfileName, sizeof kProfileName);
    if (flags != nullptr) *flags = QCP_PROFILEDISK;
    return S_OK;
}

}  // namespace oemui
