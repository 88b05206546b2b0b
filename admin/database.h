// The database: its folders with their fields, the records of the system folder and the ini file, through the
// host's object model alone.
#pragma once

#include <optional>

#include "admin/machine.h"
#include "admin/report.h"

namespace admin {

struct DatabaseRequest {
    Text root_path;  ///< STORE\FOLDER
    bool only_check = false;
    std::optional<Text> ini_folder{};  ///< else the main add-in tells it
};

/// Tells what a database lacks or, unless only that was asked for, makes it; what is there stays as it is. If
/// something is of the wrong kind, nothing is made. Throws `Refusal`, and has taken back what it had made, if
/// it can't be done.
Report look_after_database(const DatabaseRequest& request, Machine& machine);

/// Where the ini file is, as the main add-in tells; empty if nobody does.
Text ini_folder_of_family(const host::outlook::Application& application);

/// The path of a folder, of the names from its store on, apart by backslashes.
Text path_of(host::outlook::Folder folder);

}  // namespace admin
