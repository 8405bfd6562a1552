// Conversions between UTF-16 and code pages, with the platform's rules for lengths and room.

#include <winbase.h>
#include <winerror.h>

#include <algorithm>
#include <cstring>
#include <limits>

#include "platform/faults/failure_points.h"
#include "platform/text/text_encoding.h"

namespace {

int Fail(DWORD error) {
    SetLastError(error);
    return 0;
}

bool IsKnown(UINT codePage) {
    return codePage == CP_ACP || codePage == CP_UTF8;
}

// The text that a pointer and a length (-1: with its terminator) stand for; empty when they are
// wrong, as a length of 0 is.
template <typename Character>
std::basic_string_view<Character> Given(const Character* text, int length) {
    if (text == nullptr || length < -1) return {};
    if (length >= 0) return {text, static_cast<std::size_t>(length)};
    return {text, std::char_traits<Character>::length(text) + 1};
}

template <typename Character>
int Deliver(const std::basic_string<Character>& text, Character* destination, int capacity) {
    if (text.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
        return Fail(ERROR_INVALID_PARAMETER);
    }
    if (capacity == 0) return static_cast<int>(text.size());
    if (text.size() > static_cast<std::size_t>(capacity)) return Fail(ERROR_INSUFFICIENT_BUFFER);
    std::copy(text.begin(), text.end(), destination);
    return static_cast<int>(text.size());
}

}  // namespace

int WINAPI MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR text, int length,
                               LPWSTR destination, int capacity) {
    DWORD error;
    if (platform::MustFail("MultiByteToWideChar", &error)) return Fail(error);
    const std::string_view given = Given(text, length);
    if (!IsKnown(codePage) || given.empty() || capacity < 0 ||
        (capacity != 0 && destination == nullptr)) {
        return Fail(ERROR_INVALID_PARAMETER);
    }
    bool wellFormed = true;
    const std::u16string converted = codePage == CP_UTF8 ? platform::DecodeUtf8(given, &wellFormed)
                                                         : platform::DecodeWindows1252(given);
    if (!wellFormed && (flags & MB_ERR_INVALID_CHARS) != 0) {
        return Fail(ERROR_NO_UNICODE_TRANSLATION);
    }
    return Deliver(converted, destination, capacity);
}

int WINAPI WideCharToMultiByte(UINT codePage, DWORD, LPCWSTR text, int length, LPSTR destination,
                               int capacity, LPCSTR defaultCharacter, BOOL* usedDefault) {
    DWORD error;
    if (platform::MustFail("WideCharToMultiByte", &error)) return Fail(error);
    const std::u16string_view given = Given(text, length);
    const bool defaultGiven = defaultCharacter != nullptr || usedDefault != nullptr;
    if (!IsKnown(codePage) || given.empty() || capacity < 0 ||
        (capacity != 0 && destination == nullptr) || (codePage == CP_UTF8 && defaultGiven)) {
        return Fail(ERROR_INVALID_PARAMETER);
    }
    if (codePage == CP_UTF8) return Deliver(platform::Utf8(given), destination, capacity);
    bool replaced = false;
    const char replacement = defaultCharacter != nullptr ? *defaultCharacter : '?';
    const std::string converted = platform::EncodeWindows1252(given, replacement, &replaced);
    if (usedDefault != nullptr) *usedDefault = replaced ? TRUE : FALSE;
    return Deliver(converted, destination, capacity);
}
