// Finding a database in a fresh profile: the stores are walked, and what is found is offered to the user.
#pragma once

#include "addin/ground/session.h"
#include "addin/host/outlook.h"

namespace addin {

/// What a search leaves behind. `SetDatabase` is its stop signal: True while it goes on.
struct DatabaseSearch {
    bool SetDatabase = false;
    automation::Text whoami;
};

/// Walks all stores of the profile, until the user chose a database or cancelled.
/// `take_application` runs when a database was chosen: it fills the holder of the application, if that is
/// empty.
void FindFolder(Session& session, DatabaseSearch& search, const std::function<void()>& take_application);

/// The same for one collection of folders, depth first.
void FindNextFolder(Session& session, DatabaseSearch& search, const host::outlook::Folders& ofolders,
                    const std::function<void()>& take_application);

}  // namespace addin
