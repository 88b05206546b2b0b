#include "tests/unit/support/model_support.h"

namespace model_tests {
namespace {

class UserPropertiesOfItems : public ModelTest {
  protected:
    static constexpr std::int32_t text_type = 1, number_type = 3, date_type = 5, yes_no_type = 6;
};

TEST_F(UserPropertiesOfItems, ComeFromTheFormOfTheClass) {
    const Item note = world.below(u"Email").Items().Add(u"IPM.Post.Note");
    const host::outlook::UserProperties properties = note.UserProperties();
    EXPECT_EQ(properties.Count(), 15);
    EXPECT_EQ(world.property(note, u"AccountID"), u"");
    EXPECT_EQ(integer(properties.Item(u"Activity Date"), u"Type"), date_type);
    EXPECT_EQ(text(properties.Item(u"Activity Date"), u"Value"), u"4501-01-01 00:00:00") << "no date";
    EXPECT_EQ(text(properties.Item(1), u"Name"), u"AccountID");

    const Item mail = add_mail(u"x");
    EXPECT_EQ(mail.UserProperties().Count(), 0);
    mail.put(u"MessageClass", u"IPM.Post.Action");
    EXPECT_EQ(mail.UserProperties().Count(), 9);
}

TEST_F(UserPropertiesOfItems, KeepTheirValuesWhenTheItemIsReclassed) {
    const Item item = default_folder(folder_number::contacts).Items().Add(u"IPM.Contact");
    item.UserProperties().Add(u"Team", text_type, false).value(u"Sales");
    item.put(u"MessageClass", u"IPM.Contact.Account Contact");
    EXPECT_EQ(world.property(item, u"Team"), u"Sales");
    EXPECT_EQ(item.UserProperties().Count(), 7);
}

TEST_F(UserPropertiesOfItems, AddedAgainAreTheSame) {
    const Item mail = add_mail(u"x");
    mail.UserProperties().Add(u"Team", text_type, false).value(u"Sales");
    EXPECT_EQ(mail.UserProperties().Add(u"team", text_type, false).value(), Value(u"Sales"));
    EXPECT_EQ(mail.UserProperties().Count(), 1);
}

TEST_F(UserPropertiesOfItems, AreFoundOrNothing) {
    const Item mail = add_mail(u"x");
    mail.UserProperties().Add(u"Team", text_type, false);
    EXPECT_TRUE(mail.UserProperties().Find(u"TEAM"));
    EXPECT_FALSE(mail.UserProperties().Find(u"Alignment"));
    EXPECT_EQ(failure_of([&] { mail.UserProperties().Item(u"Alignment"); }), result::not_found);
    EXPECT_EQ(failure_of([&] { mail.UserProperties().Item(0); }), result::bad_index);
    EXPECT_EQ(failure_of([&] { mail.UserProperties().Item(2); }), result::bad_index);
    EXPECT_EQ(failure_of([&] { mail.UserProperties().Add(u"Subject", text_type, false); }),
              result::invalid_argument);
    EXPECT_EQ(failure_of([&] { mail.UserProperties().Add(u"", text_type, false); }),
              result::invalid_argument);
}

TEST_F(UserPropertiesOfItems, ConvertToTheirType) {
    struct Case {
        std::int32_t type;
        Value unset, given, kept;
        std::int32_t failure;
    };
    const Case cases[] = {
        {text_type, u"", 12, u"12", 0},
        {number_type, 0.0, u"2.5", 2.5, 0},
        {number_type, 0.0, u"x", 0.0, result::type_mismatch},
        {yes_no_type, false, -1, true, 0},
        {date_type, automation::Date{949998.0}, u"2026-03-03 09:15:00",
         Value(automation::to_date({2026, 3, 3, 9, 15, 0})), 0},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.type);
        const Item mail = add_mail(u"x");
        const auto property = mail.UserProperties().Add(u"P", one.type, false);
        EXPECT_EQ(property.value(), one.unset);
        EXPECT_EQ(failure_of([&] { property.value(one.given); }), one.failure);
        EXPECT_EQ(property.value(), one.kept);
    }
}

TEST_F(UserPropertiesOfItems, AreRemoved) {
    const Item mail = add_mail(u"x");
    const auto property = mail.UserProperties().Add(u"P", text_type, false);
    property.call(u"Delete");
    EXPECT_EQ(mail.UserProperties().Count(), 0);
    EXPECT_EQ(failure_of([&] { static_cast<void>(property.value()); }), result::object_deleted);
}

TEST_F(UserPropertiesOfItems, AreKnownToFiltersIfTheFolderKnowsThem) {
    const auto add = [&](bool to_folder) {
        const Item mail = add_mail(u"x");
        mail.UserProperties().Add(to_folder ? u"Known" : u"Unknown", text_type, to_folder).value(u"v");
        mail.Save();
    };
    add(false);
    EXPECT_NE(failure_of([&] { inbox().Items().Find(u"[Unknown] = \"v\""); }), 0);
    EXPECT_EQ(failure_of([&] { inbox().Items().Find(u"[AccountID] = \"v\""); }), result::invalid_argument);
    add(true);
    EXPECT_TRUE(inbox().Items().Find(u"[known] = \"v\""));
    EXPECT_TRUE(world.below(u"Email").Items().Count() == 0 &&
                failure_of([&] { world.below(u"Email").Items().Find(u"[AccountID] = \"v\""); }) == 0);
    // the @SQL form asks no folder
    constexpr TextView filter =
        u"@SQL=\"http://schemas.microsoft.com/mapi/string/{00020329-0000-0000-C000-000000000046}/Unknown\" = "
        u"'v'";
    EXPECT_EQ(restricted(inbox().Items(), filter).Count(), 1);
}

TEST_F(UserPropertiesOfItems, HaveSchemaNamesThatMayEndInSomethingLikeAType) {
    const Item mail = add_mail(u"x");
    mail.UserProperties().Add(u"Plan/12345678", text_type, false).value(u"v");
    mail.Save();
    const Text named =
        u"@SQL=\"http://schemas.microsoft.com/mapi/string/{00020329-0000-0000-C000-000000000046}/"
        u"Plan/12345678";
    EXPECT_EQ(restricted(inbox().Items(), named + u"\" = 'v'").Count(), 1);
    EXPECT_EQ(restricted(inbox().Items(), named + u"/0000001f\" = 'v'").Count(), 1);
}

// fields that follow each other

class Contacts : public ModelTest {};

TEST_F(Contacts, HaveTheirNamesFollowEachOther) {
    struct Case {
        TextView full, first, middle, last, file_as, title = u"", suffix = u"";
    };
    constexpr Case cases[] = {
        {u"Ann Lee", u"Ann", u"", u"Lee", u"Lee, Ann"},
        {u"Ann van der Lee", u"Ann", u"van der", u"Lee", u"Lee, Ann van der"},
        {u"Ann", u"Ann", u"", u"", u"Ann"},
        {u"Dr. Ann Lee Jr.", u"Ann", u"", u"Lee", u"Lee, Ann", u"Dr.", u"Jr."},
        {u"Mrs Ann van Lee, III", u"Ann", u"van", u"Lee", u"Lee, Ann van", u"Mrs", u"III"},
        {u"Miss Lee", u"Lee", u"", u"", u"Lee", u"Miss"},
        {u"Dr.", u"Dr.", u"", u"", u"Dr."},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(shown(one.full));
        const Item contact = create(item_type::contact);
        contact.put(u"FullName", Value(one.full));
        EXPECT_EQ(text(contact, u"FirstName"), one.first);
        EXPECT_EQ(text(contact, u"MiddleName"), one.middle);
        EXPECT_EQ(text(contact, u"LastName"), one.last);
        EXPECT_EQ(text(contact, u"FileAs"), one.file_as);
        EXPECT_EQ(text(contact, u"Title"), one.title);
        EXPECT_EQ(text(contact, u"Suffix"), one.suffix);
    }
    const Item contact = create(item_type::contact);
    contact.put(u"LastName", u"Lee");
    contact.put(u"FirstName", u"Ann");
    EXPECT_EQ(text(contact, u"FullName"), u"Ann Lee");
    EXPECT_EQ(text(contact, u"FileAs"), u"Lee, Ann");
    contact.put(u"FileAs", u"The boss");
    contact.put(u"FirstName", u"Anna");
    EXPECT_EQ(text(contact, u"FileAs"), u"The boss") << "what was chosen stays";
    contact.put(u"Title", u"Dr.");
    contact.put(u"Suffix", u"Jr.");
    EXPECT_EQ(text(contact, u"FullName"), u"Dr. Anna Lee Jr.");
    contact.Save();
    EXPECT_EQ(contact.Subject(), u"Dr. Anna Lee Jr.");
}

TEST_F(Contacts, FillInWhatBelongsToAnAddress) {
    const Item contact = create(item_type::contact);
    contact.put(u"FullName", u"Ann Lee");
    contact.put(u"Email1Address", u"ann@northmill.example");
    EXPECT_EQ(text(contact, u"Email1AddressType"), u"SMTP");
    EXPECT_EQ(text(contact, u"Email1DisplayName"), u"Ann Lee (ann@northmill.example)");
    contact.put(u"Email2Address", u"/o=Example/cn=ann");
    EXPECT_EQ(text(contact, u"Email2AddressType"), u"EX");
}

TEST_F(Contacts, AreFoundByEveryAddress) {
    const Item contact = create(item_type::contact);
    contact.put(u"Email3Address", u"Ann@NorthMill.example");
    contact.Save();
    const Items items = default_folder(folder_number::contacts).Items();
    EXPECT_TRUE(items.Find(
        u"[Email1Address] = \"ann@northmill.example\" Or [Email3Address] = \"ann@northmill.example\""));
    EXPECT_FALSE(items.Find(u"[Email1Address] = \"ann@northmill.example\""));
    EXPECT_TRUE(items.Find(u"[Email3Address] >= \"ann@\" AND [Email3Address] < \"ann[\"") ||
                items.Find(u"[Email3Address] >= \"ann@\" AND [Email3Address] < \"anna\""));
}

class Appointments : public ModelTest {};

TEST_F(Appointments, HaveTheirTimesFollowEachOther) {
    const Item appointment = create(item_type::appointment);
    const auto at = [](int hour, int minute) {
        return Value(automation::to_date({2026, 3, 3, hour, minute, 0}));
    };
    appointment.put(u"Start", at(9, 0));
    EXPECT_EQ(text(appointment, u"End"), u"2026-03-03 09:30:00");
    appointment.put(u"Duration", 90);
    EXPECT_EQ(text(appointment, u"End"), u"2026-03-03 10:30:00");
    appointment.put(u"End", at(11, 0));
    EXPECT_EQ(integer(appointment, u"Duration"), 120);
    appointment.put(u"Start", at(10, 0));
    EXPECT_EQ(text(appointment, u"End"), u"2026-03-03 12:00:00");
    EXPECT_EQ(integer(appointment, u"BusyStatus"), 2);
}

class Tasks : public ModelTest {};

TEST_F(Tasks, HaveTheirStateFollow) {
    const Item task = create(item_type::task);
    task.put(u"PercentComplete", 40);
    EXPECT_EQ(integer(task, u"Status"), 1);
    task.put(u"Complete", true);
    EXPECT_EQ(integer(task, u"PercentComplete"), 100);
    EXPECT_EQ(integer(task, u"Status"), 2);
    EXPECT_NE(text(task, u"DateCompleted"), u"4501-01-01 00:00:00");
    task.put(u"Status", 0);
    EXPECT_FALSE(task.get(u"Complete").to_boolean());
    EXPECT_EQ(integer(task, u"PercentComplete"), 0);
    task.call(u"MarkComplete");
    EXPECT_TRUE(task.get(u"Complete").to_boolean());
    EXPECT_EQ(failure_of([&] { create(item_type::mail).call(u"MarkComplete"); }), result::member_not_found);
}

class StickyNotes : public ModelTest {};

TEST_F(StickyNotes, TakeTheirSubjectFromTheBody) {
    const Item note = create(item_type::note);
    note.Body(u"Call Ann\r\nabout the offer");
    EXPECT_EQ(note.Subject(), u"Call Ann");
    EXPECT_EQ(failure_of([&] { note.Subject(u"x"); }), result::member_not_found) << "it can't be set";
    EXPECT_EQ(failure_of([&] { note.UserProperties(); }), result::member_not_found);
    EXPECT_EQ(failure_of([&] { note.Attachments(); }), result::member_not_found);
    EXPECT_EQ(integer(note, u"Color"), 3);
}

class Mails : public ModelTest {};

TEST_F(Mails, KeepRecipientsAndLinesInStep) {
    const Item mail = create(item_type::mail);
    mail.put(u"To", u"Ann Lee <ann@northmill.example>; bob@ray.example");
    mail.put(u"CC", u"Nobody Known");
    const Object people = mail.get(u"Recipients").to_object();
    ASSERT_EQ(integer(people, u"Count"), 3);
    const Object ann = people.call(u"Item", {1}).to_object();
    EXPECT_EQ(text(ann, u"Name"), u"Ann Lee");
    EXPECT_EQ(text(ann, u"Address"), u"ann@northmill.example");
    EXPECT_EQ(text(ann.get(u"AddressEntry").to_object(), u"Type"), u"SMTP");
    EXPECT_FALSE(people.call(u"Item", {3}).to_object().get(u"Resolved").to_boolean());
    EXPECT_FALSE(people.call(u"ResolveAll").to_boolean());
    const Object eve = people.call(u"Add", {u"eve@x.example"}).to_object();
    eve.put(u"Type", 2);
    EXPECT_EQ(text(mail, u"CC"), u"Nobody Known; eve@x.example");
    people.call(u"Remove", {3});
    EXPECT_EQ(text(mail, u"CC"), u"eve@x.example");
    EXPECT_EQ(text(mail, u"To"), u"Ann Lee; bob@ray.example");
    EXPECT_EQ(failure_of([&] { people.call(u"Item", {9}); }), result::bad_index);
}

TEST_F(Mails, ResolveNamesByTheContacts) {
    const Item contact = create(item_type::contact);
    contact.put(u"FullName", u"Ann Lee");
    contact.put(u"Email1Address", u"ann@northmill.example");
    contact.Save();
    const Item mail = create(item_type::mail);
    mail.put(u"To", u"Ann Lee");
    const Object ann = mail.get(u"Recipients").to_object().call(u"Item", {1}).to_object();
    EXPECT_EQ(text(ann, u"Address"), u"ann@northmill.example");
    EXPECT_TRUE(ann.get(u"Resolved").to_boolean());
}

TEST_F(Mails, HaveSchemaProperties) {
    const Item mail = world.deliver(acceptance::message({.more = "X-Desk-Sender: EX /o=Example/cn=ann\n"}));
    const auto property = [&](const Object& owner, const Text& tag) {
        return owner.get(u"PropertyAccessor")
            .to_object()
            .call(u"GetProperty", {u"http://schemas.microsoft.com/mapi/proptag/0x" + tag})
            .to_text();
    };
    struct Case {
        Text tag, value;
    };
    const Case cases[] = {{u"001A001E", u"IPM.Note"},          {u"0037001E", u"Delivery dates"},
                          {u"0C1F001E", u"/o=Example/cn=ann"}, {u"0c1e001e", u"EX"},
                          {u"0C1A001F", u"Ann Lee"},           {u"0x", u""}};
    for (const Case& one : cases) {
        if (one.tag == u"0x") continue;
        EXPECT_EQ(property(mail, one.tag), one.value) << shown(one.tag);
    }
    const Object sender = mail.get(u"Sender").to_object();
    EXPECT_EQ(property(sender, u"39FE001E"), u"ann.lee@northmill.example");
    EXPECT_EQ(property(sender, u"3003001E"), u"/o=Example/cn=ann");
    EXPECT_EQ(property(sender, u"3002001E"), u"EX");
    EXPECT_EQ(failure_of([&] { property(mail, u"12340003"); }), result::not_found);
    EXPECT_EQ(failure_of([&] { property(mail, u"no tag"); }), result::not_found);
}

TEST_F(Mails, WriteSchemaProperties) {
    const Item mail = add_mail(u"Old");
    const Object accessor = mail.get(u"PropertyAccessor").to_object();
    accessor.call(u"SetProperty", {u"http://schemas.microsoft.com/mapi/proptag/0x0037001E", u"New"});
    EXPECT_EQ(mail.Subject(), u"New");
    constexpr TextView named =
        u"http://schemas.microsoft.com/mapi/string/{00020329-0000-0000-C000-000000000046}/Account%20Name";
    accessor.call(u"SetProperty", {Value(named), u"North Mill"});
    EXPECT_EQ(world.property(mail, u"Account Name"), u"North Mill");
    EXPECT_EQ(accessor.call(u"GetProperty", {Value(named)}), Value(u"North Mill"));
}

TEST_F(Mails, AreNotFilteredByBytes) {
    for (const TextView type : {u"0102", u"001F"}) {
        const Text filter =
            u"@SQL=\"http://schemas.microsoft.com/mapi/proptag/0x0037" + Text(type) + u"\" = 'x'";
        const bool refused = failure_of([&] { inbox().Items().call(u"Restrict", {Value(filter)}); }) ==
                             result::invalid_argument;
        EXPECT_EQ(refused, type == u"0102") << shown(type);
    }
}

TEST_F(Mails, AreAnsweredAndForwarded) {
    const Item mail = world.deliver(acceptance::message());
    const Item answer(mail.call(u"Reply").to_object());
    EXPECT_EQ(answer.Subject(), u"RE: Delivery dates");
    EXPECT_EQ(text(answer, u"To"), u"Ann Lee");
    const Item all(mail.call(u"ReplyAll").to_object());
    EXPECT_EQ(text(all, u"To"), u"Ann Lee; Tom Prior");
    const Item on(mail.call(u"Forward").to_object());
    EXPECT_EQ(on.Subject(), u"FW: Delivery dates");
    EXPECT_EQ(text(on, u"To"), u"");
}

TEST_F(Mails, TakeFilesAndItemsAsAttachments) {
    const Item mail = add_mail(u"Offer");
    const Text file = world.write_file("offer.txt", "twelve\r\n");
    const Object attached = mail.Attachments().call(u"Add", {Value(file)}).to_object();
    EXPECT_EQ(text(attached, u"FileName"), u"offer.txt");
    EXPECT_EQ(integer(attached, u"Size"), 8);
    EXPECT_EQ(failure_of([&] { attached.get(u"EmbeddedItem"); }), result::invalid_argument);
    mail.Attachments().Add(add_mail(u"Inner"), 1);
    mail.Save();
    ASSERT_EQ(mail.Attachments().Count(), 2);
    const Object inner = mail.Attachments().Item(2);
    EXPECT_EQ(integer(inner, u"Type"), 5);
    EXPECT_EQ(Item(inner.get(u"EmbeddedItem").to_object()).Subject(), u"Inner");
    EXPECT_EQ(failure_of([&] { mail.Attachments().call(u"Add", {u"/no/such/file"}); }),
              result::file_not_found);
    EXPECT_EQ(failure_of([&] { mail.Attachments().call(u"Add", {Value(inbox())}); }), result::unknown_name);
    mail.Attachments().call(u"Remove", {1});
    EXPECT_EQ(mail.Attachments().Count(), 1);
    EXPECT_EQ(failure_of([&] { mail.Attachments().Item(2); }), result::bad_index);
}

TEST_F(Mails, KeepAttachmentsThatAChangeLeavesAlone) {
    {
        const Item mail = add_mail(u"Offer");
        mail.Attachments().call(u"Add", {world.write_file("offer.txt", "twelve")});
        mail.Save();
    }
    {
        const Item mail = inbox().Items().Item(1);
        mail.Subject(u"Changed");
        mail.Save();
    }
    EXPECT_EQ(inbox().Items().Item(1).Attachments().Count(), 1);
}

}  // namespace
}  // namespace model_tests
