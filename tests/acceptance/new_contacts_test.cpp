// A contact that is brought into "Account Contacts" by hand becomes a record as it arrives.
#include <algorithm>

#include "addin/ground/settings.h"
#include "tests/world/host_numbers.h"
#include "tests/world/item_state.h"
#include "tests/world/note_dialog.h"

namespace acceptance {
namespace {

using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Folder;
using host::outlook::Item;

constexpr TextView personal_class = u"IPM.Contact", record_class = u"IPM.Contact.Account Contact",
                   lead_class = u"IPM.Contact.Lead";

class NewContacts : public Acceptance {
  protected:
    World& furnished(const WorldSetup& setup = {}) {
        World& made = with(setup);
        made.family(u"UserName", u"Tom Prior");
        made.family(u"Alignment", u"South");
        return made;
    }

    Folder own() { return world().name_space().GetDefaultFolder(contacts); }

    /// A contact of the user's own.
    Item personal(TextView full_name) {
        const Item contact = new_item(world(), contacts, personal_class);
        contact.FullName(full_name);
        contact.CompanyName(u"North Mill Ltd");
        contact.put(u"JobTitle", u"Buyer");
        contact.Save();
        return contact;
    }

    /// Selects these contacts, as a click does.
    void select(const std::vector<Item>& items) {
        automation::Request request{.access = automation::Access::call, .member = u"Select"};
        for (const Item& item : items) request.arguments.emplace_back(Value(item));
        world().desk().invoke(request);
        world().settle();
    }
    void select_nothing() { show_folder(world(), world().inbox()); }

    /// A new contact of a class in "Account Contacts", which the add-in comes to see.
    Item arrives(TextView full_name, TextView message_class = personal_class) {
        const Item contact = world().below(u"Account Contacts").Items().Add(message_class);
        contact.FullName(full_name);
        contact.CompanyName(u"North Mill Ltd");
        contact.Save();
        EXPECT_TRUE(world().wait_for_handlers());
        return contact;
    }

    /// The copy of a contact that is dragged into the folder.
    void drag(const Item& contact) {
        contact.Copy().Move(world().below(u"Account Contacts"));
        EXPECT_TRUE(world().wait_for_handlers());
    }
    Item arrived() {
        const host::outlook::Items items = world().below(u"Account Contacts").Items();
        return items.Item(items.Count());
    }

