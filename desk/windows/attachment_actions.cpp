#include "desk/windows/attachment_actions.h"

#include <shellapi.h>
#define interface struct  // which platform.h has put away
#include <commdlg.h>
#undef interface

#include <array>
#include <filesystem>
#include <vector>

#include "automation/com/com_ptr.h"
#include "automation/com/failure.h"
#include "desk/base/desk.h"
#include "desk/outlook/attached_files.h"
#include "desk/outlook/attachments.h"
#include "desk/outlook/inspectors.h"
#include "desk/outlook/item_file.h"

namespace desk {

using automation::Failure;
using automation::Text;
using automation::TextView;
using automation::Value;
namespace result = automation::result;

namespace {

constexpr std::uint32_t told_warning = 0x30;   // MB_ICONWARNING
constexpr std::size_t longest_choice = 32768;  // characters of all names that are chosen at once

/// Does something and tells the person why it can't be done.
template <class Deed>
void told(Desk& desk, Deed deed) {
    try {
        deed();
    } catch (const Failure& failure) {
        desk.surroundings().ask(failure.description(), u"Outlook", told_warning);
    }
}

std::shared_ptr<Attachment> found(const AttachmentPlace& attachment) {
    return std::make_shared<Attachment>(attachment.item->desk(), attachment.item, attachment.place);
}

/// A window of an item that lies in no folder.
void show_loose(Desk& desk, ItemData data) {
    constexpr RowId no_folder = 0;
    std::make_shared<Item>(desk, no_folder, std::move(data))->inspector()->display();
}

void open_by_shell(const Text& path, TextView name) {
    constexpr INT_PTR last_error = 32;
    const HINSTANCE answer =
        ShellExecuteW(nullptr, L"open", windows::wide(path), nullptr, nullptr, SW_SHOWNORMAL);
    if (reinterpret_cast<INT_PTR>(answer) <= last_error) {
        throw Failure(result::fail, u"No program is there that opens \"" + Text(name) + u"\".");
    }
}

/// What the system's dialogs for files have in common.
OPENFILENAMEW file_question(HWND owner, std::vector<wchar_t>& names) {
    OPENFILENAMEW question{};
    question.lStructSize = sizeof question;
    question.hwndOwner = owner;
    question.lpstrFilter = L"All files\0*.*\0";
    question.lpstrFile = names.data();
    question.nMaxFile = static_cast<DWORD>(names.size());
    question.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    return question;
}

Text text_at(const std::vector<wchar_t>& names, std::size_t place) {
    return Text(reinterpret_cast<const char16_t*>(names.data()) + place);
}

/// One path, or a folder and the names in it, as the system's dialog answers them.
std::vector<Text> chosen_paths(const std::vector<wchar_t>& names) {
    const Text first = text_at(names, 0);
    std::vector<Text> paths;
    for (std::size_t at = first.size() + 1; at < names.size() && names[at] != 0;) {
        const Text name = text_at(names, at);
        paths.push_back(first + u"\\" + name);
        at += name.size() + 1;
    }
    if (paths.empty()) paths.push_back(first);
    return paths;
}

}  // namespace

OpenedFiles::~OpenedFiles() {
    std::error_code ignored;  // who still shows one keeps it
    if (!folder_.empty()) std::filesystem::remove_all(folder_, ignored);
}

Text OpenedFiles::write(TextView name, std::string_view bytes) {
    if (folder_.empty()) {
        std::array<wchar_t, MAX_PATH + 1> temporary{};
        GetTempPathW(static_cast<DWORD>(temporary.size()), temporary.data());
        folder_ = std::wstring(temporary.data()) + L"TarnwellDesk-" + std::to_wstring(GetCurrentProcessId());
    }
    const std::wstring folder = folder_ + L"\\" + std::to_wstring(++count_);
    std::error_code failed;
    std::filesystem::create_directories(folder, failed);
    const Text path = Text(windows::from_wide(folder.data(), folder.size())) + u"\\" + storable_name(name);
    write_file(path, bytes);
    return path;
}

void open_attachment(const AttachmentPlace& attachment, OpenedFiles& files) {
    Desk& desk = attachment.item->desk();
    told(desk, [&] {
        const auto there = found(attachment);
        const AttachmentData data = there->data();
        if (data.item) return show_loose(desk, *data.item);
        if (is_program(data.file_name)) {
            throw Failure(result::access_denied,
                          u"\"" + data.file_name + u"\" is a program, which is not opened out of an item.");
        }
        const Text path = files.write(data.file_name, data.content);
        if (ending_of(data.file_name) == u"eml") return show_loose(desk, desk.surroundings().read_mail(path));
        open_by_shell(path, data.file_name);
    });
}

void save_attachment(const AttachmentPlace& attachment, HWND owner) {
    told(attachment.item->desk(), [&] {
        const auto there = found(attachment);
        const Text name = storable_name(there->data().file_name);
        std::vector<wchar_t> names(longest_choice);
        std::copy(name.begin(), name.end(), names.begin());
        OPENFILENAMEW question = file_question(owner, names);
        question.Flags |= OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST;
        question.lpstrTitle = L"Save Attachment";
        if (GetSaveFileNameW(&question)) write_file(text_at(names, 0), there->bytes());
    });
}

void remove_attachment(const AttachmentPlace& attachment) {
    told(attachment.item->desk(), [&] { found(attachment)->remove(); });
}

void attach_files(const std::shared_ptr<Item>& item, HWND owner) {
    std::vector<wchar_t> names(longest_choice);
    OPENFILENAMEW question = file_question(owner, names);
    question.Flags |= OFN_FILEMUSTEXIST | OFN_ALLOWMULTISELECT;
    question.lpstrTitle = L"Attach Files";
    if (!GetOpenFileNameW(&question)) return;
    const auto attachments = std::make_shared<Attachments>(item->desk(), item);
    for (const Text& path : chosen_paths(names)) {
        told(item->desk(), [&] {
            item->check_there();
            attachments->add(Value(path), 0, {});
        });
    }
}

void choose_for_attachment(const AttachmentPlace& attachment, HWND owner, POINT place, bool can_change,
                           OpenedFiles& files) {
    constexpr UINT open_it = 1, save_it = 2, remove_it = 3;
    const HMENU menu = CreatePopupMenu();
    AppendMenuW(menu, MF_STRING, open_it, L"&Open");
    AppendMenuW(menu, MF_STRING, save_it, L"&Save As...");
    if (can_change) AppendMenuW(menu, MF_STRING, remove_it, L"&Remove");
    SetMenuDefaultItem(menu, open_it, FALSE);
    const auto chosen = static_cast<UINT>(TrackPopupMenu(
        menu, TPM_LEFTALIGN | TPM_RIGHTBUTTON | TPM_RETURNCMD, place.x, place.y, 0, owner, nullptr));
    DestroyMenu(menu);
    if (chosen == open_it) open_attachment(attachment, files);
    if (chosen == save_it) save_attachment(attachment, owner);
    if (chosen == remove_it) remove_attachment(attachment);
}

}  // namespace desk
