#include "platform/modules/module_file.h"

#include <elf.h>

#include <cstdint>
#include <cstring>
#include <fstream>
#include <system_error>

namespace platform {
namespace {

class ModuleFile {
public:
    ModuleFile(const std::filesystem::path& file, std::uintmax_t size)
        : stream_(file, std::ios::binary), size_(size) {}

    [[nodiscard]] bool Has(std::uintmax_t offset, std::uintmax_t length) const {
        return offset <= size_ && length <= size_ - offset;
    }

    template <typename Part>
    bool Read(std::uintmax_t offset, Part* part) {
        if (!Has(offset, sizeof *part)) return false;
        stream_.seekg(static_cast<std::streamoff>(offset));
        return static_cast<bool>(stream_.read(reinterpret_cast<char*>(part), sizeof *part));
    }

private:
    std::ifstream stream_;
    std::uintmax_t size_;  // bytes
};

bool IsOwnKind(const Elf64_Ehdr& header) {
    return std::memcmp(header.e_ident, ELFMAG, SELFMAG) == 0 &&
           header.e_ident[EI_CLASS] == ELFCLASS64 && header.e_ident[EI_DATA] == ELFDATA2LSB &&
           header.e_type == ET_DYN && header.e_phentsize == sizeof(Elf64_Phdr);
}

}  // namespace

bool IsWholeModule(const std::filesystem::path& file) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error)) return false;
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    if (error) return false;
    ModuleFile module(file, size);
    Elf64_Ehdr header;
    if (!module.Read(0, &header) || !IsOwnKind(header)) return false;
    for (std::uintmax_t i = 0; i < header.e_phnum; ++i) {
        Elf64_Phdr segment;
        if (!module.Has(header.e_phoff, 0)) return false;
        if (!module.Read(header.e_phoff + i * sizeof segment, &segment)) return false;
        if (!module.Has(segment.p_offset, segment.p_filesz)) return false;
    }
    // The table of sections stands last: without it the file is cut.
    return module.Has(header.e_shoff, std::uintmax_t{header.e_shnum} * header.e_shentsize);
}

}  // namespace platform
