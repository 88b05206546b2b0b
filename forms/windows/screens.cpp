#include "forms/windows/screens.h"

namespace windows {

int dots_per_inch_of(HWND window) {
    // older systems don't have it
    using GetDots = UINT(WINAPI*)(HWND);
    const HMODULE library = GetModuleHandleW(L"user32.dll");
    const FARPROC found = library ? GetProcAddress(library, "GetDpiForWindow") : nullptr;
    if (!found) return 0;
    return static_cast<int>(reinterpret_cast<GetDots>(reinterpret_cast<void*>(found))(window));
}

bool is_high_contrast() {
    HIGHCONTRASTW chosen{};
    chosen.cbSize = sizeof chosen;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof chosen, &chosen, 0) &&
           (chosen.dwFlags & HCF_HIGHCONTRASTON);
}

}  // namespace windows
