#include "desk/com/desk_settings.h"

#include <algorithm>
#include <array>

#include "automation/com/com_ptr.h"

namespace desk {

using automation::Text;
using automation::TextView;

namespace {

constexpr const wchar_t* key_path = L"Software\\Tarnwell\\Desk";

Text value(TextView name, TextView otherwise = {}) {
    std::array<wchar_t, 4096> buffer{};
    DWORD size = sizeof buffer;
    const LSTATUS status = RegGetValueW(HKEY_CURRENT_USER, key_path, windows::wide(Text(name)), RRF_RT_REG_SZ,
                                        nullptr, buffer.data(), &size);
    if (status != ERROR_SUCCESS) return Text(otherwise);
    return Text(reinterpret_cast<const char16_t*>(buffer.data()));
}

/// The host's own order for a name that there is not.
EventOrder order(TextView name) {
    const auto found = std::ranges::find(event_orders, automation::to_utf8(name), &NamedOrder::name);
    return found == event_orders.end() ? EventOrder::host : found->order;
}

}  // namespace

DeskSettings read_settings() {
    DeskSettings settings;
    settings.database = value(u"Database");
    settings.mail_reader = value(u"MailReader");
    settings.log_file = value(u"LogFile");
    settings.state = value(u"State");
    settings.indexed_folder = value(u"IndexedFolder");
    settings.options.host_version = value(u"HostVersion", settings.options.host_version);
    settings.options.instant_search = value(u"InstantSearch") == u"1";
    settings.options.language = automation::Value(value(u"Language", u"1033")).to_integer();
    settings.options.at_once = AtOnce::of(order(value(u"EventOrder")));
    settings.options.word_mail = value(u"WordMail") == u"1";
    settings.options.unattended = value(u"Unattended", u"1") == u"1";
    return settings;
}

void store_setting(TextView name, TextView text) {
    const Text terminated(text);
    RegSetKeyValueW(HKEY_CURRENT_USER, key_path, windows::wide(Text(name)), REG_SZ, windows::wide(terminated),
                    static_cast<DWORD>((terminated.size() + 1) * sizeof(wchar_t)));
}

}  // namespace desk
