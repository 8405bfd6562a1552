/// What a dialog shows as readable text, by messages and calls that every platform answers.
#pragma once

#include <windows.h>

#include <optional>
#include <span>
#include <vector>

#include "tests/support/states/state.h"

namespace tests {

enum class ControlKind { kLabel, kButton, kCheck, kRadio, kEdit, kList, kUpDown };

struct NamedControl {
    const char* name;
    int id;
    ControlKind kind;
};

/// The watermark editor's controls that can change, in tab order.
[[nodiscard]] std::span<const NamedControl> EditorControls();

/// A dialog that is looked at again and again.
class DialogView {
public:
    DialogView(HWND dialog, std::span<const NamedControl> controls);

    /// A line for each control: "off" when it is disabled, an edit's text in quotation marks, a
    /// list's selected item and their number, a check as "x" or "-"; then which one has the focus.
    [[nodiscard]] State Look() const;
    /// What kind of control has the focus; nothing when none of them has it.
    [[nodiscard]] std::optional<ControlKind> FocusedKind() const;
    /// Whether the focus is on one of the controls, and that is enabled.
    [[nodiscard]] bool FocusIsUsable() const;

private:
    struct Seen {
        const NamedControl* control;
        HWND window;
    };

    /// Null when none of them has the focus.
    [[nodiscard]] const Seen* Focused() const;

    std::vector<Seen> controls_;
};

}  // namespace tests
