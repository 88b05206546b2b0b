#include "admin/builder.h"

#include <algorithm>

#include "addin/records/names.h"

namespace admin {
namespace {

using automation::Failure;
using automation::Object;
using automation::Value;
using host::outlook::Folder;
using host::outlook::Folders;
using host::outlook::Item;
using host::outlook::Items;
namespace names = addin::records;

constexpr TextView ini_name = u"\\twsystemfolder.ini";
constexpr std::size_t longest_ini = 1 << 20;

/// The class of the items that a folder is for can be set by its address alone.
constexpr TextView message_class_address = u"http://schemas.microsoft.com/mapi/proptag/0x36E5001F";

constexpr std::int32_t mail_items = 0, post_items = 6;  // OlItemType

/// What folders are called by what they hold, and by which default folder's number one is made.
struct KindRow {
    std::int32_t item_type;
    const char* holds;
    std::int32_t folder_number;
};
constexpr KindRow kinds[] = {{mail_items, "mail", 6}, {1, "appointments", 9}, {2, "contacts", 10},
                             {3, "tasks", 13},        {4, "a journal", 11},   {5, "notes", 12},
                             {post_items, "posts", 6}};

const KindRow* kind_of(std::int32_t item_type) {
    const KindRow* const found = std::ranges::find(kinds, item_type, &KindRow::item_type);
    return found == std::end(kinds) ? nullptr : found;
}

std::string holds(std::int32_t item_type) {
    const KindRow* const kind = kind_of(item_type);
    return kind ? kind->holds : "items of type " + std::to_string(item_type);
}

/// A folder of a mailbox takes posts as one of the public folders does, but says that it holds mail.
bool fits(std::int32_t item_type, std::int32_t planned) {
    return item_type == planned || (planned == post_items && item_type == mail_items);
}

std::string quoted(TextView text) { return "\"" + shown(text) + "\""; }

std::string with_fields(const PlannedFolder& folder) {
    std::string told = "holds " + holds(folder.item_type) + " of class " + quoted(folder.message_class);
    for (const PlannedField& field : folder.fields)
        told += (&field == folder.fields.data() ? ", with the fields " : ", ") + quoted(field.name);
    return told;
}

void add_field(const Object& fields, const PlannedField& field) {
    fields.call(u"Add", {Value(field.name), field.type});
}

Object fields_of(const Folder& folder) { return folder.get(u"UserDefinedProperties").to_object(); }

Item find_record(const Folder& folder, const PlannedRecord& record) {
    const Items items = folder.Items();
    const std::int32_t count = items.Count();
    for (std::int32_t i = 1; i <= count; ++i) {
        Item item = items.Item(i);
        if (automation::same_ignoring_case(item.MessageClass(), record.message_class) &&
            automation::same_ignoring_case(item.Subject(), record.subject))
            return item;
    }
    return Item();
}

/// Whether an ini file has a section.
bool has_section(TextView file, TextView name) {
    const Text head = automation::folded(u"[" + Text(name) + u"]");
    const Text all = u"\n" + automation::folded(file);
    return all.find(u"\n" + head) != Text::npos;
}

}  // namespace

Folder child_named(const Folders& folders, TextView name) {
    const std::int32_t count = folders.Count();
    for (std::int32_t i = 1; i <= count; ++i) {
        Folder folder = folders.Item(i);
        if (automation::same_ignoring_case(folder.Name(), name)) return folder;
    }
    return Folder();
}

std::vector<Line> Builder::compare() {
    walk();
    return lines_;
}

std::vector<Line> Builder::make() {
    making_ = true;
    try {
        walk();
    } catch (const Failure& failure) {
        take_back();
        throw Refusal(sentence(failure.description()) + "; what had been made is taken back.");
    }
    return lines_;
}

void Builder::walk() {
    visit(plan_.root, parent_, plan_.root.name);
    for (const PlannedRecord& record : plan_.records) visit_record(record);
    visit_targets();
}

void Builder::missing(const std::string& about, const std::string& told,
                      const std::function<void()>& make_it) {
    if (!making_) {
        lines_.push_back({Line::State::missing, about, told, "TarnwellAdmin database makes it"});
        return;
    }
    make_it();
    lines_.push_back({Line::State::made, about, told});
}

void Builder::wrong(const std::string& about, const std::string& told, const std::string& to_do) {
    lines_.push_back({Line::State::wrong, about, told, to_do});
}

void Builder::visit(const PlannedFolder& planned, const Folder& parent, const Text& path) {
    Folder folder = parent ? child_named(parent.Folders(), planned.name) : Folder();
    if (folder) {
        compare_folder(planned, folder, path);
    } else {
        missing("folder " + quoted(path), with_fields(planned),
                [&] { folder = make_folder(planned, parent); });
    }
    if (planned.name == names::folder::system) system_folder_ = folder;
    for (const PlannedFolder& child : planned.folders) visit(child, folder, path + u"\\" + child.name);
}

Folder Builder::make_folder(const PlannedFolder& planned, const Folder& parent) {
    const Folders siblings = parent.Folders();
    // what takes posts can't be asked for by number, but is what its parent is
    const bool as_parent = planned.item_type == post_items && fits(parent.DefaultItemType(), post_items);
    const Value number =
        as_parent ? Value(automation::Missing{}) : Value(kind_of(planned.item_type)->folder_number);
    const Folder folder(siblings.call(u"Add", {Value(planned.name), number}).to_object());
    undo_.emplace_back([folder] { folder.call(u"Delete"); });
    if (folder.DefaultMessageClass() != planned.message_class) {
        folder.get(u"PropertyAccessor")
            .to_object()
            .call(u"SetProperty", {Value(message_class_address), Value(planned.message_class)});
    }
    if (!planned.description.empty()) folder.put(u"Description", planned.description);
    for (const PlannedField& field : planned.fields) add_field(fields_of(folder), field);
    return folder;
}

void Builder::compare_folder(const PlannedFolder& planned, const Folder& folder, const Text& path) {
    const std::string about = "folder " + quoted(path);
    if (const std::int32_t type = folder.DefaultItemType(); !fits(type, planned.item_type)) {
        wrong(about, "holds " + holds(type) + ", not " + holds(planned.item_type),
              "give it another name, and let a new one be made");
        return;
    }
    // the root holds nothing by itself, so its class is the user's own matter
    const Text message_class = folder.DefaultMessageClass();
    if (&planned != &plan_.root && !automation::same_ignoring_case(message_class, planned.message_class)) {
        wrong(about,
              "is for items of class " + quoted(message_class) + ", not " + quoted(planned.message_class),
              "choose the form in the folder's properties");
    }
    for (const PlannedField& field : planned.fields) compare_field(field, folder, path);
}

void Builder::compare_field(const PlannedField& field, const Folder& folder, const Text& path) {
    const std::string about = "field " + quoted(field.name) + " of " + quoted(path);
    const Object fields = fields_of(folder);
    const Object found = fields.call(u"Find", {Value(field.name)}).to_object();
    if (!found) {
        missing(about, "type " + std::to_string(field.type), [&] {
            add_field(fields, field);
            undo_.emplace_back([fields, name = field.name] {
                fields.call(u"Find", {Value(name)}).to_object().call(u"Delete");
            });
        });
    } else if (const std::int32_t type = found.get(u"Type").to_integer(); type != field.type) {
        wrong(about, "type " + std::to_string(type) + ", not " + std::to_string(field.type),
              "take it out of the folder's fields, and let a new one be made");
    }
}

void Builder::visit_record(const PlannedRecord& record) {
    if (system_folder_ && find_record(system_folder_, record)) return;
    missing("record " + quoted(record.subject) + " of the system folder",
            "class " + quoted(record.message_class), [&] { make_record(record); });
}

void Builder::make_record(const PlannedRecord& record) {
    const Item item = system_folder_.Items().Add(record.message_class);
    item.Subject(record.subject);
    item.Body(record.body);
    const host::outlook::UserProperties properties = item.UserProperties();
    for (const auto& [name, value] : record.properties) {
        host::outlook::UserProperty property = properties.Find(name);
        if (!property) property = properties.Add(name, host::outlook::text_property, false);
        property.value(value);
    }
    item.Post();
    undo_.emplace_back([folder = system_folder_, &record] { find_record(folder, record).call(u"Delete"); });
}

void Builder::visit_targets() {
    if (ini_folder_.empty()) {
        wrong("ini file", "the main add-in does not tell its folder", "install the main add-in");
        return;
    }
    Text path = ini_folder_;
    if (path.ends_with(u'\\')) path.pop_back();
    path += ini_name;
    std::string file = machine_.read_file(path, longest_ini).value_or("");
    if (file.size() >= longest_ini || file.starts_with("\xFF\xFE")) {
        wrong("ini file " + quoted(path),
              file.size() >= longest_ini
                  ? "is longer than any file of search targets"
                  : "is written with 16 bits a character, in which nothing can be added",
              "put it right by hand");
        return;
    }
    const Text known = machine_.desktop().widen(file);
    std::string added;
    std::string told;
    for (const PlannedTarget& target : plan_.targets) {
        if (has_section(known, target.name)) continue;
        added += "\r\n" + machine_.desktop().narrow(target.lines);
        told += (told.empty() ? "the search targets " : ", ") + quoted(target.name);
    }
    if (!added.empty()) missing("ini file " + quoted(path), told, [&] { make_targets(path, file, added); });
}

void Builder::make_targets(const Text& path, const std::string& before, const std::string& added) {
    // a blank line parts what is there from what comes
    const bool whole_line = before.empty() || before.ends_with('\n');
    machine_.write_file(path, before.empty() ? added.substr(2) : before + (whole_line ? "" : "\r\n") + added);
}

void Builder::take_back() noexcept {
    for (; !undo_.empty(); undo_.pop_back()) {
        try {
            undo_.back()();
        } catch (const Failure&) {
            continue;  // what the host keeps, it keeps
        }
    }
}

}  // namespace admin
