// The way to the database's folders.
#pragma once

#include "addin/ground/session.h"
#include "addin/ground/steps.h"
#include "addin/host/desktop.h"
#include "addin/host/family.h"
#include "addin/host/outlook.h"
#include "addin/records/names.h"

namespace addin::records {

/// Makes the sibling object that knows where the database is. It is made for each use.
inline host::family::MainAddIn make_main_add_in(host::Desktop& desktop) {
    return host::family::MainAddIn(desktop.create(host::family::prog_id::main_add_in));
}

/// The sibling object that reads a mail's guarded members.
inline host::family::SafeMailItem make_safe_mail(host::Desktop& desktop) {
    return host::family::SafeMailItem(desktop.create(host::family::prog_id::safe_mail_item));
}

/// Opens a folder of the database by its name, "Account Profiles" or "System Folder". Throws `Failure` if
/// anything on the way fails.
inline host::outlook::Folder open_folder(host::Desktop& desktop, const host::family::MainAddIn& main_add_in,
                                         automation::TextView name) {
    const automation::Text folder_id = main_add_in.GetFolderId(name);
    const automation::Text store_id = main_add_in.GetStoreId();
    return host::outlook::Application(desktop.application())
        .GetNamespace(u"MAPI")
        .GetFolderFromID(folder_id, store_id);
}

/// The database as most routines begin with it: the sibling object, and the folder of the accounts. What
/// can't be had is empty. `steps` are those of a routine that wants to know of failures.
struct Database {
    host::family::MainAddIn main_add_in;
    host::outlook::Folder account_profiles;
};

inline Database open_database(const Session& session, const Steps& steps) {
    host::Desktop& desktop = session.desktop;
    Database database;
    steps.set(database.main_add_in, [&] { return make_main_add_in(desktop); });
    steps.set(database.account_profiles,
              [&] { return open_folder(desktop, database.main_add_in, folder::account_profiles); });
    return database;
}
inline Database open_database(const Session& session) { return open_database(session, Steps(session)); }

}  // namespace addin::records
