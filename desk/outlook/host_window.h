// What explorers and inspectors have in common: a place on the screen, command bars, and that one of all
// these windows is the active one.
#pragma once

#include "desk/base/base.h"

namespace desk {

class CommandBars;

class HostWindow {
  public:
    static constexpr std::int32_t maximized = 0, minimized = 1, normal = 2;  // OlWindowState

    HostWindow() = default;
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;
    virtual ~HostWindow() = default;

    virtual automation::Text caption() const = 0;
    virtual const std::shared_ptr<CommandBars>& bars() const = 0;
    virtual void activate() = 0;       ///< as a person who clicks on it
    virtual void close_by_user() = 0;  ///< as a person who clicks on its close box

    bool is_open() const { return is_open_; }
    /// Grows each time the window is asked to come to the front.
    std::int32_t times_brought_up() const { return times_brought_up_; }

    std::int32_t left = 0, top = 0, width = 0, height = 0;  // pixels
    std::int32_t window_state = normal;

    virtual automation::Object held() = 0;  ///< the window as others hold it

  protected:
    virtual ModelBase& object() = 0;

    // it opens, and covers none of the others that are open
    void enter_front();  ///< behind no other, without an event
    void enter_back();   ///< behind the active one
    /// Comes to the front. The former active window and this one hear of it.
    void come_up();
    /// Has closed: its event, then the end of its bars unless others use them, and the next window comes up.
    void leave(bool bars_end);

  private:
    void step_aside();

    bool is_open_ = false;
    std::int32_t times_brought_up_ = 0;
};

}  // namespace desk
