// The watermark editor on a list of any content, with a user who looks at every entry, changes what
// the input says and leaves by one of the buttons: the caller's list can be indexed after OK and is
// untouched after Cancel, and nothing stays open.

#include <filesystem>

#include "common/current_printer.h"
#include "common/plugin_module.h"
#include "fuzz/fuzz_text.h"
#include "platform/base/machine.h"
#include "platform/faults/live_objects.h"
#include "platform/gui/dialogs/hands.h"
#include "platform/user/user.h"
#include "resources/resource_ids.h"
#include "watermark/watermark_list.h"
#include "wmeditor/editor_dialog.h"

namespace {

/// Does what a byte says: each of its bits is a step.
class Walker : public platform::User {
public:
    explicit Walker(unsigned steps) : steps_(steps) {}

    int AnswerMessageBox(const platform::MessageBoxRequest& request) override {
        if (Says(kClosesUnderQuestions)) platform::hands::Close(dialog_);
        if (request.type == MB_YESNO) return Says(kAgrees) ? IDYES : IDNO;
        return request.type == MB_OK || Says(kAgrees) ? IDOK : IDCANCEL;
    }

    void WorkInDialog(HWND dialog) override {
        dialog_ = dialog;
        for (WPARAM i = 0; i < oemui::kWatermarkCapacity; ++i) {
            ::SendDlgItemMessageW(dialog, IDC_WATERMARK_LIST, CB_SETCURSEL, i, 0);
            ::SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDC_WATERMARK_LIST, CBN_SELCHANGE), 0);
        }
        if (Says(kGoesToFirst)) platform::hands::PressKey(dialog, VK_HOME);
        if (Says(kDeletes)) platform::hands::Click(dialog, IDC_DELETE);
        if (Says(kTypesSize)) platform::hands::TypeText(dialog, IDC_POINT_SIZE, u"7");
        if (Says(kAdds)) platform::hands::Click(dialog, IDC_NEW);
        if (Says(kConfirms)) platform::hands::Click(dialog, IDOK);
    }

    void ReadHelp(const platform::HelpRequest&) override {}

private:
    enum Step : unsigned {
        kConfirms = 1,
        kAgrees = 2,
        kDeletes = 4,
        kTypesSize = 8,
        kAdds = 16,
        kGoesToFirst = 32,
        kClosesUnderQuestions = 64,
    };

    bool Says(Step step) const { return (steps_ & step) != 0; }

    unsigned steps_;
    HWND dialog_ = nullptr;
};

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 0);
    platform::UseMachine(std::filesystem::temp_directory_path() / "oemui-fuzz-editor");
    oemui::RecordPluginModule(::GetModuleHandleW(nullptr));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
    static oemui::WatermarkList list;
    list = {};
    if (size > 0) fuzz::FillFrom(&list, bytes + 1, size - 1);
    const oemui::WatermarkList before = list;
    oemui::CurrentPrinterName = TEXT("No such printer");
    oemui::PreviewPaperSize = {before.Selected, before.Count};
    const auto held = platform::LiveObjects();
    INT_PTR result = 0;
    {
        Walker walker(size > 0 ? bytes[0] : 0);
        const platform::UserScope scope(walker);
        result =
            ::DialogBoxParamW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_WATERMARK_EDITOR),
                              nullptr, oemui::WatermarkEditorProc, reinterpret_cast<LPARAM>(&list));
    }
    fuzz::Require(platform::LiveObjects() == held);
    fuzz::Require(result == 0 || result == 1);
    if (result == 0) fuzz::Require(std::memcmp(&before, &list, sizeof list) == 0);
    if (result == 1) fuzz::Require(list.Selected == 0 || list.Selected < list.Count);
    if (result == 1) fuzz::Require(list.Selected >= 0 && list.Count <= oemui::kWatermarkCapacity);
    return 0;
}
