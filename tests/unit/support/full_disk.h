#pragma once

#include <sys/resource.h>

#include <csignal>

namespace model_tests {

/// No file can be written while this lives, as on a disk that is full.
class FullDisk {
  public:
    FullDisk() : former_handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &former_);
        const rlimit none{0, former_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &none);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &former_);
        std::signal(SIGXFSZ, former_handler_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    rlimit former_{};
    void (*former_handler_)(int);
};

}  // namespace model_tests
