/// Message boxes, dialogs, controls, string resources and help.
#pragma once

#include <windef.h>

using DLGPROC = INT_PTR(CALLBACK*)(HWND dialog, UINT message, WPARAM first, LPARAM second);
