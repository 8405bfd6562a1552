#include "tests/support/states/dialog_state.h"

#include <algorithm>
#include <array>

#include "resources/resource_ids.h"

namespace tests {
namespace {

using enum ControlKind;

constexpr auto kEditorControls = std::to_array<NamedControl>({
    {"List", IDC_WATERMARK_LIST, kList},
    {"New", IDC_NEW, kButton},
    {"Delete", IDC_DELETE, kButton},
    {"OK", IDOK, kButton},
    {"Cancel", IDC_CANCEL, kButton},
    {"Help", IDC_HELP_BUTTON, kButton},
    {"Settings", IDC_SETTINGS_GROUP, kLabel},
    {"Name", IDC_NAME, kEdit},
    {"Text", IDC_TEXT, kEdit},
    {"Typeface", IDC_TYPEFACE, kList},
    {"Size", IDC_POINT_SIZE, kEdit},
    {"Size arrows", IDC_POINT_SIZE_SPIN, kUpDown},
    {"Bold", IDC_BOLD, kCheck},
    {"Italic", IDC_ITALIC, kCheck},
    {"Colour", IDC_COLOR, kList},
    {"Angle", IDC_ANGLE, kList},
    {"User angle label", IDC_USER_ANGLE_LABEL, kLabel},
    {"User angle", IDC_USER_ANGLE, kEdit},
    {"User angle arrows", IDC_USER_ANGLE_SPIN, kUpDown},
    {"Center", IDC_CENTER, kRadio},
    {"User position", IDC_USER_POSITION, kRadio},
    {"Horizontal", IDC_HORIZONTAL, kEdit},
    {"Horizontal arrows", IDC_HORIZONTAL_SPIN, kUpDown},
    {"Vertical", IDC_VERTICAL, kEdit},
    {"Vertical arrows", IDC_VERTICAL_SPIN, kUpDown},
});

Text TextOf(HWND control) {
    Text text(static_cast<std::size_t>(::GetWindowTextLengthW(control)) + 1, 0);
    const int length = ::GetWindowTextW(control, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(std::max(length, 0)));
    return text;
}

std::string Shown(HWND control, ControlKind kind) {
    switch (kind) {
        case kCheck:
        case kRadio:
            return ::SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED ? "x" : "-";
        case kEdit:
            return Quoted(TextOf(control));
        case kList:
            return std::to_string(::SendMessageW(control, CB_GETCURSEL, 0, 0)) + " of " +
                   std::to_string(::SendMessageW(control, CB_GETCOUNT, 0, 0)) + ' ' +
                   Quoted(TextOf(control));
        default:
            return {};
    }
}

}  // namespace

std::span<const NamedControl> EditorControls() {
    return kEditorControls;
}

DialogView::DialogView(HWND dialog, std::span<const NamedControl> controls) {
    for (const NamedControl& control : controls) {
        controls_.push_back({&control, ::GetDlgItem(dialog, control.id)});
    }
}

State DialogView::Look() const {
    State state;
    for (const auto& [control, window] : controls_) {
        const bool isEnabled = ::IsWindowEnabled(window) != FALSE;
        state.Add(control->name, (isEnabled ? "" : "off ") + Shown(window, control->kind));
    }
    const Seen* focused = Focused();
    state.Add("focus", focused == nullptr ? "nowhere" : focused->control->name);
    return state;
}

std::optional<ControlKind> DialogView::FocusedKind() const {
    const Seen* focused = Focused();
    if (focused == nullptr) return {};
    return focused->control->kind;
}

bool DialogView::FocusIsUsable() const {
    const Seen* focused = Focused();
    return focused != nullptr && ::IsWindowEnabled(focused->window) != FALSE;
}

const DialogView::Seen* DialogView::Focused() const {
    const HWND focus = ::GetFocus();
    const auto found = std::ranges::find(controls_, focus, &Seen::window);
    return focus == nullptr || found == controls_.end() ? nullptr : &*found;
}

}  // namespace tests
