#include "addin/server/registration.h"

#include <array>
#include <variant>
#include <vector>

#include "addin/connect/connect.h"
#include "addin/server/class_id.h"

namespace windows {
namespace {

using automation::Text;

/// One value, and the key that holds it. Without a name it is the key's own.
struct Entry {
    Text key;
    const wchar_t* name;
    std::variant<Text, DWORD> value;
};

constexpr DWORD connected_at_start = 3;

Text class_key() { return u"CLSID\\" + automation::from_utf8(connect_class_spelling); }
Text prog_id() { return Text(addin::connect_prog_id); }

// All is entered for the user alone: nobody needs to be an administrator, neither to enter it nor to undo it.
constexpr automation::TextView user_classes = u"Software\\Classes\\";
constexpr automation::TextView add_ins = u"Software\\Microsoft\\Office\\Outlook\\Addins\\";

std::vector<Entry> class_entries(const Text& file) {
    return {
        {prog_id(), nullptr, prog_id()},
        {prog_id() + u"\\CLSID", nullptr, automation::from_utf8(connect_class_spelling)},
        {class_key(), nullptr, prog_id()},
        {class_key() + u"\\InprocServer32", nullptr, file},
        {class_key() + u"\\InprocServer32", L"ThreadingModel", u"Apartment"},
        {class_key() + u"\\ProgID", nullptr, prog_id()},
    };
}

std::vector<Entry> add_in_entries() {
    return {
        {prog_id(), L"FriendlyName", u"Create Tarnwell Note"},
        {prog_id(), L"Description", u"Tarnwell Note Add-in"},
        {prog_id(), L"LoadBehavior", connected_at_start},
    };
}

class OpenKey {
  public:
    OpenKey() = default;
    OpenKey(const OpenKey&) = delete;
    OpenKey& operator=(const OpenKey&) = delete;
    ~OpenKey() {
        if (key_) RegCloseKey(key_);
    }
    HKEY get() const { return key_; }
    HKEY* put() { return &key_; }

  private:
    HKEY key_ = nullptr;
};

bool write(automation::TextView place, const Entry& entry) {
    OpenKey key;
    const Text path = Text(place) + entry.key;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, wide(path), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_SET_VALUE,
                        nullptr, key.put(), nullptr) != ERROR_SUCCESS) {
        return false;
    }
    const auto set = [&](DWORD type, const void* data, std::size_t size) {
        return RegSetValueExW(key.get(), entry.name, 0, type, static_cast<const BYTE*>(data),
                              static_cast<DWORD>(size)) == ERROR_SUCCESS;
    };
    if (const auto* number = std::get_if<DWORD>(&entry.value)) return set(REG_DWORD, number, sizeof *number);
    const Text& text = std::get<Text>(entry.value);
    return set(REG_SZ, text.c_str(), (text.size() + 1) * sizeof(char16_t));
}

bool write(automation::TextView place, const std::vector<Entry>& entries) {
    for (const Entry& entry : entries) {
        if (!write(place, entry)) return false;
    }
    return true;
}

/// Deletes a key and all below it.
bool remove(automation::TextView place, const Text& key) {
    const LSTATUS status = RegDeleteTreeW(HKEY_CURRENT_USER, wide(Text(place) + key));
    return status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND || status == ERROR_PATH_NOT_FOUND;
}

bool remove_class() {
    const bool class_gone = remove(user_classes, class_key());
    const bool name_gone = remove(user_classes, prog_id());
    return class_gone && name_gone;
}

bool is_empty(const Text& path) {
    OpenKey key;
    DWORD keys = 1, values = 1;
    return RegOpenKeyExW(HKEY_CURRENT_USER, wide(path), 0, KEY_QUERY_VALUE, key.put()) == ERROR_SUCCESS &&
           RegQueryInfoKeyW(key.get(), nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr,
                            nullptr, nullptr, nullptr) == ERROR_SUCCESS &&
           keys == 0 && values == 0;
}

bool remove_add_in() {
    if (!remove(add_ins, prog_id())) return false;
    // On a machine without the host, the keys above it came with the entry.
    for (Text path(add_ins); path.ends_with(u'\\') && path != u"Software\\Microsoft\\";) {
        path.pop_back();
        if (!is_empty(path)) break;
        RegDeleteKeyW(HKEY_CURRENT_USER, wide(path));
        path.resize(path.find_last_of(u'\\') + 1);
    }
    return true;
}

}  // namespace

HRESULT register_server(const Text& file) {
    if (write(user_classes, class_entries(file)) && write(add_ins, add_in_entries())) return S_OK;
    unregister_server();
    return SELFREG_E_CLASS;
}

HRESULT unregister_server() {
    const bool class_gone = remove_class();
    const bool add_in_gone = remove_add_in();
    return class_gone && add_in_gone ? S_OK : SELFREG_E_CLASS;
}

}  // namespace windows
