// What keeps a server in memory: its objects, its locks, and its code that is at work or that the system
// knows.
#pragma once

#include <atomic>

namespace windows {

/// Counts the COM objects that a module has handed out, the locks on it and the holds. It outlives all of
/// them.
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
    bool idle() const noexcept { return objects_ == 0 && locks_ == 0 && holds_ == 0; }

    /// Whether a caller that has loaded the module may unload it. If so, the caller's own reference is the
    /// last one from now on.
    bool may_unload() noexcept;

  private:
    friend class ModuleHold;

    void hold() noexcept;
    void let_go() noexcept { --holds_; }

    std::atomic<long> objects_ = 0;
    std::atomic<long> locks_ = 0;
    std::atomic<long> holds_ = 0;
    std::atomic<bool> holds_itself_ = false;  ///< by the loader's count
};

/// Keeps the module's code in memory while it lives. Whatever the system may come back to has one: a window,
/// a hook, a call on the stack below a message loop.
class ModuleHold {
  public:
    explicit ModuleHold(Module& module) noexcept : module_(module) { module_.hold(); }
    ModuleHold(const ModuleHold& other) noexcept : ModuleHold(other.module_) {}
    ModuleHold& operator=(const ModuleHold&) = delete;
    ~ModuleHold() { module_.let_go(); }

  private:
    Module& module_;
};

}  // namespace windows
