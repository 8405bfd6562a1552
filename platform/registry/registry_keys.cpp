// The registry's functions over the store: handles, rights, sizes and room.

#include <winbase.h>
#include <winerror.h>
#include <winreg.h>

#include <algorithm>
#include <memory>
#include <mutex>
#include <optional>
#include <string_view>

#include "platform/base/handles.h"
#include "platform/faults/failure_points.h"
#include "platform/registry/registry_store.h"

namespace {

constexpr std::size_t kLongestKeyName = 255;
constexpr std::size_t kLongestValueName = 16383;

struct OpenKey {
    platform::KeyId id;
    REGSAM access;
    // The names being walked through, and which one the walk has come to.
    std::mutex mutex;
    platform::SubkeyList subkeys;
    std::optional<DWORD> lastIndex;
};
using KeyPointer = std::shared_ptr<OpenKey>;

platform::HandleTable<OpenKey>& Keys() {
    static platform::HandleTable<OpenKey> keys("registry key");
    return keys;
}

// Every walk through the root begins anew: its handle is everybody's.
KeyPointer MakeKey(platform::KeyId id, REGSAM access) {
    auto key = std::make_shared<OpenKey>();
    key->id = id;
    key->access = access;
    return key;
}

KeyPointer FindOpenKey(HKEY key) {
    return key == HKEY_LOCAL_MACHINE ? MakeKey(platform::kRootKey, KEY_ALL_ACCESS)
                                     : Keys().Find(key);
}

// What every function begins with: its point, the handle and the right it needs.
LSTATUS Begin(const char* point, HKEY handle, REGSAM right, KeyPointer* key) {
    if (const auto error = platform::InjectedFailure(point)) return static_cast<LSTATUS>(*error);
    *key = FindOpenKey(handle);
    if (!*key) return ERROR_INVALID_HANDLE;
    return ((*key)->access & right) == right ? ERROR_SUCCESS : ERROR_ACCESS_DENIED;
}

std::u16string_view Name(LPCWSTR text) {
    return text == nullptr ? std::u16string_view{} : std::u16string_view(text);
}

LSTATUS CheckPath(std::u16string_view path) {
    if (path.starts_with(u'\\')) return ERROR_BAD_PATHNAME;
    for (std::size_t begin = 0; begin < path.size();) {
        const std::size_t end = std::min(path.find(u'\\', begin), path.size());
        if (end - begin > kLongestKeyName) return ERROR_INVALID_PARAMETER;
        begin = end + 1;
    }
    return ERROR_SUCCESS;
}

HKEY OpenHandle(platform::KeyId id, REGSAM access) {
    return static_cast<HKEY>(Keys().Insert(MakeKey(id, access)));
}

// Brings a key's list of names up to date for one place in it. Whoever walks up sees other
// processes' changes when the list is at its end, so that a walk costs one look at the file.
LSTATUS RefreshFor(OpenKey& key, DWORD index) {
    const bool walkingOn =
        key.lastIndex && index == *key.lastIndex + 1 && index < key.subkeys.names.size();
    const DWORD error = platform::RefreshSubkeys(key.id, walkingOn, &key.subkeys);
    if (error != ERROR_SUCCESS) return static_cast<LSTATUS>(error);
    return index < key.subkeys.names.size() ? ERROR_SUCCESS : ERROR_NO_MORE_ITEMS;
}

LSTATUS Open(const KeyPointer& parent, LPCWSTR path, REGSAM access, PHKEY result) {
    const LSTATUS malformed = CheckPath(Name(path));
    if (malformed != ERROR_SUCCESS) return malformed;
    platform::KeyId id = 0;
    const DWORD error = platform::FindKey(parent->id, Name(path), &id);
    if (error == ERROR_SUCCESS) *result = OpenHandle(id, access);
    return static_cast<LSTATUS>(error);
}

bool IsText(DWORD type) {
    return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ;
}

// Copies a value; a text without terminator gets one when there is room behind it.
LSTATUS Deliver(const platform::RegistryValue& value, LPBYTE bytes, LPDWORD size) {
    const DWORD room = *size;
    *size = static_cast<DWORD>(value.bytes.size());
    if (bytes == nullptr) return ERROR_SUCCESS;
    if (room < value.bytes.size()) return ERROR_MORE_DATA;
    BYTE* end = std::copy(value.bytes.begin(), value.bytes.end(), bytes);
    if (IsText(value.type) && room - value.bytes.size() >= sizeof(WCHAR)) std::fill_n(end, 2, 0);
    return ERROR_SUCCESS;
}

}  // namespace

LSTATUS WINAPI RegOpenKeyExW(HKEY key, LPCWSTR path, DWORD, REGSAM access, PHKEY result) {
    KeyPointer parent;
    const LSTATUS error = Begin("RegOpenKeyExW", key, 0, &parent);
    if (error != ERROR_SUCCESS) return error;
    return result == nullptr ? ERROR_INVALID_PARAMETER : Open(parent, path, access, result);
}

LSTATUS WINAPI RegOpenKeyW(HKEY key, LPCWSTR path, PHKEY result) {
    KeyPointer parent;
    const LSTATUS error = Begin("RegOpenKeyW", key, 0, &parent);
    if (error != ERROR_SUCCESS) return error;
    if (result == nullptr) return ERROR_INVALID_PARAMETER;
    if (!Name(path).empty()) return Open(parent, path, KEY_ALL_ACCESS, result);
    *result = key;
    return ERROR_SUCCESS;
}

