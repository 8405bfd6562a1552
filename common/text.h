/// Text in fixed arrays and the module's string table.
#pragma once

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "common/plugin_module.h"

namespace oemui {

using TextView = std::basic_string_view<WCHAR>;

/// Sizes of the buffers for texts of the string table, in characters with terminator.
inline constexpr std::size_t kMessageCapacity = 260;
inline constexpr std::size_t kListTextCapacity = 32;

/// Copies as much of the text as fits, up to its first terminator, and always terminates.
/// Characters behind the terminator are left as they were.
template <std::size_t Capacity>
void CopyText(WCHAR (&destination)[Capacity], TextView source) {
    const std::size_t length =
        std::min(source.substr(0, source.find(WCHAR{0})).size(), Capacity - 1);
    std::copy_n(source.data(), length, destination);
    destination[length] = 0;
}

/// The text in a fixed array, never read past the array even when the terminator is missing.
template <std::size_t Capacity>
TextView TextIn(const WCHAR (&array)[Capacity]) {
    return TextView(array,
                    static_cast<std::size_t>(std::find(array, array + Capacity, WCHAR{0}) - array));
}

/// Whether two texts are equal when the letters A to Z and a to z count as the same; no other
/// character has a case here.
bool EqualIgnoringAsciiCase(TextView left, TextView right);

/// A text of a module's string table, cut to the capacity; empty when the table has no such text.
template <std::size_t Capacity>
class LoadedText {
public:
    explicit LoadedText(UINT textId, HINSTANCE module = PluginModule()) {
        const int length = ::LoadStringW(module, textId, characters_, static_cast<int>(Capacity));
        characters_[length > 0 ? static_cast<std::size_t>(length) : 0] = 0;
    }

    LPCWSTR c_str() const { return characters_; }
    bool empty() const { return characters_[0] == 0; }
    TextView View() const { return TextIn(characters_); }

private:
    WCHAR characters_[Capacity] = {};
};

/// Shows a message box without owner, text and caption from the string table of the plug-in's
/// module (at most 259 characters each).
/// \param type  MB_OK, MB_OKCANCEL or MB_YESNO.
/// \return the button, or 0 when the box could not be shown.
int ShowMessage(UINT textId, UINT captionId, UINT type);

/// The same for a text that is at hand, such as one with a number or a name put in.
int ShowMessageText(LPCWSTR text, UINT captionId, UINT type);

}  // namespace oemui
