// A window's class: it loads its window on first use, and unloads it.
#pragma once

#include "forms/view.h"
#include "forms/window.h"

namespace forms {

/// Base of the windows' classes. Owned by shared pointers, so that an event keeps it alive while it runs.
class Form : public Window, public Events, public std::enable_shared_from_this<Form> {
  public:
    Form(Engine& engine, const FormTable& table) : engine_(engine), table_(table) {}

    bool loaded() const { return view_ != nullptr; }

    /// Counts the loads: a window that was closed and opened again is another one.
    int loading() const { return loading_; }
    void show() override { view().show(); }
    void show_modal() { view().show_modal(); }
    void hide() override;
    void unload() override;  ///< safe in the window's own events

    /// The window, made and loaded if it isn't there. Throws what the load throws, and then the window is
    /// there all the same; and if it was unloaded while it was loaded.
    View& view();
    Control& control(automation::TextView name) { return view().control(name); }

  protected:
    virtual void on_load() {}
    virtual void on_unload() {}
    void on_close() override { unload(); }

  private:
    Engine& engine_;
    const FormTable& table_;
    std::unique_ptr<View> view_;
    int loading_ = 0;
};

}  // namespace forms
