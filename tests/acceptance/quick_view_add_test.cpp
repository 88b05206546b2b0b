// New records and filed mail: the button of Quick View, and mail that is dropped on a row of its list.
#include <algorithm>

#include "tests/world/item_state.h"
#include "tests/world/quick_view.h"

namespace acceptance {
namespace {

using automation::Object;
using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Item;
namespace default_folder = host::outlook::default_folder;

class QuickViewAdding : public SideView {
  protected:
    void TearDown() override {
        const host::outlook::Inspectors windows = world().application().Inspectors();
        for (std::int32_t i = windows.Count(); i >= 1; --i) windows.Item(i).Close(1);
    }

    /// Presses the button with an entry chosen, or none.
    void add(TextView entry) {
        if (entry != TextView(u"Choose Folder")) view().choose_folder(entry);
        before_ = world().displayed();
        view().click(u"cmdAdd");
        EXPECT_TRUE(world().wait_for_handlers());
    }

    /// What the button has shown, in order; each is no longer shown afterwards.
    std::vector<Item> added() { return world().displayed_since(before_); }

    /// All of an item that tests compare: its class, what `told_note` tells, its body and what is attached.
    static Lines told(const Item& item) {
        Lines lines{shown(item.MessageClass())};
        const Lines note = told_note(item);
        lines.insert(lines.end(), note.begin(), note.end());
        lines.push_back("Body: " + escaped(item.Body()));
        for (std::int32_t i = 1; i <= item.Attachments().Count(); ++i) {
            const Object attachment = item.Attachments().Item(i);
            lines.push_back(
                "Attached: " + shown(Item(attachment.get(u"EmbeddedItem").to_object()).Subject()) + " at " +
                std::to_string(attachment.get(u"Position").to_integer()));
        }
        return lines;
    }
    static std::string escaped(const Text& text) {
        return shown(automation::replaced(automation::replaced(text, u"\r", u"\\r"), u"\n", u"\\n"));
    }

    /// The parts that all of Ann Lee's filed mail has.
    static Lines filed(TextView message_class, const std::string& key, bool aligned,
                       const std::string& manager = "Mia Hart", const std::string& team = "Sales") {
        Lines lines{shown(message_class), "Subject: Delivery dates", "AccountID: A-100", "ContactID: C-200"};
        if (!key.empty()) lines.push_back(key);
        lines.insert(lines.end(), {"Account Name: North Mill Ltd", "Contact Name: Ann Lee",
                                   "Account Manager: " + manager, "Team: " + team});
        if (aligned) lines.push_back("Alignment: North");
        lines.insert(lines.end(),
                     {"Type: Email (Received)", "Body: \\r\\n\\r\\nThe first line\\r\\nThe second line\\r\\n",
                      "Attached: Delivery dates at 1"});
        return lines;
    }

    Item only_action() {
        const host::outlook::Items items =
            world().below(u"Customer Service").Folders().Item(u"Actions").Items();
        EXPECT_EQ(items.Count(), 1);
        return items.Count() == 1 ? items.Item(1) : Item();
    }

