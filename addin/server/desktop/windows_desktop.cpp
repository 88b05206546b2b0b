#include "addin/server/desktop/windows_desktop.h"

#include "automation/com/failure.h"
#include "automation/com/module_file.h"
#include "forms/windows/modal_show.h"
#include "forms/windows/window_worked_in.h"

#include <shellapi.h>

namespace windows {
namespace {

constexpr automation::TextView application_prog_id = u"Outlook.Application";

/// Attributes of what a plain search of files passes over.
constexpr DWORD passed_over = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_DIRECTORY;

constexpr int first_day = 1, first_week = 1;  // of named formats; the ones in use don't depend on them

class FoundFile {
  public:
    explicit FoundFile(const automation::Text& path) : search_(FindFirstFileW(wide(path), &data_)) {}
    FoundFile(const FoundFile&) = delete;
    FoundFile& operator=(const FoundFile&) = delete;
    ~FoundFile() {
        if (search_ != INVALID_HANDLE_VALUE) FindClose(search_);
    }

    explicit operator bool() const { return search_ != INVALID_HANDLE_VALUE; }
    const WIN32_FIND_DATAW& operator*() const { return data_; }
    bool next() { return FindNextFileW(search_, &data_) != FALSE; }

  private:
    WIN32_FIND_DATAW data_{};
    HANDLE search_;
};

}  // namespace

automation::Object WindowsDesktop::create(automation::TextView prog_id) {
    // The host's own class object is not kept: a host that closes waits for the last reference.
    const ComPtr<IDispatch> object = automation::same_ignoring_case(prog_id, application_prog_id)
                                         ? make_object(class_id_of(prog_id))
                                         : class_objects_.make(prog_id);
    return apartment_->adapt(object.get());
}

void WindowsDesktop::release_others() {
    application_.reset();
    class_objects_.let_go();
}

automation::Object WindowsDesktop::application() {
    if (!application_) application_ = create(application_prog_id);
    return application_;
}

int WindowsDesktop::message_box(automation::TextView text, automation::TextView title, std::uint32_t style) {
    const HWND owner = window_worked_in();
    const WaitingWindows others(owner);  // the owner itself waits by the box's own doing
    return MessageBoxW(owner, wide(automation::Text(text)), wide(automation::Text(title)), style);
}

void WindowsDesktop::yield() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));  // for the host's own loop
            return;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void WindowsDesktop::sleep(std::uint32_t milliseconds) { Sleep(milliseconds); }

int screen_dots_per_inch() {
    const HWND window = GetDesktopWindow();
    const HDC context = GetDC(window);
    const int dots = GetDeviceCaps(context, LOGPIXELSX);
    ReleaseDC(window, context);
    return dots;
}

automation::Text WindowsDesktop::find_file(automation::TextView path) {
    FoundFile file{automation::Text(path)};
    if (!file) return {};
    do {
        if (((*file).dwFileAttributes & passed_over) == 0) {
            return automation::Text(from_wide((*file).cFileName, wcslen((*file).cFileName)));
        }
    } while (file.next());
    return {};
}

void WindowsDesktop::delete_file(automation::TextView path) {
    if (!DeleteFileW(wide(automation::Text(path)))) check(HRESULT_FROM_WIN32(GetLastError()));
}

std::intptr_t WindowsDesktop::shell_execute(const host::ShellRequest& request) {
    return reinterpret_cast<std::intptr_t>(
        ShellExecuteA(reinterpret_cast<HWND>(request.window), narrow(request.operation).c_str(),
                      narrow(request.file).c_str(), narrow(request.parameters).c_str(),
                      narrow(request.directory).c_str(), request.show_mode));
}

automation::Text WindowsDesktop::section_names(automation::TextView path, std::uint32_t size) {
    std::string names(size, '\0');
    names.resize(GetPrivateProfileSectionNamesA(names.data(), size, narrow(path).c_str()));
    return widen(names);
}

automation::Text WindowsDesktop::profile_text(automation::TextView path, automation::TextView section,
                                              automation::TextView key, std::uint32_t size) {
    std::string text(size, '\0');
    text.resize(GetPrivateProfileStringA(narrow(section).c_str(), narrow(key).c_str(), "", text.data(), size,
                                         narrow(path).c_str()));
    return widen(text);
}

void WindowsDesktop::beep() { MessageBeep(MB_OK); }

automation::Text WindowsDesktop::own_folder() {
    const automation::Text file = module_file();
    return file.substr(0, file.find_last_of(u'\\'));
}

automation::Text WindowsDesktop::text_of(const automation::Value& value) {
    Variant from, to;
    if (value.is(automation::Value::Type::number)) {
        from.vt = VT_R8;
        from.dblVal = value.to_number();
    } else if (value.is(automation::Value::Type::date)) {
        from.vt = VT_DATE;
        from.date = value.to_date().days;
    } else {
        return value.to_text();
    }
    check(VariantChangeTypeEx(&to, &from, LOCALE_USER_DEFAULT, 0, VT_BSTR));
    return automation::Text(from_wide(to.bstrVal, SysStringLen(to.bstrVal)));
}

automation::Date WindowsDesktop::date_of(automation::TextView text) {
    automation::Text units(text);
    automation::Date date;
    check(VarDateFromStr(reinterpret_cast<wchar_t*>(units.data()), LOCALE_USER_DEFAULT, 0, &date.days));
    return date;
}

automation::Text WindowsDesktop::format(automation::TextView value, automation::TextView named_format) {
    Variant text;
    text.bstrVal = Bstr(value).detach();
    text.vt = VT_BSTR;
    automation::Text name(named_format);
    Bstr formatted;
    check(VarFormat(&text, const_cast<wchar_t*>(wide(name)), first_day, first_week, 0, formatted.put()));
    return automation::Text(formatted.view());
}

std::string WindowsDesktop::narrow(automation::TextView text) {
    if (text.empty()) return {};
    const automation::Text units(text);
    const int length = static_cast<int>(units.size());
    const int size = WideCharToMultiByte(CP_ACP, 0, wide(units), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_ACP, 0, wide(units), length, bytes.data(), size, nullptr, nullptr);
    return bytes;
}

automation::Text WindowsDesktop::widen(const std::string& bytes) {
    if (bytes.empty()) return {};
    const int length = static_cast<int>(bytes.size());
    const int size = MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, nullptr, 0);
    automation::Text text(static_cast<std::size_t>(size), u'\0');
    MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, reinterpret_cast<wchar_t*>(text.data()), size);
    return text;
}

}  // namespace windows
