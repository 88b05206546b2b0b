#include "forms/sort_marks.h"

namespace forms {
namespace {

constexpr std::int32_t ascending = 0, descending = 1;
constexpr std::int32_t mark_down = 0, mark_up = 1;  // images of the list's image list

}  // namespace

void ShowHeaderIcon(List& list, std::int32_t colNo, std::int32_t imgIconNo, std::int32_t justify,
                    std::int32_t showImage) {
    HeaderItem item{.mask = header::format | header::image,
                    .format = justify | showImage | header::string,
                    .text = list.heading(colNo)};
    if (showImage != 0) item.image = imgIconNo;
    list.header_item(colNo, item);
}

void ClearHeaderIcons(List& list) {
    for (int column = 0; column < list.columns(); ++column) {
        list.header_item(column,
                         {.mask = header::format, .format = header::string, .text = list.heading(column)});
    }
}

void sort_by_column(List& list, std::int32_t column, std::int32_t& last_sort_column) {
    ClearHeaderIcons(list);
    const bool turns_down = column == last_sort_column && list.sort_order() == ascending;
    list.sort_order(turns_down ? descending : ascending);
    ShowHeaderIcon(list, column, turns_down ? mark_down : mark_up, header::image_on_right,
                   header::with_image);
    list.sort_key(column);
    list.sorted(true);
    last_sort_column = column;
}

}  // namespace forms
