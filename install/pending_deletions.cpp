#include "install/pending_deletions.h"

#include <algorithm>
#include <memory>
#include <new>
#include <utility>

#include "common/file_name.h"
#include "common/text.h"
#include "common/unique_handle.h"

namespace oemui {
namespace {

constexpr LPCWSTR kPendingOperations = TEXT("PendingFileRenameOperations");

/// A value of the registry as it is stored.
struct PendingValue {
    DWORD Type = REG_NONE;
    DWORD Size = 0;                       ///< bytes
    std::unique_ptr<WCHAR[]> Characters;  ///< room for the whole value; null when there is none

    bool operator==(const PendingValue& other) const {
        return Type == other.Type && Size == other.Size &&
               std::equal(Bytes(), Bytes() + Size, other.Bytes());
    }
    [[nodiscard]] BYTE* Bytes() const { return reinterpret_cast<BYTE*>(Characters.get()); }
};

PendingValue ReadValue(HKEY key, LPCWSTR name) {
    PendingValue value;
    if (::RegQueryValueExW(key, name, nullptr, &value.Type, nullptr, &value.Size) !=
            ERROR_SUCCESS ||
        value.Size == 0) {
        return {};
    }
    // Half a character at the end needs room as well.
    value.Characters.reset(new (std::nothrow) WCHAR[value.Size / sizeof(WCHAR) + 1]);
    if (!value.Characters || ::RegQueryValueExW(key, name, nullptr, &value.Type, value.Bytes(),
                                                &value.Size) != ERROR_SUCCESS) {
        return {};
    }
    return value;
}

/// The value with every deletion of the file spoilt; empty when there is none.
PendingValue ReadSpoilt(HKEY key, TextView fileName) {
    PendingValue value = ReadValue(key, kPendingOperations);
    const std::span operations(value.Characters.get(), value.Size / sizeof(WCHAR));
    return SpoilPendingDeletions(operations, fileName) ? std::move(value) : PendingValue();
}

/// The next text of a list, with `*rest` moved behind its terminator.
/// \return false when the list ends before the terminator.
bool TakeText(TextView* rest, TextView* text) {
    const std::size_t length = rest->find(WCHAR{0});
    if (length == TextView::npos) return false;
    *text = rest->substr(0, length);
    rest->remove_prefix(length + 1);
    return true;
}

}  // namespace

void KeepFromPendingDeletion(TextView fileName) {
    UniqueKey key;
    if (::RegOpenKeyW(HKEY_LOCAL_MACHINE,
                      TEXT("System\\CurrentControlSet\\Control\\Session Manager"),
                      key.Receive()) != ERROR_SUCCESS) {
        return;
    }
    // Other programs add to the value at any time: it is written only when it is still as it was
    // read, and rather not at all than without what somebody else has put in.
    constexpr int kAttempts = 3;
    PendingValue value = ReadSpoilt(key.Get(), fileName);
    for (int attempt = 0; attempt < kAttempts && value.Characters; ++attempt) {
        PendingValue again = ReadSpoilt(key.Get(), fileName);
        if (again == value) {
            ::RegSetValueExW(key.Get(), kPendingOperations, 0, value.Type, value.Bytes(),
                             value.Size);
            return;
        }
        value = std::move(again);
    }
}

bool SpoilPendingDeletions(std::span<WCHAR> operations, TextView fileName) {
    constexpr std::size_t kSpoiltFromEnd = 3;
    bool isChanged = false;
    TextView rest(operations.data(), operations.size());
    TextView path;
    TextView target;
    while (TakeText(&rest, &path) && !path.empty() && TakeText(&rest, &target)) {
        const bool isDeletion = target.empty() && path.size() >= kSpoiltFromEnd;
        if (!isDeletion || fileName.empty()) continue;
        if (!EqualIgnoringAsciiCase(FileNameOf(path), fileName)) continue;
        const auto end = static_cast<std::size_t>(path.data() - operations.data()) + path.size();
        operations[end - kSpoiltFromEnd] = TEXT('_');
        isChanged = true;
    }
    return isChanged;
}

}  // namespace oemui
