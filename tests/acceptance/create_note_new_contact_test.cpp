// The dialog's way for an address that nobody bears: a contact is made of it, and the note for that contact.
#include "tests/world/host_numbers.h"
#include "tests/world/note_dialog.h"

namespace acceptance {
namespace {

using automation::Object;
using automation::Text;
using automation::TextView;
using host::outlook::Item;

class CreateNoteForANewContact : public WithNoteDialog {
  protected:
    World& furnished() {
        World& world = with({});
        world.family(u"UserName", u"Mia Hart");
        world.family(u"Alignment", u"North");
        return world;
    }

    /// Answers both questions, the second one with No, and presses Create.
    void create(const NoteDialog& dialog) {
        world().desk().call(u"Answer", {u"Tarnwell", u"Would you like to Create an Account/Contact", yes});
        world().desk().call(u"Answer", {u"Tarnwell", u"Would you like to search for an Account Name? ", no});
        dialog.click(u"cmdSend");
        EXPECT_TRUE(world().wait_until([&] { return count_in(world(), u"Account Contacts") > 0; }));
        EXPECT_TRUE(dialog.closes());
        world().settle();
    }

    /// The contact that is made of the sender of a mail, in a database that was emptied.
    Item contact_of(const std::string& sender) {
        close_dialog();
        World& world = emptied();
        create(opened(world.deliver(message({.from = sender}))));
        return only_item(world, u"Account Contacts");
    }

