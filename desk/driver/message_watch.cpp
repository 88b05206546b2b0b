#include "desk/driver/message_watch.h"

#include <algorithm>
#include <array>

#include "automation/com/com_ptr.h"
#include "forms/windows/common_controls.h"
#include "forms/windows/form_control.h"

namespace desk {

using automation::Text;
using windows::window_text;

namespace {

constexpr int text_id = 0xFFFF;  // the static control of a message box that holds its text
constexpr UINT_PTR answer_subclass = 1;
constexpr const wchar_t* former_procedure = L"TarnwellDeskFormerProcedure";

/// The system's own complaint that a program could not be started. It is no message of anyone's here.
constexpr automation::TextView system_error_title = u"Error";

bool is_message_box(HWND window) {
    std::array<wchar_t, 16> name{};
    GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    if (std::wstring_view(name.data()) != L"#32770" || !IsWindowVisible(window)) return false;
    if (!GetDlgItem(window, text_id)) return false;
    for (int id = IDOK; id <= IDNO; ++id) {
        if (GetDlgItem(window, id)) return true;
    }
    return false;
}

struct ButtonSet {
    UINT style;
    std::array<int, 3> ids;
};
/// The larger sets first, since each contains others.
constexpr ButtonSet button_sets[] = {
    {MB_ABORTRETRYIGNORE, {IDABORT, IDRETRY, IDIGNORE}},
    {MB_YESNOCANCEL, {IDYES, IDNO, IDCANCEL}},
    {MB_YESNO, {IDYES, IDNO, 0}},
    {MB_OKCANCEL, {IDOK, IDCANCEL, 0}},
    {MB_RETRYCANCEL, {IDRETRY, IDCANCEL, 0}},
};

struct IconStyle {
    UINT style;
    const wchar_t* icon;
};

/// The style that a box was shown with, as far as it shows: buttons and icon.
UINT style_of(HWND box) {
    UINT style = MB_OK;
    for (const ButtonSet& set : button_sets) {
        if (std::ranges::all_of(set.ids, [&](int id) { return id == 0 || GetDlgItem(box, id); })) {
            style = set.style;
            break;
        }
    }
    const IconStyle icons[] = {{MB_ICONINFORMATION, IDI_INFORMATION},
                               {MB_ICONWARNING, IDI_WARNING},
                               {MB_ICONQUESTION, IDI_QUESTION},
                               {MB_ICONERROR, IDI_ERROR}};
    for (HWND child = GetWindow(box, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        const auto shown = reinterpret_cast<HICON>(SendMessageW(child, STM_GETICON, 0, 0));
        if (!shown) continue;
        for (const IconStyle& icon : icons) {
            if (shown == LoadIconW(nullptr, icon.icon)) return style | icon.style;
        }
    }
    return style;
}

/// Notes the button that ends a box.
LRESULT CALLBACK note_answer(HWND box, UINT message, WPARAM first, LPARAM second, UINT_PTR id,
                             DWORD_PTR data) {
    if (message == WM_COMMAND && LOWORD(first) >= IDOK && LOWORD(first) <= IDNO) {
        *reinterpret_cast<int*>(data) = LOWORD(first);
    }
    if (message == WM_NCDESTROY) RemoveWindowSubclass(box, note_answer, id);
    return DefSubclassProc(box, message, first, second);
}

/// Has the system's complaint leave the error behind that it was about: the box is all that stands between
/// the failure and its caller, and its own end would cover the error up.
LRESULT CALLBACK leave_error(HWND box, UINT message, WPARAM first, LPARAM second) {
    const auto former = reinterpret_cast<WNDPROC>(GetPropW(box, former_procedure));
    const LRESULT answer = CallWindowProcW(former, box, message, first, second);
    if (message == WM_NCDESTROY) SetLastError(ERROR_FILE_NOT_FOUND);
    return answer;
}

void close_system_error(HWND box) {
    const LONG_PTR former = GetWindowLongPtrW(box, GWLP_WNDPROC);
    SetPropW(box, former_procedure, reinterpret_cast<HANDLE>(former));
    SetWindowLongPtrW(box, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(leave_error));
    EndDialog(box, IDOK);
}

BOOL CALLBACK collect(HWND window, LPARAM into) {
    reinterpret_cast<std::vector<HWND>*>(into)->push_back(window);
    return TRUE;
}

}  // namespace

void MessageWatch::look() {
    std::vector<HWND> all;
    EnumThreadWindows(GetCurrentThreadId(), collect, reinterpret_cast<LPARAM>(&all));
    std::erase_if(seen_, [&](const auto& entry) { return std::ranges::find(all, entry) == all.end(); });
    for (HWND window : all) {
        if (!seen_.contains(window) && is_message_box(window)) meet(window);
    }
}

void MessageWatch::meet(HWND box) {
    const Text title = window_text(box);
    const Text text = window_text(GetDlgItem(box, text_id));
    const int wanted = desk_.take_answer(title, text);
    if (wanted == 0 && title == system_error_title) {
        close_system_error(box);
        return;
    }
    seen_.insert(box);
    desk_.messages.push_back({title, text, style_of(box), 0});
    HWND button = wanted == 0 ? nullptr : GetDlgItem(box, wanted);
    if (!button && wanted == IDOK) button = GetDlgItem(box, IDCANCEL);  // the single OK
    if (button) {
        desk_.messages.back().answer = wanted;
        PostMessageW(button, BM_CLICK, 0, 0);
    } else if (desk_.options().unattended) {
        EndDialog(box, 0);
    } else {
        SetWindowSubclass(box, note_answer, answer_subclass,
                          reinterpret_cast<DWORD_PTR>(&desk_.messages.back().answer));
    }
}

}  // namespace desk
