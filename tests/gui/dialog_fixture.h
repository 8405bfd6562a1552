/// A dialog whose procedure notes what it is told, and a user who works in it.
#pragma once

#include <commctrl.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <functional>
#include <utility>
#include <vector>

#include "platform/faults/live_objects.h"
#include "platform/gui/dialogs/hands.h"
#include "tests/gui/dialog_test.h"
#include "tests/support/scripted_user.h"

namespace hands = platform::hands;
using Work = std::function<void(HWND)>;

/// The commands that the dialog procedure got: each one's control and code.
using Commands = std::vector<int>;

template <class... Number>
Commands Told(Number... controlsAndCodes) {
    return {controlsAndCodes...};
}

inline Commands seen;
inline int paints;
inline std::vector<int> helpAskedOn;
inline Work onOpening;
inline INT_PTR openingAnswer;
inline HWND defaultFocus;  // as the dialog is told when it opens
inline std::function<void(int control, int code)> onCommand;

inline INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_INITDIALOG) {
        defaultFocus = reinterpret_cast<HWND>(first);
        if (onOpening) onOpening(dialog);
        return openingAnswer;
    }
    if (message == WM_PAINT) ++paints;
    if (message == WM_HELP) {
        const auto* request = reinterpret_cast<const HELPINFO*>(second);
        EXPECT_EQ(request->cbSize, sizeof(HELPINFO));
        helpAskedOn.push_back(request->iCtrlId);
    }
    if (message != WM_COMMAND) return 0;
    const int control = LOWORD(first);
    const int code = HIWORD(first);
    seen.insert(seen.end(), {control, code});
    if (onCommand) onCommand(control, code);
    if (control == IDCANCEL) EndDialog(dialog, 0);
    return 0;
}

inline Commands Take() {
    return std::exchange(seen, {});
}

inline std::u16string TextOf(HWND dialog, int control) {
    WCHAR text[64];
    GetDlgItemTextW(dialog, control, text, 64);
    return text;
}

inline LRESULT Ask(HWND dialog, int control, UINT message, WPARAM first = 0, LPARAM second = 0) {
    return SendDlgItemMessageW(dialog, control, message, first, second);
}

inline LPARAM Text(const WCHAR* text) {
    return reinterpret_cast<LPARAM>(text);
}

class DialogTest : public testing::Test {
protected:
    void SetUp() override {
        seen.clear();
        helpAskedOn.clear();
        paints = 0;
        onOpening = FillLists;
        openingAnswer = 0;
        onCommand = nullptr;
    }

    void TearDown() override { EXPECT_EQ(platform::LiveObjects().count("window"), 0u); }

    static void FillLists(HWND dialog) {
        for (const WCHAR* text : {u"aa", u"bb", u"cc", u"dd"})
            Ask(dialog, LIST, CB_ADDSTRING, 0, Text(text));
        Ask(dialog, LIST, CB_SETCURSEL, 1);
        Ask(dialog, RADIO_1, BM_SETCHECK, BST_CHECKED);
    }

    INT_PTR Open(const Work& work, int dialog = IDD_CONTROLS) {
        tests::ScriptedUser user;
        return user.Open(dialog, Procedure, 0, [&] { work(user.Dialog()); });
    }
};
