/// Makes dialogs known to assistive programs. For the user-interface thread only.
#pragma once

namespace platform {

/// From now on each dialog and control tells screen readers what it is; once per process.
void DescribeDialogsToReaders();

}  // namespace platform
