// The help files of the package in the platform's own viewer, and the editor's Help button of the
// module itself. The viewer that these tests run with shows no pop-ups by context number, so every
// topic is opened in its window.

#include <gtest/gtest.h>
#include <windows.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <regex>
#include <thread>

#include "common/oem_driver_interface.h"
#include "common/unique_handle.h"
#include "docprops/document_items.h"
#include "resources/resource_ids.h"
#include "tests/support/document_page.h"
#include "tests/support/plugin_fixture.h"
#include "tests/support/test_printer.h"

namespace {

using oemui::kWatermarkItem;
using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
using tests::Text;

const std::string kPackage = std::string("Z:") + OEMUI_PACKAGE_FOLDER + "/T/";

/// Waits up to 30 seconds; the viewer is a process of its own.
template <typename Condition>
bool WaitFor(Condition condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return true;
}

/// What the viewer's window shows; empty without one.
std::string Shown() {
    const HWND viewer = ::FindWindowW(TEXT("MS_WINHELP"), nullptr);
    const HWND page = ::FindWindowExW(viewer, nullptr, TEXT("RichEdit20A"), nullptr);
    std::string text(4000, 0);
    DWORD_PTR length = 0;
    if (viewer == nullptr || page == nullptr ||
        ::SendMessageTimeoutA(page, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()),
                              SMTO_ABORTIFHUNG, 5000, &length) == 0) {
        return {};
    }
    return text.substr(0, length);
}

bool Shows(const std::string& title) {
    return WaitFor([&title] { return Shown().starts_with(title + "\r\n"); });
}

using HelpViewer = tests::PluginTest;

TEST_F(HelpViewer, OpensEveryTopic) {
    std::ifstream topics(std::string("Z:") + HELP_TEXT);
    int opened = 0;
    for (std::string line; std::getline(topics, line);) {
        std::smatch topic;
        if (!std::regex_match(line, topic, std::regex("\\[(\\d+)\\] (.*)"))) continue;
        ++opened;
        ASSERT_TRUE(::WinHelpW(nullptr, tests::Wide(kPackage + "QVRT_HLP.HLP").c_str(),
                               HELP_CONTEXT, std::stoul(topic[1])));
        EXPECT_TRUE(Shows(topic[2])) << line << ", but shown is: " << Shown();
    }
    EXPECT_EQ(opened, 9);
}

void Install(const std::string& file, const std::filesystem::path& folder) {
    std::filesystem::create_directories(folder);
    std::filesystem::copy_file(kPackage + file, folder / file,
                               std::filesystem::copy_options::overwrite_existing);
}

/// Presses Help in the editor, and Cancel when the viewer shows the topic.
bool PressHelpInEditor() {
    HWND editor = nullptr;
    if (!WaitFor([&editor] {
            editor = ::FindWindowW(TEXT("#32770"), TEXT("Watermark"));
            return editor != nullptr && ::IsWindowVisible(::GetDlgItem(editor, IDC_HELP_BUTTON));
        })) {
        return false;
    }
    ::PostMessageW(::GetDlgItem(editor, IDC_HELP_BUTTON), BM_CLICK, 0, 0);
    const bool shown = Shows("Watermark");
    ::PostMessageW(::GetDlgItem(editor, IDC_CANCEL), BM_CLICK, 0, 0);
    return shown;
}

TEST_F(HelpViewer, TheHelpButtonOfTheModuleOpensItsTopic) {
    WCHAR folder[MAX_PATH] = {};
    DWORD needed = 0;
    ASSERT_TRUE(::GetPrinterDriverDirectoryW(nullptr, nullptr, 1, reinterpret_cast<BYTE*>(folder),
                                             sizeof folder, &needed));
    Install("QVRT_HLP.HLP", std::filesystem::path(folder) / "3");
    Install("QVRT__WM.INI", Folder() / "Windows");
    const oemui::UniqueLibrary module(
        ::LoadLibraryW(tests::Wide(kPackage + "QVRT__UI.DLL").c_str()));
    ASSERT_TRUE(module);
    const auto getClassObject = reinterpret_cast<GetClassObject>(
        reinterpret_cast<void*>(::GetProcAddress(module.Get(), "DllGetClassObject")));
    IClassFactory* factory = nullptr;
    IPrintOemUI* plugin = nullptr;
    ASSERT_EQ(getClassObject(CLSID_OEMUI, IID_IClassFactory, reinterpret_cast<void**>(&factory)),
              S_OK);
    ASSERT_EQ(factory->CreateInstance(nullptr, IID_IPrintOemUI, reinterpret_cast<void**>(&plugin)),
              S_OK);

    const tests::TestPrinter printer(TEXT("Office"));
    tests::DocumentPage page(printer.Name());
    page.MakeRoom();
    OEMCUIPPARAM& params = page.Params();
    params.hModule = module.Get();
    ASSERT_EQ(plugin->CommonUIProp(OEMCUIP_DOCPROP, &params), S_OK);
    page.Own(kWatermarkItem).Sel = oemui::kWatermarkEnabled;
    CPSUICBPARAM pressed = {};
    pressed.cbSize = sizeof pressed;
    pressed.Reason = CPSUICB_REASON_EXTPUSH;
    pressed.pCurItem = &page.Own(kWatermarkItem);
    bool shown = false;
    std::thread user([&shown] { shown = PressHelpInEditor(); });
    params.OEMCUIPCallback(&pressed, &params);
    user.join();
    EXPECT_TRUE(shown) << "shown is: " << Shown();
    plugin->Release();
    factory->Release();
}

}  // namespace
