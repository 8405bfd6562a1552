#include "devmode/private_devmode.h"

#include <algorithm>
#include <cstring>

#include "common/model_identity.h"

namespace oemui {
namespace {

constexpr DWORD kBlockSize = sizeof(PrivateDevmode);
constexpr DWORD kBlockVersion = 1;
constexpr DWORD kLevelStart = offsetof(PrivateDevmode, CappedLevel);
constexpr DWORD kLevelEnd = kLevelStart + sizeof(INT32);
constexpr INT32 kDefaultLevel = 86;
constexpr INT32 kHighestLevel = 100;

void StampHeader(PrivateDevmode* block) {
    block->Header = {kBlockSize, Model().Signature, kBlockVersion};
}

/// `Reserved1`, the watermark and its index stay as the driver's buffer holds them.
void StoreDefaults(PrivateDevmode* block) {
    if (block == nullptr) return;
    StampHeader(block);
    block->CappedLevel = kDefaultLevel;
    block->Scaling = kUnscaled;
    block->WatermarkOn = 0;
    block->Reserved2 = 0;
    block->TransmitOnce = 0;
    block->RenderingIntent = kIntentSaturation;
    block->PagesPerSheet = 1;
}

/// Takes as much of the in block as both headers claim, within the block; a short source leaves the
/// rest of the out block as it was.
void TakeSettings(const PrivateDevmode& in, PrivateDevmode* out) {
    DWORD size = std::min({in.Header.dwSize, out->Header.dwSize, kBlockSize});
    // A level that is cut off half-way counts as missing.
    if (size < kLevelEnd) size = std::min(size, kLevelStart);
    out->CappedLevel = kDefaultLevel;
    std::memmove(out, &in, size);
    out->Header.dwSize = kBlockSize;
    out->Header.dwVersion = kBlockVersion;
}

void Convert(const PrivateDevmode* in, PrivateDevmode* out) {
    if (in == nullptr || out == nullptr) return;
    if (in->Header.dwSignature == out->Header.dwSignature) {
        TakeSettings(*in, out);
        return;
    }
    StampHeader(out);
    out->CappedLevel = kDefaultLevel;
    out->Scaling = kUnscaled;
}

void Merge(const PrivateDevmode* in, PrivateDevmode* out) {
    Convert(in, out);
    if (out == nullptr) return;
    StampHeader(out);
    if (out->CappedLevel > kHighestLevel) out->CappedLevel = kDefaultLevel;
    if (!IsValidScaling(out->Scaling)) out->Scaling = kUnscaled;
}

}  // namespace

HRESULT HandleDevMode(DWORD mode, POEMDMPARAM params) {
    if (params == nullptr) {
        ::SetLastError(ERROR_INVALID_PARAMETER);
        return E_FAIL;
    }
    const auto* in = static_cast<const PrivateDevmode*>(params->pOEMDMIn);
    auto* out = static_cast<PrivateDevmode*>(params->pOEMDMOut);
    switch (mode) {
        case OEMDM_SIZE:
            params->cbBufSize = kBlockSize;
            return S_OK;
        case OEMDM_DEFAULT:
            StoreDefaults(out);
            return S_OK;
        case OEMDM_CONVERT:
            Convert(in, out);
            return S_OK;
        case OEMDM_MERGE:
            Merge(in, out);
            return S_OK;
        default:
            ::SetLastError(ERROR_INVALID_PARAMETER);
            return E_FAIL;
    }
}

}  // namespace oemui
