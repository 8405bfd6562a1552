#include "platform/modules/resources.h"

#include <winbase.h>
#include <winerror.h>

#include <algorithm>
#include <optional>

#include "platform/base/fail.h"
#include "platform/faults/failure_points.h"
#include "platform/modules/modules.h"

namespace platform {
namespace {

using Bytes = std::span<const unsigned char>;

// Reads little-endian numbers from front to back, never past the end.
class Reader {
public:
    explicit Reader(Bytes bytes) : bytes_(bytes) {}

    bool Take(std::size_t count, Bytes* taken) {
        if (count > bytes_.size() - at_) return false;
        *taken = bytes_.subspan(at_, count);
        at_ += count;
        return true;
    }

    bool TakeWord(WORD* word) {
        Bytes taken;
        if (!Take(2, &taken)) return false;
        *word = static_cast<WORD>(taken[0] | (taken[1] << 8));
        return true;
    }

    bool TakeDword(DWORD* dword) {
        WORD low = 0;
        WORD high = 0;
        if (!TakeWord(&low) || !TakeWord(&high)) return false;
        *dword = low | (static_cast<DWORD>(high) << 16);
        return true;
    }

    // What fills up to a multiple of four may be missing at the end.
    void Align() { at_ = std::min((at_ + 3) & ~std::size_t{3}, bytes_.size()); }

private:
    Bytes bytes_;
    std::size_t at_ = 0;
};

// A type or name: a number, or a text, which is stepped over and has no number.
bool TakeNumberOrText(Reader& reader, std::optional<WORD>* number) {
    WORD word = 0;
    if (!reader.TakeWord(&word)) return false;
    if (word == 0xFFFF) {
        if (!reader.TakeWord(&word)) return false;
        *number = word;
        return true;
    }
    while (word != 0) {
        if (!reader.TakeWord(&word)) return false;
    }
    return true;
}

struct Resource {
    std::optional<WORD> type;
    std::optional<WORD> name;
    Bytes contents;
};

// Each resource is a header (its size is counted from its own beginning) and its contents, both
// filled up to multiples of four bytes.
bool TakeResource(Reader& reader, Resource* resource) {
    constexpr DWORD kSizes = 8;  // the two sizes themselves
    DWORD contentsSize = 0;
    DWORD headerSize = 0;
    Bytes header;
    if (!reader.TakeDword(&contentsSize) || !reader.TakeDword(&headerSize)) return false;
    if (headerSize < kSizes || !reader.Take(headerSize - kSizes, &header)) return false;
    Reader fields(header);
    if (!TakeNumberOrText(fields, &resource->type)) return false;
    if (!TakeNumberOrText(fields, &resource->name)) return false;
    reader.Align();
    if (!reader.Take(contentsSize, &resource->contents)) return false;
    reader.Align();
    return true;
}

// One text of a block of sixteen: counted texts one after the other.
std::optional<Bytes> FindString(Bytes block, unsigned index) {
    Reader reader(block);
    Bytes text;
    for (unsigned i = 0; i <= index; ++i) {
        WORD length = 0;
        if (!reader.TakeWord(&length) || !reader.Take(std::size_t{2} * length, &text)) return {};
    }
    return text;
}

}  // namespace

std::span<const unsigned char> FindResource(std::span<const unsigned char> file, WORD type,
                                            WORD id) {
    Reader reader(file);
    for (Resource resource; TakeResource(reader, &resource); resource = {}) {
        if (resource.type == type && resource.name == id) return resource.contents;
    }
    return {};
}

std::span<const unsigned char> FindResource(HINSTANCE module, WORD type, WORD id) {
    const ModuleImage* image = FindModule(module);
    if (image == nullptr) return {};
    return FindResource({image->resources, image->resourcesSize}, type, id);
}

}  // namespace platform

using platform::Fail;

int WINAPI LoadStringW(HINSTANCE module, UINT id, LPWSTR text, int size) {
    if (const auto error = platform::InjectedFailure("LoadStringW")) return Fail<int>(*error);
    if (text == nullptr || size <= 0) return Fail<int>(ERROR_INVALID_PARAMETER);
    const auto number = static_cast<WORD>(id);
    const platform::Bytes block = platform::FindResource(module, platform::kStringTableResource,
                                                         static_cast<WORD>(number / 16 + 1));
    const auto found = platform::FindString(block, number % 16);
    if (!found) return Fail<int>(ERROR_RESOURCE_NAME_NOT_FOUND);
    const std::size_t length = std::min(found->size() / 2, static_cast<std::size_t>(size) - 1);
    for (std::size_t i = 0; i < length; ++i) {
        text[i] = static_cast<WCHAR>((*found)[2 * i] | ((*found)[2 * i + 1] << 8));
    }
    text[length] = 0;
    return static_cast<int>(length);
}