LSTATUS WINAPI RegCreateKeyExW(HKEY key, LPCWSTR path, DWORD reserved, LPWSTR, DWORD options,
                               REGSAM access, SECURITY_ATTRIBUTES*, PHKEY result,
                               DWORD* disposition) {
    KeyPointer parent;
    LSTATUS error = Begin("RegCreateKeyExW", key, 0, &parent);
    if (error != ERROR_SUCCESS) return error;
    if (reserved != 0 || options != REG_OPTION_NON_VOLATILE || path == nullptr ||
        result == nullptr) {
        return ERROR_INVALID_PARAMETER;
    }
    error = CheckPath(path);
    if (error != ERROR_SUCCESS) return error;
    const bool mayCreate = (parent->access & KEY_CREATE_SUB_KEY) != 0;
    platform::KeyId id = 0;
    bool created = false;
    DWORD failure = mayCreate ? platform::FindOrCreateKey(parent->id, path, &id, &created)
                              : platform::FindKey(parent->id, path, &id);
    if (failure == ERROR_FILE_NOT_FOUND) failure = ERROR_ACCESS_DENIED;
    if (failure != ERROR_SUCCESS) return static_cast<LSTATUS>(failure);
    *result = OpenHandle(id, access);
    if (disposition != nullptr) {
        *disposition = created ? REG_CREATED_NEW_KEY : REG_OPENED_EXISTING_KEY;
    }
    return ERROR_SUCCESS;
}

LSTATUS WINAPI RegEnumKeyExW(HKEY handle, DWORD index, LPWSTR name, LPDWORD size, LPDWORD reserved,
                             LPWSTR className, LPDWORD classSize, FILETIME* lastWritten) {
    KeyPointer key;
    const LSTATUS error = Begin("RegEnumKeyExW", handle, KEY_ENUMERATE_SUB_KEYS, &key);
    if (error != ERROR_SUCCESS) return error;
    if (name == nullptr || size == nullptr || reserved != nullptr) return ERROR_INVALID_PARAMETER;
    const std::lock_guard lock(key->mutex);
    const LSTATUS failure = RefreshFor(*key, index);
    if (failure != ERROR_SUCCESS) return failure;
    const std::u16string& found = key->subkeys.names[index];
    if (*size <= found.size()) return ERROR_MORE_DATA;
    key->lastIndex = index;
    *std::copy(found.begin(), found.end(), name) = 0;
    *size = static_cast<DWORD>(found.size());
    if (className != nullptr && classSize != nullptr && *classSize > 0) *className = 0;
    if (classSize != nullptr) *classSize = 0;
    if (lastWritten != nullptr) *lastWritten = {};
    return ERROR_SUCCESS;
}

LSTATUS WINAPI RegQueryValueExW(HKEY handle, LPCWSTR name, LPDWORD reserved, LPDWORD type,
                                LPBYTE bytes, LPDWORD size) {
    KeyPointer key;
    const LSTATUS error = Begin("RegQueryValueExW", handle, KEY_QUERY_VALUE, &key);
    if (error != ERROR_SUCCESS) return error;
    if (reserved != nullptr || (bytes != nullptr && size == nullptr)) {
        return ERROR_INVALID_PARAMETER;
    }
    platform::RegistryValue value;
    const DWORD failure = platform::ReadValue(key->id, Name(name), &value);
    if (failure != ERROR_SUCCESS) return static_cast<LSTATUS>(failure);
    if (type != nullptr) *type = value.type;
    return size == nullptr ? ERROR_SUCCESS : Deliver(value, bytes, size);
}

LSTATUS WINAPI RegSetValueExW(HKEY handle, LPCWSTR name, DWORD reserved, DWORD type,
                              const BYTE* bytes, DWORD size) {
    KeyPointer key;
    const LSTATUS error = Begin("RegSetValueExW", handle, KEY_SET_VALUE, &key);
    if (error != ERROR_SUCCESS) return error;
    if (reserved != 0 || (bytes == nullptr && size != 0) || Name(name).size() > kLongestValueName) {
        return ERROR_INVALID_PARAMETER;
    }
    return static_cast<LSTATUS>(platform::WriteValue(key->id, Name(name), type, {bytes, size}));
}

LSTATUS WINAPI RegDeleteTreeW(HKEY handle, LPCWSTR path) {
    constexpr REGSAM kNeeded = DELETE | KEY_ENUMERATE_SUB_KEYS | KEY_QUERY_VALUE;
    KeyPointer key;
    const LSTATUS error = Begin("RegDeleteTreeW", handle, kNeeded, &key);
    if (error != ERROR_SUCCESS) return error;
    if (Name(path).empty()) return ERROR_INVALID_PARAMETER;
    platform::KeyId id = 0;
    DWORD failure = platform::FindKey(key->id, path, &id);
    // A path of backslashes alone leads back to the key itself, which stays.
    if (failure == ERROR_SUCCESS && id == key->id) failure = ERROR_BAD_PATHNAME;
    if (failure == ERROR_SUCCESS) failure = platform::DeleteKey(id);
    return static_cast<LSTATUS>(failure);
}

LSTATUS WINAPI RegCloseKey(HKEY key) {
    if (key == HKEY_LOCAL_MACHINE) return ERROR_SUCCESS;
    return Keys().Remove(key) ? ERROR_SUCCESS : ERROR_INVALID_HANDLE;
}
