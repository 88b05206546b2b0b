// Windows that are kept in memory, for native tests: the engine of the add-in's windows without a screen.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tests/native/memory_controls.h"
#include "tests/native/strand.h"

namespace native {

class MemoryEngine;

/// A window, as the logic sees it and as a person does. A deed runs in a strand, so that what it leads to may
/// show a modal window; afterwards the modal shows go on whose windows are hidden or gone. Each deed answers
/// whether it could be done. The window may have ended when a deed comes back.
class MemoryWindow final : public forms::View {
  public:
    MemoryWindow(MemoryEngine& engine, const forms::FormTable& table, std::weak_ptr<forms::Events> events,
                 BeforeCall before_call);
    ~MemoryWindow() override;

    MemoryControl& control(automation::TextView name) override;
    automation::Text caption() const override { return caption_; }
    void caption(automation::TextView text) override { caption_ = text; }
    bool visible() const override { return visible_; }
    void show() override;
    void show_modal() override;  ///< throws `NotInAStrand`
    void hide() override;
    void topmost() override { topmost_ = true; }
    forms::Size size() const override;
    bool minimized() const override { return minimized_; }
    int dots_per_inch() const override { return dots_per_inch_; }
    std::intptr_t system_handle() const override { return number_; }
    void pointer(forms::Pointer pointer) override { pointer_ = pointer; }

    // what a person sees

    const forms::FormTable& table() const { return table_; }
    bool is_topmost() const { return topmost_; }
    std::weak_ptr<const bool> life() const { return alive_; }  ///< expires with the window
    forms::Pointer pointer() const { return pointer_; }
    bool busy() const;  ///< the mouse pointer over it is the hourglass
    bool active() const;
    bool blocked() const { return blocked_by_ != 0; }  ///< behind a modal window
    MemoryControl* find(automation::TextView name);    ///< null if it has none of that name
    MemoryControl* focused() const { return focused_; }
    int pixel_width() const { return width_; }  ///< outer
    int pixel_height() const { return height_; }
    const std::vector<std::unique_ptr<MemoryControl>>& controls() const { return controls_; }

    // what a person does

    bool key(int code);                  ///< a virtual key, at the control that has the focus
    bool resize(int width, int height);  ///< outer pixels; only of a window that has a sizable frame
    bool minimize();                     ///< or back, if it is minimized
    bool close();                        ///< the close box
    bool activate();                     ///< from another program's window

  private:
    friend class MemoryControl;
    friend class MemoryEngine;

    using Deed = std::function<void(forms::Events&)>;

    /// Runs an event of this window inside of a deed or a call of the logic; false if the window has ended.
    bool raise(const Deed& event);
    /// Runs a deed in a strand, with what it leads to. Answers true.
    bool act(const std::function<void()>& deed);
    bool reachable() const { return visible_ && !blocked(); }
    void become_active();
    void focus(MemoryControl& control);
    void focus_on_default();
    void check_focus();  ///< whether the control that has it can keep it
    void select_option(const MemoryControl& option);
    bool press(automation::TextView button);  ///< the window's default or cancel button, if it can be pressed
    void press_key(int code);
    void put_character(MemoryControl& box, char16_t character);
    void move_focus_on();

    MemoryEngine& engine_;
    const forms::FormTable& table_;
    std::weak_ptr<forms::Events> events_;
    BeforeCall before_call_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
    automation::Text caption_;
    std::vector<std::unique_ptr<MemoryControl>> controls_;
    MemoryControl* focused_ = nullptr;
    bool visible_ = false, topmost_ = false, minimized_ = false;
    forms::Pointer pointer_ = forms::Pointer::standard;
    int dots_per_inch_;
    int width_, height_;
    int number_;          ///< among all that were made, from 1
    int blocked_by_ = 0;  ///< the number of the modal show
    int brought_to_front_ = 0;
};

/// Lives longer than its windows.
class MemoryEngine final : public forms::Engine {
  public:
    explicit MemoryEngine(Strands& strands) : strands_(strands) {}

    std::unique_ptr<forms::View> make(const forms::FormTable& table,
                                      std::weak_ptr<forms::Events> events) override {
        return make(table, std::move(events), [](const char*) {});
    }
    /// The same with something that comes before each call of the window that the system may refuse.
    std::unique_ptr<forms::View> make(const forms::FormTable& table, std::weak_ptr<forms::Events> events,
                                      BeforeCall before_call);

    /// What an event keeps alive while it runs.
    void keep_during_events(std::weak_ptr<void> owner) { owner_ = std::move(owner); }

    /// The living windows, hidden ones too, in the order in which they were made.
    const std::vector<MemoryWindow*>& windows() const { return windows_; }

    /// The window with a caption, or null: of several a visible one, and of these the one in front.
    MemoryWindow* find(automation::TextView caption) const;

    /// A window of the host's own becomes the active one, as when the user works there.
    void activate_host() { active_ = nullptr; }

    // What events have thrown. It ends here, as it does in real windows.
    std::vector<std::string> failures;  ///< of the host
    std::vector<std::string> faults;    ///< of the program: anything else

    int dots_per_inch = 96;  ///< set before windows are made

    /// The mouse pointer over all windows that have none of their own.
    std::function<forms::Pointer()> screen_pointer = [] { return forms::Pointer::standard; };

    // for whoever watches the windows
    std::function<void(MemoryWindow&)> on_show = [](MemoryWindow&) {};
    std::function<void(MemoryWindow&, MemoryControl&)> on_text = [](MemoryWindow&, MemoryControl&) {};

  private:
    friend class MemoryWindow;

    Strands& strands_;
    std::weak_ptr<void> owner_;
    std::vector<MemoryWindow*> windows_;
    MemoryWindow* active_ = nullptr;
    int made_ = 0, shows_ = 0, modal_shows_ = 0;
};

}  // namespace native
