/// A display that goes away while a window is on it.
#pragma once

namespace host {

/// While it lives, a window library that ends the process, as it does when the display goes away,
/// is a failure in one line on the standard error stream and exit code 1. One at a time.
class LostDisplayNotice {
public:
    LostDisplayNotice();
    ~LostDisplayNotice();
    LostDisplayNotice(const LostDisplayNotice&) = delete;
    LostDisplayNotice& operator=(const LostDisplayNotice&) = delete;
};

}  // namespace host
