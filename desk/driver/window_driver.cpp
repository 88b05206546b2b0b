#include "desk/driver/window_driver.h"

#include "automation/failure.h"
#include "desk/driver/control_driver.h"
#include "desk/driver/named_window.h"
#include "forms/windows/form_control.h"

namespace desk {

using automation::Failure;
using automation::Text;
using automation::TextView;
using windows::window_text;
namespace result = automation::result;

namespace {

class RealWindow final : public WindowDriver {
  public:
    RealWindow(HWND window, windows::Module& module, Post post)
        : window_(window), module_(module), post_(std::move(post)) {}

    Text caption() const override { return window_text(there()); }
    bool visible() const override { return IsWindowVisible(there()) != FALSE; }
    bool topmost() const override { return GetWindowLongPtrW(there(), GWL_EXSTYLE) & WS_EX_TOPMOST; }
    WindowPlace place() const override {
        RECT place{};
        GetWindowRect(there(), &place);
        return {place.left, place.top, place.right - place.left, place.bottom - place.top};
    }
    bool busy() const override {
        SendMessageW(there(), WM_SETCURSOR, reinterpret_cast<WPARAM>(window_),
                     MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
        return GetCursor() == LoadCursorW(nullptr, IDC_WAIT);
    }
    void close() override {
        if (IsWindowEnabled(there())) PostMessageW(window_, WM_CLOSE, 0, 0);
    }
    void resize(int width, int height) override {
        SetWindowPos(there(), nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
    void key(int code) override {
        post_([window = there(), code] {
            if (!IsWindowVisible(window) || !IsWindowEnabled(window)) return;
            if (GetActiveWindow() != window) SetForegroundWindow(window);
            const HWND focus = GetFocus();
            post_key(focus && IsChild(window, focus) ? focus : window, code);
        });
    }
    std::unique_ptr<ControlDriver> control(TextView name) override {
        for (const HWND control : windows_inside(there())) {
            if (automation::same_ignoring_case(control_name(control), name)) {
                return drive_control(control, module_, post_);
            }
        }
        return nullptr;
    }

  private:
    HWND there() const {
        if (!IsWindow(window_)) throw Failure(result::object_deleted, u"The window has been closed.");
        return window_;
    }

    HWND window_;
    windows::Module& module_;
    Post post_;
};

}  // namespace

std::unique_ptr<WindowDriver> find_window(TextView caption, windows::Module& module, Post post) {
    HWND found = nullptr;
    for (const HWND window : windows_of_thread()) {
        if (window_text(window) != caption || is_desk_window(window)) continue;
        if (!found || (IsWindowVisible(window) && !IsWindowVisible(found))) found = window;
    }
    return found ? std::make_unique<RealWindow>(found, module, std::move(post)) : nullptr;
}

}  // namespace desk
