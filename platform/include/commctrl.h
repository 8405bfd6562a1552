/// The up-down control; its styles stand in <winresrc.h>.
#pragma once

#include <windef.h>
#include <winresrc.h>

// Ranges travel as MAKELPARAM(highest, lowest), 16 bits each, signed.
#define UDM_SETRANGE 0x0465
