#include "family/windows/registration.h"

#include <array>

#include "automation/com/com_ptr.h"

namespace family {
namespace {

using automation::Text;
using automation::TextView;

struct Entry {
    Text key;
    const wchar_t* value;  ///< null for the key's default value
    Text text;
};

Text class_key(const ClassEntry& entry) {
    std::array<wchar_t, 40> spelling{};
    const GUID id = windows::to_guid(entry.id);
    const int length = StringFromGUID2(id, spelling.data(), static_cast<int>(spelling.size()));
    return u"CLSID\\" + Text(windows::from_wide(spelling.data(), static_cast<std::size_t>(length) - 1));
}

std::array<Entry, 6> entries(const ClassEntry& entry, const Text& file) {
    const Text prog_id(entry.prog_id), of_class = class_key(entry), server = of_class + u"\\InprocServer32";
    const Text id = of_class.substr(TextView(u"CLSID\\").size());
    return {{{prog_id, nullptr, prog_id},
             {prog_id + u"\\CLSID", nullptr, id},
             {of_class, nullptr, prog_id},
             {of_class + u"\\ProgID", nullptr, prog_id},
             {server, nullptr, file},
             {server, L"ThreadingModel", u"Apartment"}}};
}

LSTATUS write(const Entry& entry) {
    const auto bytes = static_cast<DWORD>((entry.text.size() + 1) * sizeof(char16_t));
    return RegSetKeyValueW(HKEY_CLASSES_ROOT, windows::wide(entry.key), entry.value, REG_SZ,
                           entry.text.c_str(), bytes);
}

}  // namespace

HRESULT register_classes(std::span<const ClassEntry> classes, const Text& file) {
    for (const ClassEntry& of_class : classes) {
        for (const Entry& entry : entries(of_class, file)) {
            if (const LSTATUS status = write(entry); status != ERROR_SUCCESS) {
                return HRESULT_FROM_WIN32(static_cast<DWORD>(status));
            }
        }
    }
    return S_OK;
}

HRESULT unregister_classes(std::span<const ClassEntry> classes) {
    HRESULT result = S_OK;
    for (const ClassEntry& entry : classes) {
        for (const Text& key : {Text(entry.prog_id), class_key(entry)}) {
            const LSTATUS status = RegDeleteTreeW(HKEY_CLASSES_ROOT, windows::wide(key));
            if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND) {
                result = HRESULT_FROM_WIN32(static_cast<DWORD>(status));
            }
        }
    }
    return result;
}

}  // namespace family
