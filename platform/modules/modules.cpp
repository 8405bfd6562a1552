// Modules: shared objects that carry the platform's resources and register themselves while they
// are mapped. The address of a module's record is its handle.

#include "platform/modules/modules.h"

#include <dlfcn.h>
#include <link.h>
#include <winbase.h>
#include <winerror.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <mutex>

#include "platform/base/fail.h"
#include "platform/base/machine.h"
#include "platform/base/paths.h"
#include "platform/faults/failure_points.h"
#include "platform/faults/live_objects.h"
#include "platform/modules/data_modules.h"
#include "platform/modules/module_file.h"
#include "platform/text/letter_case.h"
#include "platform/text/text_encoding.h"

namespace platform {
namespace {

namespace fs = std::filesystem;

struct Mapped {
    const link_map* object = nullptr;  // the loader's record of the shared object
    void* library = nullptr;           // from `dlopen`; null for the program
    fs::path file;
    int uses = 0;  // by `LoadLibraryW`; none yet while the entry is told of the beginning
    bool isProgram = false;
    bool isClosed = false;      // nobody uses it any more, but the loader keeps it mapped
    bool entryRefused = false;  // the entry answered that it cannot run
};

// Entries of modules run while the loader holds its own lock, and may load others: never held
// over a call of the loader.
std::mutex mutex;

std::map<const ModuleImage*, Mapped>& Modules() {
    static std::map<const ModuleImage*, Mapped> modules;
    return modules;
}

HINSTANCE HandleOf(const ModuleImage* image) {
    return reinterpret_cast<HINSTANCE>(const_cast<ModuleImage*>(image));
}

const link_map* ObjectAt(const void* address) {
    Dl_info info;
    link_map* object = nullptr;
    const int found = dladdr1(address, &info, reinterpret_cast<void**>(&object), RTLD_DL_LINKMAP);
    return found != 0 ? object : nullptr;
}

const link_map* ObjectOf(void* library) {
    link_map* object = nullptr;
    return dlinfo(library, RTLD_DI_LINKMAP, &object) == 0 ? object : nullptr;
}

// With the lock held.
std::map<const ModuleImage*, Mapped>::iterator Find(HINSTANCE handle) {
    auto& modules = Modules();
    if (handle == nullptr) {
        return std::find_if(modules.begin(), modules.end(),
                            [](const auto& entry) { return entry.second.isProgram; });
    }
    const auto found = modules.find(reinterpret_cast<const ModuleImage*>(handle));
    const bool isOpen = found != modules.end() && !found->second.isClosed;
    return isOpen ? found : modules.end();
}

std::u16string WithEnding(const std::u16string& name) {
    const std::size_t lastPart = name.find_last_of(u"\\/:") + 1;
    return name.find(u'.', lastPart) == std::u16string::npos ? name + u".dll" : name;
}

// The file of a module in use, by its bare name with its ending; empty when none is.
fs::path FileInUse(std::u16string_view name) {
    const std::lock_guard lock(mutex);
    for (const auto& [image, mapped] : Modules()) {
        const bool isNamed = EqualIgnoringUnicodeCase(Utf16(mapped.file.filename().native()), name);
        if (isNamed && mapped.uses > 0) return mapped.file;
    }
    return {};
}

fs::path FindLibrary(const std::u16string& fileName) {
    const std::u16string name = WithEnding(fileName);
    if (MachineFolder().empty()) return {};
    if (name.find_first_of(u"\\/:") != std::u16string::npos) return ExistingFile(name);
    if (fs::path used = FileInUse(name); !used.empty()) return used;
    const fs::path windows = MachineFolder() / "Windows";
    return FindFile({ProgramFolder(), windows / "System32", windows, CurrentFolder()}, name);
}

// Counts one more use of a shared object that has just been opened.
HINSTANCE AddUse(void* library, DWORD* error) {
    const link_map* object = ObjectOf(library);
    const std::lock_guard lock(mutex);
    for (auto& [image, mapped] : Modules()) {
        if (mapped.object != object) continue;
        if (mapped.entryRefused) {
            *error = ERROR_DLL_INIT_FAILED;
            return nullptr;
        }
        mapped.library = library;
        mapped.isClosed = false;
        ++mapped.uses;
        CountObject("module", 1);
        return HandleOf(image);
    }
    *error = ERROR_BAD_EXE_FORMAT;
    return nullptr;
}

}  // namespace

void AttachModule(ModuleImage& image) {
    const link_map* object = ObjectAt(image.codeAddress);
    const bool isProgram = object == nullptr || object->l_name[0] == '\0';
    {
        const std::lock_guard lock(mutex);
        Mapped& mapped = Modules()[&image];
        mapped.object = object;
        mapped.isProgram = isProgram;
        mapped.file = isProgram ? ProgramFile() : fs::path(object->l_name);
    }
    if (image.entry == nullptr) return;
    const BOOL runs = image.entry(HandleOf(&image), DLL_PROCESS_ATTACH, nullptr);
    const std::lock_guard lock(mutex);
    Modules()[&image].entryRefused = runs == FALSE;
}

void DetachModule(ModuleImage& image) {
    bool attached;
    {
        const std::lock_guard lock(mutex);
        attached = !Modules()[&image].entryRefused;
    }
    if (image.entry != nullptr && attached) {
        image.entry(HandleOf(&image), DLL_PROCESS_DETACH, nullptr);
    }
    const std::lock_guard lock(mutex);
    Modules().erase(&image);
}

const ModuleImage* FindModule(HINSTANCE module) {
    const std::lock_guard lock(mutex);
    const auto found = Find(module);
    return found == Modules().end() ? FindDataModule(module) : found->first;
}

}  // namespace platform

using platform::Fail;

