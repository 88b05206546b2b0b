// The dialog's controls.
#pragma once

#include "forms/control_name.h"
#include "forms/pictures.h"

namespace addin::createnote {

namespace dialog {

using forms::Column;
using forms::ControlKind;
using forms::ControlRow;

inline constexpr Column columns[] = {
    {u"Name", 4586}, {u"Company Name", 2540}, {u"Business Phone", 2540}, {u"Address", 2540},
    {u"City", 2540}, {u"State", 2540},        {u"ENTRYID", 2540},        {u"", 2540}};

/// Two lines of it fit where the usual font would take three.
inline constexpr forms::Font small_print{.points = 6.75};

// The order is the tab order: the search text is the first.
inline constexpr ControlRow controls[] = {
    {.kind = ControlKind::text_box,
     .name = u"SearchString",
     .text = u"Please select a folder to search (Create Note for: drop down on the right).",
     .place = {960, 2445, 6735, 375},
     .tool_tip = u"Type in the account name or contact name to search.",
     .enabled = false,
     .accessible_name = u"Search text"},
    {.kind = ControlKind::button,
     .name = u"cmdSearch",
     .text = u"Search",
     .place = {120, 2445, 735, 375},
     .tool_tip = u"Type a name and click Search to add to the list"},
    {.kind = ControlKind::label,
     .name = u"lblHeader",
     .text = u"Highlight an entry in the list below.  Then press Create.",
     .place = {600, 240, 7005, 375}},
    {.kind = ControlKind::report_list,
     .name = u"lstRecipients",
     .place = {120, 720, 7575, 1635},
     .tool_tip = u"Double Click or Click on a contact and then Click Create to add the note.",
     .columns = columns,
     .image_list = u"ImageList1",
     .accessible_name = u"Addresses and records"},
    {.kind = ControlKind::label,
     .name = u"Label2",
     .text = u"To create a note, click the Create button after highlighting an item in the list.",
     .place = {7935, 720, 2940, 480},
     .font = &small_print},
    {.kind = ControlKind::check_box,
     .name = u"Check1",
     .text = u"Leave form open after create.",
     .place = {8070, 1275, 2895, 225},
     .tool_tip = u"Check this box to leave it open so you can create another note."},
    {.kind = ControlKind::button,
     .name = u"cmdSend",
     .text = u"Create",
     .place = {8040, 1620, 1095, 375},
     .tool_tip = u"Click here to create the note for the selected item."},
    {.kind = ControlKind::button, .name = u"cmdCancel", .text = u"Close", .place = {9300, 1620, 1095, 375}},
    {.kind = ControlKind::label,
     .name = u"Label6",
     .text = u"Create note for:",
     .place = {8040, 2280, 2775, 255}},
    {.kind = ControlKind::drop_down_list, .name = u"Combo2", .place = {8040, 2640, 2775, 315}},
    {.kind = ControlKind::label, .name = u"Label5", .text = u"Type:", .place = {120, 2880, 690, 255}},
    {.kind = ControlKind::combo_box,
     .name = u"Combo1",
     .text = u"E-Mail (Received)",
     .place = {960, 2760, 6735, 315},
     .tool_tip = u"Select the note type."},
    {.kind = ControlKind::label,
     .name = u"Label4",
     .text = u"Note Subject:",
     .place = {120, 3420, 1290, 255}},
    {.kind = ControlKind::text_box,
     .name = u"txtNote",
     .place = {1560, 3330, 9315, 345},
     .tool_tip = u"Please enter a subject for your note.  Default text has been supplied."},
    {.kind = ControlKind::frame,
     .name = u"Frame1",
     .text = u"Note Type to Create",
     .place = {4800, 3720, 2835, 975}},
    {.kind = ControlKind::option_button,
     .name = u"Option2",
     .text = u"Account Contact",
     .place = {240, 320, 2175, 255},
     .tool_tip = u"Select either to create the note at the contact level or the account level.",
     .selected = true,
     .frame = u"Frame1"},
    {.kind = ControlKind::option_button,
     .name = u"Option1",
     .text = u"Account Profile",
     .place = {240, 600, 1575, 255},
     .frame = u"Frame1"},
    {.kind = ControlKind::label,
     .name = u"Label1",
     .text =
         u"To Search: Enter a Contact/Account name and click the Search button or press enter to populate "
         u"the list.",
     .place = {90, 4080, 3375, 615}},
    {.kind = ControlKind::label, .name = u"Label3", .text = u"Ver", .place = {8040, 4290, 2835, 255}},
    {.kind = ControlKind::text_box,
     .name = u"Text1",
     .text = u"Text1",
     .place = {3600, 4170, 375, 375},
     .visible = false},
    {.kind = ControlKind::text_box,
     .name = u"Text2",
     .text = u"Text2",
     .place = {4080, 4170, 375, 375},
     .visible = false},
    {.kind = ControlKind::line, .name = u"Line1", .place = {7815, 735, 0, 2460}},
    {.kind = ControlKind::line, .name = u"Line3", .place = {90, 3225, 10830, 15}},
    {.kind = ControlKind::image,
     .name = u"imgList",
     .place = {60, 60, 480, 450},
     .picture = &forms::pick_from_list},
    {.kind = ControlKind::image_list, .name = u"ImageList1", .pictures = forms::sort_marks},
};

inline constexpr forms::FormTable table{.name = u"dlgSend",
                                        .caption = u"Tarnwell Create Note",
                                        .width = 11010,
                                        .height = 4770,
                                        .first_focus = u"SearchString",
                                        .controls = controls};

static_assert(forms::is_sound(table));

}  // namespace dialog

inline constexpr const forms::FormTable& dialog_table() { return dialog::table; }

}  // namespace addin::createnote
