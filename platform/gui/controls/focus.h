/// The control that the program has been told has the focus. For the user-interface thread only.
#pragma once

#include "platform/gui/controls/control.h"

namespace platform {

/// Begins to follow the application's focus; once per process.
void FollowFocus();
/// Null when no control of the layer has it.
Control* FocusedControl();
/// Tells the control that had the focus, then the one that has it now; neither twice. \param now
/// may be null.
void ReportFocus(Control* now);
/// The control is about to go.
void ForgetFocus(const Control& control);

/// While this lives the program is told nothing; at the end it is told where the focus has gone.
class FocusReportHeld {
public:
    FocusReportHeld();
    ~FocusReportHeld();
    FocusReportHeld(const FocusReportHeld&) = delete;
    FocusReportHeld& operator=(const FocusReportHeld&) = delete;
};

/// Another window is in front for as long as this lives: the focused control loses the focus, and
/// gets it back after.
class FocusAway {
public:
    FocusAway() { ReportFocus(nullptr); }
    ~FocusAway();
    FocusAway(const FocusAway&) = delete;
    FocusAway& operator=(const FocusAway&) = delete;
};

}  // namespace platform
