/// What a module opens through its imports, and gives back.
#pragma once

#include <windows.h>

#include <map>
#include <string>

namespace tests {

/// Counts from now on every success of the module's calls that open or close something; one module
/// at a time. The counts are not to be read while another thread is in the module.
class ImportCounts {
public:
    explicit ImportCounts(HMODULE module);
    ~ImportCounts();
    ImportCounts(const ImportCounts&) = delete;
    ImportCounts& operator=(const ImportCounts&) = delete;

    /// What was opened and not closed, by kind; what came out even is left out.
    static std::map<std::string, int> Open();
    /// How much was opened in all, by kind.
    static std::map<std::string, int> Opened();

private:
    HMODULE module_;
};

}  // namespace tests
