// What keeps a server in memory: its objects and its locks.
#pragma once

#include <atomic>

namespace windows {

/// Counts the COM objects that a module has handed out, and the locks on it. It outlives all of them.
class Module {
  public:
    Module() = default;
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;

    void object_made() noexcept { ++objects_; }
    void object_gone() noexcept { --objects_; }
    void lock() noexcept { ++locks_; }
    void unlock() noexcept { --locks_; }

    long objects() const noexcept { return objects_; }
    bool idle() const noexcept { return objects_ == 0 && locks_ == 0; }  ///< whether it may be unloaded

  private:
    std::atomic<long> objects_ = 0;
    std::atomic<long> locks_ = 0;
};

}  // namespace windows
