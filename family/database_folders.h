// Finds the database's folders in the profile's message stores.
#pragma once

#include "addin/host/outlook.h"
#include "family/context.h"

namespace family {

class DatabaseFolders {
  public:
    explicit DatabaseFolders(Context& context);

    /// The database folder of exactly that name, or Nothing. "Account Profiles" is the first one, depth
    /// first; any other one is looked for beside "Account Profiles", then below it and its neighbours, then
    /// everywhere. The store of the setting `StoreID` comes before the others.
    host::outlook::Folder folder(automation::TextView name);

    /// The folder at the end of a chain of names from a store's root, "\\Store\Folder\Folder" with as many
    /// backslashes at its ends as one likes; Nothing if it leads nowhere. Throws
    /// `Failure(result::invalid_argument)` if no name is in it.
    host::outlook::Folder folder_at(automation::TextView path);

    /// The drop-down records of a list, in the order of their folder, and their subjects.
    std::vector<host::outlook::Item> drop_down_records(automation::TextView list);
    std::vector<automation::Value> drop_downs(automation::TextView list);

  private:
    host::outlook::Folder remembered(const automation::Text& key, automation::TextView name);
    host::outlook::Folder search(automation::TextView name);
    std::vector<host::outlook::Folder> stores();

    Context& context_;
    host::outlook::NameSpace name_space_;
};

}  // namespace family
