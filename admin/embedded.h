// The files in data/ that the program carries with it.
#pragma once

#include <string_view>

namespace admin::embedded {

extern const std::string_view tree;            ///< the folders of a database and the fields of its forms
extern const std::string_view settings;        ///< the add-in's settings, with what they mean
extern const std::string_view system_records;  ///< the records of the system folder
extern const std::string_view search_targets;  ///< the ini file of what can be searched

}  // namespace admin::embedded
