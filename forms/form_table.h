// A window as data: its controls with their places, texts and tips. One engine makes real windows out of it.
#pragma once

#include <cstdint>
#include <span>

#include "automation/text.h"

namespace forms {

/// All measures of windows are in twips: 1440 to the inch, 15 to a pixel at 96 dots per inch.
inline constexpr int twips_per_inch = 1440;

/// A length in pixels at a resolution, rounded to the nearest.
constexpr int to_pixels(int twips, int dots_per_inch) {
    const int scaled = twips * dots_per_inch;
    constexpr int half = twips_per_inch / 2;
    return (scaled + (scaled < 0 ? -half : half)) / twips_per_inch;
}
constexpr int to_twips(int pixels, int dots_per_inch) { return pixels * twips_per_inch / dots_per_inch; }

struct Place {
    int left = 0, top = 0, width = 0, height = 0;  // twips; of a line: its box
};

struct Font {
    automation::TextView face = u"MS Sans Serif";
    double points = 8.25;
    bool underlined = false;
    bool bold = false;
};

/// Red, green and blue, each from 0 to 255.
struct Color {
    std::uint8_t red = 0, green = 0, blue = 0;
    friend bool operator==(const Color&, const Color&) = default;
};
inline constexpr Color black{0, 0, 0}, dark_blue{0, 0, 128};

/// A picture is drawn, so that it is sharp at every resolution: filled polygons on a grid.
struct Point {
    std::int16_t x, y;
};
struct Shape {
    Color fill;
    std::span<const Point> corners;
};
struct Picture {
    int grid = 16;  ///< the picture is this many units wide and high
    std::span<const Shape> shapes;
};

struct Column {
    automation::TextView heading;
    int width = 0;  // twips
};

enum class ControlKind {
    label,
    link,            ///< a label that can be clicked, with mouse or keyboard
    button,          ///< with a caption
    picture_button,  ///< with a picture
    text_box,
    combo_box,       ///< with free text
    drop_down_list,  ///< only its entries can be chosen
    check_box,
    option_button,  ///< one of those in the same frame is selected
    frame,
    line,
    image,
    image_list,  ///< no window of its own: the marks of a list's headings
    report_list
};

/// One control. The table's order is the tab order, and a control in a frame follows its frame.
struct ControlRow {
    ControlKind kind;
    automation::TextView name;
    automation::TextView text{};  ///< caption, or the text at the start
    Place place{};                ///< inside the frame, if it is in one
    automation::TextView tool_tip{};
    bool visible = true;
    bool enabled = true;
    bool selected = false;                            ///< a check box or option button at the start
    automation::TextView frame{};                     ///< the name of the frame that it stands in
    const Font* font = nullptr;                       ///< null: the window's
    Color color = black;                              ///< of the text
    const Picture* picture = nullptr;                 ///< of an image or picture button
    std::span<const Column> columns{};                ///< of a report list
    std::span<const automation::TextView> entries{};  ///< of a combo box, at the start
    std::span<const Picture* const> pictures{};       ///< of an image list, from 0
    automation::TextView image_list{};                ///< of a report list: the list of its headings' marks
    automation::TextView
        accessible_name{};  ///< for readers of the screen, where the text beside it doesn't tell
};

struct FormTable {
    automation::TextView name;
    automation::TextView caption;
    int width = 0, height = 0;  ///< of the client area, twips
    Font font{};
    bool sizable = false;
    bool can_minimize = false;
    bool tool_window = false;    ///< a small title bar and no button in the task bar
    bool takes_keyboard = true;  ///< becomes the active window by being shown, and not only by a click
    bool beside_host = false;    ///< comes up beside the host's window, and later where the user left it
    automation::TextView default_button{};  ///< pressed by Enter
    automation::TextView cancel_button{};   ///< pressed by Escape
    automation::TextView first_focus{};     ///< empty: the first control that takes the focus
    std::span<const ControlRow> controls{};
};

}  // namespace forms
