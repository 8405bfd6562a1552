/// The plug-in's block at the end of every devmode, and the operations on it.
#pragma once

#include "common/oem_driver_interface.h"
#include "watermark/watermark_list.h"

namespace oemui {

/// The document's settings of the plug-in. Little-endian; travels with the devmode wherever the
/// driver keeps or sends it, so it is checked before use: another model or a damaged file may have
/// written it.
struct PrivateDevmode {
    OEM_DMEXTRAHEADER Header;   ///< size 348, the plug-in's signature, version 1
    INT32 CappedLevel;          ///< at most 100; carried for whoever prints with the devmode
    UINT32 Reserved1;           ///< carried unchanged
    UINT32 Scaling;             ///< percent, 20..200
    UINT32 WatermarkIndex;      ///< 0..15, 0 for no watermark; see `UsableWatermarkIndex`
    UINT32 WatermarkOn;         ///< 1 = print the selected watermark
    UINT32 Reserved2;           ///< 0
    UINT32 TransmitOnce;        ///< 1 = on; only with two or more collated copies
    UINT32 RenderingIntent;     ///< kIntentSaturation, kIntentPerceptual
    UINT32 PagesPerSheet;       ///< 1, 2, 4, 6, 9, 16; 0 after a booklet was dropped
    WatermarkRecord Watermark;  ///< a copy of the selected watermark
};
static_assert(sizeof(PrivateDevmode) == 348);
static_assert(offsetof(PrivateDevmode, Scaling) == 20);
static_assert(offsetof(PrivateDevmode, PagesPerSheet) == 44);
static_assert(offsetof(PrivateDevmode, Watermark) == 48);

inline constexpr UINT32 kSmallestScaling = 20;
inline constexpr UINT32 kLargestScaling = 200;
inline constexpr UINT32 kUnscaled = 100;

/// Values of `RenderingIntent`.
inline constexpr UINT32 kIntentSaturation = 1;
inline constexpr UINT32 kIntentPerceptual = 2;

/// Whether a scaling lies in 20..200 percent.
constexpr bool IsValidScaling(UINT32 percent) {
    return percent >= kSmallestScaling && percent <= kLargestScaling;
}

/// Sizes (`OEMDM_SIZE`), defaults, converts or merges the block, as the driver asks.
/// \return S_OK; E_FAIL with last error ERROR_INVALID_PARAMETER without a parameter record or for
///         another mode. Any thread.
HRESULT HandleDevMode(DWORD mode, POEMDMPARAM params);

}  // namespace oemui
