#include "desk/outlook/item.h"

#include <algorithm>

#include "desk/base/desk.h"
#include "desk/base/host_event_tables.h"
#include "desk/outlook/application.h"
#include "desk/outlook/attachments.h"
#include "desk/outlook/contact_rules.h"
#include "desk/outlook/dist_lists.h"
#include "desk/outlook/folder.h"
#include "desk/outlook/inspectors.h"
#include "desk/outlook/item_texts.h"

namespace desk {

using automation::Failure;
using automation::Request;
using automation::Text;
using automation::TextView;
using automation::Value;
using tables::FieldRow;
namespace result = automation::result;

namespace {

/// Posts are posted, what has recipients is sent, lists have members; the names of the others are none of
/// theirs.
bool knows(const ItemKind& kind, TextView member) {
    if (automation::same_ignoring_case(member, u"Post")) return kind.number == object_class::post;
    if (automation::same_ignoring_case(member, u"Send")) return kind.has_people;
    if (is_dist_list_member(member)) return kind.number == object_class::dist_list;
    return true;
}

/// What an item tells of itself before it is there as a whole.
bool is_known_early(const Request& request) {
    constexpr std::pair<TextView, std::int32_t> early[] = {{u"Class", 0xF00A}, {u"MessageClass", 0x001A}};
    return std::ranges::any_of(early, [&](const auto& each) {
        return request.member.empty() ? request.id == each.second
                                      : automation::same_ignoring_case(request.member, each.first);
    });
}

automation::MemberFacts facts_of(const FieldRow& field) {
    return {field.name, field.id, field.writable ? automation::Use::get_put : automation::Use::get, {}};
}

}  // namespace

Item::Item(Desk& desk, RowId folder, ItemData data)
    : ModelObject(desk), folder_(folder), data_(std::move(data)), changed_(true) {
    apply_form(data_);
}

Item::Item(Desk& desk, ItemRow row)
    : ModelObject(desk),
      id_(row.id),
      folder_(row.folder),
      data_(std::move(row.data)),
      size_(row.size),
      attachments_loaded_(false) {}

automation::Object Item::parent() const {
    return folder_ == 0 ? automation::Object()
                        : automation::Object(std::make_shared<Folder>(desk(), folder_));
}

EventInterfaces Item::event_interfaces() const { return events::item; }

void Item::check_there() const {
    if (gone_) throw Failure(result::object_deleted, u"The item has been moved or deleted.");
}

void Item::tell_loaded() {
    struct Loading {
        bool& now;
        explicit Loading(bool& loading) : now(loading) { now = true; }
        ~Loading() { now = false; }
        Loading(const Loading&) = delete;
        Loading& operator=(const Loading&) = delete;
    };
    const Loading loading(loading_);
    desk().application()->raise(u"ItemLoad", {Value(self())});
}

Value Item::invoke(Request& request) {
    check_there();
    if (loading_ && !is_known_early(request))
        throw Failure(result::fail, u"The item is being loaded: it has a class, and nothing else yet.");
    if (!knows(kind(), request.member)) automation::throw_no_member(request);
    return ModelObject::invoke(request);
}

std::optional<automation::MemberIds> Item::identify(TextView member, std::span<const Text> parameters) {
    if (!knows(kind(), member)) return std::nullopt;
    return ModelObject::identify(member, parameters);  // names are resolved for what is gone, too
}

std::int32_t Item::subscribe(const automation::Guid& interface_id, const automation::Object& sink) {
    check_there();
    return ModelObject::subscribe(interface_id, sink);
}

Text Item::entry_id() const { return id_ == 0 ? Text() : desk().item_entry_id(id_, folder_); }

Text Item::subject() const { return field(u"Subject").to_text(); }

void Item::load_attachments() {
    if (attachments_loaded_) return;
    data_.attachments = desk().store().attachments(id_);
    attachments_loaded_ = true;
}

const ItemData& Item::whole() {
    load_attachments();
    return data_;
}

ItemData& Item::change() {
    changed_ = true;
    ++version_;
    if (!shown_by.expired()) desk().surroundings().changed();
    return data_;
}

ItemData& Item::change_attachments() {
    load_attachments();
    attachments_changed_ = true;
    return change();
}

Value Item::field(TextView field_name) const { return field_value(data_, field_name).value_or(Value()); }

std::optional<automation::MemberFacts> Item::other_facts(TextView member) const {
    const FieldRow* const field = find_field(kind(), member);
    return field ? std::optional(facts_of(*field)) : std::nullopt;
}

Value Item::other_member(Request& request) {
    const FieldRow* const field =
        request.member.empty() ? find_field(kind(), request.id) : find_field(kind(), request.member);
    if (!field) automation::throw_no_member(request);
    observe(field->name);
    const std::vector<Value> rest = automation::arrange(facts_of(*field), request);
    if (!rest.empty()) throw Failure(result::bad_count, Text(field->name));
    if (request.access == automation::Access::put) {
        set_field(*field, request.arguments.back());
        return {};
    }
    return this->field(field->name);
}

void Item::set_field(const FieldRow& field, const Value& value) {
    Value stored = converted(value, field.type);
    check_format(field.name, stored);
    if (is_people_line(field.name)) return set_people_line(field.name, stored.to_text());
    const Text filed_before = filed_as(data_);
    change().fields[Text(field.name)] = std::move(stored);
    follow_change(data_, field.name, filed_before, desk().surroundings());
    raise(u"PropertyChange", {Value(field.name)});
}

void Item::set_message_class(const Text& message_class) {
    change().message_class = message_class;
    apply_form(data_);
}

void Item::mark_read(bool read) { change().fields[u"UnRead"] = !read; }

void Item::save() {
    check_there();
    if (id_ != 0 && !changed_) return;
    if (!may_store()) return;

    const bool is_new = id_ == 0;
    write();
    if (is_new) {
        desk().remember_open(id_, shared_from_this());
        desk().item_added(folder_, id_);
        desk().tell_item_added(folder_, id_);
    } else {
        desk().tell_item_changed(folder_, shared_from_this());
    }
}

bool Item::may_store() {
    if (outdated_) {
        throw Failure(result::changed_meanwhile,
                      u"The operation cannot be performed because the message has been changed.");
    }
    std::vector<Value> cancel{false};
    raise_with_answer(u"Write", cancel);
    if (cancel[0].to_boolean()) return false;
    check_there();  // who was asked may have moved or deleted it
    const bool has_new_attachments = id_ == 0 || attachments_changed_;
    return !has_new_attachments || may_save_attachments(shared_from_this());
}

void Item::write(RowId target) {
    ItemData saved = data_;
    const automation::Date now = desk().surroundings().now();
    complete_for_saving(saved);
    saved.fields[u"LastModificationTime"] = now;
    if (!saved.fields.contains(u"CreationTime")) saved.fields[u"CreationTime"] = now;
    const bool is_new = id_ == 0;
    const RowId own = folder_ != 0 ? folder_ : desk().default_folder(kind().default_folder);
    const RowId folder = is_new && target != 0 ? target : own;
    RowId id = id_;
    {
        Store::Transaction transaction(desk().store());
        if (is_new) {
            id = desk().store().add_item(folder, saved);
        } else {
            desk().store().update_item(id, saved, attachments_changed_);
            if (target != 0) desk().store().move_item(id, target);
        }
        transaction.keep();
    }
    id_ = id;
    folder_ = folder;
    data_ = std::move(saved);
    changed_ = false;
    attachments_changed_ = false;
}

void Item::revert() {
    if (id_ == 0 || !changed_) return;
    if (std::optional<ItemRow> row = desk().store().load(id_)) {
        data_ = std::move(row->data);
        attachments_loaded_ = false;
        attachments_changed_ = false;
        changed_ = false;
        outdated_ = false;
        ++version_;
        desk().surroundings().changed();
    }
}

std::shared_ptr<Inspector> Item::inspector() {
    if (std::shared_ptr<Inspector> shown = shown_by.lock()) return shown;
    auto fresh = std::make_shared<Inspector>(desk(), shared_from_this());
    shown_by = fresh;
    return fresh;
}

}  // namespace desk
