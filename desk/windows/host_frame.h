// What the windows of explorers and inspectors have in common: command bars, a menu, and that they follow a
// window of the model.
#pragma once

#include <functional>
#include <memory>

#include "desk/outlook/host_window.h"
#include "desk/windows/attachment_actions.h"
#include "desk/windows/bar_menus.h"
#include "desk/windows/bar_strip.h"
#include "desk/windows/explorer_layout.h"
#include "desk/windows/item_drag.h"
#include "desk/windows/window.h"

namespace desk {

/// What all these windows share.
struct FrameContext {
    Desk& desk;
    windows::Module& module;
    Faces faces;
    Dragging dragging;
    ExplorerLayout layout;
    OpenedFiles opened{};    ///< what attachments were written to
    bool following = false;  ///< the windows are brought in line with the model: no person has done it
    std::function<void()> show_first_page = [] {};
};

class HostFrame : public DeskWindow {
  public:
    /// Shows what the model holds now; cheap if nothing has changed.
    void refresh();

  protected:
    HostFrame(FrameContext& context, const wchar_t* class_name, HostWindow& window);

    FrameContext& context() const { return context_; }
    void open();  ///< at the end of the making
    void lay_out_again();
    virtual void show_contents() = 0;
    virtual void lay_out(int top, int width, int height) = 0;
    virtual void add_menus(HMENU /*bar*/) {}  ///< behind those that each window has
    virtual void on_own_command(int, int) {}  ///< its number, and the code of a notification
    virtual RowId shown_folder() const = 0;
    virtual bool may_press(const CommandBarControl&) { return true; }

    /// What a person has entered here though it can't be taken, in one sentence; empty if there is nothing
    /// such. Who closes the window is asked whether to lose it.
    virtual automation::Text refused_entry() { return {}; }

    LRESULT on_notify(NMHDR& notice) override;

  private:
    void on_size(int width, int height) final;
    void on_close() final;
    void on_activate() final;
    void on_command(int command, int code) final;

    void follow_menus();

    /// Has the model told of something at the next turn, if its window is still there.
    void later(void (HostWindow::*what)());

    FrameContext& context_;
    HostWindow& window_;
    BarStrip bars_;
    BarMenus bar_menus_;
    std::int32_t times_brought_up_;
};

}  // namespace desk
