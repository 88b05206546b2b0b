// The button that opens the contact of a mail's sender, or makes one.
#include "tests/world/button_lines.h"
#include "tests/world/host_numbers.h"
#include "tests/world/note_dialog.h"
#include "tests/world/outgoing.h"

namespace acceptance {
namespace {

using automation::Object;
using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Item;

constexpr TextView create_question = u"Would you like to Create an Account/Contact",
                   account_question = u"Would you like to search for an Account Name? ";

class OpenContact : public Filing {
  protected:
    World& furnished() {
        World& world = with({});
        world.family(u"UserName", u"Mia Hart");
        world.family(u"Alignment", u"North");
        show_folder(world, world.inbox());
        return world;
    }

    /// Opens a mail, and presses the button in its window.
    void press(
        const Item& mail, const std::function<void()>& just_before = [] {}) {
        OpenedItem window(mail);
        prepare_bar(window.window, BarState::empty);
        window.show();
        displayed_before_ = world().displayed();
        const Object button = find_control(window.window, u"TarnwellCreateNote", u"OpenContactButton");
        ASSERT_TRUE(button);
        just_before();
        world().desk().call(u"Press", {Value(button)});
        EXPECT_TRUE(world().wait_for_handlers());
    }

    void answer(TextView question, std::int32_t button) {
        world().desk().call(u"Answer", {u"Tarnwell", Value(question), button});
    }

    /// The ids of the items that the button has opened.
    Lines opened() { return world().ids_displayed_since(displayed_before_); }

    /// The mail's contact is not there; the first question is asked, and denied.
    void expect_question(const Item& mail) {
        const std::int32_t before = count_messages(world());
        answer(create_question, no);
        press(mail);
        EXPECT_EQ(message_texts(world(), before),
                  Lines{"Tarnwell Account/Contact ann.lee@northmill.example NOT FOUND!\rWould you like to "
                        "Create an Account/Contact"});
        EXPECT_EQ(opened(), Lines{});
        expect_left_alone(world(), mail);
    }

