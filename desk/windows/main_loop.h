// The desk's message loop, and the hidden window through which it is woken.
#pragma once

#include <functional>

#include "windows/com/platform.h"

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
    void ask_to_quit() { post(quit_message, quit_posted_); }

    void run();  ///< until `end`
    void pump(DWORD milliseconds);
    void end() { PostQuitMessage(0); }

  private:
    static constexpr UINT wake_message = WM_APP + 1, change_message = WM_APP + 2, quit_message = WM_APP + 3;

    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second);
    void handle(UINT message);
    void post(UINT message, bool& posted);

    HWND window_ = nullptr;
    bool wake_posted_ = false, change_posted_ = false, quit_posted_ = false;
};

}  // namespace desk
