/// The surroundings of a test of the plug-in's own operations: the module recorded, a model chosen,
/// nothing of an earlier test left; off Windows a fresh machine and a look for leaks.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <string_view>

namespace tests {

/// Text as 8-bit characters for comparisons and readable failures; anything outside ASCII becomes
/// '?'.
std::string Narrow(std::basic_string_view<WCHAR> text);
/// ASCII text in the platform's characters.
std::basic_string<WCHAR> Wide(std::string_view text);

/// Chooses the model by the letter of the module's name. The fixture starts with T.
void BecomeModel(char letter);

/// A test of the plug-in. Off Windows every test has a machine of its own in a temporary folder,
/// and fails when it leaves an object of the layer open.
class PluginTest : public testing::Test {
protected:
    PluginTest();
    ~PluginTest() override;
    PluginTest(const PluginTest&) = delete;
    PluginTest& operator=(const PluginTest&) = delete;
};

/// Writes an INI file into the Windows directory, as 8-bit text.
void WriteIniFile(std::basic_string_view<WCHAR> name, std::string_view content);

}  // namespace tests
