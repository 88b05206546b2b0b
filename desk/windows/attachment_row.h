// The attachments of an item as a row of names, above its text.
#pragma once

#include <vector>

#include "desk/store/item_data.h"
#include "desk/windows/faces.h"

namespace desk {

/// Belongs to a window, and ends before it does.
class AttachmentRow {
  public:
    /// `title` stands before the names: a label, or the button that attaches more.
    AttachmentRow(HWND title, HWND list, const Faces& faces);

    /// The style of the list that it is made for.
    static DWORD list_style();

    /// Shows the names; answers whether the row needs another place than before.
    bool show(const std::vector<AttachmentData>& attachments);

    bool is_empty() const { return shown_.empty(); }
    HWND title() const { return title_; }
    HWND list() const { return list_; }
    int selected() const;          ///< -1: none
    POINT below_selected() const;  ///< of the screen
    void select_any() const;       ///< for the keyboard, to which nothing can be done otherwise

    /// Pixels that it takes at this width of its list.
    int height(int list_width) const;
    void place(int left, int top, int title_width, int list_left, int list_width) const;
    void hide() const;

  private:
    struct Shown {
        automation::Text name;
        int image;
        bool operator==(const Shown&) const = default;
    };
    Shown shown_as(const AttachmentData& attachment) const;

    HWND title_, list_;
    const Faces& faces_;
    std::vector<Shown> shown_;
};

}  // namespace desk