  private:
    std::int32_t displayed_before_ = 0;
};

// whom it finds

TEST_F(OpenContact, OpensTheSendersContact) {
    World& world = furnished();
    const Item contact = add_contact(world);
    const Item mail = world.deliver(message());
    press(mail);
    EXPECT_EQ(opened(), Lines{shown(contact.EntryID())});
    EXPECT_EQ(statuses(world), Lines{"Searching for Ann Lee"});
    EXPECT_FALSE(window_of(world, u"Tarnwell")) << "the status window has gone";
    EXPECT_EQ(count_messages(world), 0);
    EXPECT_EQ(count_in(world, u"Account Contacts"), 1);
    expect_left_alone(world, mail);
}

TEST_F(OpenContact, TakesTheSelectedMailWhereNoWindowTellsOne) {
    World& world = furnished();
    add_contact(world);
    const Item bob = add_contact(world, u"Bob Ray", u"bob@ray.example");
    const Item mail = world.deliver(message());
    const Item selected = world.deliver(message({.from = "Bob Ray <bob@ray.example>"}));
    world.desk().call(u"Select", {Value(selected)});
    for (const TextView member : {u"Application.ActiveInspector", u"Inspector.CurrentItem"}) {
        SCOPED_TRACE(shown(member));
        press(mail, [&] { world.fail(member); });
        EXPECT_EQ(opened(), Lines{shown(bob.EntryID())});
        EXPECT_EQ(statuses(world).back(), "Searching for Bob Ray");
    }
    world.desk().call(u"Select");
    press(mail, [&] { world.fail(u"Application.ActiveInspector"); });
    EXPECT_EQ(opened(), Lines{}) << "there is neither a window nor a selection";
}

TEST_F(OpenContact, FindsWhatBeginsWithTheAddressOrTheName) {
    struct Case {
        const char* name;
        ContactPlan contact;
        std::string more{};
        bool is_found = true;
    };
    const std::string directory = "X-Desk-Sender: EX /o=Example/cn=ann\n";
    const Case cases[] = {
        {"first address", {.full_name = u"X", .fields = {{u"Email1Address", u"ann.lee@northmill.example"}}}},
        {"second address", {.full_name = u"X", .fields = {{u"Email2Address", u"ANN.LEE@northmill.example"}}}},
        {"third address", {.full_name = u"X", .fields = {{u"Email3Address", u"ann.lee@northmill.example"}}}},
        {"a longer address",
         {.full_name = u"X", .fields = {{u"Email1Address", u"ann.lee@northmill.example.org"}}}},
        {"a shorter address",
         {.full_name = u"X", .fields = {{u"Email1Address", u"ann.lee@northmill"}}},
         {},
         false},
        {"the name", {.fields = {}}},
        {"a longer name", {.full_name = u"Ann Lee-Smith", .fields = {}}},
        {"a shorter name", {.full_name = u"Ann", .fields = {}}, {}, false},
        {"the subject", {.full_name = u"X", .fields = {{u"Subject", u"Ann Lee of North Mill"}}}},
        {"among other texts",
         {.full_name = u"X",
          .fields = {},
          .properties = {{u"EmailSearchString", u"ann.lee@northmill.example; ann@one.example"}}}},
        {"somebody else",
         {.full_name = u"Bob Ray", .fields = {{u"Email1Address", u"bob@ray.example"}}},
         {},
         false},
        {"a directory sender's Internet address",
         {.full_name = u"X", .fields = {{u"Email2Address", u"ann.lee@northmill.example"}}},
         directory},
        {"a directory sender's own address",
         {.full_name = u"X", .fields = {{u"Email3Address", u"/o=Example/cn=ann"}}},
         directory},
        {"a directory sender's own address among other texts",
         {.full_name = u"X", .fields = {}, .properties = {{u"EmailSearchString", u"/o=Example/cn=ann"}}},
         directory},
        {"a directory sender's Internet address among other texts",
         {.full_name = u"X",
          .fields = {},
          .properties = {{u"EmailSearchString", u"ann.lee@northmill.example"}}},
         directory,
         false},
    };
    furnished();
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        World& world = emptied();
        const Item contact = add_contact(world, one.contact);
        const Item mail = world.deliver(message({.more = one.more}));
        if (!one.is_found) {
            expect_question(mail);
            continue;
        }
        press(mail);
        EXPECT_EQ(opened(), Lines{shown(contact.EntryID())});
    }
}

TEST_F(OpenContact, OpensNothingAndAsksNothingForAMatchOfAnotherKind) {
    struct Case {
        TextView message_class, named;
    };
    constexpr Case cases[] = {{u"IPM.Post", u"Subject"}, {u"IPM.DistList", u"DLName"}};
    furnished();
    for (const Case& one : cases) {
        SCOPED_TRACE(shown(one.message_class));
        World& world = emptied();
        const Item other = world.below(u"Account Contacts").Items().Add(one.message_class);
        other.put(one.named, u"Ann Lee");
        other.Save();
        const Item mail = world.deliver(message());
        press(mail);
        EXPECT_EQ(opened(), Lines{});
        EXPECT_EQ(count_messages(world), 0);
        EXPECT_EQ(count_in(world, u"Account Contacts"), 1);
        expect_left_alone(world, mail);
    }
}

TEST_F(OpenContact, TakesASearchThatFailsForNoMatch) {
    World& world = furnished();
    add_contact(world);
    const Item mail = world.deliver(message());
    world.fail(u"Items.Find");
    expect_question(mail);
    EXPECT_FALSE(window_of(world, u"Tarnwell"));
}

// what it doesn't take

TEST_F(OpenContact, IsForReceivedMailOnly) {
    World& world = furnished();
    add_contact(world);
    const Item mail = new_mail(world);
    constexpr TextView refusal = u"Please use the Open Contact button for received emails only.";
    constexpr TextView title = u"Tarnwell Create Note AddIn Project";
    world.desk().call(u"Answer", {Value(title), Value(refusal), ok});
    press(mail);
    ASSERT_EQ(message_texts(world), Lines{shown(refusal)});
    const Object box = world.desk().get(u"Messages").to_object().call(u"Item", {1}).to_object();
    EXPECT_EQ(box.get(u"Style").to_integer(), 0);
    EXPECT_EQ(box.get(u"Title").to_text(), title);
    EXPECT_EQ(mail.EntryID(), u"") << "it isn't saved";
    EXPECT_EQ(opened(), Lines{});
}

TEST_F(OpenContact, IsSilentWithoutAToLine) {
    World& world = furnished();
    add_contact(world);
    press(world.deliver(message({.to = "", .more = "Cc: Bo Lee <bo@northmill.example>\n"})));
    EXPECT_EQ(opened(), Lines{});
    EXPECT_EQ(count_messages(world), 0);
    EXPECT_EQ(statuses(world), Lines{});
}

// a new contact

TEST_F(OpenContact, MakesAContactAndANoteIfTheUserAgrees) {
    World& world = furnished();
    const Item mail = world.deliver(message());
    answer(create_question, yes);
    answer(account_question, no);
    press(mail);
    EXPECT_EQ(message_texts(world),
              (Lines{"Tarnwell Account/Contact ann.lee@northmill.example NOT FOUND!\rWould you like to "
                     "Create an Account/Contact",
                     shown(account_question)}));
    const Item contact = only_item(world, u"Account Contacts");
    ASSERT_TRUE(contact);
    EXPECT_EQ(contact.MessageClass(), u"IPM.Contact.Account Contact");
    EXPECT_EQ(opened(), Lines{shown(contact.EntryID())});
    struct Expected {
        TextView name;
        const char* value;
    };
    constexpr Expected fields[] = {{u"FullName", "Ann Lee"},
                                   {u"Subject", "Ann Lee"},
                                   {u"CompanyName", "northmill.example"},
                                   {u"WebPage", "www.northmill.example"},
                                   {u"Email1Address", "ann.lee@northmill.example"}};
    for (const auto& [name, value] : fields) {
        EXPECT_EQ(shown(contact.get(name).to_text()), value) << shown(name);
    }
    constexpr Expected properties[] = {{u"AccountID", ""},
                                       {u"Account Manager", "Mia Hart"},
                                       {u"Team", "Mia Hart"},
                                       {u"Alignment", "North"},
                                       {u"Account Name", "northmill.example"}};
    for (const auto& [name, value] : properties) {
        EXPECT_EQ(shown(World::property(contact, name)), value) << shown(name);
    }

    const Text id = World::property(contact, u"ContactID");
    EXPECT_NE(id, u"");
    // manager, team and alignment stay unset though the contact has them
    expect_note(world, only_item(world), mail,
                {"Subject: Delivery dates", "ContactID: " + shown(id), "Account Name: northmill.example",
                 "Contact Name: Ann Lee", "Type: Email (Received)"});
    EXPECT_EQ(mail.BillingInformation(), u"");
    EXPECT_EQ(mail.get(u"FlagStatus").to_integer(), 0);
}

TEST_F(OpenContact, PutsTheNoteIntoTheFolderOfTheOptionOrIntoNotes) {
    struct Case {
        const char16_t *option, *folder;
    };
    furnished();
    for (const auto& [option, folder] :
         {Case{u"", u"Email"}, Case{u"Opportunities", u"Opportunities"}, Case{u"Nowhere", u"Notes"}}) {
        SCOPED_TRACE(shown(option));
        World& world = emptied();
        world.option(u"SavedEmailFolder", option);
        answer(create_question, yes);
        answer(account_question, no);
        press(world.deliver(message()));
        EXPECT_TRUE(only_item(world, folder));
    }
}

TEST_F(OpenContact, FindsTheContactThatItHasMade) {
    World& world = furnished();
    const Item mail = world.deliver(message({.from = "Bo O'Hara <bo@ohara.com>"}));
    answer(create_question, yes);
    answer(account_question, no);
    press(mail);
    const Item contact = only_item(world, u"Account Contacts");
    ASSERT_TRUE(contact);
    EXPECT_EQ(shown(contact.get(u"FullName").to_text()), "Bo O'Hara") << "here the name is the sender's own";
    EXPECT_EQ(shown(contact.get(u"CompanyName").to_text()), "ohara");
    EXPECT_EQ(shown(contact.get(u"WebPage").to_text()), "www.ohara.com");
    press(mail);
    EXPECT_EQ(opened(), Lines{shown(contact.EntryID())});
    EXPECT_EQ(count_messages(world), 2);
    EXPECT_EQ(count_in(world, u"Email"), 1);
}

}  // namespace
}  // namespace acceptance
