/// The buttons of message boxes, and what each kind of box can be answered.
#pragma once

#include <windows.h>

#include <array>

namespace host {

/// A button and its name, as a control, a key or an answer of a script has one.
struct NamedNumber {
    const char* name;
    int number;
};

inline constexpr auto kMessageButtons = std::to_array<NamedNumber>({
    {"OK", IDOK},
    {"Cancel", IDCANCEL},
    {"Yes", IDYES},
    {"No", IDNO},
});

/// What a message box can be answered.
struct BoxAnswers {
    int consent;
    int safe;  ///< nothing is overwritten or deleted then

    [[nodiscard]] bool Has(int button) const { return button == consent || button == safe; }
};

/// \param type  MB_*; any but the two below has an OK button alone.
[[nodiscard]] constexpr BoxAnswers AnswersOf(UINT type) {
    if (type == MB_YESNO) return {IDYES, IDNO};
    if (type == MB_OKCANCEL) return {IDOK, IDCANCEL};
    return {IDOK, IDOK};
}

}  // namespace host
