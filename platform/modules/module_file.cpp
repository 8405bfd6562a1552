#include "platform/modules/module_file.h"

#include <elf.h>

#include <cstdint>
#include <cstring>
#include <fstream>
#include <span>
#include <string_view>
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

    bool Read(std::uintmax_t offset, std::span<unsigned char> bytes) {
        if (!Has(offset, bytes.size())) return false;
        stream_.seekg(static_cast<std::streamoff>(offset));
        auto* destination = reinterpret_cast<char*>(bytes.data());
        const auto length = static_cast<std::streamsize>(bytes.size());
        return static_cast<bool>(stream_.read(destination, length));
    }

    template <typename Part>
    bool Read(std::uintmax_t offset, Part* part) {
        return Read(offset, {reinterpret_cast<unsigned char*>(part), sizeof *part});
    }

    /// The contents of a section; empty when they are not whole.
    std::vector<unsigned char> Read(const Elf64_Shdr& section) {
        if (!Has(section.sh_offset, section.sh_size)) return {};
        std::vector<unsigned char> contents(section.sh_size);
        return Read(section.sh_offset, contents) ? contents : std::vector<unsigned char>();
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

// The name of a section among all names; empty when it lies outside them.
std::string_view NameAt(std::span<const unsigned char> names, std::size_t at) {
    if (at >= names.size()) return {};
    const auto* name = reinterpret_cast<const char*>(names.data()) + at;
    return {name, strnlen(name, names.size() - at)};
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

std::vector<unsigned char> ReadModuleResources(const std::filesystem::path& file) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    ModuleFile module(file, error ? 0 : size);
    Elf64_Ehdr header;
    if (!module.Read(0, &header) || header.e_shoff > size) return {};
    const auto sectionAt = [&header](std::uintmax_t index) {
        return header.e_shoff + index * sizeof(Elf64_Shdr);
    };
    Elf64_Shdr section;
    if (!module.Read(sectionAt(header.e_shstrndx), &section)) return {};
    const std::vector<unsigned char> names = module.Read(section);
    for (std::uintmax_t i = 0; i < header.e_shnum; ++i) {
        if (!module.Read(sectionAt(i), &section)) return {};
        if (NameAt(names, section.sh_name) == ".rsrc") return module.Read(section);
    }
    return {};
}

}  // namespace platform
