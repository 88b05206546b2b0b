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
        WORD held = 0;                 ///< a key that is held down while the other is pressed
        wchar_t letter = 0;            ///< typed, in place of all the rest
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
    /// From one point of the screen to another with the left button held: a little way first, by which a drag
    /// is known.
    static std::vector<Step> dragging(POINT from, POINT to) {
        return {{from},
                {from, MOUSEEVENTF_LEFTDOWN},
                {{from.x + 6, from.y + 6}},
                {{from.x + 20, from.y + 12}},
                {to},
                {{to.x + 1, to.y}},
                {{to.x + 1, to.y}, MOUSEEVENTF_LEFTUP}};
    }

    Hand(const Hand&) = delete;
    Hand& operator=(const Hand&) = delete;

    bool done() const { return next_ == steps_.size(); }

  private:
    static Hand*& self() {
        static Hand* the_one = nullptr;
        return the_one;
    }
    static void send(WORD key, WORD letter, DWORD flags) {
        INPUT input{};
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = key;
        input.ki.wScan = letter;
        input.ki.dwFlags = flags;
        SendInput(1, &input, sizeof input);
    }
    static void press(WORD key, WORD held) {
        if (held != 0) send(held, 0, 0);
        send(key, 0, 0);
        send(key, 0, KEYEVENTF_KEYUP);
        if (held != 0) send(held, 0, KEYEVENTF_KEYUP);
    }
    static void type(wchar_t letter) {
        send(0, letter, KEYEVENTF_UNICODE);
        send(0, letter, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP);
    }
    void go_on() {
        if (done()) return;
        if (steps_[next_].when && !steps_[next_].when()) return;
        const Step& step = steps_[next_++];
        if (step.letter != 0) return type(step.letter);
        if (step.key != 0) return press(step.key, step.held);
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
