// A window with one of each of the system's controls, each of which tells its own name, as the add-in's do.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "automation/com/com_object.h"
#include "automation/com/com_ptr.h"
#include "automation/text.h"
#include "forms/windows/common_controls.h"

namespace desk_tests {

class SampleWindow {
  public:
    explicit SampleWindow(const wchar_t* caption = L"Sample");
    ~SampleWindow();
    SampleWindow(const SampleWindow&) = delete;
    SampleWindow& operator=(const SampleWindow&) = delete;

    HWND handle() const { return window_; }
    HWND control(const std::string& name) const { return controls_.at(name); }
    HWND add(const std::string& name, const wchar_t* window_class, DWORD style, RECT place,
             const wchar_t* text = L"");

    /// What the window was told, as "click Button1", in order.
    std::vector<std::string> told;

    /// Runs the messages that wait.
    static void run_messages();

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second);
    static LRESULT CALLBACK named(HWND control, UINT message, WPARAM first, LPARAM second, UINT_PTR,
                                  DWORD_PTR name);
    LRESULT handle_message(UINT message, WPARAM first, LPARAM second);
    void on_command(HWND control, WORD code);
    void on_notify(const NMHDR& notice);
    const std::string& name_of(HWND control) const;

    HWND window_ = nullptr;
    std::map<std::string, HWND> controls_;
    std::map<HWND, std::string> names_;
};

}  // namespace desk_tests
