#include "desk/setup/desk_settings.h"

#include <algorithm>
#include <array>
#include <fstream>

#include "desk/setup/registry_text.h"

namespace desk {

using automation::Text;
using automation::TextView;

namespace {

constexpr const char16_t* key_path = u"Software\\Tarnwell\\Desk";

/// A setting under its name, as text in both directions.
struct SettingRow {
    TextView name;
    Text (*text)(const DeskSettings&);
    void (*take)(DeskSettings&, const Text&);
};

template <Text DeskSettings::*member>
constexpr SettingRow text_row(TextView name) {
    return {name, [](const DeskSettings& settings) { return settings.*member; },
            [](DeskSettings& settings, const Text& text) { settings.*member = text; }};
}

template <bool Options::*member>
constexpr SettingRow flag_row(TextView name) {
    return {name, [](const DeskSettings& settings) { return Text(settings.options.*member ? u"1" : u"0"); },
            [](DeskSettings& settings, const Text& text) { settings.options.*member = text == u"1"; }};
}

/// The host's own order for a name, or a choice of events, that has none.
const NamedOrder& order_of(const auto& wanted, auto projection) {
    const auto found = std::ranges::find(event_orders, wanted, projection);
    return found == event_orders.end() ? event_orders.front() : *found;
}

constexpr std::array<SettingRow, 12> rows = {{
    text_row<&DeskSettings::database>(u"Database"),
    text_row<&DeskSettings::mail_reader>(u"MailReader"),
    text_row<&DeskSettings::log_file>(u"LogFile"),
    text_row<&DeskSettings::state>(u"State"),
    text_row<&DeskSettings::indexed_folder>(u"IndexedFolder"),
    {u"HostVersion", [](const DeskSettings& settings) { return settings.options.host_version; },
     [](DeskSettings& settings, const Text& text) { settings.options.host_version = text; }},
    {u"Language", [](const DeskSettings& settings) { return automation::to_text(settings.options.language); },
     [](DeskSettings& settings, const Text& text) {
         settings.options.language = automation::Value(text).to_integer();
     }},
    {u"EventOrder",
     [](const DeskSettings& settings) {
         const auto at_once = [](const NamedOrder& each) { return AtOnce::of(each.order); };
         return automation::from_utf8(order_of(settings.options.at_once, at_once).name);
     },
     [](DeskSettings& settings, const Text& text) {
         settings.options.at_once = AtOnce::of(order_of(automation::to_utf8(text), &NamedOrder::name).order);
     }},
    {u"FirstPage", [](const DeskSettings& settings) { return Text(settings.first_page ? u"1" : u"0"); },
     [](DeskSettings& settings, const Text& text) { settings.first_page = text == u"1"; }},
    flag_row<&Options::instant_search>(u"InstantSearch"),
    flag_row<&Options::word_mail>(u"WordMail"),
    flag_row<&Options::unattended>(u"Unattended"),
}};

}  // namespace

DeskSettings read_settings() {
    DeskSettings settings;
    for (const SettingRow& row : rows) {
        if (const auto text = registry::read_text(HKEY_CURRENT_USER, key_path, Text(row.name)))
            row.take(settings, *text);
    }
    return settings;
}

void write_settings(const DeskSettings& settings) {
    for (const SettingRow& row : rows) store_setting(row.name, row.text(settings));
}

Text stored_setting(TextView name) {
    return registry::read_text(HKEY_CURRENT_USER, key_path, Text(name)).value_or(Text());
}

void store_setting(TextView name, TextView text) {
    registry::write_text(HKEY_CURRENT_USER, key_path, Text(name), Text(text));
}

DeskSettings settings_of(const std::filesystem::path& file) {
    DeskSettings settings;
    std::ifstream lines(file, std::ios::binary);
    if (!lines) throw automation::Failure(automation::result::fail, u"The file of settings can't be read.");
    for (std::string line; std::getline(lines, line);) {
        const Text text = automation::from_utf8(line);
        const std::size_t sign = text.find(u'=');
        const auto row = std::ranges::find(rows, TextView(text).substr(0, sign), &SettingRow::name);
        if (sign == Text::npos || row == rows.end()) {
            throw automation::Failure(automation::result::fail,
                                      u"The desk has no setting \"" + text + u"\".");
        }
        row->take(settings, text.substr(sign + 1));
    }
    return settings;
}

}  // namespace desk
