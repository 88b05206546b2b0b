#include "family/windows/windows_context.h"

#include "addin/ground/product.h"
#include "addin/server/desktop/windows_desktop.h"
#include "automation/com/failure.h"
#include "automation/com/module_file.h"
#include "automation/com/variant.h"
#include "family/windows/registry_list.h"

namespace family {

using automation::Text;
using automation::TextView;

namespace {

LSTATUS read_text(HKEY key, const Text& name, Text& text) {
    DWORD bytes = 256;
    LSTATUS status = ERROR_MORE_DATA;
    while (status == ERROR_MORE_DATA) {  // somebody may write a longer text meanwhile
        text.resize(bytes / sizeof(char16_t));
        status = RegGetValueW(key, nullptr, windows::wide(name), RRF_RT_REG_SZ, nullptr, text.data(), &bytes);
    }
    return status;
}

}  // namespace

WindowsContext::Key WindowsContext::open_settings() {
    const std::wstring name(family_key);
    HKEY key = nullptr;
    RegOpenKeyExW(HKEY_CURRENT_USER, name.c_str(), 0, KEY_READ, &key);
    return Key(key);
}

std::optional<Text> WindowsContext::read_setting(TextView name) {
    const Text value(name);
    Text text;
    LSTATUS status = settings_ ? read_text(settings_.get(), value, text) : ERROR_KEY_DELETED;
    if (status == ERROR_KEY_DELETED) {  // or not yet there; another one of the same name may be
        settings_ = open_settings();
        if (!settings_) return std::nullopt;
        status = read_text(settings_.get(), value, text);
    }
    if (status != ERROR_SUCCESS) return std::nullopt;
    text.resize(text.find(u'\0'));
    return text;
}

automation::Object WindowsContext::application() {
    CLSID id{};
    windows::check(CLSIDFromProgID(L"Outlook.Application", &id), u"Outlook.Application");
    windows::ComPtr<IDispatch> application;
    windows::check(CoCreateInstance(id, nullptr, CLSCTX_SERVER, IID_IDispatch, application.put_void()),
                   u"Outlook.Application");
    return automation::Object(apartment_->adapt(application.get()));
}

std::shared_ptr<forms::Engine> WindowsContext::engine() {
    std::shared_ptr<windows::FormEngine> engine = engine_.lock();
    if (!engine) {
        engine = std::make_shared<windows::FormEngine>(apartment_->module(), windows::screen_dots_per_inch);
        engine_ = engine;
    }
    return engine;
}

void WindowsContext::tell(TextView text) {
    MessageBoxW(GetActiveWindow(), windows::wide(Text(text)), windows::wide(Text(addin::product_title)),
                MB_OK | MB_ICONINFORMATION);
}

void WindowsContext::record(Text call) {
    if (!append_to_list(L"Calls", windows::wide(call))) {
        throw automation::Failure(automation::result::fail, u"The family's list of calls can't be written");
    }
}

Text WindowsContext::number_text(double number) {
    windows::Bstr text;
    windows::check(VarBstrFromR8(number, LOCALE_USER_DEFAULT, 0, text.put()), u"VarBstrFromR8");
    return Text(text.view());
}

Text WindowsContext::time_text(automation::Date date) {
    windows::Bstr text;
    windows::check(VarBstrFromDate(date.days, LOCALE_USER_DEFAULT, VAR_TIMEVALUEONLY, text.put()),
                   u"VarBstrFromDate");
    return Text(text.view());
}

/// The program stands beside this library. It writes to a console, which stays for its reader.
void WindowsContext::start_check() {
    const Text library = windows::module_file();
    const Text program = library.substr(0, library.rfind(u'\\') + 1) + u"TarnwellAdmin.exe";
    if (GetFileAttributesW(windows::wide(program)) == INVALID_FILE_ATTRIBUTES) return Context::start_check();
    Text shell(MAX_PATH, u'\0');
    shell.resize(GetSystemDirectoryW(reinterpret_cast<wchar_t*>(shell.data()), MAX_PATH));
    shell += u"\\cmd.exe";
    std::wstring line(windows::wide(u"cmd.exe /k \"\"" + program + u"\" check\""));
    STARTUPINFOW how{};
    how.cb = sizeof how;
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(windows::wide(shell), line.data(), nullptr, nullptr, FALSE, CREATE_NEW_CONSOLE,
                        nullptr, nullptr, &how, &started)) {
        throw automation::Failure(automation::result::fail, u"TarnwellAdmin.exe could not be started.");
    }
    CloseHandle(started.hThread);
    CloseHandle(started.hProcess);
}

}  // namespace family
