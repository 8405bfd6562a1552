#include "host/installation/package_files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <thread>

#include "host/errors/failure.h"
#include "platform/base/machine.h"
#include "platform/text/text_encoding.h"

namespace host {
namespace {

namespace fs = std::filesystem;

constexpr auto kLongestWait = std::chrono::seconds(15);
constexpr auto kPause = std::chrono::milliseconds(10);
constexpr std::string_view kUnfinished = ".new";

constexpr const char* kUninstaller = "QVR_UNINST.EXE";

constexpr const char* kSystemFolder = "Windows/System32";
constexpr const char* kSettingsFolder = "Windows";
constexpr const char* kProcessorFolder = "Windows/System32/spool/prtprocs/x64";
constexpr const char* kDriverFolder = "Windows/System32/spool/drivers/x64/3";

std::error_code LastFileError() {
    return {errno, std::generic_category()};
}

// A folder of the machine, made when missing; a link on the way to it is no folder of the machine.
fs::path OwnFolder(const char* relative) {
    fs::path folder = platform::MachineFolder() / relative;
    std::error_code error;
    const fs::path real = fs::weakly_canonical(folder, error);
    if (!error && real != folder) throw Failure(Quoted(folder.native()) + " is a link elsewhere");
    if (!error) fs::create_directories(folder, error);
    if (error) FailWith(Quoted(folder.native()) + " cannot be made", error);
    return folder;
}

// Written beside the old file under a name of this process's own and put in its place, so that a
// module in use is not changed.
template <typename Write>
void PutInto(const fs::path& folder, const fs::path& name, Write write) {
    const fs::path target = folder / name;
    fs::path fresh = target;
    fresh += "." + std::to_string(::getpid()) + std::string(kUnfinished);
    std::error_code error;
    std::error_code ignored;
    fs::remove(fresh, ignored);
    write(fresh, error);
    if (!error) fs::rename(fresh, target, error);
    if (!error) return;
    fs::remove(fresh, ignored);
    FailWith(Quoted(target.native()) + " cannot be written", error);
}

void CopyInto(const fs::path& file, const fs::path& folder) {
    PutInto(folder, file.filename(), [&](const fs::path& fresh, std::error_code& error) {
        fs::copy_file(file, fresh, error);
    });
}

void WriteText(const fs::path& folder, const fs::path& name, const char* text) {
    PutInto(folder, name, [&](const fs::path& fresh, std::error_code& error) {
        std::FILE* file = std::fopen(fresh.c_str(), "wx");
        if (file == nullptr) {
            error = LastFileError();
            return;
        }
        if (std::fputs(text, file) < 0) error = LastFileError();
        if (std::fclose(file) != 0) error = LastFileError();
    });
}

bool IsUnfinished(const fs::path& file) {
    const std::string name = file.filename().native();
    return (name.starts_with("QVR") || name.starts_with("UNI")) && name.ends_with(kUnfinished);
}

void RemoveUnfinished(const fs::path& folder) {
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        std::error_code ignored;
        if (IsUnfinished(entry->path())) fs::remove(entry->path(), ignored);
    }
}

fs::path Installed(const Model& model) {
    return platform::Utf8(model.FileName(u".installed"));
}

fs::path PackageFolder(const Model& model, const PackageSource& source) {
    const std::string letter(1, model.letter);
    fs::path folder = source.packages / letter;
    std::error_code error;
    if (fs::exists(folder / platform::Utf8(model.ModuleName()), error)) return folder;
    throw Failure("the package of model " + letter + " is not in " + Quoted(folder.native()));
}

// The package has no uninstaller and names none; a machine that has the stand-in names that.
std::string NamingUninstaller(const fs::path& settings) {
    constexpr std::string_view kKey = "\nExecutable=";
    std::ifstream file(settings, std::ios::binary);
    std::string text(std::istreambuf_iterator<char>(file), {});
    const std::size_t end = text.find(std::string(kKey) + "\n");
    return end == std::string::npos ? "" : text.insert(end + kKey.size(), kUninstaller);
}

void PlaceSettings(const fs::path& file, bool hasUninstaller) {
    const fs::path folder = OwnFolder(kSettingsFolder);
    const std::string text = hasUninstaller ? NamingUninstaller(file) : "";
    if (text.empty()) {
        CopyInto(file, folder);
    } else {
        WriteText(folder, file.filename(), text.c_str());
    }
}

void CopyPackage(const fs::path& package, bool hasUninstaller) {
    const fs::path driver = OwnFolder(kDriverFolder);
    for (const fs::directory_entry& entry : fs::directory_iterator(package)) {
        if (!entry.is_regular_file()) continue;
        if (entry.path().extension() == ".INI") {
            PlaceSettings(entry.path(), hasUninstaller);
        } else {
            CopyInto(entry.path(), driver);
        }
    }
}

/// \return whether there is such a stand-in.
bool CopyStandIn(const fs::path& file, const char* folder) {
    std::error_code error;
    const bool isThere = fs::exists(file, error);
    if (isThere) CopyInto(file, OwnFolder(folder));
    return isThere;
}

}  // namespace

PackageSource OwnPackageSource() {
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    const fs::path root = program.parent_path().parent_path();
    return {root / "package", root / "standin"};
}

// The folder itself is locked, as the uninstaller does: nothing is written for it, and the lock of
// a process that was killed is gone with it.
InstallationLock::InstallationLock()
    : folder_(::open(OwnFolder(kSystemFolder).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    const auto end = std::chrono::steady_clock::now() + kLongestWait;
    while (folder_ >= 0 && ::flock(folder_, LOCK_EX | LOCK_NB) != 0) {
        const std::error_code error = LastFileError();
        const bool isBusy = error == std::errc::operation_would_block;
        if (isBusy && std::chrono::steady_clock::now() < end) {
            std::this_thread::sleep_for(kPause);
            continue;
        }
        ::close(folder_);
        if (isBusy) throw Failure("another program is installing or removing a driver; try again");
        FailWith("the machine cannot be locked", error);
    }
    if (folder_ < 0) FailWith("the machine cannot be locked", LastFileError());
}

InstallationLock::~InstallationLock() {
    ::close(folder_);
}

void PlaceModelFiles(const Model& model, const PackageSource& source) {
    const fs::path package = PackageFolder(model, source);
    for (const char* folder : {kSystemFolder, kSettingsFolder, kProcessorFolder, kDriverFolder}) {
        RemoveUnfinished(OwnFolder(folder));
    }
    WriteText(OwnFolder(kSystemFolder), Installed(model), "its files stay\n");
    CopyStandIn(source.standIns / "UNIRES.DLL", kDriverFolder);
    CopyPackage(package, CopyStandIn(source.standIns / kUninstaller, kSystemFolder));
    // Nothing is ever printed here, but a print processor can only be registered when its file is
    // there.
    WriteText(OwnFolder(kProcessorFolder), platform::Utf8(model.FileName(u"__PP.DLL")),
              "stands for the print processor\n");
}

void ReleaseModelFiles(const Model& model) {
    std::error_code error;
    const fs::path mark = OwnFolder(kSystemFolder) / Installed(model);
    fs::remove(mark, error);
    if (error) FailWith(Quoted(mark.native()) + " cannot be removed", error);
}

}  // namespace host
