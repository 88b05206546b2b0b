#include "desk/windows/attachment_actions.h"

#include <shellapi.h>

#include <array>
#include <filesystem>

#include "automation/com/failure.h"
#include "desk/base/desk.h"
#include "desk/outlook/attached_files.h"
#include "desk/outlook/attachments.h"
#include "desk/outlook/inspectors.h"
#include "desk/outlook/item_file.h"
#include "desk/windows/context_menu.h"
#include "desk/windows/file_dialogs.h"
#include "desk/windows/item_drag.h"

namespace desk {

using automation::Failure;
using automation::Text;
using automation::Value;
namespace result = automation::result;

namespace {

constexpr std::uint32_t attachment_warning = 0x30;  // MB_ICONWARNING

/// Does something and tells the person why it can't be done.
template <class Deed>
void told(Desk& desk, Deed deed) {
    try {
        deed();
    } catch (const Failure& failure) {
        desk.surroundings().ask(failure.description(), u"Outlook", attachment_warning);
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

void open_by_shell(const Text& path, const Text& name) {
    constexpr INT_PTR last_error = 32;
    const HINSTANCE answer =
        ShellExecuteW(nullptr, L"open", windows::wide(path), nullptr, nullptr, SW_SHOWNORMAL);
    if (reinterpret_cast<INT_PTR>(answer) <= last_error) {
        throw Failure(result::fail, u"No program is there that opens \"" + name + u"\".");
    }
}

}  // namespace

OpenedFiles::~OpenedFiles() {
    std::error_code ignored;  // who still shows one keeps it
    if (!folder_.empty()) std::filesystem::remove_all(folder_, ignored);
}

Text OpenedFiles::write(const Text& name, std::string_view bytes) {
    if (folder_.empty()) {
        std::array<wchar_t, MAX_PATH + 1> temporary{};
        GetTempPathW(static_cast<DWORD>(temporary.size()), temporary.data());
        folder_ = std::wstring(temporary.data()) + L"TarnwellDesk-" + std::to_wstring(GetCurrentProcessId());
    }
    const std::wstring folder = folder_ + L"\\" + std::to_wstring(++count_);
    std::error_code failed;  // told by the writing
    std::filesystem::create_directories(folder, failed);
    const Text path = Text(windows::from_wide(folder.data(), folder.size())) + u"\\" + name;
    write_file(path, bytes);
    return path;
}

void open_attachment(const AttachmentPlace& attachment, OpenedFiles& files) {
    Desk& desk = attachment.item->desk();
    told(desk, [&] {
        const auto there = found(attachment);
        const AttachmentData& data = there->data();
        if (data.item) return show_loose(desk, *data.item);
        const Text name = stored_name(data);
        if (is_program(name)) {
            throw Failure(result::access_denied,
                          u"\"" + name + u"\" is a program, which is not opened out of an item.");
        }
        const Text path = files.write(name, data.content);
        if (ending_of(name) == u"eml") return show_loose(desk, desk.surroundings().read_mail(path));
        open_by_shell(path, name);
    });
}

void save_attachment(const AttachmentPlace& attachment, HWND owner) {
    told(attachment.item->desk(), [&] {
        const auto there = found(attachment);
        const std::string bytes = there->bytes();  // it may be gone when the question is answered
        const Text path = choose_new_file(owner, L"Save Attachment", stored_name(there->data()));
        if (!path.empty()) write_file(path, bytes);
    });
}

void remove_attachment(const AttachmentPlace& attachment) {
    told(attachment.item->desk(), [&] { found(attachment)->remove(); });
}

void drag_attachment(const AttachmentPlace& attachment, OpenedFiles& files, windows::Module& module) {
    told(attachment.item->desk(), [&] {
        const auto there = found(attachment);
        drag_files(module, {files.write(stored_name(there->data()), there->bytes())});
    });
}

void attach_chosen_files(const std::shared_ptr<Item>& item, HWND owner) {
    const std::vector<Text> paths = choose_files(owner, L"Attach Files");
    const auto attachments = std::make_shared<Attachments>(item->desk(), item);
    for (const Text& path : paths) {
        told(item->desk(), [&] {
            item->check_there();
            attachments->add(Value(path), 0, {});
        });
    }
}

void choose_for_attachment(const AttachmentPlace& attachment, HWND owner, POINT place, bool can_change,
                           OpenedFiles& files) {
    enum : int { open_it = 1, save_it, remove_it };
    constexpr MenuEntry entries[] = {
        {L"&Open", open_it}, {L"&Save As...", save_it}, {nullptr, 0}, {L"&Remove\tDel", remove_it}};
    const OwnEntries own{.entries = entries,
                         .default_command = open_it,
                         .can_run = [=](int command) { return can_change || command != remove_it; },
                         .run =
                             [&](int command) {
                                 if (command == open_it) open_attachment(attachment, files);
                                 if (command == save_it) save_attachment(attachment, owner);
                                 if (command == remove_it) remove_attachment(attachment);
                             }};
    if (const auto chosen = choose_from_menu(owner, place, own)) chosen();
}

}  // namespace desk
