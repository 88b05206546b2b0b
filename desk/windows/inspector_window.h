// The window of one item: who, what and when above its text. What isn't a mail that has come or was sent can
// be written in it; the user properties of a record stand on a second page.
#pragma once

#include <memory>
#include <optional>

#include "desk/outlook/inspectors.h"
#include "desk/windows/attachment_row.h"
#include "desk/windows/host_frame.h"
#include "desk/windows/item_fields.h"

namespace desk {

class InspectorWindow : public HostFrame {
  public:
    InspectorWindow(FrameContext& context, std::shared_ptr<Inspector> inspector);

  private:
    void add_menus(HMENU menu) override;
    HWND first_focus() const override;
    bool on_key(int key) override;
    void show_contents() override;
    void lay_out(int top, int width, int height) override;
    void on_own_command(int command, int code) override;
    LRESULT on_notify(NMHDR& notice) override;
    void on_context_menu(HWND control, POINT place) override;

    RowId shown_folder() const override;
    bool may_press(const CommandBarControl& control) override;
    automation::Text refused_entry() override;

    bool is_written() const;  ///< the item can be changed here
    void add_attachments();
    int place_attachments(int top, int title, int width) const;
    bool on_attachment_key(int key);
    /// Has something done to the selected attachment at the next turn.
    void with_attachment(std::function<void(const AttachmentPlace&)> deed);
    void open_selected();
    void ask_for_files();
    void press_button(std::int32_t id);  ///< of the bar "Standard", as a click on it
    void move_focus(HWND from, bool back);
    void add_fields();
    void tell_refusal();
    void turn_to(int page);

    std::shared_ptr<Inspector> inspector_;
    HWND head_ = nullptr;
    std::optional<AttachmentRow> attachments_;  ///< of an item that can have some
    HWND pages_ = nullptr;                      ///< of an item with user properties
    HWND told_ = nullptr;                       ///< what can't be taken
    ItemFields fields_;
    int page_ = ItemFields::first_page;
    std::int64_t version_ = -1;
    bool two_columns_ = false;
};

}  // namespace desk
