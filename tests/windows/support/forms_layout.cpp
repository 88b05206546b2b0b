#include "tests/windows/support/forms_layout.h"

#include <array>
#include <cstddef>
#include <cstdint>

#include "desk/driver/screen_picture.h"
#include "forms/windows/drawing.h"
#include "forms/windows/form_control.h"
#include "tests/windows/support/forms_stage.h"

#include <winternl.h>

namespace forms_test {

using automation::Text;
using automation::TextView;
using forms::ControlKind;
using forms::ControlRow;
using forms::FormTable;
using windows::Selected;
using windows::wide;
using windows::window_text;

namespace {

/// What a kind of control needs beside its text, in pixels: edges, and the mark before it.
struct Extra {
    ControlKind kind;
    int width, height;
    bool wraps = false;
};
constexpr Extra extras[] = {
    {ControlKind::label, 0, 0, true},    {ControlKind::link, 0, 0},
    {ControlKind::button, 6, 4},         {ControlKind::check_box, 17, 0},
    {ControlKind::option_button, 17, 0}, {ControlKind::frame, 18, 0},
    {ControlKind::text_box, 0, 0},       {ControlKind::combo_box, 0, 0},
    {ControlKind::drop_down_list, 0, 0},
};

const Extra* extra_of(ControlKind kind) {
    for (const Extra& extra : extras) {
        if (extra.kind == kind) return &extra;
    }
    return nullptr;
}

bool holds_typed_text(ControlKind kind) {
    return kind == ControlKind::text_box || kind == ControlKind::combo_box ||
           kind == ControlKind::drop_down_list;
}

/// What a text needs in a control's font. A wrapped one gets the width and needs more height.
RECT measured(HWND control, const Text& text, int width, bool wraps) {
    const windows::ScreenContext screen;
    const auto font = reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0));
    const Selected with_font(screen.get(), font);
    RECT needed{0, 0, width, 0};
    const UINT lines = wraps ? DT_WORDBREAK : DT_SINGLELINE;
    DrawTextW(screen.get(), wide(text), -1, &needed, DT_CALCRECT | DT_NOPREFIX | lines);
    return needed;
}

struct Seen {
    const ControlRow* row;
    RECT box;
};

std::vector<Seen> seen_controls(HWND window, const FormTable& table) {
    std::vector<Seen> all;
    for (const ControlRow& row : table.controls) {
        const HWND control = find_control(window, row.name);
        if (!control || !IsWindowVisible(control)) continue;
        RECT box{};
        GetWindowRect(control, &box);
        all.push_back({&row, box});
    }
    return all;
}

}  // namespace

std::vector<std::string> cut_texts(HWND window, const FormTable& table) {
    std::vector<std::string> cut;
    for (const Seen& seen : seen_controls(window, table)) {
        const Extra* const extra = extra_of(seen.row->kind);
        if (!extra) continue;
        const HWND control = find_control(window, seen.row->name);
        RECT client{};
        GetClientRect(control, &client);
        // Typed text scrolls; its field must only be high enough.
        const bool typed = holds_typed_text(seen.row->kind);
        const RECT needed = measured(control, typed ? Text(u"Xg") : window_text(control),
                                     static_cast<int>(client.right), extra->wraps);
        const bool too_wide = !typed && needed.right + extra->width > client.right;
        if (too_wide || needed.bottom + extra->height > client.bottom) {
            cut.push_back(automation::to_utf8(seen.row->name));
        }
    }
    return cut;
}

std::vector<std::string> overlaps(HWND window, const FormTable& table) {
    std::vector<std::string> found;
    const std::vector<Seen> all = seen_controls(window, table);
    for (auto one = all.begin(); one != all.end(); ++one) {
        for (auto other = one + 1; other != all.end(); ++other) {
            RECT shared{};
            if (other->row->frame == one->row->name || !IntersectRect(&shared, &one->box, &other->box))
                continue;
            found.push_back(automation::to_utf8(one->row->name) + " and " +
                            automation::to_utf8(other->row->name));
        }
    }
    return found;
}

DWORD drawing_objects() {
    if (const DWORD told = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS)) return told;
    // Where the system doesn't tell, the objects are counted in the table of handles that it shares with the
    // process. Its place in the process's block and its layout are those of every 64-bit version.
    struct Entry {
        std::uint64_t object;
        std::uint32_t owner;
        std::uint16_t unique;
        std::uint8_t type, flags;
        std::uint64_t user_data;
    };
    constexpr std::size_t table_at = 0xF8, entries = 0x4000;
    PROCESS_BASIC_INFORMATION information{};
    NtQueryInformationProcess(GetCurrentProcess(), ProcessBasicInformation, &information, sizeof information,
                              nullptr);
    const auto* const process = reinterpret_cast<const std::byte*>(information.PebBaseAddress);
    const auto* const table = *reinterpret_cast<const Entry* const*>(process + table_at);
    DWORD count = 0;
    for (std::size_t index = 0; table && index < entries; ++index) count += table[index].type != 0;
    return count;
}

bool save_picture(HWND window, TextView name, int dots_per_inch) {
    std::array<wchar_t, MAX_PATH> folder{};
    const DWORD length =
        GetEnvironmentVariableW(L"TARNWELL_PICTURES", folder.data(), static_cast<DWORD>(folder.size()));
    if (length == 0 || length >= folder.size()) return false;
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    pump();
    desk::save_window_picture(window, Text(windows::from_wide(folder.data(), length)) + u"\\" + Text(name) +
                                          u"-" + automation::to_text(dots_per_inch) + u".png");
    return true;
}

}  // namespace forms_test
