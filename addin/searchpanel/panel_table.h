// The panel's controls.
#pragma once

#include "forms/control_name.h"
#include "forms/pictures.h"

namespace addin::searchpanel {

namespace panel {

using forms::Column;
using forms::ControlKind;
using forms::ControlRow;

inline constexpr Column columns[] = {{u"Folder", 2206},  {u"Subject", 6174},  {u"Created By", 2117},
                                     {u"Created", 1765}, {u"Modified", 1765}, {u"", 0},
                                     {u"EntryID", 0}};

inline constexpr forms::Font link_font{.face = u"Tahoma", .underlined = true};

// The order is the tab order, and what stands earlier lies above: the list reaches into the address.
inline constexpr ControlRow controls[] = {
    {.kind = ControlKind::link,
     .name = u"Contactname",
     .text = u"Contact Name",
     .place = {120, 120, 2895, 255},
     .font = &link_font},
    {.kind = ControlKind::link,
     .name = u"CompanyName",
     .text = u"Company Name",
     .place = {120, 360, 2895, 255},
     .font = &link_font},
    {.kind = ControlKind::label, .name = u"Label1", .text = u"Search", .place = {3360, 0, 615, 255}},
    {.kind = ControlKind::combo_box,
     .name = u"SearchMe",
     .text = u"SearchMe",
     .place = {3360, 240, 3495, 315},
     .accessible_name = u"Search"},
    {.kind = ControlKind::report_list,
     .name = u"lstItems",
     .place = {0, 1920, 7335, 5955},
     .tool_tip = u"Double click on an item to open it.",
     .columns = columns,
     .image_list = u"ImageList1",
     .accessible_name = u"Results"},
    {.kind = ControlKind::label, .name = u"Phone", .text = u"Phone", .place = {120, 600, 2895, 255}},
    {.kind = ControlKind::label, .name = u"Fax", .text = u"Fax", .place = {120, 840, 2895, 255}},
    {.kind = ControlKind::label, .name = u"Street1", .text = u"Street1", .place = {120, 1080, 2865, 375}},
    {.kind = ControlKind::label, .name = u"City", .text = u"City", .place = {120, 1440, 1095, 375}},
    {.kind = ControlKind::label, .name = u"State", .text = u"State", .place = {1320, 1440, 855, 375}},
    {.kind = ControlKind::label, .name = u"Zip", .text = u"Zip", .place = {2280, 1440, 735, 375}},
    {.kind = ControlKind::label,
     .name = u"StoreID",
     .place = {3360, 720, 3495, 615},
     .color = forms::dark_blue},
    {.kind = ControlKind::label, .name = u"EntryID", .place = {3600, 1440, 2895, 255}},
    {.kind = ControlKind::label,
     .name = u"AccountID",
     .text = u"AccountID",
     .place = {6840, 720, 2895, 255},
     .visible = false},
    {.kind = ControlKind::label,
     .name = u"ContactID",
     .text = u"ContactID",
     .place = {6840, 960, 2895, 255},
     .visible = false},
    {.kind = ControlKind::label,
     .name = u"KeyField",
     .text = u"KeyField",
     .place = {6840, 1200, 2895, 255},
     .visible = false},
    {.kind = ControlKind::image_list, .name = u"ImageList1", .pictures = forms::sort_marks},
};

inline constexpr forms::FormTable table{.name = u"ShowItems",
                                        .caption = u"Tarnwell Search Panel",
                                        .width = 7335,
                                        .height = 8070,
                                        .sizable = true,
                                        .can_minimize = true,
                                        .first_focus = u"SearchMe",
                                        .controls = controls};

static_assert(forms::is_sound(table));

}  // namespace panel

inline constexpr const forms::FormTable& panel_table() { return panel::table; }

}  // namespace addin::searchpanel
