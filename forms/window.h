// A window as those see it who only bring it up and take it away.
#pragma once

#include <functional>
#include <memory>

namespace forms {

class Window {
  public:
    Window() = default;
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    virtual ~Window() = default;

    virtual void show() = 0;    ///< comes back at once
    virtual void hide() = 0;    ///< nothing if it isn't loaded
    virtual void unload() = 0;  ///< the same
};

/// The place of a shared window: it comes up on first use. As long as nothing makes windows for a place,
/// showing it does nothing.
template <class Kind = Window>
class WindowPlace {
  public:
    using Maker = std::function<std::shared_ptr<Kind>()>;

    void made_by(Maker maker) { maker_ = std::move(maker); }

    /// The window, made if it isn't there; null if nothing makes it.
    std::shared_ptr<Kind> window() {
        if (!window_ && maker_) window_ = maker_();
        return window_;
    }
    void show() {
        if (const std::shared_ptr<Kind> shown = window()) shown->show();
    }
    void hide() {
        if (const std::shared_ptr<Kind> hidden = window_) hidden->hide();
    }
    /// Forgets the window, which stays as long as somebody else holds it; the next one is made anew.
    void let_go() { window_.reset(); }
    void unload() {
        // its end may come back here
        if (const std::shared_ptr<Kind> going = std::move(window_)) going->unload();
    }

  private:
    Maker maker_;
    std::shared_ptr<Kind> window_;
};

}  // namespace forms
