#include "desk/outlook/folder_fields.h"

#include <algorithm>

#include "desk/base/desk.h"
#include "desk/outlook/folder.h"

namespace desk {

using automation::calls;
using automation::Failure;
using automation::Ignored;
using automation::no_id;
using automation::Object;
using automation::Text;
using automation::Use;
using automation::Value;
namespace result = automation::result;

namespace {

auto field_named(const std::vector<FolderField>& fields, automation::TextView name) {
    return std::ranges::find_if(
        fields, [&](const FolderField& field) { return automation::same_ignoring_case(field.name, name); });
}

Object folder_object(Desk& desk, RowId id) { return std::make_shared<Folder>(desk, id)->self(); }

}  // namespace

Object UserDefinedProperties::parent() const { return folder_object(desk(), folder_); }

const std::vector<FolderField>& UserDefinedProperties::fields() const {
    return desk().existing_folder(folder_).fields;
}

Object UserDefinedProperties::find(const Text& field_name) const {
    const auto found = field_named(fields(), field_name);
    if (found == fields().end()) return {};
    return std::make_shared<UserDefinedProperty>(desk(), folder_, found->name)->self();
}

Object UserDefinedProperties::at(const Value& index) const {
    if (index.is(Value::Type::text)) {
        if (Object found = find(index.to_text())) return found;
        throw Failure(result::not_found, u"The folder has no field \"" + index.to_text() + u"\".");
    }
    const std::int32_t place = index.to_integer();
    if (place < 1 || static_cast<std::size_t>(place) > fields().size()) {
        throw Failure(result::bad_index, u"Array index out of bounds.");
    }
    return find(fields()[static_cast<std::size_t>(place - 1)].name);
}

Object UserDefinedProperties::add(const Text& field_name, std::int32_t type) {
    if (field_name.empty()) throw Failure(result::invalid_argument, u"A field needs a name.");
    if (find(field_name)) {
        throw Failure(result::invalid_argument, u"The field \"" + field_name + u"\" exists already.");
    }
    FolderRow folder = desk().existing_folder(folder_);
    folder.fields.push_back({field_name, type});
    desk().change_folder(folder);
    return find(field_name);
}

void UserDefinedProperties::remove(std::int32_t place) {
    FolderRow folder = desk().existing_folder(folder_);
    if (place < 1 || static_cast<std::size_t>(place) > folder.fields.size()) {
        throw Failure(result::bad_index, u"Array index out of bounds.");
    }
    folder.fields.erase(folder.fields.begin() + (place - 1));
    desk().change_folder(folder);
}

const automation::Members<UserDefinedProperties>& UserDefinedProperties::members() {
    using Self = UserDefinedProperties;
    static const automation::Members<Self> table{
        {u"Count", 0x50, Use::get, [](Self& self) { return self.fields().size(); }},
        {u"Item", 0x51, Use::method, {u"Index"}, calls<&Self::at>},
        {u"Add",
         no_id,
         Use::method,
         {u"Name", u"Type", u"DisplayFormat", u"Formula"},
         [](Self& self, const Text& name, std::int32_t type, Ignored, Ignored) {
             return self.add(name, type);
         }},
        {u"Find", no_id, Use::method, {u"Name"}, calls<&Self::find>},
        {u"Remove", no_id, Use::method, {u"Index"}, calls<&Self::remove>},
    };
    return table;
}

Object UserDefinedProperty::parent() const { return folder_object(desk(), folder_); }

const FolderField& UserDefinedProperty::field() const {
    const std::vector<FolderField>& fields = desk().existing_folder(folder_).fields;
    const auto found = field_named(fields, field_name_);
    if (found == fields.end())
        throw Failure(result::object_deleted, u"The field \"" + field_name_ + u"\" was deleted.");
    return *found;
}

void UserDefinedProperty::remove() {
    field();
    FolderRow folder = desk().existing_folder(folder_);
    std::erase_if(folder.fields, [&](const FolderField& field) {
        return automation::same_ignoring_case(field.name, field_name_);
    });
    desk().change_folder(folder);
}

const automation::Members<UserDefinedProperty>& UserDefinedProperty::members() {
    using Self = UserDefinedProperty;
    static const automation::Members<Self> table{
        {u"Name", no_id, Use::get, [](Self& self) { return self.field().name; }},
        {u"Type", no_id, Use::get, [](Self& self) { return self.field().type; }},
        {u"Delete", no_id, Use::method, calls<&Self::remove>},
    };
    return table;
}

}  // namespace desk
