/// Text in fixed arrays.
#pragma once

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <string_view>

#include "common/plugin_module.h"

namespace oemui {

using TextView = std::basic_string_view<WCHAR>;

/// Copies as much of the text as fits, up to its first terminator, and always terminates.
/// Characters behind the terminator are left as they were.
template <std::size_t Capacity>
void CopyText(WCHAR (&destination)[Capacity], TextView source) {
    const std::size_t length =
        std::min(source.substr(0, source.find(WCHAR{0})).size(), Capacity - 1);
    std::copy_n(source.data(), length, destination);
    destination[length] = 0;
}

/// The text in an array of a record, never read past the array even when the terminator is missing.
template <std::size_t Capacity>
TextView TextIn(const WCHAR (&array)[Capacity]) {
    return TextView(array,
                    static_cast<std::size_t>(std::find(array, array + Capacity, WCHAR{0}) - array));
}

/// Without half of a surrogate pair at its end, as a limit on typing or a cut leaves one.
constexpr TextView WithoutLoneHalf(TextView text) {
    const auto isHigh = [](WCHAR unit) { return (unit & 0xFC00) == 0xD800; };
    const auto isLow = [](WCHAR unit) { return (unit & 0xFC00) == 0xDC00; };
    if (text.empty()) return text;
    const bool isPair = text.size() > 1 && isHigh(text[text.size() - 2]) && isLow(text.back());
    const bool isHalf = isHigh(text.back()) || isLow(text.back());
    return isHalf && !isPair ? text.substr(0, text.size() - 1) : text;
}

/// A text of at most `Capacity` - 1 characters, always terminated. What does not fit is cut.
template <std::size_t Capacity>
class FixedText {
public:
    FixedText() = default;
    explicit FixedText(TextView text) { CopyText(characters_, text); }
    /// Loads a text of a module's string table; empty when the table has no such text.
    explicit FixedText(UINT textId, HINSTANCE module = PluginModule()) {
        const int length = ::LoadStringW(module, textId, characters_, static_cast<int>(Capacity));
        CutAt(length > 0 ? static_cast<std::size_t>(length) : 0);
    }

    [[nodiscard]] LPCWSTR c_str() const { return characters_; }
    [[nodiscard]] bool empty() const { return characters_[0] == 0; }
    [[nodiscard]] TextView View() const { return TextIn(characters_); }

    /// Puts texts one after the other. \return false, and nothing changed, when they do not fit.
    [[nodiscard]] bool Join(std::initializer_list<TextView> parts) {
        std::size_t length = 0;
        for (const TextView part : parts) length += part.size();
        if (length >= Capacity) return false;
        WCHAR* end = characters_;
        for (const TextView part : parts) end = std::copy(part.begin(), part.end(), end);
        *end = 0;
        return true;
    }

    /// The array, `Capacity` characters, for a call of the platform that writes a text; afterwards
    /// `CutAt` terminates it.
    PWSTR Room() { return characters_; }
    void CutAt(std::size_t length) { characters_[std::min(length, Capacity - 1)] = 0; }

private:
    WCHAR characters_[Capacity] = {};
};

/// A message, a caption or a name of the string table, and one of its list entries.
using MessageText = FixedText<260>;
using ListText = FixedText<32>;

/// A format with values put in as `wsprintfW` does it. No text is longer than that writes: 1024
/// characters.
template <typename... Values>
FixedText<1025> PrintText(LPCWSTR format, Values... values) {
    FixedText<1025> text;
    ::wsprintfW(text.Room(), format, values...);
    return text;
}

}  // namespace oemui
