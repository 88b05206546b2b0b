#include "forms/windows/engine_parts.h"

#include <algorithm>

#include "automation/com/module_file.h"
#include "automation/failure.h"

namespace windows {

using automation::Failure;

namespace {

constexpr automation::TextView class_name = u"TarnwellForm";

BOOL CALLBACK end_window_of_class(HWND window, LPARAM atom) {
    if (GetClassWord(window, GCW_ATOM) == static_cast<WORD>(atom)) DestroyWindow(window);
    return TRUE;
}

}  // namespace

FormClass::FormClass(WNDPROC procedure) {
    // Each engine has a class of its own, since a module can't register the same name twice.
    name_ = automation::Text(class_name) +
            automation::to_text(static_cast<long long>(reinterpret_cast<INT_PTR>(this)));
    WNDCLASSW form{};
    form.lpfnWndProc = procedure;
    form.hInstance = own_module();
    form.lpszClassName = name();
    form.cbWndExtra = sizeof(ModuleHold*);
    form.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    form.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
    form.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    atom_ = RegisterClassW(&form);
    if (atom_ == 0) throw Failure(automation::result::fail, u"A window class could not be registered.");
}

FormClass::~FormClass() {
    EnumThreadWindows(GetCurrentThreadId(), end_window_of_class, atom_);
    UnregisterClassW(name(), own_module());
}

KeyboardHook::KeyboardHook(Module& module, HOOKPROC procedure)
    : hold_(module), hook_(SetWindowsHookExW(WH_GETMESSAGE, procedure, nullptr, GetCurrentThreadId())) {
    if (!hook_) throw Failure(automation::result::fail, u"The keyboard could not be hooked.");
}

LRESULT tell_name(automation::TextView name, WPARAM size, LPARAM buffer) {
    if (buffer == 0 || size == 0) return 0;
    const std::size_t length = std::min<std::size_t>(name.size(), size - 1);
    auto* const into = reinterpret_cast<wchar_t*>(buffer);
    std::ranges::copy_n(name.begin(), static_cast<std::ptrdiff_t>(length), into);
    into[length] = L'\0';
    return static_cast<LRESULT>(length + 1);
}

}  // namespace windows
