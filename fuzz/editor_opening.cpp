// The watermark editor on a list of any content, with a user who looks at every entry, changes what
// the input says and leaves by one of the buttons: the caller's list can be indexed after OK and is
// untouched after Cancel, and nothing stays open.

#include "common/current_printer.h"
#include "fuzz/fuzz_text.h"
#include "platform/faults/live_objects.h"
#include "resources/resource_ids.h"
#include "tests/support/plugin_fixture.h"
#include "tests/support/scripted_user.h"
#include "watermark/watermark_list.h"
#include "wmeditor/editor_dialog.h"

namespace {

/// Each bit of a byte is a step of the user's.
enum Step : unsigned {
    kConfirms = 1,
    kAgrees = 2,
    kDeletes = 4,
    kTypesSize = 8,
    kAdds = 16,
    kGoesToFirst = 32,
    kClosesUnderQuestions = 64,
};

int Answer(tests::ScriptedUser* user, unsigned steps, UINT type) {
    if ((steps & kClosesUnderQuestions) != 0) user->Close();
    const bool agrees = (steps & kAgrees) != 0;
    if (type == MB_YESNO) return agrees ? IDYES : IDNO;
    return type == MB_OK || agrees ? IDOK : IDCANCEL;
}

void Work(tests::ScriptedUser* user, unsigned steps) {
    const HWND dialog = user->Dialog();
    for (WPARAM i = 0; i < oemui::kWatermarkCapacity; ++i) {
        ::SendDlgItemMessageW(dialog, IDC_WATERMARK_LIST, CB_SETCURSEL, i, 0);
        ::SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDC_WATERMARK_LIST, CBN_SELCHANGE), 0);
    }
    if ((steps & kGoesToFirst) != 0) user->PressKey(VK_HOME);
    if ((steps & kDeletes) != 0) user->Click(IDC_DELETE);
    if ((steps & kTypesSize) != 0) user->TypeText(IDC_POINT_SIZE, TEXT("7"));
    if ((steps & kAdds) != 0) user->Click(IDC_NEW);
    if ((steps & kConfirms) != 0) user->Click(IDOK);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 0);
    static const tests::TestMachine machine;
    tests::LoadPlugin();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
    static oemui::WatermarkList list;
    list = {};
    if (size > 0) fuzz::FillFrom(&list, bytes + 1, size - 1);
    const oemui::WatermarkList before = list;
    oemui::SetCurrentPrinter(TEXT("No such printer"));
    oemui::PreviewPaperSize = {before.Selected, before.Count};
    const auto held = platform::LiveObjects();
    tests::ScriptedUser user;
    const unsigned steps = size > 0 ? bytes[0] : 0;
    user.WillAnswer([&](const tests::ShownBox& box) { return Answer(&user, steps, box.type); });
    const INT_PTR result = user.Open(IDD_WATERMARK_EDITOR, oemui::WatermarkEditorProc,
                                     reinterpret_cast<LPARAM>(&list), [&] { Work(&user, steps); });
    fuzz::Require(platform::LiveObjects() == held);
    fuzz::Require(result == 0 || result == 1);
    if (result == 0) fuzz::Require(std::memcmp(&before, &list, sizeof list) == 0);
    if (result == 1) fuzz::Require(list.Selected == 0 || list.Selected < list.Count);
    if (result == 1) fuzz::Require(list.Selected >= 0 && list.Count <= oemui::kWatermarkCapacity);
    return 0;
}
