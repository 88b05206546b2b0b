// The sort of a list by a click on a heading, with its mark. All lists of a session share what their last
// sorted column was.
#pragma once

#include "forms/view.h"

namespace forms {

/// Sets a heading's text again and shows an image beside it, if `showImage` isn't 0: `justify` and
/// `showImage` are formats of the header item.
void ShowHeaderIcon(List& list, std::int32_t colNo, std::int32_t imgIconNo, std::int32_t justify,
                    std::int32_t showImage);

/// Resets the headings to plain text.
void ClearHeaderIcons(List& list);

/// A click on a heading, from 0: the column of the last sort turns its order over, another one sorts upwards.
void sort_by_column(List& list, std::int32_t column, std::int32_t& last_sort_column);

}  // namespace forms
