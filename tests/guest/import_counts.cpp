#include "tests/guest/import_counts.h"

#include <array>
#include <iterator>
#include <string_view>
#include <utility>

namespace tests {
namespace {

/// How a call tells that it has opened or closed something.
enum class Success { kHandle, kTrue, kStatusZero, kArgument };

struct Call {
    const char* function;
    const char* kind;
    int change;
    Success success;
};

constexpr Call kCalls[] = {
    {"OpenPrinterW", "printer", 1, Success::kTrue},
    {"ClosePrinter", "printer", -1, Success::kTrue},
    {"RegOpenKeyW", "key", 1, Success::kStatusZero},
    {"RegOpenKeyExW", "key", 1, Success::kStatusZero},
    {"RegCloseKey", "key", -1, Success::kStatusZero},
    {"GetDC", "window context", 1, Success::kHandle},
    {"ReleaseDC", "window context", -1, Success::kTrue},
    {"BeginPaint", "paint cycle", 1, Success::kHandle},
    {"EndPaint", "paint cycle", -1, Success::kTrue},
    {"CreateDCW", "context", 1, Success::kHandle},
    {"CreateCompatibleDC", "context", 1, Success::kHandle},
    {"DeleteDC", "context", -1, Success::kTrue},
    {"CreateCompatibleBitmap", "font or bitmap", 1, Success::kHandle},
    {"CreateFontIndirectW", "font or bitmap", 1, Success::kHandle},
    {"DeleteObject", "font or bitmap", -1, Success::kTrue},
    {"GetModuleHandleExW", "library", 1, Success::kTrue},
    {"LoadLibraryExW", "library", 1, Success::kHandle},
    {"FreeLibrary", "library", -1, Success::kTrue},
    {"malloc", "block", 1, Success::kHandle},
    {"calloc", "block", 1, Success::kHandle},
    {"free", "block", -1, Success::kArgument},
};
constexpr std::size_t kCallCount = std::size(kCalls);

// More arguments than any of these calls takes: those too many are whatever lies on the stack.
using Function = INT_PTR(WINAPI*)(INT_PTR, INT_PTR, INT_PTR, INT_PTR, INT_PTR, INT_PTR);

std::array<Function, kCallCount> originals{};
std::array<Function*, kCallCount> slots{};
std::array<int, kCallCount> successes{};

bool Succeeded(Success success, INT_PTR result, INT_PTR argument) {
    switch (success) {
        case Success::kHandle:
            return result != 0;
        case Success::kTrue:
            return static_cast<int>(result) != 0;
        case Success::kStatusZero:
            return static_cast<int>(result) == 0;
        default:
            return argument != 0;
    }
}

template <std::size_t Place>
INT_PTR WINAPI Counted(INT_PTR a, INT_PTR b, INT_PTR c, INT_PTR d, INT_PTR e, INT_PTR f) {
    const INT_PTR result = originals[Place](a, b, c, d, e, f);
    const DWORD error = ::GetLastError();
    if (Succeeded(kCalls[Place].success, result, a)) ++successes[Place];
    ::SetLastError(error);
    return result;
}

template <std::size_t... Places>
constexpr std::array<Function, kCallCount> CountedFunctions(std::index_sequence<Places...>) {
    return {&Counted<Places>...};
}

void Put(Function* slot, Function function) {
    DWORD before = 0;
    ::VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &before);
    *slot = function;
    ::VirtualProtect(slot, sizeof *slot, before, &before);
}

/// Calls `visit` with the name and the slot of every import by name.
template <typename Visit>
void ForEachImport(HMODULE module, Visit visit) {
    auto* base = reinterpret_cast<BYTE*>(module);
    const auto* header = reinterpret_cast<IMAGE_DOS_HEADER*>(base);
    const auto* headers = reinterpret_cast<IMAGE_NT_HEADERS64*>(base + header->e_lfanew);
    const IMAGE_DATA_DIRECTORY& directory =
        headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    auto* library = reinterpret_cast<IMAGE_IMPORT_DESCRIPTOR*>(base + directory.VirtualAddress);
    for (; library->Name != 0; ++library) {
        auto* names = reinterpret_cast<IMAGE_THUNK_DATA64*>(base + library->OriginalFirstThunk);
        auto* slot = reinterpret_cast<Function*>(base + library->FirstThunk);
        for (; names->u1.AddressOfData != 0; ++names, ++slot) {
            const auto* name =
                reinterpret_cast<IMAGE_IMPORT_BY_NAME*>(base + names->u1.AddressOfData);
            if (!IMAGE_SNAP_BY_ORDINAL64(names->u1.Ordinal)) visit(name->Name, slot);
        }
    }
}

}  // namespace

ImportCounts::ImportCounts(HMODULE module) : module_(module) {
    constexpr auto kCounted = CountedFunctions(std::make_index_sequence<kCallCount>());
    successes = {};
    slots = {};
    ForEachImport(module_, [&](const char* name, Function* slot) {
        for (std::size_t place = 0; place < kCallCount; ++place) {
            if (std::string_view(name) != kCalls[place].function) continue;
            slots[place] = slot;
            originals[place] = *slot;
            Put(slot, kCounted[place]);
        }
    });
}

ImportCounts::~ImportCounts() {
    for (std::size_t place = 0; place < kCallCount; ++place) {
        if (slots[place] != nullptr) Put(slots[place], originals[place]);
    }
}

std::map<std::string, int> ImportCounts::Open() {
    std::map<std::string, int> open;
    for (std::size_t place = 0; place < kCallCount; ++place) {
        open[kCalls[place].kind] += kCalls[place].change * successes[place];
    }
    std::erase_if(open, [](const auto& kind) { return kind.second == 0; });
    return open;
}

std::map<std::string, int> ImportCounts::Opened() {
    std::map<std::string, int> opened;
    for (std::size_t place = 0; place < kCallCount; ++place) {
        if (kCalls[place].change > 0) opened[kCalls[place].kind] += successes[place];
    }
    return opened;
}

}  // namespace tests
