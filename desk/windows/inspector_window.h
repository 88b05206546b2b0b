// The window of one item: who, what and when above its text. A mail that isn't sent yet, contacts,
// appointments and tasks can be written in it, the properties of a record, too.
#pragma once

#include <memory>
#include <optional>

#include "desk/outlook/inspectors.h"
#include "desk/windows/attachment_row.h"
#include "desk/windows/host_frame.h"

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

    /// A field that can be typed into.
    struct Field {
        HWND title, edit;
        automation::Text member;
        automation::Text known;   ///< of the model
        std::int32_t people = 0;  ///< the kind of the recipients that it names; 0: none
    };

    RowId shown_folder() const override;

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
    void on_field(int place, int code);
    void add_field(const automation::Text& title, const automation::Text& member, std::int32_t people = 0);
    automation::Text value_of(const Field& field) const;  ///< as the model has it
    void show_field(Field& field);

    std::shared_ptr<Inspector> inspector_;
    HWND head_ = nullptr;
    std::optional<AttachmentRow> attachments_;  ///< of an item that can have some
    std::vector<Field> fields_;                 ///< the text last
    std::int64_t version_ = -1;
    bool showing_ = false;
    bool two_columns_ = false;
};

}  // namespace desk
