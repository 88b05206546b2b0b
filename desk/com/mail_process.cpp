#include "desk/com/mail_process.h"

#include <array>

#include "desk/mail/message.h"
#include "desk/model/item_file.h"
#include "windows/com/com_ptr.h"

namespace desk {

using host::Failure;
using host::Text;
using host::TextView;
namespace result = host::result;

namespace {

constexpr DWORD longest_wait = 30000, wait_step = 2, attempt_step = 100;  // milliseconds
constexpr int most_attempts = 20;

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

void start(Text command_line, const Text& reader) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    auto* const line = reinterpret_cast<wchar_t*>(command_line.data());
    // a machine that is short of processes refuses one for a moment
    for (int attempt = 1; !CreateProcessW(nullptr, line, nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr,
                                          nullptr, &startup, &process);
         ++attempt) {
        if (attempt == most_attempts) {
            throw Failure(result::file_not_found,
                          u"The mail reader \"" + reader + u"\" could not be started.");
        }
        Sleep(attempt_step);
    }
    // a native program has no handles to wait for
    if (process.hThread) CloseHandle(process.hThread);
    if (process.hProcess) CloseHandle(process.hProcess);
}

}  // namespace

ItemData read_mail_with(const Text& reader, const Text& state, const Text& path) {
    const std::string file = native_path(path);
    const Text answer = state + u"\\mail-" + host::to_text(static_cast<long long>(GetCurrentProcessId())) +
                        u"-" + host::to_text(static_cast<long long>(GetTickCount64())) + u".json";
    // the answer's folder exists, the answer does not yet: its name is built from the folder's
    const std::string answer_file =
        native_path(state) + "/" + host::to_utf8(answer.substr(answer.rfind(u'\\') + 1));
    start(u"\"Z:" + host::replaced(reader, u"/", u"\\") + u"\" " + quoted(file) + u" --output " +
              quoted(answer_file),
          reader);
    for (DWORD waited = 0; GetFileAttributesW(windows::wide(answer)) == INVALID_FILE_ATTRIBUTES;
         waited += wait_step) {
        if (waited > longest_wait) throw Failure(result::fail, u"The mail reader gave no answer.");
        Sleep(wait_step);
    }
    const std::string json = read_file(answer);
    DeleteFileW(windows::wide(answer));
    return mail::from_json(json);
}

}  // namespace desk
