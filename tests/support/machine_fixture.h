/// A machine of its own for every test, and a check that the test left nothing open.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "tests/support/test_machine.h"

namespace tests {

/// At the end no more objects of the layer may be alive than at the beginning.
class MachineTest : public testing::Test {
protected:
    ~MachineTest() override { EXPECT_EQ(machine_.LeftOpen(), "") << "left open"; }

    const std::filesystem::path& Folder() const { return machine_.Folder(); }

    /// Writes a file of the machine, whole, and makes its folder; the path is below the machine's
    /// ("Windows/x.ini").
    std::filesystem::path WriteFile(const std::filesystem::path& path,
                                    std::string_view contents) const {
        const std::filesystem::path file = Folder() / path;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << contents;
        return file;
    }

    /// The contents of a file of the machine; empty when there is none.
    std::string ReadFile(const std::filesystem::path& path) const {
        std::ifstream file(Folder() / path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

private:
    TestMachine machine_;
};

}  // namespace tests
