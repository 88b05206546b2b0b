#include "desk/windows/desk_icon.h"

#include "forms/pictures.h"
#include "forms/windows/drawing.h"

namespace desk {
namespace {

using forms::Point;
using forms::Shape;

// a letter that lies on a desk
constexpr forms::Color wood{150, 96, 48}, dark_wood{112, 70, 34};
constexpr Point desk_top[] = {{1, 20}, {31, 20}, {31, 24}, {1, 24}};
constexpr Point left_leg[] = {{4, 24}, {8, 24}, {8, 31}, {4, 31}};
constexpr Point right_leg[] = {{24, 24}, {28, 24}, {28, 31}, {24, 31}};
constexpr Point letter[] = {{5, 3}, {27, 3}, {27, 19}, {5, 19}};
constexpr Point letter_inside[] = {{6, 4}, {26, 4}, {26, 18}, {6, 18}};
constexpr Point letter_flap[] = {{6, 4}, {26, 4}, {16, 12}};
constexpr Shape desk_shapes[] = {{forms::steel, letter},     {forms::white, letter_inside},
                                 {forms::gold, letter_flap}, {wood, desk_top},
                                 {dark_wood, left_leg},      {dark_wood, right_leg}};
constexpr forms::Picture desk_picture{32, desk_shapes};

}  // namespace

HICON desk_icon(int measure) {
    const forms::Picture* const pictures[] = {&desk_picture};
    const windows::ImageListHandle images =
        windows::make_image_list(pictures, GetSystemMetrics(measure), false);
    return ImageList_GetIcon(images.get(), 0, ILD_TRANSPARENT);
}

}  // namespace desk
