#include "desk/com/mail_process.h"

#include <array>
#include <chrono>
#include <filesystem>
#include <fstream>

#include "desk/mail/message.h"
#include "desk/model/item_file.h"
#include "windows/com/com_ptr.h"

namespace desk {

using host::Failure;
using host::Text;
using host::TextView;
namespace result = host::result;

namespace {

constexpr DWORD longest_wait = 30000, longest_wait_for_server = 5000, wait_step = 1;  // milliseconds

/// After an answer the reader waits for the next request at least this long; a part of its idle time is left
/// for a busy machine.
constexpr std::uint64_t surely_served = std::chrono::milliseconds(mail::longest_idle_time).count() * 3 / 4;

/// A path of Windows as the native system spells it: what drive Z: holds is the native root.
std::string native_path(const Text& path) {
    std::array<wchar_t, MAX_PATH * 8> full{};
    const DWORD length =
        GetFullPathNameW(windows::wide(path), static_cast<DWORD>(full.size()), full.data(), nullptr);
    if (length == 0 || length >= full.size()) {
        throw Failure(result::invalid_argument, u"\"" + path + u"\" is not a path.");
    }
    using UnixName = char*(CDECL*)(const wchar_t*);
    const auto kernel = GetModuleHandleW(L"kernel32.dll");
    // Wine's own: the native name of a path
    const auto unix_name = reinterpret_cast<UnixName>(
        reinterpret_cast<void*>(GetProcAddress(kernel, "wine_get_unix_file_name")));
    if (!unix_name) throw Failure(result::fail, u"Mails can be read only where the desk runs under Wine.");
    char* const name = unix_name(full.data());
    if (!name) throw Failure(result::file_not_found, u"There is no file \"" + path + u"\".");
    std::string native(name);
    HeapFree(GetProcessHeap(), 0, name);
    return native;
}

/// An argument between quotes, as a command line takes it.
Text quoted(const std::string& argument) {
    Text text = u"\"";
    for (const char16_t c : host::from_utf8(argument)) {
        if (c == u'"') text += u'\\';
        text += c;
    }
    return text + u"\"";
}

/// Waits for a file that is made whole at once. False if it isn't there in time.
bool wait_for(const Text& file, DWORD longest) {
    for (DWORD waited = 0; GetFileAttributesW(windows::wide(file)) == INVALID_FILE_ATTRIBUTES;
         waited += wait_step) {
        if (waited > longest) return false;
        Sleep(wait_step);
    }
    return true;
}

}  // namespace

MailProcess::MailProcess(Text reader, const Text& state)
    : reader_(std::move(reader)),
      folder_(state + u"\\mails-" + host::to_text(static_cast<long long>(GetCurrentProcessId()))) {
    CreateDirectoryW(windows::wide(folder_), nullptr);
}

MailProcess::~MailProcess() { RemoveDirectoryW(windows::wide(folder_)); }

void MailProcess::start(const std::string& file, const std::string& answer_file) {
    Text command_line = u"\"Z:" + host::replaced(reader_, u"/", u"\\") + u"\" " + quoted(file) +
                        u" --output " + quoted(answer_file) + u" --serve " + quoted(native_path(folder_));
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    auto* const line = reinterpret_cast<wchar_t*>(command_line.data());
    if (!CreateProcessW(nullptr, line, nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr, nullptr, &startup,
                        &process)) {
        throw Failure(result::file_not_found, u"The mail reader \"" + reader_ + u"\" could not be started.");
    }
    // a native program has no handles to wait for
    if (process.hThread) CloseHandle(process.hThread);
    if (process.hProcess) CloseHandle(process.hProcess);
}

bool MailProcess::ask(const std::string& file, const std::string& answer_file, const Text& answer) {
    const Text request = host::replaced(answer, u".json", u".request"), part = request + u".part";
    {
        std::ofstream lines(std::filesystem::path(part), std::ios::binary | std::ios::trunc);
        lines << file << '\n' << answer_file << '\n';
    }
    MoveFileW(windows::wide(part), windows::wide(request));
    if (wait_for(answer, longest_wait_for_server)) return true;
    DeleteFileW(windows::wide(request));
    return false;
}

ItemData MailProcess::read(const Text& path) {
    const std::string file = native_path(path);
    const Text name = host::to_text(static_cast<long long>(++requests_)) + u".json";
    const Text answer = folder_ + u"\\" + name;
    // the answer's folder exists, the answer does not yet: its name is built from the folder's
    const std::string answer_file = native_path(folder_) + "/" + host::to_utf8(name);
    const bool served = GetTickCount64() < serves_until_ && ask(file, answer_file, answer);
    if (!served) {
        start(file, answer_file);
        if (!wait_for(answer, longest_wait)) throw Failure(result::fail, u"The mail reader gave no answer.");
    }
    serves_until_ = GetTickCount64() + surely_served;
    const std::string json = read_file(answer);
    DeleteFileW(windows::wide(answer));
    return mail::from_json(json);
}

}  // namespace desk
