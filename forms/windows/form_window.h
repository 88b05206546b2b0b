// A real window made of a table.
#pragma once

#include <optional>
#include <vector>

#include "forms/windows/drawing.h"
#include "forms/windows/engine_parts.h"
#include "forms/windows/form_control.h"
#include "forms/windows/modal_show.h"

namespace windows {

/// What outlives a window that its own handler ends, until the handler has come back.
struct FormFrame {
    HWND window = nullptr;
    FormWindow* form = nullptr;  ///< null: it has ended
    int running = 0;             ///< events that run
    std::optional<ModalShow> modal;
};

class FormWindow final : public forms::View {
  public:
    FormWindow(std::shared_ptr<EngineParts> parts, const forms::FormTable& table,
               std::weak_ptr<forms::Events> events);
    ~FormWindow() override;
    FormWindow(const FormWindow&) = delete;
    FormWindow& operator=(const FormWindow&) = delete;

    FormControl& control(automation::TextView name) override;
    automation::Text caption() const override;
    void caption(automation::TextView text) override;
    bool visible() const override;
    void show() override;
    void show_modal() override;
    void hide() override;
    void topmost() override;
    forms::Size size() const override;
    bool minimized() const override;
    int dots_per_inch() const override { return dots_per_inch_; }
    std::intptr_t system_handle() const override { return reinterpret_cast<std::intptr_t>(handle()); }
    void pointer(forms::Pointer pointer) override { pointer_ = pointer; }

    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second);
    static LRESULT CALLBACK hook_procedure(int code, WPARAM removed, LPARAM message);

    // what its controls use

    HWND handle() const { return frame_->window; }
    EngineParts& parts() const { return *parts_; }
    Fonts& fonts() { return fonts_; }
    const forms::FormTable& table() const { return table_; }
    int to_pixels(int twips) const { return forms::to_pixels(twips, dots_per_inch_); }
    FormControl* find(automation::TextView name) const;  ///< null if there is none
    HIMAGELIST images(automation::TextView image_list) const;

    /// Runs an event. False if the window has ended meanwhile: then nothing of it may be touched any more.
    bool raise(const std::function<void(forms::Events&)>& event);
    bool click(const FormControl& control);  ///< raises a click; as `raise`

    /// Lets the tool tips see a message of the mouse over a control.
    void tell_tool_tips(HWND control, UINT message, WPARAM first, LPARAM second) const;

    void focus(HWND control);
    void focus_moves_on();  ///< from a control that can't keep it
    void let_others_go(const FormControl& option);
    void visible_changed(const FormControl& frame);
    bool is_high_contrast() const { return parts_->screens.is_high_contrast(); }

    /// A key goes down, or a character comes, at a control. False: it has been dealt with.
    bool key_down(const FormControl* control, int code);
    bool character(const FormControl* control, char16_t character);

  private:
    class Running;

    void end();
    void make_window();
    void make_controls();
    void make_tool_tips();
    void make_images();
    SIZE outer_size() const;
    void come_to_place();
    void follow_resolution(int dots_per_inch, const RECT& box);
    void follow_colors();
    void follow_look(int former_dots_per_inch);
    void dispatch_key(MSG message);
    LRESULT handle_message(UINT message, WPARAM first, LPARAM second);
    LRESULT on_command(WPARAM first, LPARAM second);
    void on_activate(bool active);
    void on_size();
    bool on_set_cursor(HWND at, WORD hit) const;
    FormControl* find(HWND control) const;
    const FormControl* button(automation::TextView name) const;  ///< that can be pressed; or null
    /// The button that a key presses when it goes down at a control, or null.
    const FormControl* pressed_by(const FormControl* at, int code) const;
    HWND first_focus() const;

    struct NamedImages {
        automation::TextView name;
        ImageListHandle images;
    };

    std::shared_ptr<EngineParts> parts_;
    std::shared_ptr<KeyboardHook> hook_;
    const forms::FormTable& table_;
    std::weak_ptr<forms::Events> events_;
    int dots_per_inch_;
    forms::Pointer pointer_ = forms::Pointer::standard;
    Fonts fonts_;
    std::vector<NamedImages> images_;
    std::shared_ptr<FormFrame> frame_ = std::make_shared<FormFrame>();
    std::vector<std::unique_ptr<FormControl>> controls_;
    HWND tool_tips_ = nullptr;
    HWND wanted_focus_ = nullptr;  ///< where the focus goes when the window becomes active
    RECT last_size_{};
    bool was_minimized_ = false;
    bool was_shown_ = false;  ///< at a place of its own choice
};

}  // namespace windows
