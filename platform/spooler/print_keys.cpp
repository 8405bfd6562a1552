#include "platform/spooler/print_keys.h"

#include <winreg.h>

#include <cstring>

namespace platform::spooler {
namespace {

constexpr std::size_t kKeyNameLimit = 255;

template <class Character>
std::span<const BYTE> AsBytes(const Character* first, std::size_t count) {
    return {reinterpret_cast<const BYTE*>(first), count * sizeof(Character)};
}

}  // namespace

std::u16string SubKeyPath(std::u16string_view list, std::u16string_view entry) {
    std::u16string path(list);
    path += u'\\';
    path += entry;
    return path;
}

bool IsKeyName(std::u16string_view name) {
    return !name.empty() && name.size() <= kKeyNameLimit && name.find(u'\\') == name.npos;
}

DWORD PrintKey::Open(std::u16string_view path) {
    return FindKey(kRootKey, path, &key_);
}

DWORD PrintKey::Create(std::u16string_view path, bool* created) {
    bool isNew = false;
    const DWORD error = FindOrCreateKey(kRootKey, path, &key_, &isNew);
    if (created != nullptr) *created = isNew;
    return error;
}

std::optional<std::vector<BYTE>> PrintKey::Value(std::u16string_view name, DWORD type) const {
    RegistryValue value;
    const DWORD error = Read(name, &value);
    if (error != ERROR_SUCCESS) {
        if (error != ERROR_FILE_NOT_FOUND && error_ == ERROR_SUCCESS) error_ = error;
        return std::nullopt;
    }
    if (value.type != type) return std::nullopt;
    return std::move(value.bytes);
}

std::u16string PrintKey::Text(std::u16string_view name) const {
    const auto bytes = Value(name, REG_SZ);
    if (!bytes) return {};
    std::u16string text(bytes->size() / sizeof(WCHAR), u'\0');
    if (!text.empty()) std::memcpy(text.data(), bytes->data(), text.size() * sizeof(WCHAR));
    return text.substr(0, text.find(u'\0'));
}

DWORD PrintKey::Number(std::u16string_view name, DWORD missing) const {
    const auto bytes = Value(name, REG_DWORD);
    if (!bytes || bytes->size() != sizeof(DWORD)) return missing;
    DWORD number = 0;
    std::memcpy(&number, bytes->data(), sizeof number);
    return number;
}

std::vector<BYTE> PrintKey::Bytes(std::u16string_view name) const {
    return Value(name, REG_BINARY).value_or(std::vector<BYTE>());
}

DWORD PrintKey::Read(std::u16string_view name, RegistryValue* value) const {
    return ReadValue(key_, name, value);
}

DWORD PrintKey::Write(std::u16string_view name, DWORD type, std::span<const BYTE> bytes) {
    return WriteValue(key_, name, type, bytes);
}

DWORD PrintKey::SetText(std::u16string_view name, const std::u16string& text) {
    return Write(name, REG_SZ, AsBytes(text.c_str(), text.size() + 1));
}

DWORD PrintKey::SetNumber(std::u16string_view name, DWORD number) {
    return Write(name, REG_DWORD, AsBytes(&number, 1));
}

DWORD ListSubKeys(std::u16string_view path, std::vector<std::u16string>* names) {
    names->clear();
    KeyId key = 0;
    DWORD error = FindKey(kRootKey, path, &key);
    if (error == ERROR_FILE_NOT_FOUND) return ERROR_SUCCESS;
    if (error != ERROR_SUCCESS) return error;
    SubkeyList list;
    error = RefreshSubkeys(key, false, &list);
    *names = std::move(list.names);
    return error;
}

DWORD RemoveKey(std::u16string_view path) {
    KeyId key = 0;
    const DWORD error = FindKey(kRootKey, path, &key);
    return error != ERROR_SUCCESS ? error : DeleteKey(key);
}

}  // namespace platform::spooler
