#include "docprops/driver_strings.h"

#include "common/file_name.h"

namespace oemui {
namespace {

constexpr TextView kLibrary = TEXT("UNIRES.DLL");

/// The path of the library beside the plug-in's module; empty when that cannot be said whole.
FixedText<MAX_PATH> PathBesideModule() {
    FixedText<MAX_PATH> module;
    if (PluginModule() == nullptr) return {};
    const DWORD length = ::GetModuleFileNameW(PluginModule(), module.Room(), MAX_PATH);
    if (length >= MAX_PATH) return {};
    module.CutAt(length);
    FixedText<MAX_PATH> path;
    return path.Join({DirectoryOf(module.View()), kLibrary}) ? path : FixedText<MAX_PATH>();
}

UniqueLibrary OpenAsData(LPCWSTR path) {
    if (*path == 0) return {};
    return UniqueLibrary(
        ::LoadLibraryExW(path, nullptr, LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE));
}

}  // namespace

// The plug-in runs in whatever application prints. The driver's folder is not where that looks for
// libraries, but the current directory is, which may be somebody else's: a file of this name lying
// there must neither run nor hide the one that belongs to the driver.
UniqueLibrary OpenDriverStrings() {
    UniqueLibrary library;
    if (::GetModuleHandleExW(0, kLibrary.data(), library.Receive())) return library;
    library = OpenAsData(PathBesideModule().c_str());
    return library ? std::move(library) : OpenAsData(kLibrary.data());
}

}  // namespace oemui
