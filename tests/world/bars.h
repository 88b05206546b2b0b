// The command bars of the host's windows, told as text, so that a test compares them as a whole.
#pragma once

#include "tests/world/world.h"

namespace acceptance {

/// The add-in's own bar in the windows of items.
inline constexpr automation::TextView item_bar = u"TarnwellCreateNote";

/// All bars of a window with their controls, in their order. A bar is told as "Menu Bar, row -1, shown,
/// enabled"; each control that isn't the host's own as "  Caption [Tag] face 1978, style 3, OnAction, group,
/// shown" and what else it bears. The id of the window's item is told as "its id".
Lines bars_of(const automation::Object& window);

/// A bar of a window by its name, or Nothing.
automation::Object find_bar(const automation::Object& window, automation::TextView name);

/// The first control of a window's bar that bears a tag, or Nothing.
automation::Object find_control(const automation::Object& window, automation::TextView bar,
                                automation::TextView tag);

/// How many controls of a window's bar bear a tag.
std::int32_t count_controls(const automation::Object& window, automation::TextView bar,
                            automation::TextView tag);

/// Adds a button of a tag to a bar, hidden; one of the window's own, or one that stays.
automation::Object add_button(const automation::Object& bar, automation::TextView tag, bool temporary = true);

/// Several lists of lines, one after the other.
Lines joined(std::initializer_list<Lines> parts);

/// An item in a window of its own. The window is made with the item and shown by `show`; it is closed, and
/// what was changed dropped, with the test.
class OpenedItem {
  public:
    explicit OpenedItem(const host::outlook::Item& item)
        : item(item), window(item.get(u"GetInspector").to_object()) {}
    ~OpenedItem();
    OpenedItem(const OpenedItem&) = delete;
    OpenedItem& operator=(const OpenedItem&) = delete;

    OpenedItem& show() {
        item.call(u"Display");
        return *this;
    }
    void close();

    const host::outlook::Item item;
    const automation::Object window;
};

/// A new item of the host's own kinds (OlItemType), not saved.
namespace item_type {
inline constexpr std::int32_t mail = 0, appointment = 1, contact = 2, task = 3, journal = 4, note = 5,
                              post = 6;
}
host::outlook::Item new_item(World& world, std::int32_t type);

/// A new item of a class in one of the user's own folders, not saved.
host::outlook::Item new_item(World& world, std::int32_t default_folder, automation::TextView message_class);

/// A sticky note that bears an account's id.
host::outlook::Item new_sticky_note(World& world, automation::TextView account_id);

/// What the first explorer shows.
void show_folder(World& world, const host::outlook::Folder& folder);

}  // namespace acceptance
