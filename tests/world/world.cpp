#include "tests/world/world.h"

#include "addin/ground/settings.h"

namespace acceptance {

using automation::Object;
using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Folder;
using host::outlook::Item;

namespace {

constexpr TextView family_key = u"Software\\Tarnwell\\Family";

/// The folder of a name at or below one, depth first; Nothing if there is none.
Folder find_folder(const host::outlook::Folders& folders, TextView name) {
    const std::int32_t count = folders.Count();
    for (std::int32_t i = 1; i <= count; ++i) {
        const Folder folder = folders.Item(i);
        if (folder.Name() == name) return folder;
        if (const Folder found = find_folder(folder.Folders(), name)) return found;
    }
    return {};
}

}  // namespace

Object World::connect() {
    return application().COMAddIns().Item(u"CreateNote.Connect").get(u"Object").to_object();
}

Folder World::account_profiles() {
    const host::outlook::NameSpace name_space = this->name_space();
    if (anchor_id_.empty()) {
        const Folder found = find_folder(name_space.Folders(), u"Account Profiles");
        if (!found) return {};
        anchor_id_ = found.EntryID();
        anchor_store_ = found.StoreID();
    }
    return name_space.GetFolderFromID(anchor_id_, anchor_store_);
}

void World::option(TextView name, TextView value) { addin::Settings(desktop()).store(name, value); }

void World::option(TextView name, std::int32_t value) {
    addin::Settings(desktop()).SetKeyValue(host::current_user, addin::Settings::key_name, name, value,
                                           host::registry_type::dword);
}

void World::own_option(TextView name, TextView value) {
    addin::Settings(desktop()).SetKeyValue(host::current_user, addin::Settings::own_key_name, name,
                                           Value(value), host::registry_type::text);
}

void World::family(TextView name, TextView value) {
    addin::Settings(desktop()).SetKeyValue(host::current_user, family_key, name, Value(value),
                                           host::registry_type::text);
}

Text World::family(TextView name) {
    return addin::Settings(desktop()).GetKeyValueEx(host::current_user, family_key, name).to_text();
}

std::vector<Text> World::family_calls() {
    std::vector<Text> calls;
    for (unsigned number = 1;; ++number) {
        Text digits = automation::to_text(static_cast<long long>(number));
        digits.insert(0, 4 - digits.size(), u'0');
        const Text call = addin::Settings(desktop())
                              .GetKeyValueEx(host::current_user, Text(family_key) + u"\\Calls", digits)
                              .to_text();
        if (call.empty()) return calls;
        calls.push_back(call);
    }
}

Item World::deliver(const std::string& message) {
    std::string bytes;
    for (const char c : message) {
        if (c == '\n') bytes += '\r';
        bytes += c;
    }
    return Item(desk().call(u"Deliver", {Value(write_file("delivered.eml", bytes))}).to_object());
}

void World::read(const Item& mail) {
    mail.put(u"UnRead", false);
    mail.Save();
}

Text World::text(const Object& object, TextView member) {
    return desk().call(u"Text", {Value(object), Value(member)}).to_text();
}

Text World::property(const Item& item, TextView name) {
    return item.UserProperties().Item(name).value().to_text();
}

void World::fail(TextView member, std::int32_t after, std::int32_t times) {
    desk().call(u"Fail", {Value(member), after, times});
}

std::int32_t World::displayed() { return desk().get(u"Displayed").to_object().get(u"Count").to_integer(); }

std::vector<host::outlook::Item> World::displayed_since(std::int32_t before) {
    const Object all = desk().get(u"Displayed").to_object();
    const std::int32_t count = all.get(u"Count").to_integer();
    std::vector<host::outlook::Item> items;
    for (std::int32_t i = before + 1; i <= count; ++i) items.emplace_back(all.call(u"Item", {i}).to_object());
    return items;
}

Lines World::ids_displayed_since(std::int32_t before) {
    Lines ids;
    for (const host::outlook::Item& item : displayed_since(before)) {
        ids.push_back(automation::to_utf8(item.EntryID()));
    }
    return ids;
}

void World::settle() {
    constexpr std::int32_t moment = 50;  // milliseconds
    desk().call(u"Pump", {moment});
}

bool World::wait_for_handlers() {
    settle();
    return wait_until([this] { return desk().get(u"Telling").to_integer() == 0; });
}

bool World::wait_until(const std::function<bool()>& condition) {
    constexpr int rounds = 200;
    constexpr std::int32_t round = 25;  // milliseconds
    for (int i = 0; i < rounds; ++i) {
        if (condition()) return true;
        desk().call(u"Pump", {round});
    }
    return condition();
}

}  // namespace acceptance
