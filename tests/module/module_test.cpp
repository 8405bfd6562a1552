// The module as a driver meets it: a file, its exports, its object. Runs on the platform's own
// loader as well as on the layer's.

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include "tests/support/loaded_module.h"
#include "tests/support/machine_fixture.h"
#include "tests/support/text.h"

namespace {

using tests::LoadedModule;
using tests::Text;

// The build folder's files, under the drive on which both worlds show the rest of the system.
Text ModulePath(const std::string& file) {
    std::string path = std::string("Z:") + OEMUI_PACKAGE_FOLDER + "/" + file;
    std::replace(path.begin(), path.end(), '/', '\\');
    return tests::Wide(path);
}

using Module = tests::MachineTest;

TEST_F(Module, ServesOnePluginPerModelAndUnloadsWhenTheLastObjectIsGone) {
    for (const auto& [letter, signature] :
         {std::pair{"U", 0x51565255u}, std::pair{"T", 0x51565254u}, std::pair{"V", 0x51565256u}}) {
        const LoadedModule module(ModulePath(std::string(letter) + "/QVR" + letter + "__UI.DLL"));
        ASSERT_TRUE(module) << letter;
        EXPECT_EQ(module.CanUnload(), S_OK);
        IPrintOemUI* plugin = module.CreatePlugin();
        ASSERT_NE(plugin, nullptr);
        EXPECT_EQ(module.CanUnload(), S_FALSE);
        EXPECT_EQ(plugin->Release(), 0u);
        EXPECT_EQ(module.CanUnload(), S_OK);
        EXPECT_EQ(module.Signature(), signature);
    }
}

TEST_F(Module, ModelsLoadedTogetherShareNothing) {
    const LoadedModule first(ModulePath("T/QVRT__UI.DLL"));
    const LoadedModule second(ModulePath("V/QVRV__UI.DLL"));
    ASSERT_TRUE(first);
    ASSERT_TRUE(second);
    EXPECT_EQ(first.Signature(), 0x51565254u);
    EXPECT_EQ(second.Signature(), 0x51565256u);
    IPrintOemUI* plugin = first.CreatePlugin();
    EXPECT_EQ(first.CanUnload(), S_FALSE);
    EXPECT_EQ(second.CanUnload(), S_OK);
    plugin->Release();
}

TEST_F(Module, ACopyUnderAnotherNameServesWithItsOwnLetter) {
    const std::filesystem::path package(OEMUI_PACKAGE_FOLDER);
    std::filesystem::create_directories(package / "X");
    std::filesystem::copy_file(package / "T" / "QVRT__UI.DLL", package / "X" / "QVRX__UI.DLL",
                               std::filesystem::copy_options::overwrite_existing);
    {
        const LoadedModule module(ModulePath("X/QVRX__UI.DLL"));
        ASSERT_TRUE(module);
        EXPECT_EQ(module.Signature(), 0x51565258u);
    }
#ifndef _WIN32
    // A path of more than 259 characters, which ends in a folder where it is cut: no model at all.
    // The platform's own loader takes such paths only in a form of their own.
    const std::string folder = "X/QVRU" + std::string(150, 'n') + "/QVRU" + std::string(150, 'n');
    std::filesystem::create_directories(package / folder);
    std::filesystem::copy_file(package / "T" / "QVRT__UI.DLL", package / folder / "QVRT__UI.DLL");
    const LoadedModule deep(ModulePath(folder + "/QVRT__UI.DLL"));
    ASSERT_TRUE(deep);
    EXPECT_EQ(deep.Signature(), 0u);
#endif
    std::filesystem::remove_all(package / "X");
}

}  // namespace
