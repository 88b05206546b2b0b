// A person's hand at the mouse and the keyboard, by the system's own input.
#pragma once

#include <functional>
#include <vector>

#include "automation/com/platform.h"

namespace desk_tests {

/// Moves the mouse pointer, presses and releases its button and keys, step by step while messages are
/// handled.
class Hand {
  public:
    struct Step {
        POINT point;                   ///< of the screen
        DWORD button = 0;              ///< MOUSEEVENTF_LEFTDOWN or MOUSEEVENTF_LEFTUP
        WORD key = 0;                  ///< pressed and released, in place of what the mouse would do
        std::function<bool()> when{};  ///< holds; until then the hand waits
    };
    explicit Hand(std::vector<Step> steps) : steps_(std::move(steps)) {
        self() = this;
        constexpr UINT pace = 40;  // milliseconds
        timer_ = SetTimer(nullptr, 0, pace, [](HWND, UINT, UINT_PTR, DWORD) {
            if (self()) self()->go_on();
        });
    }
    ~Hand() {
        KillTimer(nullptr, timer_);
        self() = nullptr;
    }
    Hand(const Hand&) = delete;
    Hand& operator=(const Hand&) = delete;

    bool done() const { return next_ == steps_.size(); }

  private:
    static Hand*& self() {
        static Hand* the_one = nullptr;
        return the_one;
    }
    static void press(WORD key) {
        INPUT input{};
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = key;
        SendInput(1, &input, sizeof input);
        input.ki.dwFlags = KEYEVENTF_KEYUP;
        SendInput(1, &input, sizeof input);
    }
    void go_on() {
        if (done()) return;
        if (steps_[next_].when && !steps_[next_].when()) return;
        const Step& step = steps_[next_++];
        if (step.key != 0) return press(step.key);
        INPUT input{};
        input.type = INPUT_MOUSE;
        input.mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
        constexpr LONG whole = 65535;
        input.mi.dx = MulDiv(step.point.x, whole, GetSystemMetrics(SM_CXSCREEN) - 1);
        input.mi.dy = MulDiv(step.point.y, whole, GetSystemMetrics(SM_CYSCREEN) - 1);
        SendInput(1, &input, sizeof input);
        if (step.button == 0) return;
        input.mi.dwFlags = step.button;
        SendInput(1, &input, sizeof input);
    }

    std::vector<Step> steps_;
    std::size_t next_ = 0;
    UINT_PTR timer_;
};

}  // namespace desk_tests