    Text sync() { return addin::Settings(world().desktop()).option(u"PDAContactSync"); }
};

/// What a stamped contact bears, with its id.
Lines stamped(const Text& id, const std::string& full_name = "Ann Lee") {
    return {"Subject: " + full_name,      "ContactID: " + shown(id), "Account Name: North Mill Ltd",
            "Account Manager: Tom Prior", "Team: Tom Prior",         "Alignment: South"};
}

/// What becomes of a contact "Ann Lee" of a class.
struct ArrivalCase {
    const char* name;
    TextView message_class;
    std::vector<TextView> selected;  ///< personal contacts
    TextView sync;
    bool is_stamped;
    std::vector<bool> tied;  ///< whether each of the selected learns an id
};
const ArrivalCase arrival_cases[] = {
    {"its source is selected", personal_class, {u"Ann Lee"}, u"1", true, {true}},
    {"without synchronisation the source isn't tied", personal_class, {u"Ann Lee"}, u"0", true, {false}},
    {"nor without the option", personal_class, {u"Ann Lee"}, u"", true, {false}},
    {"a form of its own", u"IPM.Contact.Other", {u"Ann Lee"}, u"1", true, {true}},
    {"another is selected", personal_class, {u"Bob Ray"}, u"0", false, {false}},
    {"another is selected, and contacts are synchronised", personal_class, {u"Bob Ray"}, u"1", true, {false}},
    {"a record", record_class, {u"Ann Lee"}, u"1", false, {false}},
    {"a lead has an id, if an empty one", lead_class, {u"Ann Lee"}, u"1", false, {false}},
    {"a lead beside several", lead_class, {u"Ann Lee", u"Bob Ray"}, u"1", true, {true, false}},
    {"the source is the second of two", personal_class, {u"Bob Ray", u"Ann Lee"}, u"1", true, {false, true}},
    {"none of two", personal_class, {u"Bob Ray", u"Cid Fox"}, u"1", false, {false, false}},
    {"of two, not synchronised", personal_class, {u"Bob Ray", u"Ann Lee"}, u"0", true, {false, false}},
    {"nothing is selected", personal_class, {}, u"1", false, {}},
};

TEST_F(NewContacts, BecomeRecordsByWhatIsSelected) {
    World& world = furnished();
    for (const ArrivalCase& one : arrival_cases) {
        SCOPED_TRACE(one.name);
        world.option(u"PDAContactSync", one.sync);
        std::vector<Item> sources;
        std::vector<ItemState> before;
        for (const TextView name : one.selected) {
            sources.push_back(personal(name));
            before.push_back(state_of(sources.back()));
        }
        if (sources.empty()) {
            select_nothing();
        } else {
            select(sources);
        }
        const Item contact = arrives(u"Ann Lee", one.message_class);
        const Text id = one.is_stamped ? World::property(contact, u"ContactID") : Text();
        if (one.is_stamped) {
            EXPECT_EQ(contact.MessageClass(), record_class);
            EXPECT_FALSE(id.empty());
            Lines told = told_note(contact), expected = stamped(id);
            std::ranges::sort(told);
            std::ranges::sort(expected);
            EXPECT_EQ(told, expected);
        } else {
            EXPECT_EQ(contact.MessageClass(), one.message_class);
            EXPECT_EQ(told_note(contact), Lines{"Subject: Ann Lee"});
        }
        EXPECT_TRUE(contact.Saved());
        for (std::size_t i = 0; i < sources.size(); ++i) {
            EXPECT_EQ(changes(before[i], state_of(sources[i])),
                      one.tied[i] ? Lines{"CustomerID: " + shown(id) + " instead of "} : Lines{})
                << i;
            EXPECT_TRUE(sources[i].Saved());
        }
        EXPECT_EQ(shown(sync()), shown(one.sync));
        empty_folder(world.below(u"Account Contacts"));
        empty_folder(own());
    }
    EXPECT_EQ(count_messages(world), 0);
}

TEST_F(NewContacts, ThatAreDraggedChangeNothingElseOfTheirSource) {
    World& world = furnished();
    world.option(u"PDAContactSync", u"1");
    const Item source = personal(u"Ann Lee");
    const ItemState before = state_of(source);
    select({source});
    drag(source);
    const Item contact = arrived();
    const Text id = World::property(contact, u"ContactID");
    EXPECT_FALSE(id.empty());
    EXPECT_EQ(changes(before, state_of(source)), Lines{"CustomerID: " + shown(id) + " instead of "});
    EXPECT_EQ(contact.get(u"JobTitle").to_text(), u"Buyer");
    EXPECT_EQ(World::property(contact, u"AccountID"), u"");
    EXPECT_EQ(count_in(world, u"Account Contacts"), 1);
    EXPECT_EQ(own().Items().Count(), 1);
}

TEST_F(NewContacts, ThatAreDraggedTogetherEachFindTheirSource) {
    World& world = furnished();
    world.option(u"PDAContactSync", u"1");
    const Item ann = personal(u"Ann Lee"), bob = personal(u"Bob Ray");
    select({ann, bob});
    drag(ann);
    const Text first = World::property(arrived(), u"ContactID");
    drag(bob);
    const Text second = World::property(arrived(), u"ContactID");
    EXPECT_NE(first, second);
    EXPECT_EQ(ann.CustomerID(), first);
    EXPECT_EQ(bob.CustomerID(), second);
    drag(ann);
    EXPECT_EQ(ann.CustomerID(), World::property(arrived(), u"ContactID")) << "by the same rule again";
    EXPECT_NE(ann.CustomerID(), first);
    EXPECT_EQ(count_in(world, u"Account Contacts"), 3);
    EXPECT_EQ(sync(), u"1");
}

TEST_F(NewContacts, ThatAreDraggedAtOnceAreTiedToTheirSourcesInAnyOrderOfEvents) {
    for (const auto& [name, order] : desk::event_orders) {
        SCOPED_TRACE(name);
        World& world = furnished({.event_order = order});
        world.option(u"PDAContactSync", u"1");
        const Item sources[] = {personal(u"Ann Lee"), personal(u"Bob Ray")};
        const ItemState before[] = {state_of(sources[0]), state_of(sources[1])};
        show_folder(world, own());
        select({sources[0], sources[1]});
        world.desk().call(u"Drag", {Value(world.below(u"Account Contacts")), true});
        EXPECT_TRUE(world.wait_until([&] { return count_in(world, u"Account Contacts") == 2; }));
        EXPECT_TRUE(world.wait_for_handlers());
        const host::outlook::Items made = world.below(u"Account Contacts").Items();
        ASSERT_EQ(made.Count(), 2);
        for (std::int32_t i = 1; i <= 2; ++i) {
            const Item record = made.Item(i);
            const std::size_t source = record.FullName() == u"Ann Lee" ? 0 : 1;
            const std::string id = shown(World::property(record, u"ContactID"));
            EXPECT_EQ(record.MessageClass(), record_class);
            EXPECT_EQ(changes(before[source], state_of(sources[source])),
                      Lines{"CustomerID: " + id + " instead of "});
        }
        EXPECT_NE(sources[0].CustomerID(), sources[1].CustomerID());
        EXPECT_EQ(sync(), u"1");
    }
}

TEST_F(NewContacts, AreStampedForEachSelectedOfTheirName) {
    World& world = furnished();
    world.option(u"PDAContactSync", u"1");
    const Item first = personal(u"Ann Lee"), other = personal(u"Bob Ray"), second = personal(u"Ann Lee");
    const auto adds_at_arrival = [&] {
        world.desk().call(u"ResetCalls");
        arrives(u"Ann Lee");
        return calls_of(world, u"Add");
    };
    select({first});
    const std::int32_t once = adds_at_arrival();
    select({first, other, second});
    constexpr std::int32_t properties = 5;
    EXPECT_EQ(adds_at_arrival(), once + properties) << "each property is added with each stamp";
    const Item contact = arrived();
    EXPECT_NE(first.CustomerID(), u"");
    EXPECT_EQ(second.CustomerID(), World::property(contact, u"ContactID"));
    EXPECT_NE(first.CustomerID(), second.CustomerID()) << "each stamp makes an id of its own";
    EXPECT_EQ(other.CustomerID(), u"");
    EXPECT_EQ(told_note(contact).size(), 6U) << "each property stands once";
}

TEST_F(NewContacts, ThatHaveAnIdAreLeftAloneOnlyWhereOneIsSelected) {
    World& world = furnished();
    const Item ann = personal(u"Ann Lee"), bob = personal(u"Bob Ray");
    for (const bool several : {false, true}) {
        SCOPED_TRACE(several ? "several" : "one");
        if (several) {
            select({ann, bob});
        } else {
            select({ann});
        }
        const Item contact = world.below(u"Account Contacts").Items().Add(personal_class);
        contact.FullName(u"Ann Lee");
        contact.UserProperties().Add(u"ContactID", 1, false).value(u"C-7");
        contact.Save();
        EXPECT_TRUE(world.wait_for_handlers());
        EXPECT_EQ(contact.MessageClass(), several ? record_class : personal_class);
        EXPECT_EQ(World::property(contact, u"ContactID") == u"C-7", !several);
    }
}

/// The order in which the host tells of items makes no difference.
TEST_F(NewContacts, BecomeRecordsInEachOrderOfEvents) {
    for (const desk::EventOrder order : {desk::EventOrder::deferred, desk::EventOrder::at_once}) {
        SCOPED_TRACE(desk::name_of(order));
        World& world = furnished({.event_order = order});
        world.option(u"PDAContactSync", u"1");
        const Item source = personal(u"Ann Lee");
        select({source});
        drag(source);
        EXPECT_EQ(arrived().MessageClass(), record_class);
        EXPECT_EQ(source.CustomerID(), World::property(arrived(), u"ContactID"));
        EXPECT_EQ(sync(), u"1");
    }
}

/// Where it can't be told whether what is selected is the source, the contact becomes a record, but nothing
/// of the user's is rewritten.
TEST_F(NewContacts, WhoseSourceCannotBeToldTieNone) {
    World& world = furnished();
    world.option(u"PDAContactSync", u"1");
    for (const bool several : {false, true}) {
        SCOPED_TRACE(several ? "several" : "one");
        std::vector<Item> selected{personal(u"Bob Ray")};
        if (several) selected.push_back(personal(u"Cid Fox"));
        std::vector<ItemState> before;
        for (const Item& one : selected) before.push_back(state_of(one));
        select(selected);
        world.fail(u"ContactItem.Subject");
        const Item contact = arrives(u"Ann Lee");
        EXPECT_EQ(contact.MessageClass(), record_class);
        EXPECT_NE(World::property(contact, u"ContactID"), u"");
        for (std::size_t i = 0; i < selected.size(); ++i) {
            EXPECT_EQ(changes(before[i], state_of(selected[i])), Lines{});
        }
        EXPECT_EQ(sync(), u"1");
    }
}

TEST_F(NewContacts, WithoutTheFamilyGetTheirClassAlone) {
    // the folder is found at the start; the sibling goes away later
    World& world = furnished();
    const Item source = personal(u"Ann Lee");
    select({source});
    world.family(u"Fail", u"MainAddIn.generateid");
    const Item contact = arrives(u"Ann Lee");
    world.family(u"Fail", u"");
    EXPECT_EQ(contact.MessageClass(), record_class);
    EXPECT_EQ(World::property(contact, u"ContactID"), u"");
    EXPECT_EQ(World::property(contact, u"Team"), u"Tom Prior");
}

}  // namespace
}  // namespace acceptance
