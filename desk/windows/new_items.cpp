#include "desk/windows/new_items.h"

#include <iterator>

#include "desk/base/desk.h"
#include "desk/outlook/folder.h"
#include "desk/outlook/item_kinds.h"

namespace desk {
namespace {

constexpr int first_command = 910;  // the bars' commands begin at 1000

/// What can be made anew; the one without a class is of the folder that is shown, in it.
struct NewItem {
    const wchar_t* entry;
    automation::TextView message_class;
};
constexpr NewItem new_items[] = {{L"&Item in This Folder", u""},
                                 {L"&Mail", u"IPM.Note"},
                                 {L"&Contact", u"IPM.Contact"},
                                 {L"&Appointment", u"IPM.Appointment"},
                                 {L"&Linked Appointment", u"IPM.Appointment.TarnwellAppt"},
                                 {L"&Task", u"IPM.Task"},
                                 {L"Linked Tas&k", u"IPM.Task.TarnwellTask"}};

}  // namespace

HMENU make_new_menu() {
    const HMENU menu = CreatePopupMenu();
    UINT_PTR command = first_command;
    for (const NewItem& item : new_items) AppendMenuW(menu, MF_STRING, command++, item.entry);
    return menu;
}

bool make_new_item(Desk& desk, int command, RowId shown_folder) {
    const int place = command - first_command;
    if (place < 0 || place >= static_cast<int>(std::size(new_items))) return false;
    const automation::TextView message_class = new_items[place].message_class;
    const RowId folder =
        message_class.empty() ? shown_folder : desk.default_folder(kind_of(message_class).default_folder);
    if (!desk.folder_row(folder)) return true;
    const automation::Object items = std::make_shared<Folder>(desk, folder)->self().get(u"Items").to_object();
    items.call(u"Add", {automation::Value(message_class)}).to_object().call(u"Display");
    return true;
}

}  // namespace desk
