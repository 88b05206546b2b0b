#include "tests/world/people.h"

#include "addin/ground/settings.h"

namespace acceptance {

using automation::Text;
using automation::TextView;
using host::outlook::Item;
using host::outlook::Items;

Item add_contact(World& world, const ContactPlan& plan) {
    const Item contact = world.below(u"Account Contacts").Items().Add(u"IPM.Contact.Account Contact");
    contact.put(u"FullName", plan.full_name);
    contact.put(u"CompanyName", plan.company);
    for (const auto& [name, value] : plan.fields) contact.put(name, value);
    const host::outlook::UserProperties properties = contact.UserProperties();
    for (const auto& [name, value] : plan.properties) properties.Item(name).value(value);
    contact.Save();
    return contact;
}

Item add_contact(World& world, TextView full_name, TextView address) {
    return add_contact(world, {.full_name = Text(full_name), .fields = {{u"Email1Address", Text(address)}}});
}

std::string message(const MailPlan& plan) {
    std::string text = "From: " + plan.from + "\n";
    if (!plan.to.empty()) text += "To: " + plan.to + "\n";
    text += "Subject: " + plan.subject + "\n" + plan.more;
    text +=
        "Date: Tue, 3 Mar 2026 09:15:00 +0000\nMessage-ID: <1@northmill.example>\nMIME-Version: 1.0\n"
        "Content-Type: text/plain; charset=us-ascii\n\n";
    return text + plan.body;
}

Item add_list(World& world, TextView name) {
    constexpr std::int32_t dist_list_item = 7;
    const Item list(world.application().call(u"CreateItem", {dist_list_item}).to_object());
    list.put(u"DLName", automation::Value(name));
    list.Save();
    return list;
}

Item read_mail(World& world, const MailPlan& plan) {
    const Item mail = world.deliver(message(plan));
    World::read(mail);
    return mail;
}

std::int32_t count_in(World& world, TextView folder) { return world.below(folder).Items().Count(); }

Item only_item(World& world, TextView folder) {
    const Items items = world.below(folder).Items();
    const std::int32_t count = items.Count();
    EXPECT_EQ(count, 1) << "in the folder " << shown(folder);
    return count == 1 ? items.Item(1) : Item();
}

bool is_marked(const Item& mail) {
    return mail.get(u"FlagStatus").to_integer() == 1 &&
           mail.get(u"FlagRequest").to_text() == u"TW-Received eMail Auto Filed" &&
           mail.BillingInformation() == u"TW Auto Filed";
}

World& Filing::emptied() {
    World& same = world();
    same.family(u"EmailAutoFile", u"1");
    same.family(u"Fail", u"");
    for (const TextView name : {u"SaveExchangeEmail", u"SavedEmailFolder"}) {
        if (!addin::Settings(same.desktop()).option(name).empty()) same.option(name, u"");
    }
    const host::outlook::Folders folders = same.account_profiles().Folders();
    const auto empty = [](const Items& items) {
        for (std::int32_t i = items.Count(); i >= 1; --i) items.call(u"Remove", {i});
    };
    for (const TextView name : {u"Account Contacts", u"Email", u"Notes", u"Opportunities"}) {
        empty(folders.Item(name).Items());
    }
    empty(same.inbox().Items());
    same.settle();
    return same;
}

void Filing::expect_left_alone(World& world, const Item& mail) {
    world.settle();
    EXPECT_EQ(count_in(world, u"Email"), 0);
    EXPECT_EQ(count_in(world, u"Notes"), 0);
    EXPECT_EQ(mail.get(u"FlagStatus").to_integer(), 0);
    EXPECT_EQ(mail.get(u"FlagRequest").to_text(), u"");
    EXPECT_EQ(mail.BillingInformation(), u"");
}

std::vector<std::string> texts_of(World& world, TextView list, std::size_t from) {
    const automation::Object texts = world.desk().get(list).to_object();
    const auto count = static_cast<std::size_t>(texts.get(u"Count").to_integer());
    std::vector<std::string> all;
    for (std::size_t i = from; i < count; ++i) {
        all.push_back(shown(texts.call(u"Item", {static_cast<std::int32_t>(i) + 1}).to_text()));
    }
    return all;
}

std::int32_t count_messages(World& world) {
    return world.desk().get(u"Messages").to_object().get(u"Count").to_integer();
}

void desk_option(World& world, TextView name, const automation::Value& value) {
    automation::Request request{.access = automation::Access::put,
                                .member = u"Options",
                                .arguments = {automation::Value(name), value}};
    world.desk().invoke(request);
}

automation::Object window_of(World& world, TextView caption) {
    return world.desk().call(u"Window", {automation::Value(caption)}).to_object();
}

bool is_shown(const automation::Object& window) {
    try {
        return window && window.get(u"Visible").to_boolean();
    } catch (const automation::Failure& failure) {
        if (failure.number() != automation::result::object_deleted) throw;
        return false;
    }
}

std::int32_t held(World& world) { return world.desk().get(u"Live").to_object().get(u"Total").to_integer(); }

std::int32_t held(World& world, TextView kind) {
    return world.desk().get(u"Live", {automation::Value(kind)}).to_integer();
}

std::int32_t calls_of(World& world, TextView member) {
    const automation::Object calls = world.desk().get(u"Calls").to_object();
    const std::int32_t count = calls.get(u"Count").to_integer();
    for (std::int32_t i = 1; i <= count; ++i) {
        const automation::Object call = calls.call(u"Item", {i}).to_object();
        if (call.get(u"Member").to_text() == member) return call.get(u"Invocations").to_integer();
    }
    return 0;
}

std::int32_t failure_of(const std::function<void()>& action) {
    try {
        action();
    } catch (const automation::Failure& failure) {
        return failure.number();
    }
    return 0;
}

}  // namespace acceptance
