// Other clients of the desk, which listen to the changes in the Inbox.
#pragma once

#include <atomic>
#include <memory>
#include <thread>

#include "tests/wine/support/windows_handle.h"

namespace wine {

/// A client in an apartment of its own in this process. It ends with this.
class ListeningThread {
  public:
    /// Comes back when it listens; throws if it can't.
    static std::unique_ptr<ListeningThread> start();
    ~ListeningThread();
    ListeningThread(const ListeningThread&) = delete;
    ListeningThread& operator=(const ListeningThread&) = delete;

    int times_told() const { return told_; }

  private:
    ListeningThread() = default;

    std::atomic<int> told_ = 0;
    DWORD thread_id_ = 0;
    std::thread thread_;
};

/// A client that is a process of its own: this program once more.
class ListeningProcess {
  public:
    /// Comes back when it listens; throws if it can't.
    ListeningProcess();
    ~ListeningProcess() { kill(); }
    ListeningProcess(const ListeningProcess&) = delete;
    ListeningProcess& operator=(const ListeningProcess&) = delete;

    bool was_told() const;
    /// Ends it as a crash would, and waits until it has gone.
    void kill();

    /// The argument that makes this program such a client, and what it does then, until it is killed.
    static constexpr const char* argument = "--listen";
    static int run();

  private:
    windows_handle listens_, told_, process_;
};

}  // namespace wine
