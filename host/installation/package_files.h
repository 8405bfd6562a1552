/// The files of a model's package in the machine. Every file appears whole or not at all, and none
/// is written through a link that leads out of the machine.
#pragma once

#include <filesystem>
#include <string>

#include "host/driver/models.h"

namespace host {

/// Where the files to install come from, beside the program.
struct PackageSource {
    std::filesystem::path packages;  ///< a folder for each model, by its letter
    std::filesystem::path standIns;  ///< what is no part of a package; may be missing
};

/// The sources beside the running program: `../package` and `../standin` of its folder.
[[nodiscard]] PackageSource OwnPackageSource();

/// Keeps other processes from installing, removing and deleting files of drivers in this machine.
class InstallationLock {
public:
    /// Waits for whoever has it, 15 s at the most; throws `Failure` then.
    InstallationLock();
    ~InstallationLock();
    InstallationLock(const InstallationLock&) = delete;
    InstallationLock& operator=(const InstallationLock&) = delete;

private:
    int folder_;
};

/// Copies the model's files into the machine and takes away what a killed installation left
/// unfinished. From its beginning on an uninstaller leaves the model's files alone, also one that
/// was started before. With the lock held.
void PlaceModelFiles(const Model& model, const PackageSource& source);

/// Lets an uninstaller delete the model's files, as soon as the lock is given back.
void ReleaseModelFiles(const Model& model);

}  // namespace host
