#include "desk/windows/faces.h"

#include "forms/pictures.h"

namespace desk {
namespace {

using forms::Color;
using forms::Picture;
using forms::Point;
using forms::Shape;

constexpr Color green{40, 130, 70}, red{180, 50, 40}, paper_white{255, 255, 255};

constexpr Point sheet[] = {{2, 1}, {14, 1}, {14, 15}, {2, 15}};
constexpr Point inside[] = {{3, 2}, {13, 2}, {13, 14}, {3, 14}};
constexpr Point top_band[] = {{2, 1}, {14, 1}, {14, 5}, {2, 5}};
constexpr Point line_1[] = {{5, 5}, {11, 5}, {11, 6}, {5, 6}};
constexpr Point line_2[] = {{5, 8}, {11, 8}, {11, 9}, {5, 9}};
constexpr Point line_3[] = {{5, 11}, {9, 11}, {9, 12}, {5, 12}};
constexpr Point day_1[] = {{5, 7}, {8, 7}, {8, 9}, {5, 9}};
constexpr Point day_2[] = {{9, 10}, {12, 10}, {12, 12}, {9, 12}};
constexpr Point envelope[] = {{1, 3}, {15, 3}, {15, 13}, {1, 13}};
constexpr Point envelope_inside[] = {{2, 4}, {14, 4}, {14, 12}, {2, 12}};
constexpr Point flap[] = {{2, 4}, {14, 4}, {8, 9}};
constexpr Point head[] = {{6, 1}, {10, 1}, {11, 4}, {10, 7}, {6, 7}, {5, 4}};
constexpr Point shoulders[] = {{5, 8}, {11, 8}, {14, 11}, {14, 15}, {2, 15}, {2, 11}};
constexpr Point rule_across[] = {{3, 7}, {13, 7}, {13, 8}, {3, 8}};
constexpr Point rule_down[] = {{7, 2}, {8, 2}, {8, 14}, {7, 14}};
constexpr Point disk[] = {{1, 1}, {13, 1}, {15, 3}, {15, 15}, {1, 15}};
constexpr Point disk_label[] = {{4, 8}, {12, 8}, {12, 15}, {4, 15}};
constexpr Point disk_slide[] = {{5, 1}, {11, 1}, {11, 5}, {5, 5}};
constexpr Point cross_1[] = {{3, 1}, {15, 13}, {13, 15}, {1, 3}};
constexpr Point cross_2[] = {{13, 1}, {15, 3}, {3, 15}, {1, 13}};
constexpr Point arrow_left[] = {{1, 8},   {7, 2},   {7, 6},  {15, 6}, {15, 13},
                                {12, 13}, {12, 10}, {7, 10}, {7, 14}};
constexpr Point arrow_right[] = {{15, 8}, {9, 2},  {9, 6},  {1, 6}, {1, 13},
                                 {4, 13}, {4, 10}, {9, 10}, {9, 14}};
constexpr Point arrow_behind[] = {{1, 8}, {7, 2}, {7, 4}, {3, 8}, {7, 12}, {7, 14}};
constexpr Point arrow_before[] = {{4, 8},   {10, 2},  {10, 6},  {15, 6}, {15, 13},
                                  {13, 13}, {13, 10}, {10, 10}, {10, 14}};
constexpr Point plane[] = {{1, 7}, {15, 1}, {9, 15}, {7, 9}};

constexpr Shape note_shapes[] = {{forms::gold, sheet},
                                 {paper_white, inside},
                                 {forms::steel, line_1},
                                 {forms::steel, line_2},
                                 {forms::steel, line_3}};
constexpr Shape calendar_shapes[] = {{forms::steel, sheet},
                                     {paper_white, inside},
                                     {red, top_band},
                                     {forms::steel, day_1},
                                     {forms::gold, day_2}};
constexpr Shape mail_shapes[] = {
    {forms::steel, envelope}, {paper_white, envelope_inside}, {forms::gold, flap}};
constexpr Shape person_shapes[] = {{forms::gold, head}, {forms::steel, shoulders}};
constexpr Shape document_shapes[] = {{forms::steel, sheet},
                                     {paper_white, inside},
                                     {forms::steel, line_1},
                                     {forms::steel, line_2},
                                     {forms::steel, line_3}};
constexpr Shape table_shapes[] = {
    {green, sheet}, {paper_white, inside}, {green, rule_across}, {green, rule_down}};
constexpr Shape save_shapes[] = {
    {forms::steel, disk}, {paper_white, disk_label}, {forms::silver, disk_slide}};
constexpr Shape delete_shapes[] = {{red, cross_1}, {red, cross_2}};
constexpr Shape send_shapes[] = {{forms::steel, plane}};
constexpr Shape reply_shapes[] = {{forms::steel, arrow_left}};
constexpr Shape reply_all_shapes[] = {{forms::gold, arrow_behind}, {forms::steel, arrow_before}};
constexpr Shape forward_shapes[] = {{green, arrow_right}};
constexpr Shape plain_shapes[] = {{forms::steel, sheet}, {forms::silver, inside}};

constexpr int grid = 16;
constexpr Picture note{grid, note_shapes}, calendar{grid, calendar_shapes}, mail{grid, mail_shapes},
    person{grid, person_shapes}, document{grid, document_shapes}, spread_sheet{grid, table_shapes},
    save{grid, save_shapes}, remove{grid, delete_shapes}, send{grid, send_shapes}, reply{grid, reply_shapes},
    reply_all{grid, reply_all_shapes}, forward{grid, forward_shapes}, plain{grid, plain_shapes};

struct FaceRow {
    std::int32_t face_id;
    const Picture* picture;
};
/// The first is for all numbers that aren't here.
constexpr FaceRow face_rows[] = {{0, &plain},       {583, &calendar}, {2041, &note},        {1993, &person},
                                 {1978, &mail},     {567, &document}, {566, &spread_sheet}, {2617, &send},
                                 {1975, &save},     {3, &save},       {478, &remove},       {354, &reply},
                                 {355, &reply_all}, {356, &forward}};

int pixels_for(int at_96) {
    const windows::ScreenContext screen;
    return MulDiv(at_96, GetDeviceCaps(screen.get(), LOGPIXELSX), USER_DEFAULT_SCREEN_DPI);
}

windows::ImageListHandle make_images(int pixels) {
    std::vector<const Picture*> pictures;
    for (const FaceRow& row : face_rows) pictures.push_back(row.picture);
    return windows::make_image_list(pictures, pixels, false);
}

}  // namespace

Faces::Faces() : size_(pixels_for(grid)), images_(make_images(size_)) {
    for (int place = 0; const FaceRow& row : face_rows) places_[row.face_id] = place++;
}

int Faces::image(std::int32_t face_id) const {
    const auto found = places_.find(face_id);
    return found == places_.end() ? 0 : found->second;
}

}  // namespace desk
