// The button of a personal contact that opens the shared record which it is linked with.
#include "tests/world/host_numbers.h"
#include "tests/world/note_dialog.h"

namespace acceptance {
namespace {

using automation::Object;
using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Folder;
using host::outlook::Item;

constexpr TextView dead_link = u"Tarnwell Contact was not found";

class OpenLinkedContact : public Filing {
  protected:
    static Folder leads(World& world) {
        return Folder(world.account_profiles().Parent()).Folders().Item(u"Leads");
    }
    static Item add_lead(World& world, TextView contact_id) {
        const Item lead = leads(world).Items().Add(u"IPM.Contact.Lead");
        lead.put(u"FullName", u"Ann Lee");
        lead.UserProperties().Item(u"ContactID").value(contact_id);
        lead.Save();
        return lead;
    }

    /// A personal contact that is linked with a shared one.
    static Item personal(World& world, TextView customer_id, TextView account = u"North Mill Ltd") {
        const Item contact = new_item(world, contacts, u"IPM.Contact");
        contact.put(u"FullName", u"Ann Lee");
        contact.put(u"CustomerID", customer_id);
        contact.put(u"Account", account);
        contact.Save();
        return contact;
    }

    static std::int32_t windows(World& world) { return world.application().Inspectors().Count(); }

    /// Opens the personal contact, changes it, and presses the button; answers the ids of what was opened.
    /// Its window closes, or stays.
    static Lines pressed(World& world, const Item& contact, bool closes = true) {
        OpenedItem window(contact);
        window.show();
        contact.put(u"JobTitle", u"Miller");
        const std::int32_t before = world.displayed();
        const Object button =
            find_control(window.window, u"TarnwellCreateNote", u"OpenTarnwellContactButton");
        EXPECT_TRUE(button);
        if (!button) return {};
        world.desk().call(u"Press", {Value(button)});
        EXPECT_TRUE(world.wait_for_handlers());
        Lines ids = world.ids_displayed_since(before);
        const auto opened = static_cast<std::int32_t>(ids.size());
        EXPECT_EQ(windows(world), closes ? opened : opened + 1) << "the personal one's";
        return ids;
    }

    static Item again(World& world, const Text& id) {
        return world.name_space().GetItemFromID(id, world.name_space().GetDefaultFolder(contacts).StoreID());
    }

    /// Nothing is found; the link is cut, or stays where it couldn't be looked up.
    static void expect_dead(World& world, const Item& contact, TextView kept_link = {}) {
        const Text id = contact.EntryID();
        const std::int32_t before = count_messages(world);
        world.desk().call(u"Answer", {u"Tarnwell", Value(dead_link), ok});
        EXPECT_EQ(pressed(world, contact, kept_link.empty()), Lines{});
        ASSERT_EQ(message_texts(world, before), Lines{shown(dead_link)});
        const Object box = world.desk().get(u"Messages").to_object().call(u"Item", {before + 1}).to_object();
        EXPECT_EQ(box.get(u"Style").to_integer(), 0);
        EXPECT_EQ(box.get(u"Title").to_text(), u"Tarnwell");
        const Item there = again(world, id);
        EXPECT_EQ(there.get(u"CustomerID").to_text(), kept_link);
        EXPECT_EQ(there.get(u"Account").to_text(), kept_link.empty() ? u"" : u"North Mill Ltd");
        EXPECT_EQ(there.get(u"FullName").to_text(), u"Ann Lee");
    }
};

TEST_F(OpenLinkedContact, OpensTheRecordOfTheIdAndDropsWhatWasChanged) {
    World& world = with({});
    add_contact(world, {.full_name = u"Bob Ray", .properties = {{u"ContactID", u"C-100"}}});
    const Item shared = add_contact(world);
    const Item contact = personal(world, u"C-200");
    const Text id = contact.EntryID();
    EXPECT_EQ(pressed(world, contact), Lines{shown(shared.EntryID())});
    EXPECT_EQ(count_messages(world), 0);
    const Item there = again(world, id);
    EXPECT_EQ(there.get(u"JobTitle").to_text(), u"");
    EXPECT_EQ(there.get(u"CustomerID").to_text(), u"C-200");
    EXPECT_EQ(there.get(u"Account").to_text(), u"North Mill Ltd");
}

TEST_F(OpenLinkedContact, LooksAmongTheLeadsFirst) {
    World& world = with({});
    const Item lead = add_lead(world, u"C-200");
    add_contact(world);
    EXPECT_EQ(pressed(world, personal(world, u"C-200")), Lines{shown(lead.EntryID())});
    EXPECT_EQ(count_messages(world), 0);
}

TEST_F(OpenLinkedContact, LooksAmongTheContactsAloneWithoutAFolderOfLeads) {
    World& world = with({});
    const Item shared = add_contact(world);
    add_lead(world, u"C-200");
    leads(world).put(u"Name", u"Prospects");
    EXPECT_EQ(pressed(world, personal(world, u"C-200")), Lines{shown(shared.EntryID())});
    // and among these twice
    const Item contact = personal(world, u"C-200");
    world.fail(u"Items.Find");
    EXPECT_EQ(pressed(world, contact), Lines{shown(shared.EntryID())});
    EXPECT_EQ(count_messages(world), 0);
}

TEST_F(OpenLinkedContact, TriesAgainWhereTheFirstSearchFails) {
    World& world = with({});
    const Item shared = add_contact(world);
    const Item contact = personal(world, u"C-200");
    world.fail(u"Items.Find");
    EXPECT_EQ(pressed(world, contact), Lines{shown(shared.EntryID())});
}

TEST_F(OpenLinkedContact, CutsADeadLink) {
    World& world = with({});
    add_contact(world);
    expect_dead(world, personal(world, u"C-999"));
    EXPECT_EQ(count_in(world, u"Account Contacts"), 1);
}

TEST_F(OpenLinkedContact, CutsALinkThatHasAnAccountAlone) {
    World& world = with({});
    add_contact(world);
    expect_dead(world, personal(world, u""));
}

TEST_F(OpenLinkedContact, OpensARecordWithoutAnIdForALinkWithoutOne) {
    World& world = with({});
    const Item shared = add_contact(world, {.properties = {{u"AccountID", u"A-1"}}});
    EXPECT_EQ(pressed(world, personal(world, u"")), Lines{shown(shared.EntryID())});
}

TEST_F(OpenLinkedContact, CutsNoLinkThatCouldNotBeLookedUp) {
    struct Case {
        const char* name;
        TextView id, failing;
        std::int32_t times;
    };
    const Case cases[] = {
        {"its id breaks the search", u"C'200", u"", 0},
        {"the leads can't be searched", u"C-999", u"Items.Find", 1},
        {"nor the contacts", u"C-200", u"Items.Find", 2},
        {"the id can't be read, in its window first", u"C-200", u"ContactItem.CustomerID", 2},
    };
    World& world = with({});
    add_contact(world);
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        const Item contact = personal(world, one.id);
        if (!one.failing.empty()) world.fail(one.failing, 0, one.times);
        expect_dead(world, contact, one.id);
    }
}

}  // namespace
}  // namespace acceptance
