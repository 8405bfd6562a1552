#include <windows.h>

#include <commctrl.h>

#include <initializer_list>

#include "resources/resource_ids.h"
#include "tests/sessions/stage.h"

namespace sessions {
namespace {

/// The third party puts the separator of thousands behind the sign of three digits ("-,140"). The
/// editor's numbers have no thousands, so that on the platform the style changes nothing.
void LeaveOutSeparators(HWND dialog) {
    for (const int id :
         {IDC_POINT_SIZE_SPIN, IDC_USER_ANGLE_SPIN, IDC_HORIZONTAL_SPIN, IDC_VERTICAL_SPIN}) {
        const HWND upDown = ::GetDlgItem(dialog, id);
        ::SetWindowLongPtrW(upDown, GWL_STYLE,
                            ::GetWindowLongPtrW(upDown, GWL_STYLE) | UDS_NOTHOUSANDS);
    }
}

/// Drawing the preview takes most of the time, and no trace shows it.
void LeaveOutPreview(HWND dialog) {
    for (const int id : {IDC_PREVIEW_PAGE, IDC_PREVIEW_AREA}) {
        ::DestroyWindow(::GetDlgItem(dialog, id));
    }
}

}  // namespace

void PreparePrinter(const tests::Text&) {}

void PrepareEditor(HWND dialog) {
    LeaveOutSeparators(dialog);
    LeaveOutPreview(dialog);
}

}  // namespace sessions
