// What the desk's database consists of.
#pragma once

#include "desk/store/sqlite_connection.h"

namespace desk {

/// Opens a file for this process alone and sees to it that it is the desk's: makes the tables in an empty
/// one, refuses one that belongs to another program or another version.
SqliteConnection open_connection(const std::filesystem::path& file);

}  // namespace desk
