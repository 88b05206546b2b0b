#include "desk/tools/database/sample_data.h"

#include <algorithm>
#include <array>
#include <fstream>

#include "desk/mail/item_json.h"

namespace desk::sample {
namespace {

using automation::Text;
using mail::Json;
using mail::refuse;

constexpr automation::TextView contact_class = u"IPM.Contact.Account Contact";

/// What a folder holds, in words.
struct Holding {
    std::string_view word;
    std::int32_t item_type;
};
constexpr std::array<Holding, 7> holdings = {{{"mail", 0},
                                              {"appointments", 1},
                                              {"contacts", 2},
                                              {"tasks", 3},
                                              {"journal", 4},
                                              {"notes", 5},
                                              {"posts", 6}}};

Json read_json(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    const Json json = Json::parse(stream, nullptr, false);
    if (json.is_discarded()) refuse("it is not there or not JSON");
    return json;
}

const Json& required(const Json& json, const char* name) {
    if (!json.is_object() || !json.contains(name)) refuse("\"" + std::string(name) + "\" is missing");
    return json[name];
}

Text to_text(const Json& json) {
    if (!json.is_string()) refuse(json.dump() + " is not a text");
    return automation::from_utf8(json.get_ref<const std::string&>());
}

Text optional_text(const Json& json, const char* name) {
    return json.contains(name) ? to_text(json[name]) : Text();
}

/// A list that may be left out.
const Json& list(const Json& json, const char* name) {
    static const Json none = Json::array();
    if (!json.is_object() || !json.contains(name)) return none;
    if (!json[name].is_array()) refuse("\"" + std::string(name) + "\" is not a list");
    return json[name];
}

/// A field is its name, if it is a text, or {"name": ..., "type": number}.
FolderField read_field(const Json& json) {
    if (json.is_string()) return {to_text(json), 1};
    const Json& type = required(json, "type");
    if (!type.is_number_integer()) refuse("\"type\" is not a number");
    return {to_text(required(json, "name")), type.get<std::int32_t>()};
}

std::int32_t item_type_of(const Json& word) {
    const std::string written = word.is_string() ? word.get<std::string>() : word.dump();
    const auto found = std::ranges::find(holdings, written, &Holding::word);
    if (found == holdings.end()) refuse("a folder can't hold \"" + written + "\"");
    return found->item_type;
}

void read_folder(const Json& json, const Text& parent_path, Data& data) {
    FolderPlan plan;
    plan.row.name = to_text(required(json, "name"));
    plan.row.item_type = item_type_of(required(json, "holds"));
    plan.row.default_class = to_text(required(json, "class"));
    plan.row.description = optional_text(json, "description");
    plan.row.store_uid = optional_text(json, "uid");
    if (json.contains("default")) plan.row.default_number = json["default"].get<std::int32_t>();
    for (const Json& form_class : list(json, "fields_of")) {
        const auto form = data.forms.find(to_text(form_class));
        if (form == data.forms.end()) refuse("there is no form " + form_class.dump());
        for (const FolderField& field : form->second) {
            if (std::ranges::find(plan.row.fields, field) == plan.row.fields.end())
                plan.row.fields.push_back(field);
        }
    }
    plan.parent_path = parent_path;
    plan.path = parent_path.empty() ? plan.row.name : parent_path + u"/" + plan.row.name;
    const Text path = plan.path;
    data.folders.push_back(std::move(plan));
    for (const Json& child : list(json, "folders")) read_folder(child, path, data);
}

void read_tree(const Json& json, Data& data) {
    for (const auto& [form_class, fields] : required(json, "forms").items()) {
        std::vector<FolderField>& form = data.forms[automation::from_utf8(form_class)];
        for (const Json& field : fields) form.push_back(read_field(field));
    }
    for (const Json& store : list(json, "stores")) read_folder(store, {}, data);
}

/// The properties of a form, in its order, with the values that the record sets.
std::vector<UserPropertyData> fill_form(const std::vector<FolderField>& form, const Json& set,
                                        const std::vector<Text>& lacks) {
    std::vector<UserPropertyData> properties;
    for (const FolderField& field : form) {
        if (std::ranges::find(lacks, field.name) != lacks.end()) continue;
        properties.push_back({field.name, field.type, {}});
    }
    for (const auto& [name, value] : set.items()) {
        const auto property =
            std::ranges::find(properties, automation::from_utf8(name), &UserPropertyData::name);
        if (property == properties.end()) refuse("the form has no property \"" + name + "\"");
        property->value = mail::from_json_value(value, name);
    }
    return properties;
}

/// What the host notes by itself: a record was last changed when it was made, and a posted one was posted
/// then, by the one who looks after its account.
void note_making(const Json& properties, ItemData& item) {
    auto& fields = item.fields;
    const auto made = fields.find(u"CreationTime");
    if (made == fields.end()) return;
    const automation::Value when = made->second;
    fields.try_emplace(u"LastModificationTime", when);
    if (!item.message_class.starts_with(u"IPM.Post")) return;
    for (const automation::TextView posted : {u"ReceivedTime", u"SentOn"})
        fields.try_emplace(Text(posted), when);
    if (const auto author = properties.find("Account Manager"); author != properties.end()) {
        fields.try_emplace(u"SenderName", mail::from_json_value(*author, "Account Manager"));
    }
}

void read_record(const Json& json, const Text& folder_path, const Text& message_class, Data& data) {
    RecordPlan plan;
    plan.folder_path = folder_path;
    plan.item.message_class = message_class;
    for (const auto& [name, value] : required(json, "fields").items()) {
        plan.item.fields[automation::from_utf8(name)] = mail::from_json_value(value, name);
    }
    for (const Json& name : list(json, "lacks")) plan.lacks.push_back(to_text(name));
    const auto form = data.forms.find(message_class);
    const Json set = json.contains("properties") ? json["properties"] : Json::object();
    if (form == data.forms.end() && !set.empty()) refuse("the class has no form, so no properties");
    note_making(set, plan.item);
    if (form != data.forms.end()) plan.item.user_properties = fill_form(form->second, set, plan.lacks);
    data.records.push_back(std::move(plan));
}

void read_records(const Json& groups, Data& data) {
    for (const Json& group : groups) {
        const Text folder_path = to_text(required(group, "folder"));
        const Text message_class = to_text(required(group, "class"));
        if (std::ranges::find(data.folders, folder_path, &FolderPlan::path) == data.folders.end()) {
            refuse("there is no folder \"" + automation::to_utf8(folder_path) + "\"");
        }
        for (const Json& record : list(group, "records"))
            read_record(record, folder_path, message_class, data);
    }
}

/// Runs a reader on a file's JSON; what is wrong is told with the file's name.
template <class Read>
void read_file(const std::filesystem::path& file, Read read) {
    const auto refuse_file = [&](const char* what) { refuse("In " + file.string() + ": " + what + "."); };
    try {
        read(read_json(file));
    } catch (const automation::Failure& failure) {
        refuse_file(failure.what());
    } catch (const Json::exception& exception) {
        refuse_file(exception.what());
    }
}

}  // namespace

Data read_data(const std::filesystem::path& folder) {
    Data data;
    std::filesystem::path tree = folder / "tree.json";
    if (!std::filesystem::exists(tree)) tree = folder / ".." / "tree.json";
    read_file(tree, [&](const Json& json) { read_tree(json, data); });

    std::vector<std::filesystem::path> files;
    if (std::filesystem::is_directory(folder / "records")) {
        for (const auto& entry : std::filesystem::directory_iterator(folder / "records")) {
            if (entry.path().extension() == ".json") files.push_back(entry.path());
        }
    }
    std::ranges::sort(files);
    for (const auto& file : files) {
        read_file(file, [&](const Json& json) { read_records(json, data); });
    }
    return data;
}

void write_data(const Data& data, Store& store) {
    Store::Transaction transaction(store);
    std::map<Text, RowId> ids;
    for (const FolderPlan& plan : data.folders) {
        FolderRow row = plan.row;
        row.parent = plan.parent_path.empty() ? 0 : ids.at(plan.parent_path);
        ids[plan.path] = store.add_folder(row);
    }
    for (const RecordPlan& plan : data.records) store.add_item(ids.at(plan.folder_path), plan.item);
    transaction.keep();
}

void add_contacts(const Data& data, Store& store, int count) {
    const auto form = data.forms.find(contact_class);
    const std::vector<FolderRow> folders = store.folders();
    const auto folder = std::ranges::find(folders, contact_class, &FolderRow::default_class);
    if (form == data.forms.end() || folder == folders.end())
        refuse("The database has no folder of account contacts.");

    Store::Transaction transaction(store);
    for (int i = 1; i <= count; ++i) {
        const Text number = automation::to_text(i);
        const Text name = u"Made-up Contact " + number;
        ItemData contact;
        contact.message_class = contact_class;
        contact.fields = {{u"Subject", name},
                          {u"FullName", name},
                          {u"FileAs", name},
                          {u"CompanyName", u"Made-up Company"},
                          {u"Email1Address", u"contact" + number + u"@made-up.example"},
                          {u"Email1AddressType", u"SMTP"}};
        contact.user_properties =
            fill_form(form->second, {{"ContactID", "MADE-UP-" + automation::to_utf8(number)}}, {});
        store.add_item(folder->id, contact);
    }
    transaction.keep();
}

}  // namespace desk::sample
