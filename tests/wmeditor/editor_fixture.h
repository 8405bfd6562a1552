/// The watermark editor on a list of a test, with a user at it and a printer to store to.
#pragma once

#include <cstring>
#include <filesystem>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "common/current_printer.h"
#include "resources/resource_ids.h"
#include "tests/support/plugin_fixture.h"
#include "tests/support/scripted_user.h"
#include "tests/support/test_printer.h"
#include "tests/wmeditor/editor_lists.h"
#include "wmeditor/editor_dialog.h"
#include "wmeditor/editor_session.h"

namespace tests {

class EditorTest : public PluginTest {
protected:
    EditorTest() {
        // A real machine may still have those of an earlier test.
        std::filesystem::remove(Folder() / "Windows/QVRT__WM.INI");
        oemui::SetCurrentPrinter(printer_.Name().c_str());
        oemui::PreviewPaperSize = {2100, 2970};
        list_ =
            MakeList({TEXT("<NONE>"), TEXT("Alpha"), TEXT("Delta"), TEXT("Echo"), TEXT("Foxtrot")});
        list_.Selected = 1;
    }

    INT_PTR Edit(std::function<void()> work) {
        return user_.Open(IDD_WATERMARK_EDITOR, oemui::WatermarkEditorProc,
                          reinterpret_cast<LPARAM>(&list_), std::move(work));
    }

    void EditTo(INT_PTR result, std::function<void()> work) {
        EXPECT_EQ(Edit(std::move(work)), result);
    }

    static const oemui::EditorSession& Session() { return oemui::EditorSession::Current(); }
    static const oemui::WatermarkRecord& Edited() { return Session().Edited(); }
    static const oemui::WatermarkRecord& Preview() { return Session().Preview(); }

    LRESULT Send(int controlId, UINT message) const {
        return ::SendDlgItemMessageW(user_.Dialog(), controlId, message, 0, 0);
    }
    /// A command that no hand can give, such as one of a disabled button.
    void SendCommand(int controlId) {
        ::SendMessageW(user_.Dialog(), WM_COMMAND, MAKEWPARAM(controlId, BN_CLICKED), 0);
    }
    std::string TextOf(int controlId) const {
        WCHAR text[300] = {};
        ::GetDlgItemTextW(user_.Dialog(), controlId, text, 300);
        return Narrow(text);
    }
    bool IsChecked(int buttonId) const { return Send(buttonId, BM_GETCHECK) == BST_CHECKED; }
    bool IsEnabled(int controlId) const {
        return ::IsWindowEnabled(::GetDlgItem(user_.Dialog(), controlId)) != FALSE;
    }
    /// The IDs among these that are enabled.
    std::vector<int> EnabledAmong(const std::vector<int>& controls) const {
        std::vector<int> enabled;
        for (const int id : controls) {
            if (IsEnabled(id)) enabled.push_back(id);
        }
        return enabled;
    }

    /// The list that the printer keeps; all zero without one.
    oemui::WatermarkList Stored() const {
        oemui::WatermarkList stored{};
        const std::string bytes = printer_.StoredValue(TEXT("WaterMarkList"));
        if (bytes.size() == sizeof stored) std::memcpy(&stored, bytes.data(), sizeof stored);
        return stored;
    }

    oemui::WatermarkList list_;
    TestPrinter printer_{TEXT("Office")};
    ScriptedUser user_;
};

}  // namespace tests
