// The fields of an item's window: what they show, what is entered in them, where they stand.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "automation/failure.h"
#include "desk/windows/field_control.h"

namespace desk {

class ItemFields {
  public:
    /// Makes a control of the window, with its number and text.
    using MakeControl = std::function<HWND(const ControlClass&, int id, const automation::Text& text)>;

    ItemFields(std::shared_ptr<Item> item, MakeControl make)
        : item_(std::move(item)), make_(std::move(make)) {}

    static constexpr int first_page = 0, second_page = 1;

    // The keyboard goes from one to the next in the order in which they are added.
    void add(const FormLine& line);                                 ///< on the first page
    void add_property(const UserPropertyData& property, int page);  ///< on each page that it is added to
    void add_text(bool is_written);  ///< the item's text, below all other fields of the first page

    HWND text() const { return text_; }
    HWND first(int page) const;

    void show();  ///< what the item holds now

    /// The width of what stands before the fields of a page, and before the lines that a window adds; pixels.
    int title_width(int page) const;

    /// Places the fields of a page but the text, and hides those of the others. Answers where the next thing
    /// has its upper edge; pixels.
    int place(int page, int top, int width, int columns) const;

    /// What a control tells; true if it is one of these.
    bool on_command(int id, int code);
    bool on_date(HWND control);

    /// One sentence about what was entered and can't be taken, though it stays as it was written; empty if
    /// all is well. Who still writes isn't told.
    automation::Text refusal() const;

    /// The field whose entry can't be taken, which is told from now on; nothing if all is well.
    struct Refused {
        HWND control;
        int page;
    };
    std::optional<Refused> refused();

  private:
    struct Field {
        HWND title, control;
        automation::Text name;
        std::int32_t property_type;  ///< OlUserPropertyType; 0: a field of the host's
        FieldLook look;
        bool is_wide;
        std::int32_t people;
        int page;
        int title_width;
        automation::Value known{};  ///< what it shows of the item
        automation::Text refusal{};
        bool is_told = false;
    };
    void add(const FormLine& line, std::int32_t property_type, int page);
    automation::Value value_of(const Field& field) const;
    automation::Value shown_of(const Field& field) const;
    void show(Field& field);
    void show_again(Field& field);
    void take(Field& field);
    void enter(const Field& field, const automation::Value& entered) const;
    static automation::Text refusal_of(const Field& field, const automation::Failure& failure);

    std::shared_ptr<Item> item_;
    MakeControl make_;
    std::vector<Field> fields_;
    HWND text_ = nullptr;
    bool showing_ = false;
};

}  // namespace desk
