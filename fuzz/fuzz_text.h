/// What the fuzz targets share.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <string>

namespace fuzz {

using Text = std::basic_string<WCHAR>;

/// The bytes as UTF-16 units; an odd last byte is left out.
inline Text TextOf(const unsigned char* bytes, std::size_t size) {
    Text text(size / sizeof(WCHAR), 0);
    std::memcpy(text.data(), bytes, text.size() * sizeof(WCHAR));
    return text;
}

/// Fills a record with the bytes; what they do not reach stays zero.
template <typename Record>
void FillFrom(Record* record, const unsigned char* bytes, std::size_t size) {
    std::memcpy(static_cast<void*>(record), bytes, size < sizeof *record ? size : sizeof *record);
}

/// A rule that holds for every input.
inline void Require(bool holds) {
    if (!holds) std::abort();
}

}  // namespace fuzz
