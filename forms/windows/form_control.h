// A control of a real window.
#pragma once

#include <memory>
#include <optional>

#include "forms/view.h"
#include "forms/windows/common_controls.h"

namespace windows {

class FormWindow;

/// The text of a window.
automation::Text window_text(HWND window);

/// Owned by its form, and ends before the window of it does.
class FormControl : public forms::Control {
  public:
    /// Makes the window of a row. `id` is what it tells its parent to be.
    FormControl(FormWindow& form, const forms::ControlRow& row, int id);
    ~FormControl() override;
    FormControl(const FormControl&) = delete;
    FormControl& operator=(const FormControl&) = delete;

    automation::Text text() const override;
    void text(automation::TextView text) override;
    bool visible() const override { return visible_; }
    void visible(bool visible) override;
    bool enabled() const override { return enabled_; }
    void enabled(bool enabled) override;
    bool selected() const override;
    void selected(bool selected) override;
    void place(const forms::Place& place) override;
    void focus() override;
    forms::List& list() override;
    forms::Choice& choice() override;

    const forms::ControlRow& table_row() const { return row_; }
    HWND handle() const { return window_; }  ///< null: it has no window
    bool is_button() const;                  ///< Enter presses it when it has the focus
    bool is_choice() const;
    bool is_list() const { return row_.kind == forms::ControlKind::report_list; }
    bool takes_focus() const;              ///< now: by its kind, and since it is enabled and to be seen
    bool dropped() const;                  ///< the entries of a choice are open
    HWND inner() const { return inner_; }  ///< the edit control in a combo box, or null
    bool in_change() const { return changing_; }  ///< its text is being set by the program

    /// Whether a click begins something new. Quick clicks are one: what the first of them opens may take a
    /// while to be seen, and all that were made until then meant the same.
    bool is_new_click();
    void click_is_over();  ///< its work is done

    /// Whether an option was selected since it was last asked.
    bool newly_selected();

    /// Shows or hides the window by what was asked for, of it and of its frame.
    void apply_visible();
    void apply_place();

    /// Takes over another resolution than the former one, or other colours.
    virtual void follow_look(int former_dots_per_inch);

    // what the control tells its form

    virtual void on_command(WORD) {}
    virtual void on_notify(const NMHDR&) {}
    virtual void on_posted() {}  ///< a `posted_message` to its own window
    static constexpr UINT posted_message = WM_APP + 2;
    virtual void on_timer() {}  ///< the time of `own_timer` is over, which its own window has set
    static constexpr UINT_PTR own_timer = 0x5457;  ///< the system's controls count their timers from 1
    void draw(const DRAWITEMSTRUCT& item) const;   ///< of links, picture buttons and images

  protected:
    FormWindow& form() const { return form_; }

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second);
    /// Deals with a message to a window of its own. True: the system is to go on with it.
    bool takes(HWND window, UINT message, WPARAM first, LPARAM second);
    [[nodiscard]] WNDPROC take_messages(HWND window);
    static void leave_messages(HWND window, WNDPROC next);
    RECT pixels() const;
    void set_font();

    FormWindow& form_;
    const forms::ControlRow& row_;
    automation::Text text_;  ///< of a control whose window shows none
    HWND window_ = nullptr;
    HWND inner_ = nullptr;                           ///< the edit control in a combo box
    WNDPROC next_ = nullptr, inner_next_ = nullptr;  ///< what handles their messages afterwards
    bool visible_, enabled_;
    bool known_selected_;
    bool changing_ = false;
    std::optional<DWORD> last_click_;  ///< of the system's milliseconds; none since the text was set
    forms::Place place_;
};

/// Makes the control of a row.
std::unique_ptr<FormControl> make_control(FormWindow& form, const forms::ControlRow& row, int id);

}  // namespace windows
