// What a database is to hold, and what the settings mean, as the data that the program carries tell it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "automation/text.h"

namespace admin {

struct PlannedField {
    automation::Text name;
    std::int32_t type = 1;  ///< OlUserPropertyType
};

struct PlannedFolder {
    automation::Text name;
    std::int32_t item_type = 0;  ///< OlItemType
    automation::Text message_class;
    automation::Text description;
    std::vector<PlannedField> fields;
    std::vector<PlannedFolder> folders;
};

/// A record of the system folder.
struct PlannedRecord {
    automation::Text message_class, subject, body;
    std::vector<std::pair<automation::Text, automation::Text>> properties;
};

/// A section of the ini file.
struct PlannedTarget {
    automation::Text name;
    automation::Text lines;  ///< the whole of it, with its head
};

struct Plan {
    PlannedFolder root;  ///< its name is the one that the database has as it comes with the desk
    std::vector<PlannedRecord> records;
    std::vector<PlannedTarget> targets;
};

/// The plan of a database whose root has this path, of the names from the store on, apart by backslashes.
/// Asks for the settings by which folders are named.
Plan make_plan(automation::TextView root_path,
               const std::function<automation::Text(automation::TextView name)>& setting);

struct PlannedSetting {
    automation::Text name;
    bool is_switch = false;
    bool on_without_value = false;  ///< of a switch
    std::string meaning;
};

std::vector<PlannedSetting> planned_settings();

}  // namespace admin
