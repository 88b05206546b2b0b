// The control of one field: a line of text, the system's control for dates, a box, a choice.
#pragma once

#include "desk/windows/item_form.h"
#include "forms/windows/common_controls.h"

namespace desk {

/// What a control of that look is made of.
struct ControlClass {
    const wchar_t* name;
    DWORD style, extended_style;
};
ControlClass control_class(FieldLook look, bool can_be_none);  ///< a date, that is

/// Sets up a fresh control.
void prepare_control(HWND control, const FormLine& line);

/// Shows a value; what is no line of text is told by its value.
void show_in(HWND control, FieldLook look, const automation::Value& value);

/// What a person has entered; not for a line of text.
automation::Value entered_in(HWND control, FieldLook look);

/// Whether the code of a control's notification tells that a person has changed it.
bool is_change(FieldLook look, int code);

/// Whether a list or calendar of the control is open and takes keys such as Escape.
bool is_dropped(HWND control);

}  // namespace desk
