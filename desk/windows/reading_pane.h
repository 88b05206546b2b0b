// The reading pane of a main window: what is selected, with who, to whom and when above its text.
#pragma once

#include <memory>
#include <vector>

#include "desk/outlook/item.h"
#include "forms/windows/drawing.h"

namespace desk {

/// What the pane tells of an item. It is read from what the item holds, so the item raises no event.
struct PaneContents {
    automation::Text headline;
    std::vector<automation::Text> lines;
    automation::Text text;
    friend bool operator==(const PaneContents&, const PaneContents&) = default;
};
PaneContents pane_contents(Item& item);

/// Belongs to a window and ends before it.
class ReadingPane {
  public:
    explicit ReadingPane(HWND parent);
    ~ReadingPane();
    ReadingPane(const ReadingPane&) = delete;
    ReadingPane& operator=(const ReadingPane&) = delete;

    /// Shows what is selected; cheap if nothing has changed. Several items are counted.
    void follow(const std::vector<automation::Object>& selected);

    void place(const RECT& box);
    void show(bool shown);
    bool is_shown() const { return shown_; }

    std::shared_ptr<Item> item() const { return shown_ ? item_.lock() : nullptr; }

    /// Where the keyboard goes on in the pane.
    HWND text() const { return text_; }

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second);
    void show_contents(PaneContents contents);
    void lay_out();
    int head_height() const;  ///< pixels
    void paint(HDC context) const;

    HWND window_ = nullptr, text_ = nullptr;
    windows::DrawingObject<HFONT> headline_font_;
    PaneContents contents_;
    std::weak_ptr<Item> item_;
    std::int64_t version_ = -1;
    bool shown_ = true;
};

}  // namespace desk
