// The window's controls.
#pragma once

#include "addin/records/names.h"
#include "forms/control_name.h"
#include "forms/pictures.h"

namespace addin::quickview {

/// What `cmbFolders` shows as long as nothing was chosen.
inline constexpr automation::TextView choose_folder = u"Choose Folder";

/// Entries of `cmbFolders` that are folders of the user's own.
inline constexpr automation::TextView my_calendar = u"My Calendar", my_tasks = u"My Tasks";

namespace window {

using forms::Column;
using forms::ControlKind;
using forms::ControlRow;

inline constexpr Column columns[] = {{u"Subject", 5027}, {u"Modified Date", 2540}, {u"EntryID", 0}};

inline constexpr automation::TextView folders[] = {records::folder::notes, records::folder::opportunities,
                                                   my_calendar, my_tasks};

inline constexpr forms::Font small_print{.face = u"Tahoma", .points = 6.75};
inline constexpr forms::Font underlined{.face = u"Tahoma", .points = 6.75, .underlined = true};

/// A label that no one sees: it keeps a value of what is shown.
constexpr ControlRow hidden(automation::TextView name) {
    return {.kind = ControlKind::label, .name = name, .visible = false};
}

// The order is the tab order.
inline constexpr ControlRow controls[] = {
    {.kind = ControlKind::link,
     .name = u"Contactname",
     .text = u"Contact Name",
     .place = {120, 120, 2900, 255},
     .font = &underlined},
    {.kind = ControlKind::link,
     .name = u"CompanyName",
     .text = u"Company Name",
     .place = {120, 360, 2900, 255},
     .font = &underlined},
    {.kind = ControlKind::label, .name = u"Phone", .text = u"Phone", .place = {120, 600, 2900, 255}},
    {.kind = ControlKind::label, .name = u"Fax", .text = u"Fax", .place = {120, 840, 2900, 255}},
    {.kind = ControlKind::label, .name = u"Street1", .text = u"Street1", .place = {120, 1080, 2865, 375}},
    {.kind = ControlKind::label, .name = u"City", .text = u"City", .place = {120, 1440, 1095, 375}},
    {.kind = ControlKind::label, .name = u"State", .text = u"State", .place = {1320, 1440, 855, 375}},
    {.kind = ControlKind::label, .name = u"Zip", .text = u"Zip", .place = {2280, 1440, 735, 375}},
    {.kind = ControlKind::picture_button,
     .name = u"cmdAdd",
     .place = {120, 1920, 315, 315},
     .tool_tip = u"Click here to add a new item",
     .picture = &forms::new_item,
     .accessible_name = u"Add a new item"},
    {.kind = ControlKind::combo_box,
     .name = u"cmbFolders",
     .text = choose_folder,
     .place = {480, 1920, 2295, 285},
     .tool_tip = u"Choose a folder to view",
     .entries = folders,
     .accessible_name = u"Folder"},
    {.kind = ControlKind::picture_button,
     .name = u"cmdSearchpanel",
     .place = {2760, 1920, 315, 315},
     .tool_tip = u"Click here to see all related items of this contact.",
     .picture = &forms::all_related,
     .accessible_name = u"All related items"},
    {.kind = ControlKind::report_list,
     .name = u"lstItems",
     .place = {0, 2280, 3135, 2535},
     .columns = columns,
     .accessible_name = u"Related items"},
    hidden(u"StoreID"),
    hidden(u"MessageClass"),
    hidden(u"EntryID"),
    hidden(u"Alignment"),
    hidden(u"Team"),
    hidden(u"AccountManager"),
    hidden(u"EmailID"),
    hidden(u"AccountID"),
    hidden(u"ContactID"),
};

inline constexpr forms::FormTable table{.name = u"QuickView",
                                        .caption = u"TW Quick View",
                                        .width = 3150,
                                        .height = 4845,
                                        .font = small_print,
                                        .tool_window = true,
                                        .takes_keyboard = false,
                                        .beside_host = true,
                                        .first_focus = u"cmbFolders",
                                        .controls = controls};

static_assert(forms::is_sound(table));

}  // namespace window

inline constexpr const forms::FormTable& quick_view_table() { return window::table; }

}  // namespace addin::quickview
