#include "addin/host/item_classes.h"
#include "desk/outlook/item_kinds.h"
#include "tests/unit/support/model_support.h"

namespace model_tests {
namespace {

class ItemsOfAFolder : public ModelTest {};

struct ClassCase {
    TextView message_class, folder_class_name;
    std::int32_t folder, number;
};
constexpr ClassCase classes[] = {
    {u"IPM.Note", u"MailItem", folder_number::inbox, 43},
    {u"IPM.Appointment", u"AppointmentItem", folder_number::calendar, 26},
    {u"IPM.Contact", u"ContactItem", folder_number::contacts, 40},
    {u"IPM.Task", u"TaskItem", folder_number::tasks, 48},
    {u"IPM.StickyNote", u"NoteItem", folder_number::notes, 44},
    {u"IPM.Post", u"PostItem", folder_number::drafts, 45},
};

TEST_F(ItemsOfAFolder, ArePostedOrSentAsTheirClassHasIt) {
    const auto made = [&](TextView message_class) {
        return default_folder(folder_number::drafts).Items().Add(message_class);
    };
    EXPECT_EQ(failure_of([&] { made(u"IPM.Note").Post(); }), result::unknown_name);
    EXPECT_EQ(failure_of([&] { made(u"IPM.Post").call(u"Send"); }), result::unknown_name);
    EXPECT_EQ(failure_of([&] { made(u"IPM.StickyNote").call(u"Send"); }), result::unknown_name);
    EXPECT_EQ(failure_of([&] { made(u"IPM.Note").call(u"Send"); }), result::fail) << "nobody to send it to";
    EXPECT_EQ(failure_of([&] { made(u"IPM.Post").Post(); }), 0);
}

TEST(ClassesOfItems, PartWhereTheTableSaysSoAndNowhereElse) {
    using host::outlook::ItemClass;
    using host::outlook::parts_item_classes;
    constexpr std::pair<ItemClass, TextView> kinds[] = {
        {ItemClass::mail, u"IPM.Note"}, {ItemClass::contact, u"IPM.Contact"},
        {ItemClass::post, u"IPM.Post"}, {ItemClass::appointment, u"IPM.Appointment"},
        {ItemClass::task, u"IPM.Task"}, {ItemClass::note, u"IPM.StickyNote"},
    };
    for (const auto& [item_class, base_class] : kinds) {
        const desk::ItemKind& kind = desk::kind_of(base_class);
        for (const host::outlook::PublishedMember& row : host::outlook::parting_members) {
            const auto* const field = desk::find_field(kind, row.name);
            if (!field || row.item_class != item_class) continue;
            EXPECT_EQ(field->id, row.id) << acceptance::shown(row.name);
        }
        for (const auto& [other_class, other_base] : kinds) {
            for (const desk::tables::FieldRow& field : kind.own_fields()) {
                SCOPED_TRACE(acceptance::shown(field.name));
                const auto* const of_name = desk::find_field(desk::kind_of(other_base), field.name);
                const auto* const of_id = desk::find_field(desk::kind_of(other_base), field.id);
                const bool parts =
                    (of_name && of_name->id != field.id) || (of_id && of_id->name != field.name);
                if (parts) {
                    EXPECT_TRUE(parts_item_classes(field.name));
                }
            }
        }
    }
}

TEST_F(ItemsOfAFolder, OfEveryClassAreMadeSavedChangedCopiedMovedAndDeleted) {
    for (const ClassCase& one : classes) {
        SCOPED_TRACE(shown(one.message_class));
        const Folder folder = default_folder(one.folder);
        const Item item = folder.Items().Add(one.message_class);
        EXPECT_EQ(item.MessageClass(), one.message_class);
        EXPECT_EQ(item.Class(), one.number);
        EXPECT_EQ(item.EntryID(), u"") << "an unsaved item has no id";
        EXPECT_EQ(folder.Items().Count(), 0);
        item.Body(u"One\r\nTwo");
        EXPECT_FALSE(item.get(u"Saved").to_boolean());
        item.Save();
        EXPECT_TRUE(item.get(u"Saved").to_boolean());
        ASSERT_EQ(folder.Items().Count(), 1);
        const Text id = item.EntryID();
        EXPECT_EQ(id.size(), 60U);
        EXPECT_EQ(Item(name_space.call(u"GetItemFromID", {Value(id)}).to_object()).Body(), u"One\r\nTwo");
        EXPECT_EQ(Folder(item.Parent()).EntryID(), folder.EntryID());

        item.Body(u"Three");
        item.Save();
        EXPECT_EQ(item.EntryID(), id);

        const Item copy(item.call(u"Copy").to_object());
        EXPECT_EQ(folder.Items().Count(), 2);
        EXPECT_NE(copy.EntryID(), id);
        EXPECT_EQ(copy.Body(), u"Three");

        const Folder target = default_folder(folder_number::outbox);
        const Item moved(copy.call(u"Move", {Value(target)}).to_object());
        EXPECT_EQ(folder.Items().Count(), 1);
        EXPECT_EQ(target.Items().Count(), 1);
        EXPECT_EQ(Folder(moved.Parent()).Name(), u"Outbox");
        EXPECT_EQ(failure_of([&] { copy.Body(); }), result::object_deleted) << "it has left";

        const std::int32_t deleted_before = default_folder(folder_number::deleted).Items().Count();
        item.call(u"Delete");
        moved.call(u"Delete");
        EXPECT_EQ(folder.Items().Count(), 0);
        EXPECT_EQ(target.Items().Count(), 0);
        EXPECT_EQ(default_folder(folder_number::deleted).Items().Count(), deleted_before + 2);
        EXPECT_EQ(failure_of([&] { item.Save(); }), result::object_deleted);
    }
}

TEST_F(ItemsOfAFolder, OfASharedFolderAreDeletedForGood) {
    const Item note = world.below(u"Notes").Items().Add(u"IPM.Post.Note");
    note.Save();
    const std::int32_t before = default_folder(folder_number::deleted).Items().Count();
    note.call(u"Delete");
    EXPECT_EQ(default_folder(folder_number::deleted).Items().Count(), before);
}

TEST_F(ItemsOfAFolder, CountFromOne) {
    add_mail(u"One");
    add_mail(u"Two");
    const Items items = inbox().Items();
    EXPECT_EQ(items.Item(1).Subject(), u"One");
    EXPECT_EQ(items.Item(2).Subject(), u"Two");
    EXPECT_EQ(items.Item(u"two").Subject(), u"Two");
    EXPECT_EQ(failure_of([&] { items.Item(0); }), result::bad_index);
    EXPECT_EQ(failure_of([&] { items.Item(3); }), result::bad_index);
    EXPECT_EQ(failure_of([&] { items.Item(u"Three"); }), result::not_found);
    // the default member, as Items(1)
    automation::Request request{
        .access = automation::Access::get, .member = {}, .id = automation::default_member, .arguments = {1}};
    EXPECT_EQ(Item(items.invoke(request).to_object()).Subject(), u"One");
    automation::Request through{.access = automation::Access::get, .member = u"Items", .arguments = {2}};
    EXPECT_EQ(Item(inbox().invoke(through).to_object()).Subject(), u"Two");
}

TEST_F(ItemsOfAFolder, HandedOutTwiceAreTwoCollections) {
    const Items one = inbox().Items();
    const Items two = inbox().Items();
    EXPECT_NE(Object(one), Object(two));
    add_mail(u"Seen by both");
    EXPECT_EQ(one.Count(), 1);
    EXPECT_EQ(two.Count(), 1);
    one.call(u"Sort", {u"[Subject]", true});
    add_mail(u"After the sort");
    EXPECT_EQ(two.Count(), 2);
}

TEST_F(ItemsOfAFolder, AreOneObjectWhileTheyAreHeld) {
    add_mail(u"One");
    const Item first = inbox().Items().Item(1);
    first.Subject(u"Changed, not saved");
    EXPECT_EQ(inbox().Items().Item(1).Subject(), u"Changed, not saved");
    EXPECT_EQ(Object(inbox().Items().Item(1)), Object(first));
}

TEST_F(ItemsOfAFolder, ForgetWhatWasNotSaved) {
    add_mail(u"One");
    {
        const Item mail = inbox().Items().Item(1);
        mail.Subject(u"Never saved");
    }
    EXPECT_EQ(inbox().Items().Item(1).Subject(), u"One");
}

TEST_F(ItemsOfAFolder, AreDeletedFromTheLastOn) {
    for (const TextView subject : {u"1", u"2", u"3"}) add_mail(subject);
    const Items items = inbox().Items();
    for (std::int32_t i = items.Count(); i >= 1; --i) items.call(u"Remove", {i});
    EXPECT_EQ(items.Count(), 0);
}

TEST_F(ItemsOfAFolder, AreStepped) {
    for (const TextView subject : {u"1", u"2", u"3"}) add_mail(subject);
    const Items items = inbox().Items();
    const auto step = [&](TextView member) {
        const Object item = items.call(member).to_object();
        return item ? Item(item).Subject() : Text(u"Nothing");
    };
    EXPECT_EQ(step(u"GetFirst"), u"1");
    EXPECT_EQ(step(u"GetNext"), u"2");
    EXPECT_EQ(step(u"GetNext"), u"3");
    EXPECT_EQ(step(u"GetNext"), u"Nothing");
    EXPECT_EQ(step(u"GetLast"), u"3");
    EXPECT_EQ(step(u"GetPrevious"), u"2");
    EXPECT_EQ(step(u"GetPrevious"), u"1");
    EXPECT_EQ(step(u"GetPrevious"), u"Nothing");
}

TEST_F(ItemsOfAFolder, AreSorted) {
    for (const TextView subject : {u"pear", u"Apple", u"fig"}) add_mail(subject);
    const Items items = inbox().Items();
    items.call(u"Sort", {u"[Subject]"});
    EXPECT_EQ(subjects(items), (std::vector<Text>{u"Apple", u"fig", u"pear"}));
    items.call(u"Sort", {u"Subject", true});
    EXPECT_EQ(subjects(items), (std::vector<Text>{u"pear", u"fig", u"Apple"}));
    EXPECT_EQ(subjects(inbox().Items()), (std::vector<Text>{u"pear", u"Apple", u"fig"}))
        << "in its own order";
    EXPECT_EQ(failure_of([&] { items.call(u"Sort", {u"[No such field]"}); }), result::invalid_argument);
}

TEST_F(ItemsOfAFolder, AreSortedByDateAndNumber) {
    const Items items = inbox().Items();
    for (const std::int32_t importance : {2, 0, 1}) {
        const Item mail = items.Add(u"IPM.Note");
        mail.Subject(automation::to_text(static_cast<long long>(importance)));
        mail.put(u"Importance", importance);
        mail.Save();
    }
    items.call(u"Sort", {u"[Importance]"});
    EXPECT_EQ(subjects(items), (std::vector<Text>{u"0", u"1", u"2"}));
}

// searches

TEST_F(ItemsOfAFolder, AreFoundOneAfterTheOther) {
    for (const TextView subject : {u"A", u"B", u"a", u"C"}) add_mail(subject);
    const Items items = inbox().Items();
    EXPECT_EQ(items.Find(u"[Subject] = \"a\"").Subject(), u"A");
    EXPECT_EQ(Item(items.call(u"FindNext").to_object()).Subject(), u"a");
    EXPECT_FALSE(items.call(u"FindNext").to_object());
    EXPECT_FALSE(items.Find(u"[Subject] = \"Z\""));
    EXPECT_EQ(failure_of([&] { inbox().Items().call(u"FindNext"); }), result::fail) << "no search before it";
}

TEST_F(ItemsOfAFolder, AreFoundByWhatIsSaved) {
    const Item mail = add_mail(u"Old");
    mail.Subject(u"New");
    EXPECT_TRUE(inbox().Items().Find(u"[Subject] = \"Old\""));
    mail.Save();
    EXPECT_FALSE(inbox().Items().Find(u"[Subject] = \"Old\""));
    EXPECT_TRUE(inbox().Items().Find(u"[Subject] = \"New\""));
}

TEST_F(ItemsOfAFolder, RefuseBrokenFilters) {
    add_mail(u"A");
    const Items items = inbox().Items();
    for (const TextView filter :
         {u"", u"[Subject] = \"a", u"[Subject] = \"a\"b\"", u"[No such field] = \"a\"", u"[Subject]",
          u"Subject = = \"a\"", u"@SQL=\"urn:schemas:httpmail:subject\" ci_phrasematch 'a'"}) {
        EXPECT_NE(failure_of([&] { items.Find(filter); }), 0) << shown(filter);
    }
}

TEST_F(ItemsOfAFolder, MatchWholeWordsOnlyWhereTheStoreIsIndexed) {
    add_mail(u"Delivery dates of March");
    const Items items = inbox().Items();
    constexpr TextView filter = u"@SQL=\"urn:schemas:httpmail:subject\" ci_phrasematch 'dates of'";
    EXPECT_NE(failure_of([&] { restricted(items, filter); }), 0);
    automation::Request option{
        .access = automation::Access::put, .member = u"Options", .arguments = {u"InstantSearch", true}};
    desk.invoke(option);
    EXPECT_EQ(restricted(items, filter).Count(), 1);
    EXPECT_NE(failure_of([&] { items.Find(filter); }), 0) << "never in Find";
}

TEST_F(ItemsOfAFolder, RestrictedAreASnapshotThatShrinks) {
    for (const TextView subject : {u"A", u"B", u"A", u"A"}) add_mail(subject);
    const Items found = restricted(inbox().Items(), u"[Subject] = \"A\"");
    EXPECT_EQ(found.Count(), 3);
    add_mail(u"A");
    EXPECT_EQ(found.Count(), 3) << "what comes later isn't in it";
    found.Item(2).call(u"Delete");
    EXPECT_EQ(found.Count(), 2);
    inbox().Items().Item(1).Subject(u"Z");
    EXPECT_EQ(found.Count(), 2);
    found.Item(1).call(u"Move", {Value(default_folder(folder_number::drafts))});
    EXPECT_EQ(found.Count(), 1);
    EXPECT_EQ(restricted(found, u"[Subject] = \"B\"").Count(), 0);
}

TEST_F(ItemsOfAFolder, AreFoundByFieldsAsTheHostsWindowsWriteThem) {
    const Item mail = add_mail(u"One");
    mail.put(u"FlagStatus", 1);
    constexpr std::int32_t text = 1;  // OlUserPropertyType
    mail.UserProperties().Add(u"Message.Class", text, false).value(u"not what is meant");
    mail.Save();
    struct Case {
        TextView filter;
        bool is_understood = true;
    };
    constexpr Case cases[] = {
        {u"[Message Class] = 'IPM.Note'"},
        {u"[message class] = 'ipm.note' And [Subject] = 'One'"},
        {u"[MessageClass] = 'IPM.Note'"},
        {u"[Billing Information] = '' And [Sender Name] = ''"},
        {u"[Flag Request] = '' And [Un Read] = False"},
        {u"[Mess ageClass] = 'IPM.Note'", false},
        {u"[Message  Class] = 'IPM.Note'", false},
        {u"[Sub ject] = 'One'", false},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(shown(one.filter));
        const Items items = inbox().Items();
        if (one.is_understood) {
            EXPECT_TRUE(items.Find(one.filter));
        } else {
            EXPECT_EQ(failure_of([&] { items.Find(one.filter); }), result::invalid_argument);
        }
    }
    add_mail(u"A second one");
    const Items sorted = inbox().Items();
    sorted.call(u"Sort", {u"[Conversation Topic]"});
    sorted.call(u"Sort", {u"[Flag Status]", true});
    EXPECT_EQ(sorted.Item(1).Subject(), u"One");
}

TEST_F(ItemsOfAFolder, AreFoundByTheFoldersOwnFieldWhereItIsCalledLikeABuiltInOne) {
    constexpr std::int32_t text = 1;  // OlUserPropertyType
    const Item mail = add_mail(u"One");
    mail.UserProperties().Add(u"Message Class", text, true).value(u"of its own");
    mail.Save();
    add_mail(u"Two");
    EXPECT_EQ(subjects(restricted(inbox().Items(), u"[Message Class] = 'of its own'")),
              std::vector<Text>{u"One"});
    EXPECT_EQ(subjects(restricted(inbox().Items(), u"[Message Class] = ''")), std::vector<Text>{u"Two"});
}

TEST_F(ItemsOfAFolder, AreRememberedWhileSomebodyHoldsThemAndNotLonger) {
    constexpr std::int32_t held_count = 100, count = 1000;
    std::vector<Item> held;
    for (std::int32_t i = 0; i < count; ++i) {
        const Item mail = add_mail(automation::to_text(i));
        if (i % (count / held_count) == 0) held.push_back(mail);
    }
    EXPECT_LE(world.model().remembered(), 2 * held.size() + 1);
    for (const Item& mail : held) {
        mail.Subject(u"Changed, and not saved");
        EXPECT_TRUE(Item(name_space.call(u"GetItemFromID", {Value(mail.EntryID())}).to_object()) == mail);
    }
    const Items all = inbox().Items();
    std::int32_t changed = 0;
    for (std::int32_t i = 1; i <= count; ++i) {
        if (all.Item(i).Subject() == u"Changed, and not saved") ++changed;
    }
    EXPECT_EQ(changed, held_count) << "who asks for an item that is held gets that one";
    held.clear();
    for (std::int32_t i = 1; i <= count; ++i) all.Item(i).Subject();
    EXPECT_LE(world.model().remembered(), 64U);
}

TEST_F(ItemsOfAFolder, AreRestrictedWithinARestriction) {
    for (const TextView subject : {u"A", u"B"}) {
        const Item mail = add_mail(subject);
        mail.put(u"Importance", 2);
        mail.Save();
    }
    add_mail(u"A");
    const Items important = restricted(inbox().Items(), u"[Importance] = 2");
    EXPECT_EQ(subjects(restricted(important, u"[Subject] = \"A\"")), (std::vector<Text>{u"A"}));
    EXPECT_EQ(restricted(inbox().Items(), u"[Subject] = \"A\"").Count(), 2);
}

TEST_F(ItemsOfAFolder, OfAnyTypeAreMadeByNumberClassOrFolder) {
    EXPECT_EQ(inbox().Items().Add(u"").MessageClass(), u"IPM.Note");
    EXPECT_EQ(Item(world.below(u"Email").Items().call(u"Add").to_object()).MessageClass(), u"IPM.Post.Note");
    EXPECT_EQ(Item(inbox().Items().call(u"Add", {item_type::task}).to_object()).MessageClass(), u"IPM.Task");
    EXPECT_EQ(failure_of([&] { inbox().Items().call(u"Add", {99}); }), result::invalid_argument);
    EXPECT_EQ(failure_of([&] { create(99); }), result::invalid_argument);
    const Item contact = create(item_type::contact);
    contact.Save();
    EXPECT_EQ(Folder(contact.Parent()).Name(), u"Contacts");
}

TEST_F(ItemsOfAFolder, AreOpenedByTheirIdsOnly) {
    const Item mail = add_mail(u"One");
    const Text id = mail.EntryID();
    const auto open = [&](const Text& item, const Text& store) {
        return failure_of([&] { name_space.call(u"GetItemFromID", {item, store}); });
    };
    EXPECT_EQ(open(id, inbox().StoreID()), 0);
    EXPECT_EQ(open(id, u""), 0);
    EXPECT_EQ(open(id, world.account_profiles().StoreID()), result::not_found);
    EXPECT_EQ(open(u"", u""), result::not_found);
    EXPECT_EQ(open(inbox().EntryID(), u""), result::not_found);
    mail.call(u"Move", {Value(default_folder(folder_number::drafts))});
    EXPECT_EQ(open(id, u""), 0) << "within a store an item keeps its id";
}

}  // namespace
}  // namespace model_tests