  private:
    std::int32_t before_ = 0;
};

const Lines shown_values{"AccountID: A-100",      "ContactID: C-200",          "Account Name: North Mill Ltd",
                         "Contact Name: Ann Lee", "Account Manager: Mia Hart", "Team: Sales",
                         "Alignment: North"};

/// A list of lines without regard to their order: forms order their properties as they like.
Lines sorted(Lines lines) {
    std::ranges::sort(lines);
    return lines;
}

TEST_F(QuickViewAdding, MakesANoteThatTheUserPosts) {
    struct Case {
        const char16_t *option, *folder;
    };
    for (const auto& [option, folder] :
         {Case{u"", u"Email"}, Case{u"Opportunities", u"Opportunities"}, Case{u"Nowhere", u"Notes"}}) {
        SCOPED_TRACE(shown(option));
        World& world = viewing();
        const Item mail = show_ann();
        world.option(u"SavedEmailFolder", option);
        add(u"Notes");
        ASSERT_EQ(added().size(), 1U);
        const Item note = added().front();
        EXPECT_EQ(
            sorted(told(note)),
            sorted(joined({{"IPM.Post.Note", "Subject: Delivery dates"},
                           shown_values,
                           {"Type: Email (Received)", "Body: \\rThe first line\\r\\nThe second line\\r\\n",
                            "Attached: Delivery dates at 1"}})));
        EXPECT_EQ(note.EntryID(), u"") << "it isn't saved";
        EXPECT_EQ(count_in(world, u"Email"), 0);
        EXPECT_TRUE(is_marked_by_user(mail));
        note.Post();
        EXPECT_EQ(count_in(world, folder), 1);
        TearDown();
    }
}

TEST_F(QuickViewAdding, MakesAnOpportunityAndFilesTheMailForIt) {
    struct Case {
        const char16_t *option, *folder;
    };
    for (const auto& [option, folder] : {Case{u"", u"Notes"}, Case{u"Email", u"Email"}}) {
        SCOPED_TRACE(shown(option));
        World& world = viewing();
        const Item mail = show_ann();
        world.option(u"SavedEmailFolder", option);
        add(u"Opportunities");
        const std::vector<Item> items = added();
        ASSERT_EQ(items.size(), 2U);
        const Item& opportunity = items.front();
        const std::string key = "OppID: " + shown(World::property(opportunity, u"OppID"));
        EXPECT_NE(key, "OppID: ");
        EXPECT_EQ(sorted(told(opportunity)),
                  sorted(joined(
                      {{"IPM.Post.Opportunity", "Subject: ", "Body: ", key, "Amount: 0", "Probability: 0"},
                       shown_values})));
        EXPECT_EQ(opportunity.EntryID(), u"");
        const Item note = only_item(world, folder);
        ASSERT_TRUE(note);
        EXPECT_EQ(sorted(told(note)), sorted(filed(u"IPM.Post.Note", key, true)));
        EXPECT_EQ(shown(items.back().EntryID()), shown(note.EntryID()))
            << "it was shown before it was posted";
        EXPECT_TRUE(is_marked_by_user(mail));
        TearDown();
    }
}

TEST_F(QuickViewAdding, FilesNoNoteOfAnOpportunityWithoutTheFolder) {
    World& world = viewing();
    const Item mail = show_ann();
    world.option(u"SavedEmailFolder", u"Nowhere");
    add(u"Opportunities");
    EXPECT_EQ(added().size(), 1U);
    for (const TextView folder : {u"Email", u"Notes"}) EXPECT_EQ(count_in(world, folder), 0);
    EXPECT_TRUE(is_marked_by_user(mail)) << "all the same";
}

TEST_F(QuickViewAdding, MakesAnInquiryAndFilesTheMailAsItsAction) {
    World& world = viewing();
    add_folders();
    const Item mail = show_ann();
    world.option(u"SavedEmailFolder", u"Nowhere");
    add(u"Customer Service");
    ASSERT_EQ(added().size(), 1U);
    const Item inquiry = added().front();
    const std::string key = "Inquiry ID: " + shown(World::property(inquiry, u"Inquiry ID"));
    EXPECT_NE(key, "Inquiry ID: ");
    EXPECT_EQ(sorted(told(inquiry)),
              sorted(joined({{"IPM.Post.CustomerService", "Subject: The first line\r\nThe second line\r\n",
                              key, "BusinessPhone: 111", "BusinessFax: 222", "Body: "},
                             shown_values})));
    const Item action = only_action();
    ASSERT_TRUE(action);
    EXPECT_EQ(sorted(told(action)), sorted(filed(u"IPM.Post.Action", key, false)))
        << "the alignment stays unset";
    EXPECT_EQ(count_in(world, u"Notes"), 0);
    EXPECT_TRUE(is_marked_by_user(mail));
}

TEST_F(QuickViewAdding, CutsAnInquirysSubject) {
    World& world = viewing();
    add_folders();
    add_contact(world, full_contact());
    select(world.deliver(message({.body = std::string(600, 'x') + "\n"})));
    add(u"Customer Service");
    ASSERT_EQ(added().size(), 1U);
    EXPECT_EQ(shown(added().front().Subject()), std::string(512, 'x'));
}

TEST_F(QuickViewAdding, MakesAnAppointmentAndATaskOfOnesOwn) {
    World& world = viewing();
    show_ann();
    struct Case {
        TextView entry;
        const char* message_class;
        bool has_key;
        std::int32_t folder;
    };
    constexpr Case cases[] = {
        {u"My Calendar", "IPM.Appointment.TarnwellAppt", true, default_folder::calendar},
        {u"My Tasks", "IPM.Task.TarnwellTask", false, default_folder::tasks}};
    for (const Case& one : cases) {
        SCOPED_TRACE(shown(one.entry));
        const Item mail = world.deliver(message());
        select(mail);
        add(one.entry);
        ASSERT_EQ(added().size(), 1U);
        const Item item = added().front();
        Lines expected =
            joined({{one.message_class, "Subject: Ann Lee, North Mill Ltd 111 Delivery dates",
                     "Body: \\rThe first line\\r\\nThe second line\\r\\n", "Attached: Delivery dates at 1"},
                    shown_values});
        if (one.has_key) {
            EXPECT_NE(World::property(item, u"ApptID"), u"");
            expected.push_back("ApptID: " + shown(World::property(item, u"ApptID")));
        }
        EXPECT_EQ(sorted(told(item)), sorted(expected));
        EXPECT_TRUE(is_marked_by_user(mail));
        EXPECT_EQ(count_in(world, u"Notes"), 0) << "nothing more is filed";
        item.Save();
        EXPECT_TRUE(world.wait_for_handlers());  // while a replica is made, its copy stands there, too
        EXPECT_EQ(world.name_space().GetDefaultFolder(one.folder).Items().Count(), 1);
    }
}

TEST_F(QuickViewAdding, FilesTheMailBothWaysWhereNothingIsMade) {
    struct Case {
        TextView entry;
        bool missing_folder;
    };
    for (const auto& [entry, missing_folder] :
         {Case{u"Choose Folder", false}, Case{u"Email", false}, Case{u"Opportunities", true}}) {
        SCOPED_TRACE(shown(entry));
        World& world = viewing();
        add_folders();
        const Item mail = show_ann();
        if (missing_folder) world.below(u"Opportunities").put(u"Name", u"Chances");
        add(entry);
        const Item note = only_item(world, u"Notes"), action = only_action();
        ASSERT_TRUE(note && action);
        const std::string id = shown(World::property(note, u"OppID"));
        EXPECT_NE(id, "");
        EXPECT_EQ(sorted(told(note)), sorted(filed(u"IPM.Post.Note", "OppID: " + id, true)));
        EXPECT_EQ(sorted(told(action)), sorted(filed(u"IPM.Post.Action", "Inquiry ID: " + id, false)));
        ASSERT_EQ(added().size(), 1U);
        EXPECT_EQ(added().front().EntryID(), note.EntryID()) << "the note is shown, and no new record";
        EXPECT_TRUE(is_marked_by_user(mail));
        TearDown();
    }
}

TEST_F(QuickViewAdding, MakesAnEmptyRecordWhereTheMailHasGone) {
    viewing();
    const Item mail = show_ann();
    mail.call(u"Delete");
    constexpr std::int32_t deleted_items = 3;  // OlDefaultFolders
    world().name_space().GetDefaultFolder(deleted_items).Items().Item(1).call(u"Delete");
    add(u"Notes");
    ASSERT_EQ(added().size(), 1U);
    EXPECT_EQ(
        sorted(told(added().front())),
        sorted(joined({{"IPM.Post.Note", "Subject: ", "Type: Email (Received)", "Body: "}, shown_values})));
}

// drops

class QuickViewDropping : public QuickViewAdding {
  protected:
    /// A record that mail can be dropped on, with values of its own.
    Item add_target(TextView folder, TextView message_class, TextView key, const Text& id) {
        Fields properties = keys_of_ann;
        properties.insert(
            properties.end(),
            {{key, id}, {u"Account Manager", u"Eve Day"}, {u"Team", u"Service"}, {u"Alignment", u"North"}});
        if (message_class == TextView(u"IPM.Post.Opportunity")) properties.emplace_back(u"Name", u"Row");
        return add_record(world(), folder, message_class, u"Row", properties);
    }
};

TEST_F(QuickViewDropping, FilesTheSelectedMailForTheRow) {
    struct Case {
        TextView folder, message_class, key;
        const char* id;
        const char16_t* option;
        TextView filed_in;
    };
    const Case cases[] = {
        {u"Opportunities", u"IPM.Post.Opportunity", u"OppID", "O-1", u"", u"Notes"},
        {u"Opportunities", u"IPM.Post.Opportunity", u"OppID", "O-2", u"Email", u"Email"},
        {u"Opportunities", u"IPM.Post.Opportunity", u"OppID", "O-3", u"Nowhere", u""},
        {u"Customer Service", u"IPM.Post.CustomerService", u"Inquiry ID", "I-1", u"Nowhere", u"Actions"},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.id);
        World& world = viewing();
        add_folders();
        world.option(u"SavedEmailFolder", one.option);
        show_ann();
        world.option(u"EnableQuickView", u"0");
        add_target(one.folder, one.message_class, one.key, automation::from_utf8(one.id));
        view().choose_folder(one.folder);
        const Item first = world.deliver(message({.subject = "Delivery dates"}));
        const Item second = world.deliver(message({.subject = "Another"}));
        world.desk().call(u"Select", {Value(first), Value(second)});
        const std::int32_t before = world.displayed();
        view().drop(1);
        EXPECT_TRUE(is_marked_by_user(first));
        EXPECT_FALSE(is_marked_by_user(second)) << "one drop, one filing";
        EXPECT_EQ(world.displayed(), before) << "it is posted without being shown";
        EXPECT_EQ(view().selected(), 1);
        EXPECT_EQ(count_messages(world), 0);
        Item made;
        if (one.filed_in == TextView(u"Actions")) {
            made = only_action();
        } else if (!one.filed_in.empty()) {
            made = only_item(world, one.filed_in);
        }
        if (made) {
            const bool action = one.filed_in == TextView(u"Actions");
            EXPECT_EQ(sorted(told(made)),
                      sorted(filed(action ? u"IPM.Post.Action" : u"IPM.Post.Note",
                                   shown(one.key) + ": " + one.id, true, "Eve Day", "Service")));
        } else {
            for (const TextView folder : {u"Email", u"Notes"}) EXPECT_EQ(count_in(world, folder), 0);
        }
    }
}

TEST_F(QuickViewDropping, TakesTheMailFromTheExplorerNotFromTheWindow) {
    World& world = viewing();
    const Item shown_mail = show_ann();
    world.option(u"EnableQuickView", u"0");
    add_target(u"Opportunities", u"IPM.Post.Opportunity", u"OppID", u"O-1");
    view().choose_folder(u"Opportunities");
    select(world.deliver(message({.from = "Zoe <zoe@quill.example>", .subject = "From a stranger"})));
    view().drop(1);
    EXPECT_EQ(shown(only_item(world, u"Notes").Subject()), "From a stranger");
    EXPECT_FALSE(is_marked_by_user(shown_mail));

    // of several it is the one that the explorer names first, wherever it lies and whichever was taken hold
    // of
    const Item upper = world.deliver(message({.subject = "Above"}));
    const Item lower = world.deliver(message({.subject = "Below"}));
    world.desk().call(u"Select", {Value(lower), Value(upper)});
    EXPECT_TRUE(world.wait_for_handlers());
    view().drop(1);
    ASSERT_EQ(count_in(world, u"Notes"), 2);
    EXPECT_EQ(shown(world.below(u"Notes").Items().Item(2).Subject()), "Below");
    EXPECT_TRUE(is_marked_by_user(lower));
    EXPECT_FALSE(is_marked_by_user(upper));
}

TEST_F(QuickViewDropping, FilesNothingButMarksForARowOfAnotherClass) {
    World& world = viewing();
    const Item mail = show_ann();
    add_target(u"Opportunities", u"IPM.Post.Opportunity", u"OppID", u"O-1");
    view().choose_folder(u"Opportunities");
    const Item target = only_item(world, u"Opportunities");
    target.put(u"MessageClass", u"IPM.Post.Note");
    target.Save();
    view().drop(1);
    for (const TextView folder : {u"Email", u"Notes"}) EXPECT_EQ(count_in(world, folder), 0);
    EXPECT_TRUE(is_marked_by_user(mail));
}

TEST_F(QuickViewDropping, FilesAnEmptyNoteWithoutAMailThatIsSelected) {
    for (const bool with_contact : {false, true}) {
        SCOPED_TRACE(with_contact);
        World& world = viewing();
        const Item mail = show_ann();
        add_target(u"Opportunities", u"IPM.Post.Opportunity", u"OppID", u"O-1");
        view().choose_folder(u"Opportunities");
        world.option(u"EnableQuickView", u"0");
        const Item contact = only_item(world, u"Account Contacts");
        const ItemState before = state_of(contact);
        if (with_contact) {
            select(contact);
        } else {
            world.desk().call(u"Select");
        }
        view().drop(1);
        const Item note = only_item(world, u"Notes");
        ASSERT_TRUE(note);
        EXPECT_EQ(note.Subject(), u"");
        EXPECT_EQ(note.Body(), u"");
        EXPECT_EQ(note.Attachments().Count(), 0);
        EXPECT_EQ(shown(World::property(note, u"OppID")), "O-1");
        EXPECT_FALSE(is_marked_by_user(mail));
        EXPECT_EQ(changes(before, state_of(contact)), Lines{});
        TearDown();
    }
}

TEST_F(QuickViewDropping, CountsEveryCellAsItsRowAndNothingBelow) {
    World& world = viewing();
    const Item mail = show_ann();
    add_target(u"Opportunities", u"IPM.Post.Opportunity", u"OppID", u"O-1");
    view().choose_folder(u"Opportunities");
    view().drop(0);
    EXPECT_EQ(count_in(world, u"Notes"), 0) << "below the last row";
    EXPECT_EQ(view().selected(), 0);
    EXPECT_FALSE(is_marked_by_user(mail));
    constexpr std::int32_t modified_date = 2;
    view().drop(1, modified_date);
    const Item note = only_item(world, u"Notes");
    ASSERT_TRUE(note);
    EXPECT_EQ(shown(World::property(note, u"OppID")), "O-1");
    EXPECT_EQ(view().selected(), 1);
    EXPECT_TRUE(is_marked_by_user(mail));
}

TEST_F(QuickViewDropping, RefusesARowWithoutAText) {
    World& world = viewing();
    const Item mail = show_ann();
    Fields nameless = keys_of_ann;
    nameless.emplace_back(u"OppID", u"O-1");
    add_record(world, u"Opportunities", u"IPM.Post.Opportunity", u"Row", nameless);
    view().choose_folder(u"Opportunities");
    ASSERT_EQ(view().column(1), Lines{""});
    view().drop(1);
    EXPECT_EQ(count_in(world, u"Notes"), 0);
    EXPECT_FALSE(is_marked_by_user(mail));
}

TEST_F(QuickViewDropping, FilesBothWaysForARecordThatHasGone) {
    World& world = viewing();
    const Item mail = show_ann();
    add_target(u"Opportunities", u"IPM.Post.Opportunity", u"OppID", u"O-1");
    view().choose_folder(u"Opportunities");
    only_item(world, u"Opportunities").call(u"Delete");
    view().drop(1);
    const Item note = only_item(world, u"Notes"), action = only_action();
    ASSERT_TRUE(note && action) << "a class that can't be told is taken for either";
    for (const Item& made : {note, action}) {
        EXPECT_EQ(
            sorted(told(made)),
            sorted({shown(made.MessageClass()), "Subject: Delivery dates", "AccountID: A-100",
                    "ContactID: C-200", "Account Name: North Mill Ltd", "Contact Name: Ann Lee",
                    "Type: Email (Received)", "Body: \\r\\n\\r\\nThe first line\\r\\nThe second line\\r\\n",
                    "Attached: Delivery dates at 1"}));
    }
    EXPECT_TRUE(is_marked_by_user(mail));
}

}  // namespace
}  // namespace acceptance
