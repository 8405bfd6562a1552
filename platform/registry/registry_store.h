/// The registry's file: keys and values in one SQLite database, `registry.sqlite` in the machine's
/// folder. Every change is one transaction: another process, or the next one after a crash, sees it
/// whole or not at all.
///
/// All operations answer one of the platform's error codes: ERROR_BADDB when the file is damaged
/// and ERROR_UNKNOWN_REVISION when a later version has written it (either way it is left as it is),
/// ERROR_BUSY when others kept it locked for `kBusyTimeout`, ERROR_KEY_DELETED when the key has
/// gone meanwhile. For any thread.
///
/// Reading needs no more than the right to read, no space, and goes on while another process makes
/// a change. Before anything has been written there are no keys.
#pragma once

#include <windef.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

inline constexpr std::chrono::milliseconds kBusyTimeout{3000};

/// A key for as long as it exists; numbers are never used again.
using KeyId = std::int64_t;
inline constexpr KeyId kRootKey = 1;

struct RegistryValue {
    DWORD type = 0;
    std::vector<unsigned char> bytes;
};

/// The names of a key's sub-keys, in order, as they were at one moment.
struct SubkeyList {
    std::uint64_t generation = 0;     ///< of this process's own changes
    std::int64_t foreignVersion = 0;  ///< of the changes by other processes
    std::vector<std::u16string> names;
};

/// A path is names divided by backslashes; empty names are passed over.
[[nodiscard]] DWORD FindKey(KeyId parent, std::u16string_view path, KeyId* key);

/// Finds a key or makes it with all its parents.
[[nodiscard]] DWORD FindOrCreateKey(KeyId parent, std::u16string_view path, KeyId* key,
                                    bool* created);

/// Deletes a key and all below it.
[[nodiscard]] DWORD DeleteKey(KeyId key);

/// Brings a list up to date; does nothing, at no cost to speak of, when it is.
/// \param walkingOn  true when only changes of this process matter: the caller goes on with a list
///        that it has just used.
[[nodiscard]] DWORD RefreshSubkeys(KeyId key, bool walkingOn, SubkeyList* list);

[[nodiscard]] DWORD ReadValue(KeyId key, std::u16string_view name, RegistryValue* value);
[[nodiscard]] DWORD WriteValue(KeyId key, std::u16string_view name, DWORD type,
                               std::span<const unsigned char> bytes);

/// Does several operations as one change: all of them are stored when `operations` answers
/// ERROR_SUCCESS, and none otherwise. Other threads wait meanwhile. May be nested; not within
/// `ReadAtOnce`. \return what `operations` answers, or why the change could not be stored.
[[nodiscard]] DWORD ChangeAtOnce(const std::function<DWORD()>& operations);

/// Does several operations that read over one view of the file. \return as above.
[[nodiscard]] DWORD ReadAtOnce(const std::function<DWORD()>& operations);

/// Closes the file; the next operation opens that of the machine then in use.
void CloseRegistryStore();

}  // namespace platform
