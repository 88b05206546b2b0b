#include "desk/com/mail_process.h"

#include <array>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>

#include "automation/com/com_ptr.h"
#include "desk/mail/message.h"
#include "desk/outlook/item_file.h"

namespace desk {

using automation::Failure;
using automation::Text;
namespace result = automation::result;

namespace {

constexpr std::uint64_t longest_wait = 15000;       // milliseconds; the reader ends its own work before
constexpr std::uint64_t look_at_reader_every = 50;  // milliseconds
constexpr std::int32_t wait_step = 1;

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
    for (const char16_t c : automation::from_utf8(argument)) {
        if (c == u'"') text += u'\\';
        text += c;
    }
    return text + u"\"";
}

bool exists(const Text& file) { return GetFileAttributesW(windows::wide(file)) != INVALID_FILE_ATTRIBUTES; }

}  // namespace

MailProcess::MailProcess(Text reader, const Text& state, Pump pump)
    : reader_(std::move(reader)), state_(state), pump_(std::move(pump)) {
    use_new_folder();
}

MailProcess::~MailProcess() { leave_folder(); }

void MailProcess::use_new_folder() {
    folder_ = state_ + u"\\mails-" + automation::to_text(static_cast<long long>(GetCurrentProcessId())) +
              u"-" + automation::to_text(static_cast<long long>(requests_));
    CreateDirectoryW(windows::wide(folder_), nullptr);
}

/// A reader whose folder has gone ends.
void MailProcess::leave_folder() {
    DeleteFileW(windows::wide(folder_ + u"\\" + automation::from_utf8(mail::life_sign)));
    RemoveDirectoryW(windows::wide(folder_));
    serves_until_ = 0;
}

bool MailProcess::reader_lives() const {
    // a native program has no handle that could be waited for, but its lock can be felt
    const HANDLE file = CreateFileW(windows::wide(folder_ + u"\\" + automation::from_utf8(mail::life_sign)),
                                    GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    const bool locked = !LockFile(file, 0, 0, 1, 0);
    if (!locked) UnlockFile(file, 0, 0, 1, 0);
    CloseHandle(file);
    return locked;
}

MailProcess::Outcome MailProcess::wait_for(const Text& file, bool lives) {
    const std::uint64_t start_time = GetTickCount64();
    std::uint64_t looked = start_time;
    while (!exists(file)) {
        const std::uint64_t now = GetTickCount64();
        if (now - start_time > longest_wait) return Outcome::too_late;
        if (now - looked > look_at_reader_every) {
            looked = now;
            const bool lived = lives;
            lives = reader_lives();
            if (lived && !lives) return exists(file) ? Outcome::answered : Outcome::reader_gone;
        }
        pump_(wait_step);
    }
    return Outcome::answered;
}

void MailProcess::start(const std::string& file, const std::string& answer_file) {
    Text command_line = u"\"Z:" + automation::replaced(reader_, u"/", u"\\") + u"\" " + quoted(file) +
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

MailProcess::Outcome MailProcess::ask(const std::string& file, const std::string& answer_file,
                                      const Text& answer) {
    const Text request = automation::replaced(answer, u".json", u".request"), part = request + u".part";
    {
        std::ofstream lines(std::filesystem::path(part), std::ios::binary | std::ios::trunc);
        lines << file << '\n' << answer_file << '\n';
    }
    MoveFileW(windows::wide(part), windows::wide(request));
    const Outcome outcome = wait_for(answer, true);
    DeleteFileW(windows::wide(request));
    return outcome;
}

ItemData MailProcess::read(const Text& path) {
    const std::string file = native_path(path);
    const Text name = automation::to_text(static_cast<long long>(++requests_)) + u".json";
    const Text answer = folder_ + u"\\" + name;
    // the answer's folder exists, the answer does not yet: its name is built from the folder's
    const std::string answer_file = native_path(folder_) + "/" + automation::to_utf8(name);
    Outcome outcome = Outcome::reader_gone;
    if (GetTickCount64() < serves_until_ && reader_lives()) outcome = ask(file, answer_file, answer);
    if (outcome == Outcome::reader_gone) {
        start(file, answer_file);
        outcome = wait_for(answer, false);
    }
    if (outcome != Outcome::answered) {
        leave_folder();
        use_new_folder();
        throw Failure(result::fail, outcome == Outcome::too_late
                                        ? u"The mail reader gave no answer."
                                        : u"The mail reader ended before it had read the mail.");
    }
    serves_until_ = GetTickCount64() + surely_served;
    const std::string json = read_file(answer);
    DeleteFileW(windows::wide(answer));
    return mail::from_json(json);
}

Text MailProcess::page_text(automation::TextView html) {
    const Text file = folder_ + u"\\" + automation::to_text(static_cast<long long>(++requests_)) + u".eml";
    write_file(file, "Content-Type: text/html; charset=utf-8\r\nContent-Transfer-Encoding: 8bit\r\n\r\n" +
                         automation::to_utf8(html));
    const auto remove = [](const Text* path) { DeleteFileW(windows::wide(*path)); };
    const std::unique_ptr<const Text, decltype(remove)> removed(&file, remove);
    return read(file).fields[u"Body"].to_text();
}

}  // namespace desk
