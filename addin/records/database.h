// The way to the database's folders.
#pragma once

#include "core/steps.h"
#include "host/desktop.h"
#include "host/family.h"
#include "host/outlook.h"

namespace addin::records {

/// Makes the sibling object that knows where the database is. It is made for each use.
inline host::family::MainAddIn make_main_add_in(host::Desktop& desktop) {
    return host::family::MainAddIn(desktop.create(host::family::prog_id::main_add_in));
}

/// Opens a folder of the database by its name, "Account Profiles" or "System Folder". Throws `Failure` if
/// anything on the way fails.
inline host::outlook::Folder open_folder(host::Desktop& desktop, const host::family::MainAddIn& main_add_in,
                                         host::TextView name) {
    const host::Text folder_id = main_add_in.GetFolderId(name);
    const host::Text store_id = main_add_in.GetStoreId();
    return host::outlook::Application(desktop.application())
        .GetNamespace(u"MAPI")
        .GetFolderFromID(folder_id, store_id);
}

}  // namespace addin::records
