// The desk's message loop, and the hidden window through which it is woken.
#pragma once

#include <deque>
#include <functional>

#include "automation/com/platform.h"

namespace desk {

/// Belongs to the thread that made it.
class MainLoop {
  public:
    MainLoop();
    ~MainLoop();
    MainLoop(const MainLoop&) = delete;
    MainLoop& operator=(const MainLoop&) = delete;

    std::function<void()> on_wake;    ///< events wait
    std::function<void()> on_change;  ///< the windows are to follow the model
    std::function<void()> on_quit;    ///< the desk is to end
    std::function<void()> on_tick;    ///< comes all the time, in the loops of modal windows too

    // each of these comes back at once; what it asks for runs at the next turn of whatever loop runs
    void wake() { post(wake_message, wake_posted_); }
    void change() { post(change_message, change_posted_); }

    /// Each action has a turn of its own, in the order in which they came.
    void post(std::function<void()> action);

    /// The desk ends a moment later, when the answer to whoever asked for it is through.
    void ask_to_quit();

    void run();  ///< until `end`
    void pump(DWORD milliseconds);
    void end() { PostQuitMessage(0); }

  private:
    static constexpr UINT wake_message = WM_APP + 1, change_message = WM_APP + 2, action_message = WM_APP + 3;

    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second);
    void handle(UINT message, WPARAM timer);
    void post(UINT message, bool& posted);
    void run_next_action();

    HWND window_ = nullptr;
    bool wake_posted_ = false, change_posted_ = false;
    std::deque<std::function<void()>> actions_;
};

}  // namespace desk
