/// A machine of its own for every test, and a check that the test left nothing open.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/base/machine.h"
#include "platform/faults/live_objects.h"

/// Uses a fresh machine in a temporary folder, which is removed afterwards. At the end as many
/// objects of the layer must be alive as at the beginning.
class MachineTest : public testing::Test {
protected:
    MachineTest() {
        std::string name = (std::filesystem::temp_directory_path() / "machine-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
        platform::UseMachine(name);
        folder_ = platform::MachineFolder();
    }

    ~MachineTest() override {
        // Closes the registry before its file goes; the next test chooses a machine of its own.
        platform::UseMachine(folder_);
        std::error_code error;
        std::filesystem::remove_all(folder_, error);
    }

    void SetUp() override { before_ = platform::LiveObjects(); }
    void TearDown() override { EXPECT_EQ(platform::LiveObjects(), before_) << "left open"; }

    const std::filesystem::path& Folder() const { return folder_; }

    /// Writes a file of the machine, whole; the path is below its folder ("Windows/x.ini").
    std::filesystem::path WriteFile(std::string_view path, std::string_view contents) const {
        const std::filesystem::path file = folder_ / path;
        std::ofstream(file, std::ios::binary) << contents;
        return file;
    }

    /// The contents of a file of the machine; empty when there is none.
    std::string ReadFile(std::string_view path) const {
        std::ifstream file(folder_ / path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

private:
    std::filesystem::path folder_;
    std::map<std::string, int> before_;
};
