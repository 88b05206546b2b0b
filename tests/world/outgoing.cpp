#include "tests/world/outgoing.h"
#include "tests/world/host_numbers.h"

namespace acceptance {

using automation::Text;
using automation::TextView;
using host::outlook::Item;
using host::outlook::Items;

namespace {}

Item new_mail(World& world, const OutgoingPlan& plan) {
    Item mail = new_item(world, item_type::mail);
    mail.put(u"To", plan.to);
    if (!plan.cc.empty()) mail.put(u"CC", plan.cc);
    mail.Subject(plan.subject);
    mail.Body(plan.body);
    return mail;
}

Items sent_items(World& world) {
    return world.name_space().GetDefaultFolder(host::outlook::default_folder::sent_mail).Items();
}

Item send(World& world, const Item& mail) {
    const std::int32_t before = sent_items(world).Count();
    mail.call(u"Send");
    const Items sent = sent_items(world);
    const std::int32_t after = sent.Count();
    EXPECT_EQ(after, before + 1) << "the mail has gone out";
    return after == before + 1 ? sent.Item(after) : Item();
}

bool is_marked_as_sent(const Item& mail) {
    return mail.get(u"FlagStatus").to_integer() == 1 &&
           mail.get(u"FlagRequest").to_text() == u"TW-Sent Email Auto Filed" &&
           mail.BillingInformation().empty();
}

Lines status::skipped(const std::string& name) { return {"Checking names - " + name}; }

Lines status::without_to_line(const std::string& name) {
    return {"Checking names - " + name, "Checking names  " + name};
}

Lines status::stranger(const std::string& name) {
    return {"Checking names - " + name, "Checking names  " + name, "Searching for " + name,
            "Searching for " + name + " - NOT FOUND"};
}

Lines status::contact(const std::string& name, const std::string& full_name) {
    return {"Checking names - " + name, "Checking names  " + name, "Searching for " + name,
            "Searching for " + full_name + " - Saving"};
}

World& Outgoing::cleared() {
    World& same = emptied();
    same.family(u"EmailAutoFile", u"0");
    same.option(u"AutoFileSentEmails", u"1");
    for (const std::int32_t folder : {host::outlook::default_folder::sent_mail, drafts}) {
        const Items items = same.name_space().GetDefaultFolder(folder).Items();
        for (std::int32_t i = items.Count(); i >= 1; --i) items.call(u"Remove", {i});
    }
    return same;
}

Item Outgoing::add_full_contact(World& world, TextView full_name, TextView address) {
    return add_contact(world, {.full_name = Text(full_name),
                               .fields = {{u"Email1Address", u"first@unused.example"},
                                          {u"Email2Address", Text(address)},
                                          {u"Email3Address", u"third@unused.example"}}});
}

}  // namespace acceptance
