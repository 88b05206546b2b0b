// The session's variables and shared windows: one copy for each load of the add-in, handed on by reference.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "host/desktop.h"
#include "host/outlook.h"

namespace addin {

/// A window as the rest of the add-in handles it: shown without waiting for it, hidden, gone.
class Window {
  public:
    Window() = default;
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    virtual ~Window() = default;  ///< unloads

    virtual void show() = 0;
    virtual void hide() = 0;
};

/// The small window that shows the progress of long operations.
class StatusWindow : public Window {
  public:
    virtual void caption(host::TextView text) = 0;
};

/// The place of a shared window: it comes up on first use. As long as nothing makes windows for a place,
/// showing it does nothing.
template <class Kind = Window>
class WindowPlace {
  public:
    using Maker = std::function<std::unique_ptr<Kind>()>;

    void made_by(Maker maker) { maker_ = std::move(maker); }
    [[nodiscard]] bool loaded() const { return window_ != nullptr; }

    /// The window, made if it isn't there; null if nothing makes it.
    Kind* window() {
        if (!window_ && maker_) window_ = maker_();
        return window_.get();
    }
    void show() {
        if (Kind* const shown = window()) shown->show();
    }
    void hide() {
        if (window_) window_->hide();
    }
    void unload() {
        const std::unique_ptr<Kind> going = std::move(window_);  // its end may come back here
    }

  private:
    Maker maker_;
    std::unique_ptr<Kind> window_;
};

struct Session {
    explicit Session(host::Desktop& platform) : desktop(platform) {}
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    host::Desktop& desktop;

    host::outlook::Application gOutlookApp;  ///< the application, for code outside of `Connect`
    host::Text gProgId;                      ///< the name under which the add-in was connected
    bool gNoteFromExplorer = false;          ///< how the Create Note dialog was opened

    host::Text gSelectedEntryID;  ///< the item handed to the Search Panel
    host::Text gSelectedStoreID;
    host::Text gSelectedClass;

    bool wasProtected =
        false;  ///< whether the context menu's bar was protected when it was opened for changes

    WindowPlace<StatusWindow> SearchForm;
    WindowPlace<> search_panel;  ///< the default instance of `ShowItems`
    WindowPlace<> gPanelMenu;
    WindowPlace<> gPanelMenu2;
    WindowPlace<> QuickView;

    /// Work of rooms that open windows of their own; an empty one does nothing.
    std::function<void(const host::Object& mail)> AutomaticCreateNoteSend;
    std::function<void(host::Value& selection)> ShowQuickView;
    std::function<void(host::Value& selection)> ShowTarnwell;
};

}  // namespace addin
