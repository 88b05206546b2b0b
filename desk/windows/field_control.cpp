#include "desk/windows/field_control.h"

#include "desk/driver/named_window.h"

namespace desk {

using automation::Date;
using automation::Text;
using automation::Value;

namespace {

SYSTEMTIME system_time(Date date) {
    const automation::ClockTime clock = automation::to_clock(date);
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(clock.year);
    time.wMonth = static_cast<WORD>(clock.month);
    time.wDay = static_cast<WORD>(clock.day);
    time.wHour = static_cast<WORD>(clock.hour);
    time.wMinute = static_cast<WORD>(clock.minute);
    time.wSecond = static_cast<WORD>(clock.second);
    return time;
}

Date date_of(const SYSTEMTIME& time, FieldLook look) {
    automation::ClockTime clock{time.wYear, time.wMonth, time.wDay, 0, 0, 0};
    if (look == FieldLook::moment) {
        clock.hour = time.wHour;
        clock.minute = time.wMinute;
    }
    return automation::to_date(clock);
}

}  // namespace

ControlClass control_class(FieldLook look, bool can_be_none) {
    switch (look) {
        case FieldLook::day:
        case FieldLook::moment:
            return {DATETIMEPICK_CLASSW, WS_TABSTOP | (can_be_none ? DTS_SHOWNONE : 0U), 0};
        case FieldLook::flag:
            return {WC_BUTTONW, WS_TABSTOP | BS_AUTOCHECKBOX, 0};
        case FieldLook::choice:
            return {WC_COMBOBOXW, WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST, 0};
        case FieldLook::line:
            break;
    }
    return {WC_EDITW, WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE};
}

void prepare_control(HWND control, const FormLine& line) {
    if (line.look == FieldLook::day || line.look == FieldLook::moment) {
        const wchar_t* const format = line.look == FieldLook::day ? L"yyyy-MM-dd" : L"yyyy-MM-dd HH:mm";
        SendMessageW(control, DTM_SETFORMATW, 0, reinterpret_cast<LPARAM>(format));
    }
    for (const automation::TextView word : line.words) {
        SendMessageW(control, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(windows::wide(Text(word))));
    }
}

void show_in(HWND control, FieldLook look, const Value& value) {
    if (look == FieldLook::flag) {
        SendMessageW(control, BM_SETCHECK, value.to_boolean() ? BST_CHECKED : BST_UNCHECKED, 0);
    } else if (look == FieldLook::choice) {
        SendMessageW(control, CB_SETCURSEL, static_cast<WPARAM>(value.to_integer()), 0);
    } else if (value.to_date() == no_date) {
        SendMessageW(control, DTM_SETSYSTEMTIME, GDT_NONE, 0);
    } else {
        const SYSTEMTIME time = system_time(value.to_date());
        SendMessageW(control, DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&time));
    }
}

Value entered_in(HWND control, FieldLook look) {
    if (look == FieldLook::flag) return SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED;
    if (look == FieldLook::choice)
        return static_cast<std::int32_t>(SendMessageW(control, CB_GETCURSEL, 0, 0));
    SYSTEMTIME time{};
    const LRESULT answer = SendMessageW(control, DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&time));
    return answer == GDT_VALID ? date_of(time, look) : no_date;
}

bool is_change(FieldLook look, int code) {
    switch (look) {
        case FieldLook::flag:
            return code == BN_CLICKED;
        case FieldLook::choice:
            return code == CBN_SELCHANGE;
        case FieldLook::line:
            return code == EN_CHANGE;
        default:
            return false;  // dates tell it otherwise
    }
}

bool is_dropped(HWND control) {
    const Text name = class_name(control);
    if (name == u"ComboBox") return SendMessageW(control, CB_GETDROPPEDSTATE, 0, 0) != 0;
    return name == u"SysDateTimePick32" && SendMessageW(control, DTM_GETMONTHCAL, 0, 0) != 0;
}

}  // namespace desk
