/// Names of papers and media: of the platform driver's string library, and of the plug-in's own.
#pragma once

#include "common/fixed_text.h"
#include "common/unique_handle.h"

namespace oemui {

using PaperName = FixedText<32>;

/// Opens the platform driver's string library: as the process has it loaded already, from beside
/// the plug-in's module, or from wherever the platform looks; empty when there is none. Nothing in
/// it is run.
[[nodiscard]] UniqueLibrary OpenDriverStrings();

/// Loads a name; it stays as it was when the module has no such string.
[[nodiscard]] inline bool LoadName(HINSTANCE module, UINT textId, PaperName& name) {
    const PaperName text(textId, module);
    if (!text.empty()) name = text;
    return !text.empty();
}

/// Whether two names are equal as the platform sorts them, whatever their case.
[[nodiscard]] inline bool EqualCollated(LPCWSTR left, LPCWSTR right) {
    return ::lstrcmpiW(left, right) == 0;
}

/// The form name of the public devmode, terminated whatever the devmode holds.
inline PaperName FormName(const DEVMODEW& devmode) {
    return PaperName(TextIn(devmode.dmFormName));
}

}  // namespace oemui
