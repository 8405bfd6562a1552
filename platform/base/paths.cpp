#include "platform/base/paths.h"

#include <algorithm>
#include <vector>

#include "platform/base/machine.h"
#include "platform/text/letter_case.h"
#include "platform/text/text_encoding.h"

namespace platform {
namespace {

namespace fs = std::filesystem;

bool IsSeparator(char16_t character) {
    return character == u'\\' || character == u'/';
}

// The parts of a path, without empty ones and ".", each ".." taken back.
std::vector<std::u16string_view> PathParts(std::u16string_view path) {
    std::vector<std::u16string_view> parts;
    while (!path.empty()) {
        const std::size_t length = std::min(path.find_first_of(u"\\/"), path.size());
        const std::u16string_view part = path.substr(0, length);
        path.remove_prefix(std::min(length + 1, path.size()));
        if (part == u"..") {
            if (!parts.empty()) parts.pop_back();
        } else if (!part.empty() && part != u".") {
            parts.push_back(part);
        }
    }
    return parts;
}

fs::path FindPart(const fs::path& folder, std::u16string_view part) {
    fs::path spelled = folder / Utf8(part);
    std::error_code error;
    if (fs::exists(spelled, error)) return spelled;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const fs::path name = entry->path().filename();
        if (EqualIgnoringUnicodeCase(Utf16(name.native()), part)) return entry->path();
    }
    return spelled;
}

// The path below a folder, or an empty one when it is not below it.
fs::path Below(const fs::path& folder, const fs::path& file) {
    if (folder.empty()) return {};
    const fs::path relative = file.lexically_relative(folder);
    return relative.empty() || *relative.begin() == ".." ? fs::path{} : relative;
}

std::u16string WithBackslashes(std::u16string_view drive, const fs::path& relative) {
    std::u16string path(drive);
    if (relative != ".") path += Utf16(relative.native());
    std::ranges::replace(path, u'/', u'\\');
    return path;
}

fs::path IfFile(fs::path file) {
    std::error_code error;
    return fs::is_regular_file(file, error) ? std::move(file) : fs::path{};
}

}  // namespace

fs::path ResolveIgnoringCase(const fs::path& folder, std::u16string_view relative) {
    fs::path resolved = folder;
    for (const std::u16string_view part : PathParts(relative)) resolved = FindPart(resolved, part);
    return resolved;
}

fs::path NativePath(std::u16string_view platformPath) {
    const bool isShare =
        platformPath.size() > 1 && IsSeparator(platformPath[0]) && IsSeparator(platformPath[1]);
    if (platformPath.empty() || isShare || MachineFolder().empty() ||
        platformPath.find(u'\0') != std::u16string_view::npos) {
        return {};
    }
    const std::size_t colon = platformPath.find(u':');
    if (colon == std::u16string_view::npos) {
        return ResolveIgnoringCase(MachineFolder() / "Windows", platformPath);
    }
    if (colon != 1 || platformPath.size() < 3 || !IsSeparator(platformPath[2])) return {};
    const std::u16string_view relative = platformPath.substr(3);
    if (EqualIgnoringUnicodeCase(platformPath.substr(0, 1), u"C")) {
        return ResolveIgnoringCase(MachineFolder(), relative);
    }
    if (!EqualIgnoringUnicodeCase(platformPath.substr(0, 1), u"Z")) return {};
    fs::path file = "/";
    for (const std::u16string_view part : PathParts(relative)) file /= Utf8(part);
    return file;
}

std::u16string PlatformPath(const fs::path& nativePath) {
    std::error_code error;
    const fs::path file = fs::absolute(nativePath, error).lexically_normal();
    fs::path relative = Below(MachineFolder(), file);
    if (relative.empty()) {
        // The machine is known by its folder's real name; the file may have come over a link to it.
        relative = Below(MachineFolder(),
                         fs::weakly_canonical(file.parent_path(), error) / file.filename());
    }
    return relative.empty() ? WithBackslashes(u"Z:", file) : WithBackslashes(u"C:\\", relative);
}

fs::path ExistingFile(std::u16string_view platformPath) {
    return IfFile(NativePath(platformPath));
}

fs::path FindFile(std::initializer_list<fs::path> folders, std::u16string_view name) {
    for (const fs::path& folder : folders) {
        if (folder.empty()) continue;
        fs::path file = IfFile(ResolveIgnoringCase(folder, name));
        if (!file.empty()) return file;
    }
    return {};
}

fs::path IfInside(const fs::path& file) {
    std::error_code error;
    const fs::path real = fs::canonical(file, error);
    return error || Below(MachineFolder(), real).empty() ? fs::path{} : real;
}

fs::path ProgramFolder() {
    return IfInside(ProgramFile().parent_path());
}

fs::path CurrentFolder() {
    std::error_code error;
    return IfInside(fs::current_path(error));
}

fs::path ProgramFile() {
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error);
}

}  // namespace platform
