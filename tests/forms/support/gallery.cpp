#include "tests/forms/support/gallery.h"

namespace forms_test {

using automation::TextView;
using forms::Color;
using forms::Column;
using forms::ControlKind;
using forms::ControlRow;
using forms::Font;
using forms::FormTable;
using forms::Picture;
using forms::Point;
using forms::Shape;

namespace {

constexpr Column columns[] = {{u"Name", 2586}, {u"City", 1540}, {u"Key", 0}};
constexpr TextView entries[] = {u"Notes", u"Opportunities", u"My Calendar"};

constexpr Color blue{0, 0, 160}, green{0, 128, 0};
constexpr Point pointing_down[] = {{2, 4}, {11, 4}, {6, 9}}, pointing_up[] = {{2, 9}, {11, 9}, {6, 4}};
constexpr Point cross_bar[] = {{2, 6}, {14, 6}, {14, 10}, {2, 10}},
                post[] = {{6, 2}, {10, 2}, {10, 14}, {6, 14}};
constexpr Shape down_shape[] = {{blue, pointing_down}}, up_shape[] = {{blue, pointing_up}};
constexpr Shape plus_shapes[] = {{green, cross_bar}, {green, post}};
constexpr Picture down{13, down_shape}, up{13, up_shape}, plus{16, plus_shapes};
constexpr const Picture* marks[] = {&down, &up};
constexpr Font small{.face = u"Tahoma", .points = 6.75};

constexpr ControlRow gallery_rows[] = {
    {.kind = ControlKind::label, .name = u"label", .text = u"Words & more:", .place = {120, 120, 1500, 255}},
    {.kind = ControlKind::text_box,
     .name = u"words",
     .text = u"old",
     .place = {1680, 90, 3000, 315},
     .tool_tip = u"Type some words."},
    {.kind = ControlKind::button,
     .name = u"go",
     .text = u"Go",
     .place = {4800, 60, 1095, 375},
     .tool_tip = u"Click here to go."},
    {.kind = ControlKind::button, .name = u"stop", .text = u"Stop", .place = {6000, 60, 1095, 375}},
    {.kind = ControlKind::check_box,
     .name = u"check",
     .text = u"Leave it open",
     .place = {120, 540, 2400, 255}},
    {.kind = ControlKind::frame, .name = u"frame", .text = u"A frame", .place = {120, 900, 2835, 975}},
    {.kind = ControlKind::option_button,
     .name = u"left",
     .text = u"Account Contact",
     .place = {240, 300, 2175, 255},
     .selected = true,
     .frame = u"frame"},
    {.kind = ControlKind::option_button,
     .name = u"right",
     .text = u"Account Profile",
     .place = {240, 600, 2175, 255},
     .frame = u"frame"},
    {.kind = ControlKind::option_button,
     .name = u"alone",
     .text = u"Alone",
     .place = {3120, 900, 1575, 255},
     .selected = true},
    {.kind = ControlKind::label,
     .name = u"status",
     .text = u"Choose:",
     .place = {3120, 1290, 900, 255},
     .color = forms::dark_blue},
    {.kind = ControlKind::combo_box,
     .name = u"free",
     .text = u"Choose",
     .place = {4080, 1260, 2775, 315},
     .tool_tip = u"Choose or type.",
     .entries = entries},
    {.kind = ControlKind::drop_down_list,
     .name = u"strict",
     .place = {4080, 1650, 2775, 315},
     .entries = entries,
     .accessible_name = u"Strict choice"},
    {.kind = ControlKind::line, .name = u"rule", .place = {120, 2040, 6975, 15}},
    {.kind = ControlKind::link,
     .name = u"link",
     .text = u"Who is it",
     .place = {120, 2160, 1500, 255},
     .font = &small},
    {.kind = ControlKind::picture_button,
     .name = u"plus",
     .place = {1800, 2130, 315, 315},
     .tool_tip = u"Click here to add.",
     .picture = &plus,
     .accessible_name = u"Add"},
    {.kind = ControlKind::image, .name = u"image", .place = {2280, 2130, 315, 315}, .picture = &plus},
    {.kind = ControlKind::text_box,
     .name = u"hidden",
     .text = u"h",
     .place = {6000, 540, 375, 315},
     .visible = false},
    {.kind = ControlKind::button,
     .name = u"disabled",
     .text = u"Disabled",
     .place = {4800, 540, 1095, 315},
     .enabled = false},
    {.kind = ControlKind::image_list, .name = u"marks", .pictures = marks},
    {.kind = ControlKind::report_list,
     .name = u"list",
     .place = {120, 2550, 6975, 1800},
     .tool_tip = u"Double click on a row.",
     .columns = columns,
     .image_list = u"marks",
     .accessible_name = u"Found"},
};

constexpr ControlRow key_rows[] = {
    {.kind = ControlKind::button, .name = u"go", .text = u"Go", .place = {120, 120, 1095, 375}},
    {.kind = ControlKind::button, .name = u"stop", .text = u"Stop", .place = {1320, 120, 1095, 375}},
    {.kind = ControlKind::text_box, .name = u"words", .place = {120, 600, 2295, 315}},
    {.kind = ControlKind::report_list, .name = u"list", .place = {120, 1020, 2295, 1500}, .columns = columns},
};

}  // namespace

constexpr FormTable gallery{.name = u"Gallery",
                            .caption = gallery_caption,
                            .width = 7215,
                            .height = 4500,
                            .sizable = true,
                            .can_minimize = true,
                            .controls = gallery_rows};
constexpr FormTable with_keys{.name = u"WithKeys",
                              .caption = with_keys_caption,
                              .width = 2535,
                              .height = 2640,
                              .font = {.face = u"Tahoma", .points = 8.25},
                              .default_button = u"go",
                              .cancel_button = u"stop",
                              .first_focus = u"words",
                              .controls = key_rows};

namespace {

std::string named(const char* event, TextView name) { return event + (" " + automation::to_utf8(name)); }

}  // namespace

void Noted::note(const std::string& event) {
    told.push_back(event);
    if (at) at(event);
}

void Noted::on_close() {
    note("close");
    Form::on_close();
}

void Noted::on_click(TextView name) { note(named("click", name)); }
void Noted::on_double_click(TextView name) { note(named("double", name)); }
void Noted::on_change(TextView name) { note(named("change", name)); }

void Noted::on_key_press(TextView name, char16_t character) {
    note(named("press", name) + " " + std::to_string(character));
}

void Noted::on_column_click(TextView name, int column) {
    note(named("column", name) + " " + std::to_string(column));
}

void Noted::on_drop(TextView name, int x, int y) {
    note(named("drop", name) + " at row " + std::to_string(control(name).list().hit(x, y).row));
}

}  // namespace forms_test
