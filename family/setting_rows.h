// The add-in's settings, with what they mean to a person.
#pragma once

#include <span>

#include "automation/text.h"

namespace family {

struct SettingRow {
    automation::TextView name;
    automation::TextView key;  ///< below HKEY_CURRENT_USER
    automation::TextView title;
    automation::TextView about;     ///< a sentence
    bool is_switch = false;         ///< holds "1" or "0"; the others hold a text
    bool on_without_value = false;  ///< of a switch
    bool of_the_database = false;   ///< written when a database is chosen, and by nobody else
    bool read_at_start = false;     ///< the others are read at each use
};

/// All of them, as data/settings.json has them.
std::span<const SettingRow> setting_rows();

}  // namespace family
