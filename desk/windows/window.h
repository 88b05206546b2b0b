// A top-level window of the desk's own: the system's handle and its messages as members of a class.
#pragma once

#include "automation/com/com_ptr.h"
#include "automation/text.h"
#include "forms/windows/common_controls.h"

namespace desk {

class DeskWindow {
  public:
    /// Offers a message of the loop to the window of the desk's that it is for; true if that has taken it.
    static bool take_key(const MSG& message);

    DeskWindow(const DeskWindow&) = delete;
    DeskWindow& operator=(const DeskWindow&) = delete;

  protected:
    /// One with an owner stays before it.
    DeskWindow(const wchar_t* class_name, const automation::Text& caption, RECT place, HWND owner = nullptr);
    virtual ~DeskWindow();

    HWND handle() const { return window_; }
    void caption(const automation::Text& text);

    /// A control in the window, in the system's font.
    HWND add_control(const wchar_t* class_name, DWORD style, DWORD extended_style, int id,
                     const wchar_t* text = L"");

    virtual HWND first_focus() const { return GetNextDlgTabItem(window_, nullptr, FALSE); }
    virtual void on_size(int width, int height) = 0;
    virtual void on_close() = 0;
    virtual LRESULT on_notify(NMHDR&) { return 0; }
    virtual void on_command(int /*command*/, int /*code*/) {}
    virtual void on_activate() {}
    /// A key that is on its way to a control of the window; true if the window takes it.
    virtual bool on_key(int /*key*/) { return false; }
    /// A right click or the menu key, in a control of the window; the place is the screen's, or -1, -1.
    virtual void on_context_menu(HWND /*control*/, POINT /*place*/) {}

    virtual void on_menu_opens(HMENU) {}
    virtual void on_timer() {}
    /// What the mouse does in the window itself, beside its controls.
    virtual void on_mouse(UINT /*message*/, POINT /*point*/) {}
    virtual bool show_cursor() { return false; }  ///< above the window itself; false leaves it to the system

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second);
    LRESULT handle_message(UINT message, WPARAM first, LPARAM second);

    void note_focus();
    void restore_focus() const;

    HWND window_ = nullptr;
    HWND focus_ = nullptr;  ///< the control that had the focus when the window was last active
    automation::Text caption_;
};

}  // namespace desk
