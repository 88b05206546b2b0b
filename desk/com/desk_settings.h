// How the desk is to start: what `./tarnwell` wrote for it into the registry.
#pragma once

#include "desk/model/desk.h"

namespace desk {

/// HKEY_CURRENT_USER\Software\Tarnwell\Desk, all values text.
struct DeskSettings {
    host::Text database;     ///< path of the database file
    host::Text mail_reader;  ///< path, in the native system's spelling, of the program that reads mail files
    host::Text log_file;     ///< takes one line for each thing worth knowing; none if empty
    host::Text state;        ///< folder for files that live as long as the desk
    host::Text indexed_folder;  ///< of the files that the desktop search knows; none if empty
    Options options;
};

DeskSettings read_settings();

/// Stores a value for the next start.
void store_setting(host::TextView name, host::TextView value);

}  // namespace desk