    /// The questions' texts, for an address.
    static Lines questions(const std::string& address) {
        return {"Tarnwell Account/Contact " + address +
                    " NOT FOUND!\rWould you like to Create an Account/Contact",
                "Would you like to search for an Account Name? "};
    }
};

std::string field(const Item& item, TextView name) { return shown(item.get(name).to_text()); }

TEST_F(CreateNoteForANewContact, AsksAndDoesNothingWithoutAYes) {
    World& world = furnished();
    const Item mail = world.deliver(message());
    NoteDialog& dialog = opened(mail);
    world.desk().call(u"Answer", {u"Tarnwell", u"Would you like to Create an Account/Contact", no});
    dialog.click(u"cmdSend");
    EXPECT_EQ(message_texts(world), Lines{questions("ann.lee@northmill.example").front()});
    const Object box = world.desk().get(u"Messages").to_object().call(u"Item", {1}).to_object();
    constexpr std::int32_t yes_no = 4;
    EXPECT_EQ(box.get(u"Style").to_integer(), yes_no);
    EXPECT_EQ(box.get(u"Title").to_text(), u"Tarnwell");
    EXPECT_TRUE(dialog.is_open());
    EXPECT_EQ(count_in(world, u"Account Contacts"), 0);
    expect_left_alone(world, mail);
}

TEST_F(CreateNoteForANewContact, MakesTheContactAndShowsIt) {
    World& world = furnished();
    NoteDialog& dialog = opened(world.deliver(message()));
    create(dialog);
    EXPECT_EQ(message_texts(world), questions("ann.lee@northmill.example")) << "nothing says that it is done";
    const Item contact = only_item(world, u"Account Contacts");
    ASSERT_TRUE(contact);
    EXPECT_EQ(contact.MessageClass(), u"IPM.Contact.Account Contact");
    EXPECT_EQ(field(contact, u"FullName"), "Ann Lee");
    EXPECT_EQ(shown(contact.Subject()), "Ann Lee");
    EXPECT_EQ(field(contact, u"CompanyName"), "northmill.example");
    EXPECT_EQ(field(contact, u"WebPage"), "www.northmill.example");
    EXPECT_EQ(field(contact, u"Email1Address"), "ann.lee@northmill.example");
    struct Expected {
        TextView name, value;
    };
    constexpr Expected properties[] = {{u"AccountID", u""},
                                       {u"Account Manager", u"Mia Hart"},
                                       {u"Team", u"Mia Hart"},
                                       {u"Alignment", u"North"},
                                       {u"Account Name", u"northmill.example"}};
    for (const auto& [name, value] : properties) {
        EXPECT_EQ(shown(World::property(contact, name)), shown(value)) << shown(name);
    }
    EXPECT_NE(World::property(contact, u"ContactID"), u"");
    const Lines opened = world.ids_displayed_since(0);
    ASSERT_FALSE(opened.empty());
    EXPECT_EQ(opened.back(), shown(contact.EntryID()));
}

TEST_F(CreateNoteForANewContact, MakesANoteWithoutDateThatLeavesTheMailUnmarked) {
    World& world = furnished();
    const Item mail = world.deliver(message());
    NoteDialog& dialog = opened(mail);
    dialog.type(u"Combo1", u"Phone Call");
    dialog.type(u"txtNote", u"About the dates");
    create(dialog);
    const Item contact = only_item(world, u"Account Contacts");
    ASSERT_TRUE(contact);
    expect_note(world, only_item(world), mail,
                {"Subject: About the dates", "ContactID: " + shown(World::property(contact, u"ContactID")),
                 "Account Name: northmill.example", "Contact Name: Ann Lee", "Account Manager: Mia Hart",
                 "Team: Mia Hart", "Alignment: North", "Type: Phone Call"});
    EXPECT_EQ(mail.BillingInformation(), u"");
    EXPECT_EQ(mail.get(u"FlagStatus").to_integer(), 0);
}

TEST_F(CreateNoteForANewContact, ClosesTheDialogWhateverIsChecked) {
    World& world = furnished();
    NoteDialog& dialog = opened(world.deliver(message()));
    dialog.click(u"Check1");
    create(dialog);
    EXPECT_FALSE(dialog.is_open());
    EXPECT_EQ(count_in(world, u"Email"), 1);
}

TEST_F(CreateNoteForANewContact, NamesTheCompanyAfterTheAddress) {
    struct Case {
        const char *from, *company, *web_page;
    };
    const Case cases[] = {
        {"Ann <ann@northmill.com>", "northmill", "www.northmill.com"},
        {"Ann <ann@north.com.example>", "north", "www.north.com.example"},
        {"Ann <ann@north.company.com>", "north", "www.north.company.com"},
        {"Ann <ann@NORTH.COM>", "NORTH.COM", "www.NORTH.COM"},
        {"Ann <ann@northmill.co.uk>", "northmill.co.uk", "www.northmill.co.uk"},
    };
    furnished();
    for (const Case& one : cases) {
        SCOPED_TRACE(one.from);
        const Item contact = contact_of(one.from);
        ASSERT_TRUE(contact);
        EXPECT_EQ(field(contact, u"CompanyName"), one.company);
        EXPECT_EQ(field(contact, u"WebPage"), one.web_page);
        EXPECT_EQ(shown(World::property(only_item(world()), u"Account Name")), one.company);
    }
}

TEST_F(CreateNoteForANewContact, TakesAnAddressWithoutASignForADomain) {
    World& world = furnished();
    create(opened(world.deliver(message({.more = "X-Desk-Sender: SMTP northmill\n"}))));
    const Item contact = only_item(world, u"Account Contacts");
    ASSERT_TRUE(contact);
    EXPECT_EQ(field(contact, u"CompanyName"), "northmill");
    EXPECT_EQ(field(contact, u"WebPage"), "www.northmill");
    EXPECT_EQ(field(contact, u"Email1Address"), "northmill");
    EXPECT_EQ(field(contact, u"FullName"), "northmill") << "the row's text where nobody of the mail bears it";
}

TEST_F(CreateNoteForANewContact, TakesTheNameOfTheRowsPerson) {
    World& world = furnished();
    NoteDialog& dialog = opened(world.deliver(message({.to = "Tom Prior <tom@prior.example>"})));
    dialog.select(2);
    create(dialog);
    const Item contact = only_item(world, u"Account Contacts");
    ASSERT_TRUE(contact);
    EXPECT_EQ(field(contact, u"FullName"), "Tom Prior");
    EXPECT_EQ(field(contact, u"CompanyName"), "prior.example");
    EXPECT_EQ(message_texts(world), questions("tom@prior.example"));
}

TEST_F(CreateNoteForANewContact, HasAnotherSignForTheApostropheOfItsName) {
    struct Case {
        const char *from, *name, *address;
    };
    const Case cases[] = {
        {"Bo O'Hara <bo@ohara.example>", "Bo O~Hara", "bo@ohara.example"},
        {"bo.o'hara@ohara.example", "bo.o~hara@ohara.example", "bo.o'hara@ohara.example"},
        {"Bo <bo.o'hara@ohara.example>", "Bo", "bo.o'hara@ohara.example"},
    };
    furnished();
    for (const Case& one : cases) {
        SCOPED_TRACE(one.from);
        const Item contact = contact_of(one.from);
        ASSERT_TRUE(contact);
        EXPECT_EQ(field(contact, u"FullName"), one.name) << "it has been through a filter";
        EXPECT_EQ(field(contact, u"Email1Address"), one.address) << "which the address hasn't";
        EXPECT_EQ(shown(World::property(only_item(world()), u"Contact Name")), one.name);
    }
}

TEST_F(CreateNoteForANewContact, HasNoNameAtAccountLevel) {
    World& world = furnished();
    NoteDialog& dialog = opened(world.deliver(message()));
    dialog.click(u"Option1");
    dialog.choose(u"Combo2", u"Search by Email");
    create(dialog);
    const Item contact = only_item(world, u"Account Contacts");
    ASSERT_TRUE(contact);
    EXPECT_EQ(field(contact, u"FullName"), "");
    EXPECT_EQ(shown(contact.Subject()), "");
    EXPECT_EQ(field(contact, u"Email1Address"), "ann.lee@northmill.example");
    const Item note = only_item(world);
    ASSERT_TRUE(note);
    EXPECT_EQ(shown(World::property(note, u"Contact Name")), "");
    EXPECT_EQ(World::property(note, u"ContactID"), World::property(contact, u"ContactID"));
}

TEST_F(CreateNoteForANewContact, GoesToTheFolderOfTheOptionOrToNotes) {
    struct Case {
        TextView option, folder;
    };
    furnished();
    for (const auto& [option, folder] :
         {Case{u"Nowhere", u"Notes"}, Case{u"Opportunities", u"Opportunities"}}) {
        SCOPED_TRACE(shown(option));
        close_dialog();
        World& world = emptied();
        world.option(u"SavedEmailFolder", option);
        create(opened(world.deliver(message())));
        EXPECT_TRUE(only_item(world, folder));
    }
}

TEST_F(CreateNoteForANewContact, IsMadeAnewForEachNote) {
    World& world = furnished();
    const Item mail = world.deliver(message());
    create(opened(mail));
    const Text first = World::property(only_item(world), u"ContactID");
    opened(mail).create();
    EXPECT_EQ(count_in(world, u"Account Contacts"), 1) << "now it is found";
    ASSERT_EQ(count_in(world, u"Email"), 2);
    EXPECT_EQ(World::property(world.below(u"Email").Items().Item(2), u"ContactID"), first);
    EXPECT_TRUE(is_marked_by_user(mail));
}

}  // namespace
}  // namespace acceptance
