// What a window looks like, measured, and as a picture.
#pragma once

#include <string>
#include <vector>

#include "forms/form_table.h"
#include "forms/windows/common_controls.h"

namespace forms_test {

/// The visible controls whose text does not fit into their place.
std::vector<std::string> cut_texts(HWND window, const forms::FormTable& table);

/// The pairs of visible controls that share pixels; a frame may hold what stands in it.
std::vector<std::string> overlaps(HWND window, const forms::FormTable& table);

/// How many drawing objects the process holds.
DWORD drawing_objects();

/// Writes a picture of a window's client area into the folder that the environment variable
/// TARNWELL_PICTURES names, as NAME-DOTS.png. False if there is no such variable.
bool save_picture(HWND window, automation::TextView name, int dots_per_inch);

}  // namespace forms_test
