#include "desk/driver/named_window.h"

#include <array>

#include "automation/com/com_ptr.h"

namespace desk {

using automation::Text;

namespace {

constexpr std::size_t longest_name = 256;
constexpr automation::TextView own_classes = u"TarnwellDesk";

BOOL CALLBACK collect_named(HWND window, LPARAM into) {
    reinterpret_cast<std::vector<HWND>*>(into)->push_back(window);
    return TRUE;
}

}  // namespace

Text control_name(HWND window) {
    std::array<wchar_t, longest_name> buffer{};
    const LRESULT length = SendMessageW(window, RegisterWindowMessageW(L"WM_GETCONTROLNAME"), buffer.size(),
                                        reinterpret_cast<LPARAM>(buffer.data()));
    if (length <= 0 || static_cast<std::size_t>(length) > buffer.size()) return {};
    return Text(reinterpret_cast<const char16_t*>(buffer.data()));
}

Text class_name(HWND window) {
    std::array<wchar_t, longest_name> buffer{};
    const int length = GetClassNameW(window, buffer.data(), static_cast<int>(buffer.size()));
    return Text(windows::from_wide(buffer.data(), static_cast<std::size_t>(length)));
}

bool is_desk_window(HWND window) { return class_name(window).starts_with(own_classes); }

std::vector<HWND> windows_of_thread() {
    std::vector<HWND> all;
    EnumThreadWindows(GetCurrentThreadId(), collect_named, reinterpret_cast<LPARAM>(&all));
    return all;
}

std::vector<HWND> windows_inside(HWND window) {
    std::vector<HWND> all;
    EnumChildWindows(window, collect_named, reinterpret_cast<LPARAM>(&all));
    return all;
}

}  // namespace desk
