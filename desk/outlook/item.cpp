#include "desk/outlook/item.h"

#include <algorithm>

#include "desk/base/desk.h"
#include "desk/base/host_event_tables.h"
#include "desk/outlook/application.h"
#include "desk/outlook/folder.h"
#include "desk/outlook/inspectors.h"
#include "desk/outlook/name_space.h"

namespace desk {

using automation::Failure;
using automation::Request;
using automation::Text;
using automation::TextView;
using automation::Value;
using tables::FieldRow;
namespace result = automation::result;

namespace {

constexpr std::int32_t deleted_items = 3, sent_items = 5;

/// Posts are posted, what has recipients is sent; the name of the other is none of theirs.
bool knows(const ItemKind& kind, TextView member) {
    if (automation::same_ignoring_case(member, u"Post")) return kind.number == object_class::post;
    if (automation::same_ignoring_case(member, u"Send")) return kind.has_people;
    return true;
}

/// The lines of a mail that name its recipients.
struct PeopleLine {
    TextView field;
    std::int32_t kind;
};
constexpr PeopleLine mail_lines[] = {{u"To", 1}, {u"CC", 2}, {u"BCC", 3}};
constexpr PeopleLine appointment_lines[] = {
    {u"RequiredAttendees", 1}, {u"OptionalAttendees", 2}, {u"Resources", 3}};

std::span<const PeopleLine> lines_of(const ItemKind& kind) {
    if (kind.number == object_class::mail) return mail_lines;
    if (kind.number == object_class::appointment) return appointment_lines;
    return {};
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

Value Item::invoke(Request& request) {
    if (request.access != automation::Access::identify)
        check_there();  // names are resolved for what is gone, too
    if (!knows(kind(), request.member)) automation::throw_no_member(request);
    return ModelObject::invoke(request);
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

Value Item::other_member(Request& request) {
    const FieldRow* const field =
        request.member.empty() ? find_field(kind(), request.id) : find_field(kind(), request.member);
    if (!field) automation::throw_no_member(request);
    const automation::MemberFacts facts{
        field->name, field->id, field->writable ? automation::Use::get_put : automation::Use::get, {}};
    if (request.access == automation::Access::identify) return automation::identify(facts, request);
    observe(request, field->name);
    const std::vector<Value> rest = automation::arrange(facts, request);
    if (!rest.empty()) throw Failure(result::bad_count, Text(field->name));
    if (request.access == automation::Access::put) {
        set_field(*field, request.arguments.back());
        return {};
    }
    return this->field(field->name);
}

void Item::set_field(const FieldRow& field, const Value& value) {
    Value stored = converted(value, field.type);
    const auto& lines = lines_of(kind());
    const auto line = std::ranges::find(lines, field.name, &PeopleLine::field);
    if (line != lines.end()) return set_people_line(field.name, stored.to_text());
    const Text filed_before = filed_as(data_);
    change().fields[Text(field.name)] = std::move(stored);
    follow_change(data_, field.name, filed_before, desk().surroundings().now());
    raise(u"PropertyChange", {Value(field.name)});
}

void Item::set_message_class(const Text& message_class) {
    change().message_class = message_class;
    apply_form(data_);
}

void Item::set_people_line(TextView line, TextView names) {
    const auto& lines = lines_of(kind());
    const std::int32_t person_kind = std::ranges::find(lines, line, &PeopleLine::field)->kind;
    std::vector<Person>& people = change().recipients;
    std::erase_if(people, [&](const Person& person) { return person.kind == person_kind; });
    while (!names.empty()) {
        const std::size_t end = names.find(u';');
        const Text one = automation::trimmed(names.substr(0, end));
        if (!one.empty()) people.push_back(desk().name_space()->person(one, person_kind));
        names = end == TextView::npos ? TextView() : names.substr(end + 1);
    }
    people_changed();
}

void Item::people_changed() {
    for (const PeopleLine& line : lines_of(kind())) {
        Text names;
        for (const Person& person : data_.recipients) {
            if (person.kind != line.kind) continue;
            if (!names.empty()) names += u"; ";
            names += person.name;
        }
        change().fields[Text(line.field)] = names;
    }
}

void Item::mark_read(bool read) { change().fields[u"UnRead"] = !read; }

void Item::save() {
    check_there();
    if (id_ != 0 && !changed_) return;
    if (outdated_) {
        throw Failure(result::changed_meanwhile,
                      u"The operation cannot be performed because the message has been changed.");
    }
    std::vector<Value> cancel{false};
    raise_with_answer(u"Write", cancel);
    if (cancel[0].to_boolean()) return;
    check_there();  // who was asked may have moved or deleted it

    const bool is_new = id_ == 0;
    write();
    changed_ = false;
    attachments_changed_ = false;
    if (is_new) {
        desk().remember_open(id_, shared_from_this());
        desk().item_added(folder_, id_);
        desk().tell_item_added(folder_, id_);
    } else {
        desk().tell_item_changed(folder_, shared_from_this());
    }
}

/// What is in the file is what the item holds from then on; where that fails it is as it was.
void Item::write() {
    ItemData saved = data_;
    const automation::Date now = desk().surroundings().now();
    complete_for_saving(saved);
    saved.fields[u"LastModificationTime"] = now;
    if (!saved.fields.contains(u"CreationTime")) saved.fields[u"CreationTime"] = now;
    const RowId folder = folder_ != 0 ? folder_ : desk().default_folder(kind().default_folder);
    RowId id = id_;
    {
        Store::Transaction transaction(desk().store());
        if (id == 0) {
            id = desk().store().add_item(folder, saved);
        } else {
            desk().store().update_item(id, saved, attachments_changed_);
        }
        transaction.keep();
    }
    id_ = id;
    folder_ = folder;
    data_ = std::move(saved);
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

void Item::post() {
    const automation::Date now = desk().surroundings().now();
    change().fields[u"SentOn"] = now;
    data_.fields[u"ReceivedTime"] = now;
    data_.fields[u"SenderName"] = desk().name_space()->user_name();
    save();
    if (const std::shared_ptr<Inspector> shown = shown_by.lock()) shown->close_window();
}

void Item::send() {
    if (data_.recipients.empty()) {
        throw Failure(result::fail, u"There must be at least one name in the To, Cc, or Bcc box.");
    }
    std::vector<Value> own_cancel{false};
    raise_with_answer(u"Send", own_cancel);
    if (own_cancel[0].to_boolean()) return;
    std::vector<Value> arguments{Value(self()), false};
    desk().application()->raise_with_answer(u"ItemSend", arguments);
    if (arguments[1].to_boolean()) return;

    const automation::Date now = desk().surroundings().now();
    ItemData& sent = change();
    sent.fields[u"Sent"] = true;
    sent.fields[u"Submitted"] = true;
    sent.fields[u"SentOn"] = now;
    sent.fields[u"ReceivedTime"] = now;
    sent.fields[u"SenderName"] = desk().name_space()->user_name();
    sent.fields[u"UnRead"] = false;
    if (const std::shared_ptr<Inspector> shown = shown_by.lock()) shown->close_window();
    const bool kept =
        !data_.fields.contains(u"DeleteAfterSubmit") || !field(u"DeleteAfterSubmit").to_boolean();
    const RowId target = desk().default_folder(sent_items);
    if (!kept) return remove_for_good();
    if (id_ == 0) {
        folder_ = target;
        save();
    } else {
        save();
        move_to(target);
    }
}

std::shared_ptr<Item> Item::copy_to(RowId folder) {
    ItemData data = whole();
    auto twin = std::make_shared<Item>(desk(), folder, std::move(data));
    twin->data_.fields.erase(u"CreationTime");
    twin->save();
    return twin;
}

void Item::leave_folder() {
    gone_ = true;
    desk().forget_open(id_);
    desk().item_removed(folder_, id_);
    desk().tell_item_removed(folder_);
    if (const std::shared_ptr<Inspector> shown = shown_by.lock()) shown->close_window();
}

void Item::folder_is_gone() {
    gone_ = true;
    desk().forget_open(id_);
    if (const std::shared_ptr<Inspector> shown = shown_by.lock()) shown->close_window();
}

std::shared_ptr<Item> Item::move_to(RowId target) {
    check_there();
    if (id_ == 0) {
        desk().existing_folder(target);
        folder_ = target;
        save();
        return shared_from_this();
    }
    if (changed_) save();
    check_there();  // who was told of the change may have moved or deleted it
    desk().store().move_item(id_, target);
    leave_folder();
    desk().item_added(target, id_);
    desk().tell_item_added(target, id_);
    return desk().open_item(id_);
}

void Item::remove_for_good() {
    check_there();
    if (id_ != 0) {
        desk().store().remove_item(id_);
        leave_folder();
    }
    gone_ = true;
}

void Item::remove() {
    check_there();
    // the mailbox has a place for what is deleted; shared folders have none
    const RowId bin = desk().default_folder(deleted_items);
    const bool recoverable =
        id_ != 0 && bin != 0 && folder_ != bin && desk().root_of(folder_) == desk().root_of(bin);
    if (recoverable) {
        move_to(bin);
    } else {
        remove_for_good();
    }
}

std::shared_ptr<Item> Item::reply(bool to_all) {
    const Text subject = this->subject();
    ItemData data;
    data.message_class = u"IPM.Note";
    data.fields[u"Subject"] = subject.starts_with(u"RE: ") ? subject : u"RE: " + subject;
    data.fields[u"Body"] = u"\r\n\r\n" + field(u"Body").to_text();
    Person sender;
    sender.name = field(u"SenderName").to_text();
    sender.address = field(u"SenderEmailAddress").to_text();
    sender.address_type = field(u"SenderEmailType").to_text();
    sender.smtp_address =
        data_.fields.contains(u"SenderSmtpAddress") ? field(u"SenderSmtpAddress").to_text() : Text();
    data.recipients.push_back(sender);
    if (to_all)
        data.recipients.insert(data.recipients.end(), data_.recipients.begin(), data_.recipients.end());
    auto answer = std::make_shared<Item>(desk(), desk().default_folder(kind_of_type(0).default_folder),
                                         std::move(data));
    answer->people_changed();
    return answer;
}

std::shared_ptr<Item> Item::forward() {
    const Text subject = this->subject();
    ItemData data;
    data.message_class = u"IPM.Note";
    data.fields[u"Subject"] = subject.starts_with(u"FW: ") ? subject : u"FW: " + subject;
    data.fields[u"Body"] = u"\r\n\r\n" + field(u"Body").to_text();
    data.attachments = whole().attachments;
    return std::make_shared<Item>(desk(), desk().default_folder(kind_of_type(0).default_folder),
                                  std::move(data));
}

std::shared_ptr<Inspector> Item::inspector() {
    if (std::shared_ptr<Inspector> shown = shown_by.lock()) return shown;
    auto fresh = std::make_shared<Inspector>(desk(), shared_from_this());
    shown_by = fresh;
    return fresh;
}

}  // namespace desk
