/// The machine that a test runs on: one of its own off Windows, the real one on it.
#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace tests {

/// Off Windows an empty machine in a temporary folder, in use and gone again with this object.
class TestMachine {
public:
    TestMachine();
    ~TestMachine();
    TestMachine(const TestMachine&) = delete;
    TestMachine& operator=(const TestMachine&) = delete;

    /// What the platform shows as `C:\`.
    const std::filesystem::path& Folder() const { return folder_; }
    /// The kinds of objects of the layer that were opened since and are not closed.
    std::string LeftOpen() const;

private:
    std::filesystem::path folder_;
    std::map<std::string, int> openBefore_;
};

}  // namespace tests
