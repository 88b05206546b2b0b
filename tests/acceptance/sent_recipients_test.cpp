// How the recipients of a mail that goes out lead to contact records, and what happens if a step fails.
#include "tests/world/outgoing.h"

namespace acceptance {
namespace {

using automation::TextView;
using host::outlook::Item;

class SentRecipients : public Outgoing {};

struct RecipientCase {
    const char* name;
    const char* headers;  ///< the desk's own ones
    const char* option;   ///< null: not set
    TextView address;     ///< of the contact
    bool searched, found;
};

TEST_F(SentRecipients, AreToldApartByTheirTypeAndTheSenders) {
    constexpr TextView smtp = u"bob@ray.example", exchange = u"/o=Example/cn=bob",
                       notes = u"CN=Bob/O=Example";
    const char* const to_exchange = "X-Desk-Recipient: bob@ray.example EX /o=Example/cn=bob\n";
    const char* const to_notes = "X-Desk-Recipient: bob@ray.example NOTES CN=Bob/O=Example\n";
    const char* const exchange_to_notes =
        "X-Desk-Sender: EX /o=Example/cn=tom\nX-Desk-Recipient: bob@ray.example NOTES CN=Bob/O=Example\n";
    const RecipientCase cases[] = {
        {"Internet", "", nullptr, smtp, true, true},
        {"Internet, option on", "", "1", smtp, true, true},
        {"Internet, type in lower case", "X-Desk-Recipient: bob@ray.example smtp bob@ray.example\n", nullptr,
         smtp, true, true},
        {"Internet by the address that is read",
         "X-Desk-Recipient: bob@ray.example SMTP robert@ray.example\n", "1", u"robert@ray.example", true,
         true},
        {"Internet without an address", "X-Desk-Recipient: bob@ray.example SMTP -\n", "1", smtp, false,
         false},
        {"Internet, Exchange sender, option off", "X-Desk-Sender: EX /o=Example/cn=tom\n", "0", smtp, true,
         true},
        {"Exchange, option not set", to_exchange, nullptr, smtp, false, false},
        {"Exchange, option off", to_exchange, "0", smtp, false, false},
        {"Exchange by its Internet address", to_exchange, "1", smtp, true, true},
        {"Exchange by its native address", to_exchange, "1", exchange, true, true},
        {"Exchange by another address", to_exchange, "1", u"zoe@quill.example", true, false},
        {"Exchange, type in lower case", "X-Desk-Recipient: bob@ray.example ex /o=Example/cn=bob\n", "1",
         exchange, true, true},
        {"Exchange without a native address", "X-Desk-Recipient: bob@ray.example EX -\n", "1", smtp, true,
         true},
        {"a third type, Internet sender", to_notes, "1", smtp, false, false},
        {"a third type, Exchange sender", exchange_to_notes, "1", smtp, true, true},
        {"a third type by its native address, Exchange sender", exchange_to_notes, "1", notes, true, true},
        {"a third type, Exchange sender, option off", exchange_to_notes, "0", smtp, false, false},
        {"no type, Exchange sender in lower case",
         "X-Desk-Sender: ex /o=Example/cn=tom\nX-Desk-Recipient: bob@ray.example - bob@ray.example\n", "1",
         smtp, true, true},
        {"no type, Internet sender", "X-Desk-Recipient: bob@ray.example - bob@ray.example\n", "1", smtp,
         false, false},
    };
    for (const RecipientCase& one : cases) {
        SCOPED_TRACE(one.name);
        World& world = cleared();
        if (one.option) world.option(u"SaveExchangeEmail", automation::from_utf8(one.option));
        add_full_contact(world, u"Bob Ray", one.address);
        const std::size_t before = statuses(world).size();
        const Item sent =
            send(world, world.deliver(message({.to = "Bobby <bob@ray.example>", .more = one.headers})));
        const Lines expected = !one.searched ? status::skipped("Bobby")
                               : one.found   ? status::contact("Bobby", "Bob Ray")
                                             : status::stranger("Bobby");
        EXPECT_EQ(statuses(world, before), joined({{status::entry}, expected}));
        EXPECT_EQ(count_in(world, u"Email"), one.found ? 1 : 0);
        EXPECT_EQ(is_marked_as_sent(sent), one.found);
    }
}

TEST_F(SentRecipients, WhoAreSkippedLeaveTheOthersTheirs) {
    World& world = sending();
    add_full_contact(world, u"Bob Ray", u"bob@ray.example");
    add_full_contact(world, u"Ann Lee", u"ann.lee@northmill.example");
    send(world, world.deliver(message({.to = "Bobby <bob@ray.example>, Annie <ann.lee@northmill.example>",
                                       .more = "X-Desk-Recipient: bob@ray.example SMTP -\n"})));
    EXPECT_EQ(statuses(world),
              joined({{status::entry}, status::skipped("Bobby"), status::contact("Annie", "Ann Lee")}));
    const Item note = only_item(world);
    ASSERT_TRUE(note);
    EXPECT_EQ(World::property(note, u"Contact Name"), u"Ann Lee");
}

TEST_F(SentRecipients, ThatAreNamesOnlyAreResolvedFirst) {
    World& world = sending();
    add_contact(world, u"Ann Lee", u"ann.lee@northmill.example");
    const Item mail = new_mail(world, {.to = u"Annie"});
    const Item own = new_item(world, item_type::contact);
    own.put(u"FullName", u"Annie");
    own.put(u"Email1Address", u"ann.lee@northmill.example");
    own.Save();
    send(world, mail);
    EXPECT_EQ(statuses(world), joined({{status::entry}, status::contact("Annie", "Ann Lee")}));
    EXPECT_EQ(count_in(world, u"Email"), 1);
}

TEST_F(SentRecipients, AreLookedForInAllThreeAddressesAndNowhereElse) {
    struct Case {
        const char* name;
        Fields fields, properties;
        bool found;
    };
    const Case cases[] = {
        {"the second address", {{u"Email2Address", u"ann.lee@northmill.example"}}, {}, true},
        {"the third address, in other case", {{u"Email3Address", u"Ann.LEE@northmill.example"}}, {}, true},
        {"the free search text", {}, {{u"EmailSearchString", u"ann.lee@northmill.example"}}, false},
        {"the full name", {{u"FullName", u"Ann Lee"}}, {}, false},
        {"the beginning of an address", {{u"Email1Address", u"ann.lee@northmill.example.org"}}, {}, false},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        World& world = cleared();
        add_contact(world, {.full_name = u"Somebody", .fields = one.fields, .properties = one.properties});
        send(world, new_mail(world));
        EXPECT_EQ(count_in(world, u"Email"), one.found ? 1 : 0);
    }
}

TEST_F(SentRecipients, OfTwoContactsWithOneAddressLeadToTheFirst) {
    World& world = sending();
    add_contact(world, u"First", u"shared@northmill.example");
    add_contact(world, u"Second", u"shared@northmill.example");
    send(world, new_mail(world, {.to = u"shared@northmill.example"}));
    const Item note = only_item(world);
    ASSERT_TRUE(note);
    EXPECT_EQ(World::property(note, u"Contact Name"), u"First");
}

TEST_F(SentRecipients, WhoseAddressBreaksTheFilterAreNotFound) {
    World& world = sending();
    add_contact(world);
    send(world,
         world.deliver(message({.to = "Bobby <bob@ray.example>, Annie <ann.lee@northmill.example>",
                                .more = "X-Desk-Recipient: bob@ray.example SMTP a\"b@ray.example\n"})));
    EXPECT_EQ(statuses(world),
              joined({{status::entry}, status::stranger("Bobby"), status::contact("Annie", "Ann Lee")}));
    EXPECT_EQ(count_in(world, u"Email"), 1);
}

// what fails

struct FailureCase {
    const char* name;
    TextView member;   ///< of the host, whose next call fails
    TextView sibling;  ///< of the family, whose calls fail
    std::int32_t notes;
    bool marked;
};

TEST_F(SentRecipients, GoOutWhateverFails) {
    const FailureCase cases[] = {
        {"the id can't be read", u"MailItem.EntryID", u"", 1, true},
        {"the mail can't be saved", u"MailItem.Save", u"", 1, true},
        {"the search fails", u"Items.Find", u"", 0, false},
        {"no note can be made", u"Items.Add", u"", 0, true},
        {"the note can't be posted", u"PostItem.Post", u"", 0, true},
        {"the mail can't be attached", u"Attachments.Add", u"", 1, true},
        {"the wrapper takes no mail", u"", u"SafeMailItem.Item", 0, false},
        {"the wrapper tells no recipients", u"", u"SafeMailItem.Recipients", 0, false},
        {"the To line can't be read", u"", u"SafeMailItem.To", 0, false},
        {"the recipients can't be resolved", u"", u"SafeMailItem.ResolveAll", 1, true},
        {"the subject can't be read", u"", u"SafeMailItem.Subject", 1, true},
        {"the folder's id can't be read", u"", u"GetFolderId", 0, false},
        {"the store's id can't be read", u"", u"GetStoreId", 0, false},
    };
    for (const FailureCase& one : cases) {
        SCOPED_TRACE(one.name);
        World& world = cleared();
        add_contact(world);
        const Item mail = new_mail(world);
        if (!one.member.empty()) world.fail(one.member);
        world.family(u"Fail", one.sibling);
        mail.call(u"Send");
        world.family(u"Fail", u"");
        ASSERT_EQ(sent_items(world).Count(), 1) << "the mail has gone out";
        EXPECT_EQ(is_marked_as_sent(sent_items(world).Item(1)), one.marked);
        EXPECT_EQ(count_in(world, u"Email"), one.notes);
        EXPECT_FALSE(window_of(world, u"Tarnwell"));
        EXPECT_EQ(count_messages(world), 0);
    }
}

TEST_F(SentRecipients, GoOutIfEvenTheClassCannotBeRead) {
    World& world = sending();
    add_contact(world);
    const Item mail = new_mail(world);
    world.fail(u"MailItem.MessageClass");
    mail.call(u"Send");
    EXPECT_EQ(sent_items(world).Count(), 1);
    EXPECT_FALSE(window_of(world, u"Tarnwell"));
}

TEST_F(SentRecipients, OfAMailWhoseSensitivityCannotBeReadAreFiled) {
    World& world = sending();
    add_contact(world);
    const Item mail = new_mail(world);
    mail.put(u"Sensitivity", 2);
    world.fail(u"MailItem.Sensitivity");
    const Item sent = send(world, mail);
    EXPECT_EQ(count_in(world, u"Email"), 1);
    EXPECT_TRUE(is_marked_as_sent(sent));
}

TEST_F(SentRecipients, GoOutThoughASiblingIsMissing) {
    struct Case {
        const char* missing;
        Lines expected;
    };
    const Case cases[] = {
        {"TarnwellOMG.SafeMailItem", {}},
        {"Tarnwell.connect", status::stranger("Ann Lee")},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.missing);
        World& world = sending({.without = {one.missing}});
        add_contact(world);
        const Item sent = send(world, new_mail(world));
        EXPECT_EQ(statuses(world), joined({{status::entry}, one.expected}));
        EXPECT_FALSE(window_of(world, u"Tarnwell"));
        EXPECT_EQ(count_in(world, u"Email"), 0);
        EXPECT_FALSE(is_marked_as_sent(sent));
        EXPECT_EQ(count_messages(world), 0);
    }
}

TEST_F(SentRecipients, AfterOneWhoseSearchFailedAreFiledStill) {
    World& world = sending();
    add_contact(world);
    add_contact(world, u"Bob Ray", u"bob@ray.example");
    world.fail(u"Items.Find");
    send(world, new_mail(world, {.to = u"ann.lee@northmill.example; bob@ray.example"}));
    EXPECT_EQ(statuses(world), joined({{status::entry},
                                       status::stranger("ann.lee@northmill.example"),
                                       status::contact("bob@ray.example", "Bob Ray")}));
    const Item note = only_item(world);
    ASSERT_TRUE(note);
    EXPECT_EQ(World::property(note, u"Contact Name"), u"Bob Ray");
}

/// What can't be read or made for a recipient is still that of the one before.
TEST_F(SentRecipients, KeepTheFolderAndTheStatusOfTheOneBefore) {
    const auto send_to_both = [&](World& world) {
        add_contact(world);
        add_contact(world, u"Bob Ray", u"bob@ray.example");
        return new_mail(world, {.to = u"ann.lee@northmill.example; bob@ray.example"});
    };
    World& world = cleared();
    const Item mail = send_to_both(world);
    // of each: the notes' folder and the contacts
    constexpr std::int32_t notes_of_the_second = 2;
    world.fail(u"MAPIFolder.Folders", notes_of_the_second);
    send(world, mail);
    EXPECT_EQ(count_in(world, u"Email"), 2);
    EXPECT_EQ(count_in(world, u"Notes"), 0);

    World& again = cleared();
    const Item second_mail = send_to_both(again);
    const std::size_t before = statuses(again).size();
    again.fail(u"ContactItem.FullName");
    send(again, second_mail);
    Lines of_ann = status::contact("ann.lee@northmill.example", "Ann Lee");
    of_ann.pop_back();  // "Saving", for want of the name
    EXPECT_EQ(statuses(again, before),
              joined({{status::entry}, of_ann, status::contact("bob@ray.example", "Bob Ray")}));
    EXPECT_EQ(count_in(again, u"Email"), 2);
}

TEST_F(SentRecipients, DoNotInheritTheContactOfTheOneBefore) {
    World& world = sending();
    add_contact(world);
    constexpr std::int32_t first = 1;
    world.fail(u"Items.Find", first);
    send(world, new_mail(world, {.to = u"ann.lee@northmill.example; zoe@quill.example"}));
    EXPECT_EQ(count_in(world, u"Email"), 1);
    EXPECT_EQ(statuses(world), joined({{status::entry},
                                       status::contact("ann.lee@northmill.example", "Ann Lee"),
                                       status::stranger("zoe@quill.example")}));
}

}  // namespace
}  // namespace acceptance
