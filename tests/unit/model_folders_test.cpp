#include "tests/unit/support/model_support.h"

namespace model_tests {
namespace {

class Folders : public ModelTest {};

TEST_F(Folders, AreWalkedFromTheStores) {
    const host::outlook::Folders stores = name_space.Folders();
    ASSERT_EQ(stores.Count(), 2);
    EXPECT_EQ(stores.Item(1).Name(), u"Mailbox - Tarnwell");
    EXPECT_EQ(stores.Item(2).Name(), u"Public Folders");
    const Folder anchor(stores.Item(2)
                            .Folders()
                            .Item(u"All Public Folders")
                            .Folders()
                            .Item(u"tarnwell")
                            .Folders()
                            .Item(u"Account Profiles"));
    EXPECT_EQ(text(anchor, u"FolderPath"),
              u"\\\\Public Folders\\All Public Folders\\Tarnwell\\Account Profiles");
    EXPECT_EQ(text(anchor, u"DefaultMessageClass"), u"IPM.Post.Tarnwell_2000");
    EXPECT_EQ(anchor.Class(), 2);

    // upwards, to the store and beyond it to the name space
    Object above = anchor.Parent();
    std::vector<Text> names;
    while (integer(above, u"Class") == 2) {
        names.push_back(text(above, u"Name"));
        above = above.get(u"Parent").to_object();
    }
    EXPECT_EQ(names, (std::vector<Text>{u"Tarnwell", u"All Public Folders", u"Public Folders"}));
    EXPECT_EQ(integer(above, u"Class"), 1);
}

TEST_F(Folders, CountFromOne) {
    const host::outlook::Folders stores = name_space.Folders();
    EXPECT_EQ(failure_of([&] { stores.Item(0); }), result::bad_index);
    EXPECT_EQ(failure_of([&] { stores.Item(3); }), result::bad_index);
    EXPECT_EQ(failure_of([&] { stores.Item(u"Elsewhere"); }), result::not_found);
    EXPECT_EQ(Folder(stores.call(u"GetFirst").to_object()).Name(), u"Mailbox - Tarnwell");
    EXPECT_EQ(Folder(stores.call(u"GetNext").to_object()).Name(), u"Public Folders");
    EXPECT_FALSE(stores.call(u"GetNext").to_object());
    EXPECT_EQ(Folder(stores.call(u"GetLast").to_object()).Name(), u"Public Folders");
    EXPECT_EQ(Folder(stores.call(u"GetPrevious").to_object()).Name(), u"Mailbox - Tarnwell");
}

TEST_F(Folders, OfTheProfileHaveTheirNumbers) {
    struct Case {
        std::int32_t number;
        TextView name, message_class;
    };
    constexpr Case cases[] = {
        {3, u"Deleted Items", u"IPM.Note"},   {5, u"Sent Items", u"IPM.Note"},   {6, u"Inbox", u"IPM.Note"},
        {9, u"Calendar", u"IPM.Appointment"}, {10, u"Contacts", u"IPM.Contact"}, {13, u"Tasks", u"IPM.Task"},
        {12, u"Notes", u"IPM.StickyNote"},    {16, u"Drafts", u"IPM.Note"},
    };
    for (const Case& one : cases) {
        const Folder folder = default_folder(one.number);
        EXPECT_EQ(folder.Name(), one.name);
        EXPECT_EQ(text(folder, u"DefaultMessageClass"), one.message_class);
    }
    EXPECT_EQ(failure_of([&] { default_folder(7); }), result::invalid_argument);
}

TEST_F(Folders, AreOpenedByTheirIds) {
    const Folder folder = world.below(u"Email");
    const Text id = folder.EntryID();
    for (const char16_t c : id) EXPECT_TRUE((c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'F'));
    EXPECT_EQ(name_space.GetFolderFromID(id, folder.StoreID()).Name(), u"Email");
    EXPECT_EQ(Folder(name_space.call(u"GetFolderFromID", {Value(id)}).to_object()).Name(), u"Email");
    EXPECT_EQ(failure_of([&] { name_space.GetFolderFromID(id, inbox().StoreID()); }), result::not_found);
    for (const TextView wrong : {u"", u"00", u"no id at all"}) {
        EXPECT_EQ(failure_of([&] { name_space.GetFolderFromID(wrong, folder.StoreID()); }),
                  result::not_found);
    }
    EXPECT_EQ(failure_of([&] { name_space.GetFolderFromID(add_mail(u"x").EntryID(), inbox().StoreID()); }),
              result::not_found)
        << "an item's id is no folder's";
}

TEST_F(Folders, AreAddedRenamedMovedAndDeleted) {
    const Folder root = name_space.Folders().Item(1);
    const auto add = [](const Folder& parent, TextView name) {
        return Folder(parent.Folders().call(u"Add", {Value(name)}).to_object());
    };
    const Folder one = add(root, u"One");
    const Folder two = add(one, u"Two");
    EXPECT_EQ(text(two, u"FolderPath"), u"\\\\Mailbox - Tarnwell\\One\\Two");
    EXPECT_EQ(failure_of([&] { add(root, u"one"); }), result::fail) << "the name is taken";
    EXPECT_EQ(failure_of([&] { add(root, u"  "); }), result::invalid_argument);

    one.put(u"Name", u"First");
    EXPECT_EQ(text(two, u"FolderPath"), u"\\\\Mailbox - Tarnwell\\First\\Two");
    EXPECT_EQ(failure_of([&] { one.call(u"MoveTo", {Value(two)}); }), result::fail) << "into itself";
    two.call(u"MoveTo", {Value(root)});
    EXPECT_EQ(text(two, u"FolderPath"), u"\\\\Mailbox - Tarnwell\\Two");
    EXPECT_EQ(one.Folders().Count(), 0);

    one.call(u"Delete");
    EXPECT_EQ(text(one, u"FolderPath"), u"\\\\Mailbox - Tarnwell\\Deleted Items\\First");
    one.call(u"Delete");
    EXPECT_EQ(failure_of([&] { one.Name(); }), result::object_deleted);
    EXPECT_EQ(failure_of([&] { one.Items(); }), result::object_deleted);
    EXPECT_EQ(failure_of([&] { inbox().call(u"Delete"); }), result::access_denied);
}

TEST_F(Folders, AreCopiedWithWhatTheyHold) {
    const Folder root = name_space.Folders().Item(1);
    const Folder source(root.Folders().call(u"Add", {u"Source"}).to_object());
    source.Folders().call(u"Add", {u"Below"});
    const Item mail = source.Items().Add(u"IPM.Note");
    mail.Subject(u"Copied");
    mail.Save();
    const Folder copy(source.call(u"CopyTo", {Value(default_folder(folder_number::drafts))}).to_object());
    EXPECT_EQ(subjects(copy.Items()), (std::vector<Text>{u"Copied"}));
    EXPECT_EQ(copy.Folders().Item(1).Name(), u"Below");
    copy.Items().Item(1).call(u"Delete");
    EXPECT_EQ(source.Items().Count(), 1);
}

TEST_F(Folders, BearFieldsForAllTheirItems) {
    const Folder made(name_space.Folders().Item(1).Folders().call(u"Add", {u"Records"}).to_object());
    const Object fields = made.get(u"UserDefinedProperties").to_object();
    EXPECT_EQ(integer(fields, u"Count"), 0);
    constexpr std::int32_t text_field = 1, date_field = 5;
    fields.call(u"Add", {u"AccountID", text_field});
    const Object date = fields.call(u"Add", {u"Activity Date", date_field}).to_object();
    EXPECT_EQ(text(date, u"Name"), u"Activity Date");
    EXPECT_EQ(integer(date, u"Type"), date_field);
    EXPECT_EQ(text(fields.call(u"Item", {1}).to_object(), u"Name"), u"AccountID");
    EXPECT_EQ(text(fields.call(u"Find", {u"accountid"}).to_object(), u"Name"), u"AccountID");
    EXPECT_FALSE(fields.call(u"Find", {u"Team"}).to_object());
    EXPECT_EQ(failure_of([&] { fields.call(u"Add", {u"AccountID", text_field}); }), result::invalid_argument);
    EXPECT_EQ(failure_of([&] { fields.call(u"Item", {3}); }), result::bad_index);

    // what an item adds to the folder's fields is one of them, and is then known to filters
    const Item mail = made.Items().Add(u"IPM.Note");
    mail.UserProperties().Add(u"Team", text_field, true);
    EXPECT_EQ(integer(fields, u"Count"), 3);
    EXPECT_EQ(made.Items().Restrict(u"[AccountID] = '1'").Count(), 0);
    fields.call(u"Remove", {1});
    date.call(u"Delete");
    EXPECT_EQ(integer(fields, u"Count"), 1);
    EXPECT_EQ(failure_of([&] { text(date, u"Name"); }), result::object_deleted);
}

TEST_F(Folders, TakeAnotherClassForTheirItemsByItsAddress) {
    const Folder made(name_space.Folders().Item(1).Folders().call(u"Add", {u"Records"}).to_object());
    const Object accessor = made.get(u"PropertyAccessor").to_object();
    const TextView address = u"http://schemas.microsoft.com/mapi/proptag/0x36E5001F";
    EXPECT_EQ(accessor.call(u"GetProperty", {Value(address)}).to_text(), u"IPM.Note");
    accessor.call(u"SetProperty", {Value(address), u"IPM.Post.Note"});
    EXPECT_EQ(made.DefaultMessageClass(), u"IPM.Post.Note");
    constexpr TextView unknown = u"http://schemas.microsoft.com/mapi/proptag/0x3001001F";
    EXPECT_EQ(failure_of([&] { accessor.call(u"GetProperty", {Value(unknown)}); }), result::not_found);
    EXPECT_EQ(failure_of([&] { accessor.call(u"SetProperty", {Value(unknown), u"?"}); }), result::not_found);
}

TEST_F(Folders, TellOfChangesBelowThem) {
    const Folder root = name_space.Folders().Item(1);
    const host::outlook::Folders folders = root.Folders();
    constexpr automation::Event told_events[] = {
        {u"FolderAdd", 0xF001}, {u"FolderChange", 0xF002}, {u"FolderRemove", 0xF003}};
    const automation::EventInterface interface {
        "FoldersEvents", automation::guid("{00063076-0000-0000-C000-000000000046}"), told_events
    };
    Listener listener(interface, folders, {u"FolderAdd", u"FolderChange", u"FolderRemove"});
    const Folder one(root.Folders().call(u"Add", {u"One"}).to_object());
    EXPECT_TRUE(listener.told.empty()) << "it comes at the next yield";
    world.settle();
    one.put(u"Name", u"Two");
    one.call(u"Delete");
    world.settle();
    EXPECT_EQ(listener.told, (Told{"FolderAdd ?", "FolderChange ?", "FolderRemove"}));
}

TEST_F(Folders, SurviveTheEndOfTheHost) {
    const Folder root = name_space.Folders().Item(1);
    const Folder made(root.Folders().call(u"Add", {u"Kept"}).to_object());
    made.put(u"Description", u"What is kept");
    const Text id = made.EntryID();
    name_space = {};
    application = {};
    desk = {};
    world.quit();
    world.start();
    const Folder again(world.name_space().call(u"GetFolderFromID", {Value(id)}).to_object());
    EXPECT_EQ(again.Name(), u"Kept");
    EXPECT_EQ(text(again, u"Description"), u"What is kept");
}

}  // namespace
}  // namespace model_tests
