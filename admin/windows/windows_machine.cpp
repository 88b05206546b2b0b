#include "admin/windows/windows_machine.h"

#include "automation/com/failure.h"

namespace windows {
namespace {

using automation::Text;
using automation::TextView;

[[noreturn]] void throw_last_error() { throw_result(HRESULT_FROM_WIN32(GetLastError())); }

/// A registry key that is closed with its owner; null if it isn't there.
class OpenedKey {
  public:
    OpenedKey(HKEY root, const Text& path, REGSAM half) {
        if (RegOpenKeyExW(root, wide(path), 0, KEY_QUERY_VALUE | half, &key_) != ERROR_SUCCESS)
            key_ = nullptr;
    }
    OpenedKey(const OpenedKey&) = delete;
    OpenedKey& operator=(const OpenedKey&) = delete;
    ~OpenedKey() {
        if (key_) RegCloseKey(key_);
    }
    HKEY get() const { return key_; }

  private:
    HKEY key_ = nullptr;
};

/// A file that is closed with its owner.
class OpenedFile {
  public:
    OpenedFile(const Text& path, DWORD access, DWORD how)
        : handle_(CreateFileW(wide(path), access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, how,
                              FILE_ATTRIBUTE_NORMAL, nullptr)) {}
    OpenedFile(const OpenedFile&) = delete;
    OpenedFile& operator=(const OpenedFile&) = delete;
    ~OpenedFile() {
        if (*this) CloseHandle(handle_);
    }
    explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return handle_; }

  private:
    HANDLE handle_;
};

bool write_whole(const Text& path, const std::string& bytes) {
    const OpenedFile file(path, GENERIC_WRITE, CREATE_ALWAYS);
    DWORD written = 0;
    return file && WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
           written == bytes.size() && FlushFileBuffers(file.get());
}

}  // namespace

host::outlook::Application WindowsMachine::application() {
    const CLSID class_id = class_id_of(host::outlook::application_prog_id);
    ComPtr<IUnknown> running;
    if (SUCCEEDED(GetActiveObject(class_id, nullptr, running.put()))) {
        if (const ComPtr<IDispatch> object = running.as<IDispatch>(IID_IDispatch))
            return host::outlook::Application(automation::Object(apartment_->adapt(object.get())));
    }
    return host::outlook::Application(desktop_.application());
}

std::vector<admin::RegistryValue> WindowsMachine::values(admin::Hive hive, admin::Bits half, TextView key) {
    std::vector<admin::RegistryValue> all;
    const OpenedKey opened(hive == admin::Hive::user ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE, Text(key),
                           half == admin::Bits::x64 ? KEY_WOW64_64KEY : KEY_WOW64_32KEY);
    DWORD longest_name = 0, longest_value = 0;
    if (!opened.get() ||
        RegQueryInfoKeyW(opened.get(), nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                         &longest_name, &longest_value, nullptr, nullptr) != ERROR_SUCCESS)
        return all;
    std::vector<wchar_t> name(longest_name + 1);
    for (DWORD i = 0;; ++i) {
        admin::RegistryValue value;
        value.bytes.resize(longest_value);
        DWORD length = static_cast<DWORD>(name.size()), size = longest_value, type = 0;
        if (RegEnumValueW(opened.get(), i, name.data(), &length, nullptr, &type,
                          reinterpret_cast<BYTE*>(value.bytes.data()), &size) != ERROR_SUCCESS)
            return all;
        value.name = from_wide(name.data(), length);
        value.type = type;
        value.bytes.resize(size);
        all.push_back(std::move(value));
    }
}

std::optional<std::string> WindowsMachine::read_file(TextView path, std::size_t most) {
    const OpenedFile file(Text(path), GENERIC_READ, OPEN_EXISTING);
    if (!file) {
        const DWORD error = GetLastError();
        if (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND) return std::nullopt;
        throw_result(HRESULT_FROM_WIN32(error));
    }
    std::string bytes(most, '\0');
    DWORD read = 0;
    if (!ReadFile(file.get(), bytes.data(), static_cast<DWORD>(most), &read, nullptr)) throw_last_error();
    bytes.resize(read);
    return bytes;
}

void WindowsMachine::let_events_come() {
    constexpr DWORD longest_wait = 20;  // milliseconds
    MsgWaitForMultipleObjects(0, nullptr, FALSE, longest_wait, QS_ALLINPUT);
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

void WindowsMachine::write_file(TextView path, const std::string& bytes) {
    // what stands there is whole at any moment
    const Text beside = Text(path) + u".new";
    if (write_whole(beside, bytes) && MoveFileExW(wide(beside), wide(Text(path)), MOVEFILE_REPLACE_EXISTING))
        return;
    const DWORD error = GetLastError();
    DeleteFileW(wide(beside));
    throw_result(HRESULT_FROM_WIN32(error));
}

Text WindowsMachine::file_version(TextView path) {
    const Text file(path);
    DWORD ignored = 0;
    const DWORD size = GetFileVersionInfoSizeW(wide(file), &ignored);
    std::vector<BYTE> resource(size);
    VS_FIXEDFILEINFO* facts = nullptr;
    UINT length = 0;
    if (size == 0 || !GetFileVersionInfoW(wide(file), 0, size, resource.data()) ||
        !VerQueryValueW(resource.data(), L"\\", reinterpret_cast<void**>(&facts), &length) ||
        length < sizeof *facts)
        return {};
    const auto number = [](DWORD value) { return automation::to_text(static_cast<long long>(value)); };
    return number(HIWORD(facts->dwFileVersionMS)) + u"." + number(LOWORD(facts->dwFileVersionMS)) + u"." +
           number(HIWORD(facts->dwFileVersionLS));
}

}  // namespace windows
