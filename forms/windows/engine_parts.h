// What the windows of one engine share: their class, their hook of the keyboard, the resolution, the pointer.
#pragma once

#include <functional>
#include <map>
#include <memory>

#include "automation/com/module.h"
#include "forms/windows/common_controls.h"
#include "forms/windows/screen_pointer.h"
#include "forms/windows/screens.h"

namespace windows {

/// The registered class of the windows. With its end, windows of the class that wait for their end are ended.
class FormClass {
  public:
    /// Where a window keeps its `ModuleHold`, which ends with its last message.
    static constexpr int hold_place = 0;

    explicit FormClass(WNDPROC procedure);
    FormClass(const FormClass&) = delete;
    FormClass& operator=(const FormClass&) = delete;
    ~FormClass();

    const wchar_t* name() const { return wide(name_); }

  private:
    automation::Text name_;
    ATOM atom_ = 0;
};

/// Looks at the messages that any loop of the thread takes from the queue. The keys of our windows are
/// handled here: the loop is the host's, who knows nothing of our controls and takes keys for its own
/// shortcuts.
class KeyboardHook {
  public:
    KeyboardHook(Module& module, HOOKPROC procedure);
    KeyboardHook(const KeyboardHook&) = delete;
    KeyboardHook& operator=(const KeyboardHook&) = delete;
    ~KeyboardHook() { UnhookWindowsHookEx(hook_); }

  private:
    ModuleHold hold_;
    HHOOK hook_;
};

/// What the user has chosen for the screens, as it is asked for.
struct ScreenChoices {
    std::function<int(HWND)> dots_per_inch_of = windows::dots_per_inch_of;
    std::function<bool()> is_high_contrast = windows::is_high_contrast;
};

struct EngineParts {
    Module& module;
    std::function<int()> dots_per_inch;
    std::shared_ptr<const ScreenPointer> pointer;
    FormClass window_class;
    /// The system's published question of test tools for the name that the program knows a control by:
    /// `wParam` is the size of the buffer `lParam` in characters; the answer is what was written, with its
    /// end.
    UINT control_name_message = RegisterWindowMessageW(L"WM_GETCONTROLNAME");
    std::weak_ptr<KeyboardHook> hook;  ///< there is one as long as there is a window
    std::weak_ptr<void> owner;         ///< kept while an event runs
    ScreenChoices screens{};
    /// Where the user has left windows that have ended, by the names of their tables.
    std::map<automation::TextView, POINT> left_at{};
};

/// Answers the question for a name.
LRESULT tell_name(automation::TextView name, WPARAM size, LPARAM buffer);

}  // namespace windows
