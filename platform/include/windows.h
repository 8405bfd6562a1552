/// The platform's umbrella header. Printing (`<winspool.h>`), sockets (`<winsock.h>`) and the
/// common property sheet (`<compstui.h>`) are included by name where they are used.
#pragma once

#include <unknwn.h>
#include <winbase.h>
#include <windef.h>
#include <winerror.h>
#include <wingdi.h>
#include <winreg.h>
#include <winuser.h>
