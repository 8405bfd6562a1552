/// The clock by which the layer waits.
#pragma once

#include <windef.h>

namespace platform {

/// Has every later `Sleep` call an operation, on the caller's thread, instead of waiting; null has
/// them wait again. For tests.
void ReplaceSleep(void (*standIn)(DWORD milliseconds));

}  // namespace platform
