// What a window's logic sees of its window. The engine on Windows makes real windows and common controls, the
// one of the native build keeps their state in memory; the logic is written once and knows neither.
#pragma once

#include <functional>
#include <memory>
#include <span>

#include "forms/form_table.h"
#include "forms/pointer.h"

namespace forms {

class List;
class Choice;

/// A control of a window that lives. Texts, visibility and so on are what the window shows at the moment.
class Control {
  public:
    virtual ~Control() = default;

    virtual automation::Text text() const = 0;
    virtual void text(automation::TextView text) = 0;  ///< a drop-down list takes only a text of its entries
    virtual bool visible() const = 0;
    virtual void visible(bool visible) = 0;
    virtual bool enabled() const = 0;
    virtual void enabled(bool enabled) = 0;
    virtual bool selected() const = 0;  ///< of a check box or option button
    virtual void selected(bool selected) = 0;
    virtual void place(const Place& place) = 0;
    /// Moves the focus here; of a window that isn't the active one, it comes when the window becomes active.
    /// A hidden or disabled control takes none.
    virtual void focus() = 0;

    /// The control as a list or a choice. Another kind is a mistake: `std::logic_error`.
    virtual List& list() = 0;
    virtual Choice& choice() = 0;
};

/// The entries of a combo box or drop-down list, from 0.
class Choice {
  public:
    virtual ~Choice() = default;

    virtual void clear() = 0;
    virtual void add(automation::TextView entry) = 0;
    virtual int count() const = 0;
    virtual automation::Text entry(int index) const = 0;
    virtual int chosen() const = 0;      ///< -1: none
    virtual void choose(int index) = 0;  ///< without the event of a click
};

/// What a heading's mark and text are set with: the header item of the common controls (HDITEM).
struct HeaderItem {
    std::uint32_t mask = 0;
    std::int32_t format = 0;
    automation::Text text;
    std::int32_t image = 0;
};
namespace header {
inline constexpr std::uint32_t text = 0x2, format = 0x4, image = 0x20;  // HDI_TEXT, HDI_FORMAT, HDI_IMAGE
inline constexpr std::int32_t string = 0x4000, image_on_right = 0x1000, with_image = 0x800;  // HDF_
}  // namespace header

/// Where a point hits a list (LVM_SUBITEMHITTEST). Row and column from 0; -1 where it misses.
struct Hit {
    int row = -1;
    int column = -1;
};

/// A report list. Rows and columns count from 0, and column 0 is the row's own text. A call with a row or
/// column that isn't there throws `Failure` with `result::bad_index`.
class List {
  public:
    virtual ~List() = default;

    virtual int count() const = 0;
    virtual void clear() = 0;
    /// Adds a row with the texts of its first columns; answers its place, which in a sorted list is where it
    /// belongs.
    virtual int add(std::span<const automation::Text> cells) = 0;
    int add(automation::TextView text) {
        const automation::Text cell(text);
        return add(std::span(&cell, 1));
    }
    virtual automation::Text text(int row, int column) const = 0;
    /// Answers the row's place: in a sorted list it moves where the new text belongs.
    virtual int text(int row, int column, automation::TextView text) = 0;
    virtual int selected() const = 0;  ///< -1: none
    virtual void select(int row) = 0;  ///< and brings it into sight; -1: none

    virtual int columns() const = 0;
    virtual automation::Text heading(int column) const = 0;
    virtual void heading(int column, automation::TextView text) = 0;
    virtual int width(int column) const = 0;  // twips
    virtual void width(int column, int twips) = 0;
    virtual void header_item(int column, const HeaderItem& item) = 0;  ///< HDM_SETITEM

    /// The sort of the list: by the text of a column, as the user's language orders words, without regard to
    /// case; `order` 0 rises, 1 falls. A sorted list keeps its order when rows come and when they change.
    virtual int sort_order() const = 0;
    virtual void sort_order(int order) = 0;
    virtual void sort_key(int column) = 0;
    virtual void sorted(bool sorted) = 0;

    /// Sorts once by a comparison of two rows, told by their parameters (LVM_SORTITEMS).
    virtual void sort_rows(const std::function<int(std::intptr_t first, std::intptr_t second)>& compare) = 0;
    /// The row of a parameter (LVM_FINDITEM), or -1.
    virtual int find(std::intptr_t parameter) const = 0;

    virtual void extended_style(std::uint32_t mask, std::uint32_t value) = 0;
    virtual Hit hit(int x, int y) const = 0;   ///< pixels in the list
    virtual void takes_drops(bool takes) = 0;  ///< whether what is dragged may be dropped on it
};

/// A window's outer size in twips.
struct Size {
    int width = 0, height = 0;
};

/// A window. It ends with its owner.
class View {
  public:
    virtual ~View() = default;

    /// A name that the table hasn't is a mistake: `std::logic_error`. See `ControlName`.
    virtual Control& control(automation::TextView name) = 0;
    virtual automation::Text caption() const = 0;
    virtual void caption(automation::TextView text) = 0;

    virtual bool visible() const = 0;
    virtual void show() = 0;        ///< and brings it to the front, active or not; comes back at once
    virtual void show_modal() = 0;  ///< comes back when the window is hidden or gone; the host's windows wait
    virtual void hide() = 0;
    virtual void topmost() = 0;  ///< SetWindowPos with HWND_TOPMOST, no move, no size
    virtual Size size() const = 0;
    virtual bool minimized() const = 0;
    virtual int dots_per_inch() const = 0;
    virtual std::intptr_t system_handle() const = 0;  ///< as the platform names the window
    virtual void pointer(Pointer pointer) = 0;        ///< the mouse pointer over the window
};

/// What a window does at its events. The owner of the window overrides what it takes part in. Whatever is
/// thrown ends at the engine. What the logic itself does to its window raises no event of a control.
class Events {
  public:
    virtual ~Events() = default;

    virtual void on_activate() {}
    virtual void on_focus() {}  ///< the window itself got the focus, since none of its controls had it
    virtual void on_resize() {}
    virtual void on_character(char16_t) {}  ///< a key press anywhere in the window, by what it writes
    virtual void on_close() {}  ///< the close box, or the system's menu; the window stays unless it is ended
    /// Button, check box, link; an option that becomes the selected one; a choice of an entry, the same one
    /// again too.
    virtual void on_click(automation::TextView) {}
    virtual void on_double_click(automation::TextView) {}         ///< a list, on a row or beside the rows
    virtual void on_change(automation::TextView) {}               ///< what is typed into a text box
    virtual void on_key_press(automation::TextView, char16_t) {}  ///< a character comes to a text box
    virtual void on_column_click(automation::TextView, int /*column*/) {}  ///< from 0
    virtual void on_drop(automation::TextView, int /*x*/, int /*y*/) {}    ///< pixels in the list
};

class Engine {
  public:
    virtual ~Engine() = default;

    /// Makes a window, hidden. Its events go to `events` as long as that is there; an event keeps it alive
    /// while it runs, so a handler may end its own window.
    virtual std::unique_ptr<View> make(const FormTable& table, std::weak_ptr<Events> events) = 0;
};

}  // namespace forms
