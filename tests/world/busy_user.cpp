#include "tests/world/busy_user.h"

#include <algorithm>
#include <map>

#include "tests/world/item_state.h"
#include "tests/world/linked_items.h"
#include "tests/world/many_mails.h"
#include "tests/world/note_dialog.h"
#include "tests/world/outgoing.h"
#include "tests/world/search_panel.h"

namespace acceptance {

using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Folder;
using host::outlook::Item;
using host::outlook::Items;
namespace default_folder = host::outlook::default_folder;
using Kind = BusyUser::Trace::Kind;

namespace {

constexpr std::int32_t save_and_close = 0;  // OlInspectorClose
constexpr TextView quiet = u"Quiet & Co.";
constexpr int notes_of_quiet = 5;

/// The items of a folder by their subjects.
using Subjects = std::multimap<std::string, Item>;
Subjects subjects_of(const Folder& folder) {
    Subjects found;
    const Items items = folder.Items();
    const std::int32_t count = items.Count();
    for (std::int32_t i = 1; i <= count; ++i) {
        const Item item = items.Item(i);
        found.emplace(shown(item.Subject()), item);
    }
    return found;
}

Folder shared_folder(World& world, TextView name) {
    return Folder(world.account_profiles().Parent()).Folders().Item(name);
}

}  // namespace

BusyUser::BusyUser(World& world, std::uint32_t seed) : world_(world), random_(seed) {
    world.family(u"EmailAutoFile", u"1");
    world.family(u"UserName", u"Mia Hart");
    world.family(u"Alignment", u"North");
    world.option(u"AutoFileSentEmails", u"1");
    world.option(u"EnableQuickView", u"1");
    install_panel(world);
    contact_id_ = add_contact(world).EntryID();
    quiet_id_ = add_full_account(world, Text(quiet), u"A-900").EntryID();
    for (int i = 0; i < notes_of_quiet; ++i) {
        add_note(world, u"A call of " + automation::to_text(static_cast<long long>(i)),
                 {{u"AccountID", u"A-900"}, {u"Account Name", Text(quiet)}});
    }
    come_back();
}

void BusyUser::come_back() {
    show_folder(world_, world_.inbox());
    contact_ = Item(world_.name_space().GetItemFromID(contact_id_));
    quiet_account_ = Item(world_.name_space().GetItemFromID(quiet_id_));
    last_mail_ = Item();
}

void BusyUser::live(const BusyDay& day) {
    const std::pair<int, void (BusyUser::*)()> works[] = {
        {day.received, &BusyUser::receive},    {day.sent, &BusyUser::send},
        {day.windows, &BusyUser::open_window}, {day.selections, &BusyUser::select},
        {day.searches, &BusyUser::search},     {day.linked, &BusyUser::make_linked},
    };
    std::vector<void (BusyUser::*)()> all;
    for (const auto& [times, work] : works) all.insert(all.end(), static_cast<std::size_t>(times), work);
    // std::shuffle may differ from library to library; the same seed is to give the same day
    for (std::size_t i = all.size(); i > 1; --i) std::swap(all[i - 1], all[random_() % i]);
    for (const auto work : all) (this->*work)();
}

void BusyUser::go_home() {
    last_mail_ = Item();
    world_.desk().call(u"Select");
    world_.wait_for_handlers();
    if (const automation::Object view = window_of(world_, u"TW Quick View")) view.call(u"Close");
    world_.settle();
    world_.desk().call(u"Forget");
}

BusyUser::Trace& BusyUser::begin(Trace::Kind kind, const char* name, bool becomes_record) {
    traces_.push_back({.kind = kind,
                       .subject = name + (" " + std::to_string(traces_.size())),
                       .becomes_record = becomes_record});
    return traces_.back();
}

void BusyUser::receive() {
    const MailOfMany& mail = mail_of_many(static_cast<int>(traces_.size()));
    Trace& trace = begin(Kind::received, "Received", mail.is_filed);
    last_mail_ = world_.deliver(message({.from = mail.from, .subject = trace.subject, .more = mail.more}));
    trace.is_there = true;
    World::read(last_mail_);
    trace.is_done = true;
}

void BusyUser::send() {
    const bool to_contact = random_() % 3 != 0;
    Trace& trace = begin(Kind::sent, "Sent", to_contact);
    const Item mail = new_mail(world_, {.to = to_contact ? u"Ann Lee <ann.lee@northmill.example>"
                                                         : u"Nobody <nobody@elsewhere.example>",
                                        .subject = automation::from_utf8(trace.subject)});
    mail.call(u"Send");
    trace.is_there = trace.is_done = true;
}

void BusyUser::open_window() {
    const Item kinds[] = {last_mail_ ? last_mail_ : contact_, contact_, quiet_account_,
                          new_item(world_, item_type::mail)};
    OpenedItem opened(kinds[static_cast<std::size_t>(windows_++) % std::size(kinds)]);
    opened.show();
    world_.settle();
    opened.close();
}

void BusyUser::select() {
    if (!last_mail_) receive();
    world_.desk().call(u"Select", {Value(last_mail_)});
    world_.wait_for_handlers();
}

void BusyUser::search() {
    const SearchPanel panel(world_);
    panel.search_for(quiet_account_);
}

void BusyUser::make_linked() {
    const bool is_task = random_() % 3 == 0;
    const LinkedKind& kind = is_task ? linked_tasks : appointments;
    Trace& trace = begin(is_task ? Kind::task : Kind::appointment, is_task ? "Task" : "Visit", true);
    const Item item = new_item(world_, kind.own_folder, kind.message_class);
    item.Display();
    item.Subject(u"To be changed");
    item.UserProperties().Item(kind.key).value(Value(automation::from_utf8("K-" + trace.subject)));
    item.UserProperties().Item(u"AccountID").value(Value(u"A-100"));
    item.UserProperties().Item(u"ContactID").value(Value(u"C-200"));
    item.Save();
    item.Subject(automation::from_utf8(trace.subject));
    item.Save();
    trace.is_there = true;
    item.get(u"GetInspector").to_object().call(u"Close", {save_and_close});
    world_.wait_for_handlers();
    trace.is_done = true;
}

Lines wrongs_of(World& world, const BusyUser& user) {
    struct Place {
        Subjects own, records;
    };
    const Subjects notes = subjects_of(world.below(u"Email"));
    const auto own = [&](std::int32_t folder) {
        return subjects_of(world.name_space().GetDefaultFolder(folder));
    };
    const std::map<Kind, Place> places = {
        {Kind::received, {own(default_folder::inbox), notes}},
        {Kind::sent, {own(default_folder::sent_mail), notes}},
        {Kind::appointment,
         {own(default_folder::calendar), subjects_of(shared_folder(world, u"Global Calendar"))}},
        {Kind::task, {own(default_folder::tasks), subjects_of(shared_folder(world, u"Global Tasks"))}},
    };
    Lines wrongs;
    std::size_t mails_filed = 0, linked = 0;
    for (const BusyUser::Trace& trace : user.traces()) {
        const Place& place = places.at(trace.kind);
        const bool is_mail = trace.kind == Kind::received || trace.kind == Kind::sent;
        if (place.own.count(trace.subject) != 1)
            wrongs.push_back(trace.subject + " is not there exactly once");
        const std::size_t wanted = trace.becomes_record ? 1 : 0, found = place.records.count(trace.subject);
        if (found != wanted) {
            wrongs.push_back(trace.subject + " has " + std::to_string(found) + " records instead of " +
                             std::to_string(wanted));
        }
        (is_mail ? mails_filed : linked) += wanted;
    }
    if (notes.size() != mails_filed) wrongs.emplace_back("there are notes without their mail");
    if (places.at(Kind::appointment).records.size() + places.at(Kind::task).records.size() != linked) {
        wrongs.emplace_back("there are copies without their appointment or task");
    }
    for (const auto& [subject, note] : notes) {
        if (note.get(u"Attachments").to_object().get(u"Count").to_integer() != 1) {
            wrongs.push_back("the note of " + subject + " holds no mail");
        }
    }
    return wrongs;
}

}  // namespace acceptance