namespace {

HMODULE UseOpened(void* library) {
    if (library == nullptr) return Fail<HMODULE>(ERROR_BAD_EXE_FORMAT);
    DWORD error = ERROR_SUCCESS;
    const HMODULE module = platform::AddUse(library, &error);
    if (module != nullptr) return module;
    dlclose(library);
    return Fail<HMODULE>(error);
}

HMODULE Load(LPCWSTR fileName, bool asData) {
    if (fileName == nullptr || *fileName == 0) return Fail<HMODULE>(ERROR_INVALID_PARAMETER);
    const std::filesystem::path file = platform::FindLibrary(fileName);
    if (file.empty()) return Fail<HMODULE>(ERROR_MOD_NOT_FOUND);
    if (!platform::IsWholeModule(file)) return Fail<HMODULE>(ERROR_BAD_EXE_FORMAT);
    if (asData) return platform::OpenDataModule(file);
    return UseOpened(dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL));
}

}  // namespace

HMODULE WINAPI LoadLibraryW(LPCWSTR fileName) try {
    if (const auto error = platform::InjectedFailure("LoadLibraryW")) return Fail<HMODULE>(*error);
    return Load(fileName, false);
} catch (...) {
    return platform::FailCaught<HMODULE>();
}

HMODULE WINAPI LoadLibraryExW(LPCWSTR fileName, HANDLE file, DWORD flags) try {
    if (const auto error = platform::InjectedFailure("LoadLibraryExW")) {
        return Fail<HMODULE>(*error);
    }
    constexpr DWORD kAsData = LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE;
    if (file != nullptr || (flags & ~kAsData) != 0) return Fail<HMODULE>(ERROR_INVALID_PARAMETER);
    return Load(fileName, flags != 0);
} catch (...) {
    return platform::FailCaught<HMODULE>();
}

BOOL WINAPI FreeLibrary(HMODULE module) {
    if (platform::CloseDataModule(module)) return TRUE;
    void* library;
    {
        const std::lock_guard lock(platform::mutex);
        const auto found = platform::Find(module);
        if (found == platform::Modules().end() || found->second.uses == 0) {
            return Fail(ERROR_INVALID_HANDLE);
        }
        library = found->second.library;
        --found->second.uses;
        platform::CountObject("module", -1);
    }
    dlclose(library);
    const std::lock_guard lock(platform::mutex);
    const auto kept = platform::Find(module);
    if (kept != platform::Modules().end()) kept->second.isClosed = kept->second.uses == 0;
    return TRUE;
}

FARPROC WINAPI GetProcAddress(HMODULE module, LPCSTR name) try {
    if (const auto error = platform::InjectedFailure("GetProcAddress")) {
        return Fail<FARPROC>(*error);
    }
    if (name == nullptr) return Fail<FARPROC>(ERROR_INVALID_PARAMETER);
    platform::Mapped mapped;
    {
        const std::lock_guard lock(platform::mutex);
        const auto found = platform::Find(module);
        if (found == platform::Modules().end()) return Fail<FARPROC>(ERROR_INVALID_HANDLE);
        mapped = found->second;
    }
    void* address = dlsym(mapped.isProgram ? RTLD_DEFAULT : mapped.library, name);
    // The loader looks in what the module depends on as well; only the module's own count.
    if (address == nullptr || platform::ObjectAt(address) != mapped.object) {
        return Fail<FARPROC>(ERROR_PROC_NOT_FOUND);
    }
    return reinterpret_cast<FARPROC>(address);
} catch (...) {
    return platform::FailCaught<FARPROC>();
}

DWORD WINAPI GetModuleFileNameW(HMODULE module, LPWSTR fileName, DWORD size) try {
    if (const auto error = platform::InjectedFailure("GetModuleFileNameW")) {
        return Fail<DWORD>(*error);
    }
    std::filesystem::path file;
    {
        const std::lock_guard lock(platform::mutex);
        const auto found = platform::Find(module);
        if (found != platform::Modules().end()) file = found->second.file;
    }
    if (file.empty() && module == nullptr) file = platform::ProgramFile();
    if (file.empty()) return Fail<DWORD>(ERROR_MOD_NOT_FOUND);
    if (size == 0) return Fail<DWORD>(ERROR_INSUFFICIENT_BUFFER);
    const std::u16string path = platform::PlatformPath(file);
    const std::size_t copied = std::min<std::size_t>(path.size(), size - 1);
    std::copy_n(path.begin(), copied, fileName);
    fileName[copied] = 0;
    if (copied == path.size()) return static_cast<DWORD>(copied);
    return Fail(ERROR_INSUFFICIENT_BUFFER, size);
} catch (...) {
    return platform::FailCaught<DWORD>();
}

HMODULE WINAPI GetModuleHandleW(LPCWSTR moduleName) {
    const platform::ModuleImage* program =
        moduleName == nullptr ? platform::FindModule(nullptr) : nullptr;
    if (program == nullptr) return Fail<HMODULE>(ERROR_MOD_NOT_FOUND);
    return platform::HandleOf(program);
}

BOOL WINAPI GetModuleHandleExW(DWORD flags, LPCWSTR moduleName, HMODULE* module) try {
    if (const auto error = platform::InjectedFailure("GetModuleHandleExW")) return Fail(*error);
    if (flags != 0 || moduleName == nullptr || module == nullptr) {
        return Fail(ERROR_INVALID_PARAMETER);
    }
    *module = nullptr;
    const std::filesystem::path file = platform::FileInUse(platform::WithEnding(moduleName));
    void* library = file.empty() ? nullptr : dlopen(file.c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (library == nullptr) return Fail(ERROR_MOD_NOT_FOUND);
    *module = UseOpened(library);
    return *module != nullptr;
} catch (...) {
    return platform::FailCaught();
}
