// How the desk is to start: what stands for it in the registry.
#pragma once

#include <filesystem>

#include "desk/base/desk.h"

namespace desk {

/// HKEY_CURRENT_USER\Software\Tarnwell\Desk, all values text.
struct DeskSettings {
    automation::Text database;  ///< path of the database file
    automation::Text
        mail_reader;  ///< path, in the native system's spelling, of the program that reads mail files
    automation::Text log_file;        ///< takes one line for each thing worth knowing; none if empty
    automation::Text state;           ///< folder for files that live as long as the desk
    automation::Text indexed_folder;  ///< of the files that the desktop search knows; none if empty
    bool first_page = false;          ///< a person is shown what to try
    Options options;
};

/// What is stored; for a value that is not, what the structure begins with.
DeskSettings read_settings();

/// Stores all of them.
void write_settings(const DeskSettings& settings);

/// The settings of a file in UTF-8, a line `Name=Value` for each that is not as usual. Throws `Failure` for a
/// name that there is not.
DeskSettings settings_of(const std::filesystem::path& file);

/// A value that was stored; empty if it was not.
automation::Text stored_setting(automation::TextView name);

/// Stores a value for the next start.
void store_setting(automation::TextView name, automation::TextView value);

}  // namespace desk
