#include "addin/connect/discovery.h"

#include "addin/ground/settings.h"
#include "addin/ground/steps.h"
#include "addin/records/database.h"
#include "addin/records/names.h"

namespace addin {

using automation::Text;
using host::outlook::Folder;
using host::outlook::Folders;

namespace {

constexpr automation::TextView line_ends = u"\r\r";  // carriage returns only, as the box has always shown it

Folders top_level(const automation::Object& application) {
    return host::outlook::Application(application).GetNamespace(u"MAPI").Folders();
}

/// The folder above. What holds a store's root is no folder, which counts as a failure.
Folder parent_of(const Folder& folder) {
    const Folder parent(folder.Parent());
    if (parent.Class() != host::outlook::object_class::folder)
        throw automation::Failure(automation::result::type_mismatch);
    return parent;
}

/// The folder's path from its store's root: a backslash before each name and one at the end.
Text full_path(const Session& session, const Folder& folder, const Text& name) {
    const Steps steps(session);
    Text path = u"\\" + name;
    Folder above = folder;
    while (steps.set(above, [&] { return parent_of(above); }) &&
           steps.run([&] { path = u"\\" + above.Name() + path; })) {
    }
    return path + u"\\";
}

/// A chosen database becomes the default one.
void take_database(Session& session, DatabaseSearch& search, const Folder& folder, const Text& path,
                   const host::family::MainAddIn& main_add_in,
                   const std::function<void()>& take_application) {
    const Steps steps(session);
    search.SetDatabase = false;
    steps.set(search.whoami, [&] { return main_add_in.getcurrentusername(); });
    if (search.whoami.empty()) search.whoami = u"New User";

    Settings settings(session);
    steps.run([&] { settings.store(setting::store_id, folder.StoreID()); });
    steps.run([&] { settings.store(setting::folder_id, folder.EntryID()); });
    steps.run([&] { settings.store(setting::folder_name, path); });
    steps.run([&] { settings.store(setting::user_name, search.whoami); });
    steps.run(take_application);
    host::family::ReportsHost reports;
    steps.set(reports, [&] {
        return host::family::ReportsHost(session.desktop.create(host::family::prog_id::reports));
    });
    steps.run([&] { reports.Initiate(); });
    steps.run([&] { main_add_in.reloadtoolbar(u"UNLOAD"); });
    steps.run([&] { main_add_in.reloadtoolbar(u"RELOAD"); });
}

/// Asks for a found folder.
void offer(Session& session, DatabaseSearch& search, const Folder& folder,
           const host::family::MainAddIn& main_add_in, const std::function<void()>& take_application) {
    const Steps steps(session);
    Text name;  // stays empty for a folder that was taken because its name can't be read
    steps.set(name, [&] { return folder.Name(); });
    if (automation::trimmed(name).empty()) {
        steps.run([&] {
            session.desktop.message_box(u"Could not find a Tarnwell Folder", u"Tarnwell",
                                        host::box::information);
        });
        return;
    }
    const Text path = full_path(session, folder, name);
    Text question = u"A Tarnwell database was found at ";
    question += line_ends;
    question += path;
    question += line_ends;
    question += u"Would you like to use this location as the default database?";
    int answer = 0;
    steps.set(answer, [&] {
        return session.desktop.message_box(question, u"Choose Tarnwell Database", host::box::yes_no_cancel);
    });
    if (answer == host::box::answer_yes) {
        take_database(session, search, folder, path, main_add_in, take_application);
    } else if (answer == host::box::answer_cancel) {
        search.SetDatabase = false;
    }
}

/// The folders below a folder, if it has any; Nothing for one that refuses them.
Folders inhabited(const Session& session, const Folder& folder) {
    const Steps steps(session);
    Folders below;
    std::int32_t count = 0;
    steps.set(below, [&] { return folder.Folders(); });
    steps.set(count, [&] { return below.Count(); });
    return count > 0 ? below : Folders();
}

}  // namespace

void FindFolder(Session& session, DatabaseSearch& search, const std::function<void()>& take_application) {
    const Steps steps(session);
    search.SetDatabase = true;
    Folders ofolders;
    steps.set(ofolders, [&] { return top_level(session.desktop.application()); });
    if (!ofolders)
        steps.set(ofolders,
                  [&] { return top_level(session.desktop.create(host::outlook::application_prog_id)); });
    if (!ofolders) return;

    std::int32_t count = 0;
    steps.set(count, [&] { return ofolders.Count(); });
    for (std::int32_t i = 1; i <= count; ++i) {
        Folder store;
        steps.set(store, [&] { return ofolders.Item(i); });
        if (const Folders below = inhabited(session, store))
            FindNextFolder(session, search, below, take_application);
        if (!search.SetDatabase) return;
    }
}

void FindNextFolder(Session& session, DatabaseSearch& search, const Folders& ofolders,
                    const std::function<void()>& take_application) {
    const Steps steps(session);
    host::family::MainAddIn main_add_in;
    steps.set(main_add_in, [&] { return records::make_main_add_in(session.desktop); });

    std::int32_t count = 0;
    steps.set(count, [&] { return ofolders.Count(); });
    for (std::int32_t i = 1; i <= count; ++i) {
        Folder folder;
        steps.set(folder, [&] { return ofolders.Item(i); });
        if (!folder) continue;
        if (steps.possibly([&] { return folder.Name() == records::folder::account_profiles; })) {
            offer(session, search, folder, main_add_in, take_application);
            return;  // of one level's folders one database is offered
        }
        if (const Folders below = inhabited(session, folder))
            FindNextFolder(session, search, below, take_application);
        if (!search.SetDatabase) return;
    }
}

}  // namespace addin
