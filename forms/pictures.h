// The drawings on our windows.
#pragma once

#include "forms/form_table.h"

namespace forms {

inline constexpr Color silver{192, 192, 192}, white{255, 255, 255}, steel{70, 110, 160}, gold{210, 160, 40};

namespace drawing {
inline constexpr Point handle[] = {{18, 21}, {21, 18}, {30, 27}, {30, 30}, {27, 30}};
inline constexpr Point ring[] = {{8, 2}, {16, 2}, {22, 8}, {22, 16}, {16, 22}, {8, 22}, {2, 16}, {2, 8}};
inline constexpr Point glass[] = {{9, 5}, {15, 5}, {19, 9}, {19, 15}, {15, 19}, {9, 19}, {5, 15}, {5, 9}};
inline constexpr Shape magnifier_shapes[] = {{gold, handle}, {steel, ring}, {white, glass}};

inline constexpr Point sheet[] = {{2, 1}, {14, 1}, {14, 15}, {2, 15}};
inline constexpr Point paper[] = {{3, 2}, {13, 2}, {13, 14}, {3, 14}};
inline constexpr Point first_line[] = {{5, 4}, {11, 4}, {11, 5}, {5, 5}};
inline constexpr Point marked_line[] = {{4, 6}, {12, 6}, {12, 9}, {4, 9}};
inline constexpr Point last_line[] = {{5, 11}, {11, 11}, {11, 12}, {5, 12}};
inline constexpr Shape pick_shapes[] = {
    {steel, sheet}, {white, paper}, {steel, first_line}, {gold, marked_line}, {steel, last_line}};

inline constexpr Point page[] = {{1, 1}, {9, 1}, {9, 7}, {6, 10}, {6, 15}, {1, 15}};
inline constexpr Point page_paper[] = {{2, 2}, {8, 2}, {8, 7}, {5, 10}, {5, 14}, {2, 14}};
inline constexpr Point plus_across[] = {{7, 9}, {15, 9}, {15, 12}, {7, 12}};
inline constexpr Point plus_down[] = {{10, 6}, {13, 6}, {13, 15}, {10, 15}};
inline constexpr Shape new_item_shapes[] = {
    {steel, page}, {white, page_paper}, {gold, plus_across}, {gold, plus_down}};

inline constexpr Point small_handle[] = {{9, 11}, {11, 9}, {15, 13}, {15, 15}, {13, 15}};
inline constexpr Point small_ring[] = {{5, 3}, {9, 3}, {12, 6}, {12, 9}, {9, 12}, {5, 12}, {2, 9}, {2, 6}};
inline constexpr Point small_glass[] = {{6, 5}, {8, 5}, {10, 7}, {10, 8}, {8, 10}, {6, 10}, {4, 8}, {4, 7}};
inline constexpr Point upper_line[] = {{0, 0}, {15, 0}, {15, 1}, {0, 1}};
inline constexpr Shape all_related_shapes[] = {
    {steel, upper_line}, {gold, small_handle}, {steel, small_ring}, {white, small_glass}};

inline constexpr Point falling[] = {{2, 4}, {10, 4}, {6, 9}};
inline constexpr Point rising[] = {{2, 9}, {10, 9}, {6, 4}};
inline constexpr Color shade{96, 96, 96};
inline constexpr Shape falling_shapes[] = {{shade, falling}};
inline constexpr Shape rising_shapes[] = {{shade, rising}};
}  // namespace drawing

inline constexpr Picture magnifier{32, drawing::magnifier_shapes};
inline constexpr Picture pick_from_list{16, drawing::pick_shapes};
inline constexpr Picture new_item{16, drawing::new_item_shapes};
inline constexpr Picture all_related{16, drawing::all_related_shapes};

/// The marks of sorted columns: image 0 points down, image 1 up.
inline constexpr Picture points_down{13, drawing::falling_shapes}, points_up{13, drawing::rising_shapes};
inline constexpr const Picture* sort_marks[] = {&points_down, &points_up};

}  // namespace forms
