#include "admin/plan.h"

#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>
#include <optional>

#include "addin/records/names.h"
#include "admin/embedded.h"

namespace admin {
namespace {

using automation::Text;
using automation::TextView;
using Json = nlohmann::ordered_json;
using Forms = std::map<std::string, std::vector<PlannedField>>;
using Setting = std::function<Text(TextView name)>;

/// What a folder holds, in words.
struct HoldingRow {
    std::string_view word;
    std::int32_t item_type;
};
constexpr HoldingRow holdings[] = {
    {"mail", 0}, {"appointments", 1}, {"contacts", 2}, {"tasks", 3}, {"posts", 6}};

Text text_at(const Json& json, const char* name) {
    return json.contains(name) ? automation::from_utf8(json[name].get<std::string>()) : Text();
}

PlannedField read_field(const Json& json) {
    if (json.is_string()) return {automation::from_utf8(json.get<std::string>())};
    return {text_at(json, "name"), json.at("type").get<std::int32_t>()};
}

Forms read_forms(const Json& json) {
    Forms forms;
    for (const auto& [form_class, fields] : json.items()) {
        for (const Json& field : fields) forms[form_class].push_back(read_field(field));
    }
    return forms;
}

/// The fields of several forms, each once.
std::vector<PlannedField> fields_of(const Json& form_classes, const Forms& forms) {
    std::vector<PlannedField> all;
    for (const Json& form_class : form_classes) {
        for (const PlannedField& field : forms.at(form_class.get<std::string>())) {
            if (std::ranges::find(all, field.name, &PlannedField::name) == all.end()) all.push_back(field);
        }
    }
    return all;
}

PlannedFolder read_folder(const Json& json, const Forms& forms, const Setting& setting) {
    PlannedFolder folder;
    folder.name = text_at(json, "name");
    if (json.contains("named_by")) {
        if (Text given = setting(text_at(json, "named_by")); !given.empty()) folder.name = std::move(given);
    }
    const auto holds = json.at("holds").get<std::string>();
    folder.item_type = std::ranges::find(holdings, holds, &HoldingRow::word)->item_type;
    folder.message_class = text_at(json, "class");
    folder.description = text_at(json, "description");
    if (json.contains("fields_of")) folder.fields = fields_of(json["fields_of"], forms);
    if (json.contains("folders")) {
        for (const Json& child : json["folders"])
            folder.folders.push_back(read_folder(child, forms, setting));
    }
    return folder;
}

/// Where a database's root stands among the folders: the one that the anchor is in.
struct Root {
    const Json* json;
    Text path;
};
std::optional<Root> find_root(const Json& folders, const Text& path) {
    for (const Json& folder : folders) {
        if (!folder.contains("folders")) continue;
        const Text own_path = path.empty() ? text_at(folder, "name") : path + u"\\" + text_at(folder, "name");
        const Json& inside = folder["folders"];
        const bool has_anchor = std::ranges::any_of(inside, [](const Json& child) {
            return text_at(child, "name") == addin::records::folder::account_profiles;
        });
        if (has_anchor) return Root{&folder, own_path};
        if (std::optional<Root> found = find_root(inside, own_path)) return found;
    }
    return std::nullopt;
}

std::vector<PlannedRecord> read_records(const Json& groups, const std::function<Text(TextView)>& moved) {
    std::vector<PlannedRecord> records;
    for (const Json& group : groups) {
        for (const Json& json : group.at("records")) {
            PlannedRecord record;
            record.message_class = text_at(group, "class");
            record.subject = text_at(json.at("fields"), "Subject");
            record.body = text_at(json.at("fields"), "Body");
            for (const auto& [name, value] : json.at("properties").items()) {
                record.properties.emplace_back(automation::from_utf8(name),
                                               moved(automation::from_utf8(value.get<std::string>())));
            }
            records.push_back(std::move(record));
        }
    }
    return records;
}

/// The sections of an ini file, their lines with the ends that the system writes.
std::vector<PlannedTarget> read_targets(TextView file) {
    std::vector<PlannedTarget> targets;
    for (std::size_t begin = 0; begin < file.size();) {
        const std::size_t end = std::min(file.find(u'\n', begin), file.size());
        TextView line = file.substr(begin, end - begin);
        if (line.ends_with(u'\r')) line.remove_suffix(1);
        begin = end + 1;
        if (line.starts_with(u'[') && line.ends_with(u']'))
            targets.push_back({Text(line.substr(1, line.size() - 2)), {}});
        if (!targets.empty() && !line.empty()) targets.back().lines += Text(line) + u"\r\n";
    }
    return targets;
}

}  // namespace

Plan make_plan(TextView root_path, const Setting& setting) {
    const Json tree = Json::parse(embedded::tree);
    const Root root = find_root(tree.at("stores"), {}).value();
    // the paths in records and targets begin with the root's own
    const auto moved = [&](TextView text) {
        return automation::replaced(text, u"\\\\" + root.path, u"\\\\" + Text(root_path));
    };
    return {.root = read_folder(*root.json, read_forms(tree.at("forms")), setting),
            .records = read_records(Json::parse(embedded::system_records), moved),
            .targets = read_targets(moved(automation::from_utf8(embedded::search_targets)))};
}

std::vector<PlannedSetting> planned_settings() {
    std::vector<PlannedSetting> all;
    const Json data = Json::parse(embedded::settings);
    for (const Json& json : data.at("settings")) {
        PlannedSetting setting;
        setting.name = text_at(json, "name");
        setting.is_switch = json.at("kind") == "switch";
        setting.on_without_value = json.value("default", "") == "1";
        for (const char letter : json.at("about").get<std::string>()) {
            if (letter != '*' && letter != '`') setting.meaning += letter;  // they mark words for the guide
        }
        all.push_back(std::move(setting));
    }
    return all;
}

}  // namespace admin
