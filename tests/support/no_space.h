/// A disk without room, for this process.
#pragma once

#include <sys/resource.h>

#include <csignal>

namespace tests {

/// While it lives no file of this process can grow.
class NoSpace {
public:
    NoSpace() : before_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &limit_);
        const rlimit none = {0, limit_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &none);
    }
    ~NoSpace() {
        setrlimit(RLIMIT_FSIZE, &limit_);
        std::signal(SIGXFSZ, before_);
    }
    NoSpace(const NoSpace&) = delete;
    NoSpace& operator=(const NoSpace&) = delete;

private:
    rlimit limit_{};
    void (*before_)(int);
};

}  // namespace tests
