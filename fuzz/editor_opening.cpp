// The watermark editor on a list of any content, with a user who goes to an entry, changes what the
// input says and leaves by one of the buttons: the caller's list can be indexed after OK and is
// untouched after Cancel, what the printer stores is a list, and nothing stays open.

#include <QCoreApplication>
#include <QEvent>
#include <numeric>
#include <optional>

#include "common/current_printer.h"
#include "common/unique_handle.h"
#include "fuzz/fuzz_machine.h"
#include "fuzz/fuzz_text.h"
#include "platform/faults/failure_points.h"
#include "platform/faults/live_objects.h"
#include "platform/gui/dialogs/hands.h"
#include "platform/gui/windows/application.h"
#include "resources/resource_ids.h"
#include "tests/support/patient_user.h"
#include "tests/support/plugin_fixture.h"
#include "tests/support/test_printer.h"
#include "watermark/watermark_store.h"
#include "wmeditor/editor_dialog.h"

namespace {

namespace hands = platform::hands;

/// Each bit of the first byte is a step of the user's.
enum Step : unsigned {
    kConfirms = 1,
    kAgrees = 2,
    kDeletes = 4,
    kTypesSize = 8,
    kAdds = 16,
    kGoesToFirst = 32,
    kClosesUnderQuestions = 64,
};

/// What stands before the list in an input.
struct Script {
    unsigned char steps;
    unsigned char place;  ///< low four bits: the entry gone to
};

int Answer(HWND dialog, unsigned steps, UINT type) {
    if ((steps & kClosesUnderQuestions) != 0) hands::Close(dialog);
    const bool agrees = (steps & kAgrees) != 0;
    if (type == MB_YESNO) return agrees ? IDYES : IDNO;
    return type == MB_OK || agrees ? IDOK : IDCANCEL;
}

void Work(HWND dialog, const Script& script) {
    const unsigned steps = script.steps;
    ::SendDlgItemMessageW(dialog, IDC_WATERMARK_LIST, CB_SETCURSEL, script.place % 16U, 0);
    ::SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDC_WATERMARK_LIST, CBN_SELCHANGE), 0);
    if ((steps & kGoesToFirst) != 0) hands::PressKey(dialog, VK_HOME);
    if ((steps & kDeletes) != 0) hands::Click(dialog, IDC_DELETE);
    if ((steps & kTypesSize) != 0) hands::TypeText(dialog, IDC_POINT_SIZE, TEXT("7"));
    if ((steps & kAdds) != 0) hands::Click(dialog, IDC_NEW);
    if ((steps & kConfirms) != 0) hands::Click(dialog, IDOK);
}

/// For as long as it lives nothing is drawn, neither the preview nor a window: most inputs do
/// without, since drawing takes longer than all the rest.
class Undrawn : public QObject {
public:
    Undrawn() { QCoreApplication::instance()->installEventFilter(this); }

    bool eventFilter(QObject*, QEvent* event) override {
        const auto type = event->type();
        return type == QEvent::Expose || type == QEvent::UpdateRequest || type == QEvent::Paint;
    }

private:
    platform::FailurePlan noContext_{"GetDC", 0, ERROR_NOT_ENOUGH_MEMORY};
};

/// One input in 64, wherever a change of it began.
bool IsDrawn(const unsigned char* bytes, std::size_t size) {
    return std::accumulate(bytes, bytes + size, 0U) % 64 == 0;
}

INT_PTR Edit(const Script& script, oemui::WatermarkList* list) {
    tests::PatientUser user;
    HWND shown = nullptr;
    user.work = [&](HWND dialog) { Work(shown = dialog, script); };
    user.answer = [&](UINT type) { return Answer(shown, script.steps, type); };
    return ::DialogBoxParamW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_WATERMARK_EDITOR),
                             nullptr, oemui::WatermarkEditorProc, reinterpret_cast<LPARAM>(list));
}

/// What the printer keeps then can be read back, unless nothing was stored.
void CheckStored(const tests::TestPrinter& printer) {
    static oemui::WatermarkList stored;
    const auto handle = oemui::OpenPrinterFor(printer.Name().c_str(), PRINTER_ACCESS_USE);
    const DWORD error = oemui::ReadPrinterWatermarkList(handle.Get(), &stored);
    fuzz::Require(error == 0 || error == ERROR_FILE_NOT_FOUND);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 0);
    fuzz::UseMachineInMemory();
    tests::LoadPlugin();
    platform::EnsureApplication();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
    static const tests::TestPrinter printer(TEXT("Office"));
    static oemui::WatermarkList list;
    Script script{};
    fuzz::FillFrom(&script, bytes, size);
    list = {};
    if (size > sizeof script) fuzz::FillFrom(&list, bytes + sizeof script, size - sizeof script);
    const oemui::WatermarkList before = list;
    oemui::SetCurrentPrinter(printer.Name().c_str());
    oemui::PreviewPaperSize = {before.Selected, before.Count};
    const auto held = platform::LiveObjects();
    std::optional<Undrawn> undrawn;
    if (!IsDrawn(bytes, size)) undrawn.emplace();
    const INT_PTR result = Edit(script, &list);
    undrawn.reset();
    fuzz::Require(platform::LiveObjects() == held);
    fuzz::Require(result == 0 || result == 1);
    if (result == 0) fuzz::Require(std::memcmp(&before, &list, sizeof list) == 0);
    if (result == 0) return 0;
    fuzz::Require(list.Selected == 0 || list.Selected < list.Count);
    fuzz::Require(list.Selected >= 0 && list.Count <= oemui::kWatermarkCapacity);
    CheckStored(printer);
    return 0;
}
