/// The version that the platform says it has, for tests of code that looks at it.
#pragma once

#include <windef.h>

namespace platform {

struct SystemVersion {
    DWORD platformId = 2;
    DWORD major = 10;
    DWORD minor = 0;
    DWORD build = 19045;
};

/// Every later `GetVersionExW` answers this version; `{}` puts the usual one back. For tests.
void ReplaceSystemVersion(const SystemVersion& version);

}  // namespace platform
