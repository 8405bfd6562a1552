/// Resources of modules, in the resource compiler's binary format (.res).
#pragma once

#include <windef.h>

#include <span>

namespace platform {

inline constexpr WORD kDialogResource = 5;
inline constexpr WORD kStringTableResource = 6;

/// The first resource of a type and ID in the contents of a .res file, of any language; empty when
/// there is none. Contents that are cut short or damaged end the search, never more.
[[nodiscard]] std::span<const unsigned char> FindResource(std::span<const unsigned char> file,
                                                          WORD type, WORD id);

/// The same in a module (null: the program); the bytes are the module's and go with it.
[[nodiscard]] std::span<const unsigned char> FindResource(HINSTANCE module, WORD type, WORD id);

}  // namespace platform
