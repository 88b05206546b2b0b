// What the add-in works with: the family, the database, the settings, the search.
#include <algorithm>

#include "addin/ground/settings.h"
#include "addin/host/search.h"
#include "addin/records/names.h"
#include "admin/checked.h"
#include "admin/database.h"
#include "admin/plan.h"

namespace admin {
namespace {

using automation::Failure;
using automation::Object;
using automation::Value;
namespace prog_id = host::family::prog_id;

/// A sibling, and what is missing without it.
struct SiblingRow {
    TextView prog_id;
    const char* what;
};
constexpr SiblingRow siblings[] = {{prog_id::main_add_in, "the main add-in"},
                                   {prog_id::list_picker, "the picker of accounts and contacts"},
                                   {prog_id::reports, "the reports"},
                                   {prog_id::safe_mail_item, "the safe wrapper of mails"},
                                   {prog_id::safe_contact_item, "the safe wrapper of contacts"},
                                   {prog_id::safe_post_item, "the safe wrapper of posts"}};

constexpr const char* install_family = "install or repair the main add-in with its parts";

void check_sibling(Checked& checked, const SiblingRow& row) {
    const std::string about = "sibling " + shown(row.prog_id);
    if (!checked.application) return checked.not_asked(about, "no host answers");
    try {
        const Object made = checked.application.CreateObject(row.prog_id);
        if (!made) throw Failure(automation::result::no_such_class, u"nothing came");
        if (row.prog_id == prog_id::main_add_in) checked.family = host::family::MainAddIn(made);
        checked.ok(about, row.what);
    } catch (const Failure& failure) {
        const bool registered = failure.number() != automation::result::bad_prog_id &&
                                failure.number() != automation::result::no_such_class;
        checked.wrong(
            about,
            std::string(row.what) +
                (registered ? " can't be made: " + sentence(failure.description()) : " is not registered"),
            install_family);
    }
}

/// A switch's value is compared as text with one alone.
void check_setting(Checked& checked, addin::Settings& settings, host::KeyHandle key,
                   const PlannedSetting& setting) {
    const std::string about = "setting " + shown(setting.name);
    Value value;
    const std::int32_t status = settings.QueryValueEx(key, setting.name, value);
    if (status == host::registry_status::file_not_found) return;  // it has no value
    if (status != host::registry_status::success) {
        return checked.wrong(about, "its value is neither text nor number, so it counts as none",
                             "write it as a text");
    }
    const std::string text = shown(settings.option(setting.name));
    if (!setting.is_switch) return checked.ok(about, "\"" + text + "\"; " + setting.meaning);
    const bool is_on = setting.on_without_value ? text != "0" : text == "1";
    const std::string told = "\"" + text + "\", which is " + (is_on ? "on" : "off") + "; " + setting.meaning;
    if (text == "0" || text == "1") return checked.ok(about, told);
    checked.wrong(about, told, "write 1 or 0");
}

}  // namespace

void check_siblings(Checked& checked) {
    for (const SiblingRow& row : siblings) check_sibling(checked, row);
}

void check_store(Checked& checked) {
    constexpr auto about = "store";
    if (!checked.family) return checked.not_asked(about, "the main add-in can't be made");
    try {
        const Text store = checked.family.GetStoreId();
        if (!store.empty()) return checked.ok(about, "the main add-in knows the store of the database");
        checked.wrong(about, "the main add-in knows no database", "choose one in the main add-in");
    } catch (const Failure& failure) {
        checked.wrong(about, "the main add-in does not tell it: " + sentence(failure.description()),
                      install_family);
    }
}

void check_account_profiles(Checked& checked) {
    constexpr auto about = "Account Profiles";
    if (!checked.family) return checked.not_asked(about, "the main add-in can't be made");
    try {
        const Text folder_id = checked.family.GetFolderId(addin::records::folder::account_profiles);
        checked.account_profiles =
            checked.application.GetNamespace(u"MAPI").GetFolderFromID(folder_id, checked.family.GetStoreId());
        checked.ok(about, shown(path_of(checked.account_profiles)));
    } catch (const Failure& failure) {
        checked.account_profiles = {};
        checked.wrong(about, "the folder is not found: " + sentence(failure.description()),
                      "choose the database in the main add-in, or make one by TarnwellAdmin database");
    }
}

void check_tree(Checked& checked) {
    constexpr auto about = "database";
    if (!checked.account_profiles) return checked.not_asked(about, "Account Profiles is not found");
    try {
        const Text root = path_of(host::outlook::Folder(checked.account_profiles.Parent()));
        const Report report = look_after_database({.root_path = root, .only_check = true}, checked.machine);
        checked.lines.insert(checked.lines.end(), report.lines.begin(), report.lines.end());
        if (report.well()) checked.ok(about, shown(root) + " has all that belongs to it");
    } catch (const Failure& failure) {
        checked.wrong(about, "it can't be looked at: " + sentence(failure.description()), "see to the store");
    } catch (const Refusal& refusal) {
        checked.wrong(about, sentence(automation::from_utf8(refusal.what())), "see to the store");
    }
}

void check_settings(Checked& checked) {
    host::Desktop& desktop = checked.machine.desktop();
    host::KeyHandle key = host::no_key;
    if (desktop.registry().open_key(host::current_user, desktop.narrow(addin::Settings::key_name), key) !=
        host::registry_status::success)
        return;  // no setting has a value
    addin::Settings settings(desktop);
    for (const PlannedSetting& setting : planned_settings()) check_setting(checked, settings, key, setting);
    desktop.registry().close_key(key);
}

void check_index(Checked& checked) {
    constexpr auto about = "indexed search";
    const bool is_wanted =
        addin::Settings(checked.machine.desktop()).option(addin::setting::enable_desktop_search) ==
        addin::option_on;
    try {
        const host::search::Connection connection(
            checked.machine.desktop().create(host::search::connection_prog_id));
        connection.Open(host::search::provider);
        connection.Close();
        checked.ok(about,
                   std::string("there, and ") + (is_wanted ? "asked" : "not asked, by EnableDesktopSearch"));
    } catch (const Failure& failure) {
        if (!is_wanted) return checked.ok(about, "not there, and not asked, by EnableDesktopSearch");
        checked.wrong(about, "not there: " + sentence(failure.description()),
                      "start the service Windows Search, or switch EnableDesktopSearch off");
    }
}

}  // namespace admin
