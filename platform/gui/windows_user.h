/// The user in front of the screen.
#pragma once

#include "platform/user/user.h"

namespace platform {

/// Shows windows and waits for what is done in them.
User& WindowsUser();

}  // namespace platform
