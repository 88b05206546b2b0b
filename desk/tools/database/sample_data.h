// A database as readable data files, and its way into the desk's store.
#pragma once

#include <filesystem>
#include <map>
#include <vector>

#include "desk/store/store.h"

namespace desk::sample {

/// A folder to be made. Its `row.id` and `row.parent` are not filled in yet.
struct FolderPlan {
    automation::Text path;         ///< the names from the store's root on, apart by '/'
    automation::Text parent_path;  ///< empty for the root of a message store
    FolderRow row;
};

struct RecordPlan {
    automation::Text folder_path;
    ItemData item;
    std::vector<automation::Text> lacks;  ///< properties of its form that the record does not bear
};

/// What a data folder holds:
///
///   tree.json        the forms by message class with their properties, and the message stores with their
///   folders;
///                    beside the data folder if it is shared by several
///   records/*.json   lists of {"folder": path, "class": message class, "records": [...]}; none if the folder
///   is missing
///
/// A record names only what is set: it bears the other properties of its form too, empty, in the form's
/// order.
struct Data {
    std::map<automation::Text, std::vector<FolderField>, IgnoringCase> forms;  ///< by message class
    std::vector<FolderPlan> folders;  ///< parents before their children
    std::vector<RecordPlan> records;
};

/// Reads a data folder. Throws `automation::Failure`, whose text names the file and what is wrong in it.
Data read_data(const std::filesystem::path& folder);

/// Writes all of it into an empty store, together or not at all.
void write_data(const Data& data, Store& store);

/// Adds so many made-up contacts to the folder of account contacts, for measurements. Throws
/// `automation::Failure` if the store has no such folder.
void add_contacts(const Data& data, Store& store, int count);

}  // namespace desk::sample
