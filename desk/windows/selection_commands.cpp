#include "desk/windows/selection_commands.h"

#include <algorithm>

#include "desk/base/desk.h"
#include "desk/windows/explorer_menu.h"

namespace desk {

namespace {

constexpr std::uint32_t failed_warning = 0x30;  // MB_ICONWARNING

bool is_any(const Item&) { return true; }
bool is_mail(const Item& item) { return item.kind().number == object_class::mail; }
bool is_read(const Item& item) { return is_mail(item) && !item.field(u"UnRead").to_boolean(); }
bool is_unread_mail(const Item& item) { return is_mail(item) && !is_read(item); }
bool has_come(const Item& item) { return is_mail(item) && item.field(u"Sent").to_boolean(); }

/// Makes the answer as any program would, and opens it.
template <const char16_t* member>
void answer(Item& item) {
    const automation::Object made = item.self().call(member).to_object();
    if (made) made.call(u"Display");
}
constexpr char16_t reply_member[] = u"Reply", reply_all_member[] = u"ReplyAll", forward_member[] = u"Forward";

/// Each command, the items that it can do something with, and whether there must be exactly one.
struct CommandRow {
    int command;
    bool (*fits)(const Item&);
    bool one_item;
    void (*action)(Item&);
};
constexpr CommandRow command_rows[] = {
    {open_command, is_any, false,
     [](Item& item) {
         mark_item(item, true);  // a mail that is opened has been read
         item.self().call(u"Display");
     }},
    {reply_command, has_come, true, answer<reply_member>},
    {reply_all_command, has_come, true, answer<reply_all_member>},
    {forward_command, has_come, true, answer<forward_member>},
    {mark_read_command, is_unread_mail, false, [](Item& item) { mark_item(item, true); }},
    {mark_unread_command, is_read, false, [](Item& item) { mark_item(item, false); }},
    {delete_command, is_any, false, [](Item& item) { item.remove(); }},
    {move_command, is_any, false, nullptr},  // the window asks for the folder first
};

const CommandRow* row_of(int command) {
    const auto* const found = std::ranges::find(command_rows, command, &CommandRow::command);
    return found == std::end(command_rows) ? nullptr : found;
}

std::vector<std::shared_ptr<Item>> selected_items(const Explorer& explorer) {
    std::vector<std::shared_ptr<Item>> items;
    for (const automation::Object& object : explorer.selected()) {
        const auto item = std::dynamic_pointer_cast<Item>(object.target());
        if (item && !item->is_gone()) items.push_back(item);
    }
    return items;
}

}  // namespace

void mark_item(Item& item, bool read) {
    if (item.kind().number != object_class::mail || item.field(u"UnRead").to_boolean() != read) return;
    item.mark_read(read);
    item.save();
}

bool can_run_on_selection(const Explorer& explorer, int command) {
    const CommandRow* const row = row_of(command);
    if (!row) return true;
    const auto items = selected_items(explorer);
    if (row->one_item && items.size() != 1) return false;
    return std::ranges::any_of(items, [&](const auto& item) { return row->fits(*item); });
}

void run_on_selection(const std::shared_ptr<Explorer>& explorer, int command) {
    const CommandRow* const row = row_of(command);
    if (!row || !row->action || !can_run_on_selection(*explorer, command)) return;
    for (const std::shared_ptr<Item>& item : selected_items(*explorer)) {
        if (item->is_gone() || !row->fits(*item)) continue;
        try {
            row->action(*item);
        } catch (const automation::Failure& failure) {
            explorer->desk().surroundings().ask(failure.description(), u"Outlook", failed_warning);
            return;
        }
    }
}

}  // namespace desk
