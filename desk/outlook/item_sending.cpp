// An item and people: who it goes to, that it is sent or posted, and the answers to it.
#include <algorithm>

#include "desk/base/desk.h"
#include "desk/outlook/application.h"
#include "desk/outlook/attachments.h"
#include "desk/outlook/inspectors.h"
#include "desk/outlook/item.h"
#include "desk/outlook/name_space.h"
#include "desk/outlook/own_mail.h"
#include "desk/outlook/quoted_mail.h"
#include "desk/outlook/recipients.h"

namespace desk {

using automation::Failure;
using automation::Text;
using automation::TextView;
using automation::Value;
namespace result = automation::result;

namespace {

constexpr std::int32_t sent_items = 5;
constexpr std::uint32_t arrival_warning = 0x30;  // MB_ICONWARNING

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

bool Item::is_people_line(TextView field_name) const {
    return std::ranges::any_of(lines_of(kind()),
                               [&](const PeopleLine& line) { return line.field == field_name; });
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
    names_checked_ = false;
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

void Item::post() {
    const automation::Date now = desk().surroundings().now();
    change().fields[u"SentOn"] = now;
    data_.fields[u"ReceivedTime"] = now;
    data_.fields[u"SenderName"] = desk().name_space()->user_name();
    save();
    if (const std::shared_ptr<Inspector> shown = shown_by.lock()) shown->close_window();
}

/// Names that a program has resolved already are not asked about again.
bool Item::check_names() {
    const bool all_known = std::ranges::all_of(data_.recipients, &Person::resolved);
    if (names_checked_ && all_known) return true;
    std::vector<Value> cancel{false};
    raise_with_answer(u"BeforeCheckNames", cancel);
    if (cancel[0].to_boolean()) return false;
    return Recipients(desk(), shared_from_this()).resolve_all();
}

void Item::send() {
    if (data_.recipients.empty()) {
        throw Failure(result::fail, u"There must be at least one name in the To, Cc, or Bcc box.");
    }
    if (!check_names()) {
        throw Failure(result::fail, u"Outlook does not recognize one or more names.");
    }
    std::vector<Value> own_cancel{false};
    raise_with_answer(u"Send", own_cancel);
    if (own_cancel[0].to_boolean()) return;
    std::vector<Value> arguments{Value(self()), false};
    desk().application()->raise_with_answer(u"ItemSend", arguments);
    if (arguments[1].to_boolean()) return;

    const bool kept =
        !data_.fields.contains(u"DeleteAfterSubmit") || !field(u"DeleteAfterSubmit").to_boolean();
    if (kept && !may_store()) return;
    send_off(kept);
}

/// What can't be stored stays as it was written, in its window.
void Item::send_off(bool kept) {
    load_attachments();  // what can't be read any more fails here, before anything is sent
    const bool is_new = id_ == 0;
    const auto written = data_.fields;
    mark_sent();
    std::optional<ItemData> arriving;
    try {
        arriving = arriving_mail(desk(), data_);  // as yet, nobody who is told of it has changed it
        if (kept) {
            write(desk().default_folder(sent_items));
        } else if (arriving) {
            desk().receive(
                *arriving);  // there may be no other copy, so it has to lie there before this one goes
            arriving.reset();
        }
    } catch (...) {
        data_.fields = written;
        throw;
    }
    if (kept && is_new) desk().item_added(folder_, id_);
    put_away(kept, is_new);
    if (arriving) arrive(*arriving);
}

void Item::put_away(bool kept, bool is_new) {
    if (const std::shared_ptr<Inspector> shown = shown_by.lock()) shown->close_window();
    if (gone_) return;  // who was told of that has deleted it
    if (!kept) return remove_for_good();
    if (!is_new) {
        desk().tell_item_changed(folder_, shared_from_this());
        if (!gone_) settle_in(desk().default_folder(sent_items));
        return;
    }
    gone_ = true;  // this object is good for nothing more
    desk().tell_item_added(folder_, id_);
}

/// The mail has been sent by now: what goes wrong with its arrival is told, and no failure of sending.
void Item::arrive(const ItemData& mail) {
    try {
        desk().receive(mail);
    } catch (const Failure& failure) {
        const Text told = u"\"" + subject() + u"\" was sent, but could not be put into your Inbox.\n\n" +
                          failure.description();
        desk().surroundings().post(
            [&desk = desk(), told] { desk.surroundings().ask(told, u"Outlook", arrival_warning); });
    }
}

void Item::mark_sent() {
    const automation::Date now = desk().surroundings().now();
    ItemData& sent = change();
    sent.fields[u"Sent"] = true;
    sent.fields[u"Submitted"] = true;
    sent.fields[u"SentOn"] = now;
    sent.fields[u"ReceivedTime"] = now;
    sent.fields[u"SenderName"] = desk().name_space()->user_name();
    sent.fields[u"SenderEmailAddress"] = Text(NameSpace::user_address);
    sent.fields[u"SenderEmailType"] = u"SMTP";
    sent.fields[u"UnRead"] = false;
}

std::shared_ptr<Item> Item::reply(bool to_all) {
    ItemData data;
    data.message_class = u"IPM.Note";
    data.fields[u"Subject"] = marked_subject(u"RE: ", subject());
    data.fields[u"Body"] = quoted(data_);
    Person sender;
    sender.name = field(u"SenderName").to_text();
    sender.address = field(u"SenderEmailAddress").to_text();
    sender.address_type = field(u"SenderEmailType").to_text();
    sender.smtp_address =
        data_.fields.contains(u"SenderSmtpAddress") ? field(u"SenderSmtpAddress").to_text() : Text();
    const bool is_own = to_all && is_user(sender, NameSpace::user_address);
    if (!is_own) data.recipients.push_back(sender);
    if (to_all) {
        const std::vector<Person> others = others_of(data_, sender, NameSpace::user_address);
        data.recipients.insert(data.recipients.end(), others.begin(), others.end());
    }
    return answer_of(std::move(data), to_all ? u"ReplyAll" : u"Reply");
}

std::shared_ptr<Item> Item::forward() {
    ItemData data;
    data.message_class = u"IPM.Note";
    data.fields[u"Subject"] = marked_subject(u"FW: ", subject());
    data.fields[u"Body"] = quoted(data_);
    data.attachments = whole().attachments;
    return answer_of(std::move(data), u"Forward");
}

/// A new mail, in which the user has written nothing yet; null if one who is told of it cancels it.
std::shared_ptr<Item> Item::answer_of(ItemData data, TextView event) {
    auto answer = std::make_shared<Item>(desk(), desk().default_folder(kind_of_type(0).default_folder),
                                         std::move(data));
    answer->people_changed();
    answer->names_checked_ = true;
    answer->version_ = 0;
    std::vector<Value> arguments{Value(answer->self()), false};
    raise_with_answer(event, arguments);
    return arguments[1].to_boolean() ? nullptr : answer;
}

}  // namespace desk
