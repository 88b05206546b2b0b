#include "addin/commands/small_windows.h"

#include "addin/ground/product.h"
#include "addin/ground/steps.h"
#include "addin/host/family.h"
#include "forms/control_name.h"
#include "forms/pictures.h"

namespace addin::commands {

using forms::ControlKind;
using forms::ControlRow;
using forms::FormTable;

namespace {

constexpr automation::TextView select_tip = u"Click here to select an item.";

constexpr ControlRow tarnwell_controls[] = {
    {.kind = ControlKind::picture_button,
     .name = u"Command1",
     .place = {120, 120, 495, 495},
     .tool_tip = select_tip,
     .picture = &forms::pick_from_list,
     .accessible_name = u"Select an item"},
    {.kind = ControlKind::picture_button,
     .name = u"Command2",
     .place = {720, 120, 495, 495},
     .tool_tip = select_tip,
     .picture = &forms::pick_from_list,
     .accessible_name = u"Select another item"},
    {.kind = ControlKind::label, .name = u"EntryID", .text = u"Entry ID", .place = {120, 735, 4215, 255}},
    {.kind = ControlKind::label,
     .name = u"ContactName",
     .text = u"Contact Name",
     .place = {120, 1050, 4215, 255}},
    {.kind = ControlKind::label,
     .name = u"AccountName",
     .text = u"Account Name",
     .place = {120, 1365, 4215, 255}},
};
constexpr FormTable tarnwell{.name = u"Tarnwell",
                             .caption = product_title,
                             .width = 4455,
                             .height = 1740,
                             .controls = tarnwell_controls};

constexpr ControlRow tarnwell_info_controls[] = {
    {.kind = ControlKind::label, .name = u"Label2", .text = u"Search", .place = {120, 165, 1695, 255}},
    {.kind = ControlKind::combo_box, .name = u"Combo1", .text = u"Combo1", .place = {1920, 120, 3015, 315}},
    {.kind = ControlKind::button, .name = u"Command1", .text = u"Command1", .place = {5040, 90, 1095, 375}},
    {.kind = ControlKind::label, .name = u"Label1", .text = u"Account Name", .place = {120, 615, 1695, 255}},
    {.kind = ControlKind::label, .name = u"Label6", .text = u"Account Name", .place = {1920, 615, 4215, 255}},
    {.kind = ControlKind::label, .name = u"Label3", .text = u"Contact Name", .place = {120, 960, 1695, 255}},
    {.kind = ControlKind::label, .name = u"Label7", .text = u"Contact Name", .place = {1920, 960, 4215, 255}},
    {.kind = ControlKind::label, .name = u"Label4", .text = u"Opportunity", .place = {120, 1305, 1695, 255}},
    {.kind = ControlKind::label,
     .name = u"Label5",
     .text = u"Customer Inquiry",
     .place = {120, 1650, 1695, 255}},
};
constexpr FormTable tarnwell_info{.name = u"TarnwellInfo",
                                  .caption = u"Tarnwell Information",
                                  .width = 6255,
                                  .height = 2040,
                                  .controls = tarnwell_info_controls};

static_assert(forms::is_sound(tarnwell) && forms::is_sound(tarnwell_info));

}  // namespace

const FormTable& tarnwell_table() { return tarnwell; }
const FormTable& tarnwell_info_table() { return tarnwell_info; }

void Tarnwell::on_click(automation::TextView control) {
    if (forms::ControlName<tarnwell>(u"Command1") != control) return;
    const Steps steps(session_);
    host::family::ListPicker picker;
    steps.set(picker, [&] {
        return host::family::ListPicker(session_.desktop.create(host::family::prog_id::list_picker));
    });
    steps.run([&] { picker.loaddialog(); });
    steps.run([&] { picker.showdialog(); });
}

}  // namespace addin::commands
