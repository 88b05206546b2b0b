// The commands that have to do with templates: three open a list of the family, one makes a template of a
// mail.
#include "tests/world/bars.h"
#include "tests/world/host_numbers.h"
#include "tests/world/item_state.h"
#include "tests/world/note_dialog.h"

namespace acceptance {
namespace {

using automation::Text;
using automation::TextView;
using host::outlook::Item;
using host::outlook::Items;

constexpr TextView question = u"Are you sure you want to create an email template from this email?";
const std::string question_box =
    "Tarnwell, 4: Are you sure you want to create an email template from this email?";

class TemplateCommands : public Acceptance {
  protected:
    Items templates() { return world().below(u"Drop Downs").Items(); }

    /// What the main add-in was told since a place.
    Lines told(std::size_t from = 0) {
        Lines lines;
        const std::vector<Text> calls = world().family_calls();
        for (std::size_t i = from; i < calls.size(); ++i) lines.push_back(shown(calls[i]));
        return lines;
    }

    /// Answers the question about the mail in a window, and closes the message at the end.
    void save_template(const OpenedItem& window, std::int32_t button = yes) {
        answer(world(), question, button);
        answer(world(), u"Email Template '", ok);
        press(world(), window.window, item_bar, u"SaveAsTemplateButton");
    }

    static std::string created(const std::string& subject) {
        return "Tarnwell, 0: Email Template '" + subject + "' Created.";
    }

    static std::string record_type(const Item& record) {
        return shown(World::property(record, u"RecordType"));
    }
};

TEST_F(TemplateCommands, OpenTheListsOfTheFamily) {
    World& world = with({});
    const Item contact = add_contact(world);
    OpenedItem window(contact);
    window.show();
    struct Case {
        TextView tag;
        Lines told;
    };
    const std::string told_id = "MainAddIn.messageid = " + shown(contact.EntryID());
    const Case cases[] = {
        {u"EmailTemplateButton", {told_id, "MainAddIn.ShowMailer"}},
        {u"DocumentTemplateButton", {told_id, "MainAddIn.Showlist(Document)"}},
        {u"ExcelTemplateButton", {"MainAddIn.Showlist(Spreadsheet)"}},
    };
    for (const bool fails : {false, true}) {
        for (const Case& one : cases) {
            SCOPED_TRACE(shown(one.tag) + (fails ? ", the window can't be found" : ""));
            if (fails) world.fail(u"Application.ActiveInspector");
            const std::size_t before = world.family_calls().size();
            press(world, window.window, item_bar, one.tag);
            EXPECT_EQ(told(before), fails ? Lines{one.told.back()} : one.told);
        }
    }
    EXPECT_EQ(count_messages(world), 0);
}

TEST_F(TemplateCommands, OpenTheirListsWithoutAWindow) {
    // the windows of mails that Word shows share their bar; it outlives them if another's end is seen
    World& world = with({});
    desk_option(world, u"WordMail", true);
    OpenedItem mail(new_item(world, item_type::mail)), task(new_item(world, item_type::task));
    mail.show();
    task.show();
    const automation::Object button = find_control(mail.window, item_bar, u"EmailTemplateButton");
    ASSERT_TRUE(button);
    mail.close();
    task.close();
    ASSERT_EQ(world.application().Inspectors().Count(), 0);
    world.desk().call(u"Press", {automation::Value(button)});
    EXPECT_TRUE(world.wait_for_handlers());
    EXPECT_EQ(told(), Lines{"MainAddIn.ShowMailer"});
    EXPECT_EQ(count_messages(world), 0);
}

TEST_F(TemplateCommands, SaveACopyOfTheMailAndLeaveTheMailAlone) {
    World& world = with({});
    const Item mail = world.deliver(message({.subject = "A greeting",
                                             .body = "Dear all\n",
                                             .more = "Importance: high\nCc: Bo Ray <bo@ray.example>\n"}));
    mail.put(u"Categories", u"Blue, Green");
    mail.Save();
    OpenedItem window(mail);
    window.show();
    const ItemState before = state_of(mail);
    save_template(window);
    EXPECT_EQ(boxes(world), (Lines{question_box, created("A greeting")}));
    ASSERT_EQ(templates().Count(), 1);
    const Item record = templates().Item(1);
    EXPECT_EQ(record_type(record), "Email Blast");
    EXPECT_TRUE(record.Saved());
    EXPECT_EQ(record.Subject(), u"A greeting");
    EXPECT_EQ(record.Body(), mail.Body());
    EXPECT_EQ(record.MessageClass(), u"IPM.Post.Drop Down");
    EXPECT_EQ(changes(before, state_of(record)),
              (Lines{"MessageClass: IPM.Post.Drop Down instead of IPM.Note",
                     "[RecordType, 1]: Email Blast instead of "}))
        << "all else is the mail's";
    EXPECT_EQ(changes(before, state_of(mail)), Lines{});
    EXPECT_EQ(world.inbox().Items().Count(), 1);
    EXPECT_EQ(world.application().Inspectors().Count(), 1) << "the mail stays open";
}

TEST_F(TemplateCommands, ChangeNothingUnlessTheUserSaysYes) {
    World& world = with({});
    OpenedItem window(world.deliver(message()));
    window.show();
    const ItemState before = state_of(window.item);
    save_template(window, no);
    EXPECT_EQ(boxes(world), Lines{question_box});
    EXPECT_EQ(templates().Count(), 0);
    EXPECT_EQ(world.inbox().Items().Count(), 1);
    EXPECT_EQ(changes(before, state_of(window.item)), Lines{});
}

TEST_F(TemplateCommands, SayThatItWasCreatedWhateverBecameOfIt) {
    World& world = with({});
    struct Case {
        const char* name;
        std::string subject;
        std::string earlier;  ///< the subject of a record that is there
        Lines types;          ///< of the records, in their order
    };
    const Case cases[] = {
        {"an apostrophe breaks the search", "Ann's greeting", "", {""}},
        {"an earlier one of that subject gets the type", "A greeting", "A greeting", {"Email Blast", ""}},
        {"a subject that finds another's record", "x' Or [Subject] <> 'x", "Note Type", {"", ""}},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        if (!one.earlier.empty()) {
            const Item earlier = templates().Add(u"IPM.Post.Drop Down");
            earlier.Subject(automation::from_utf8(one.earlier));
            earlier.Save();
        }
        OpenedItem window(world.deliver(message({.subject = one.subject})));
        window.show();
        const std::int32_t before = count_messages(world);
        const ItemState mail = state_of(window.item);
        save_template(window);
        EXPECT_EQ(boxes(world, before), (Lines{question_box, created(one.subject)}));
        EXPECT_EQ(changes(mail, state_of(window.item)), Lines{});
        Lines types;
        for (std::int32_t i = 1; i <= templates().Count(); ++i)
            types.push_back(record_type(templates().Item(i)));
        EXPECT_EQ(types, one.types);
        empty_folder(world.below(u"Drop Downs"));
    }
}

TEST_F(TemplateCommands, LeaveTheCopyWhereItIsWithoutADatabase) {
    World& world = with({});
    OpenedItem window(world.deliver(message({.subject = "A greeting"})));
    window.show();
    world.family(u"Fail", u"MainAddIn.GetFolderId");
    const ItemState mail = state_of(window.item);
    save_template(window);
    EXPECT_EQ(boxes(world), (Lines{question_box, created("A greeting")}));
    EXPECT_EQ(changes(mail, state_of(window.item)), Lines{});
    EXPECT_EQ(templates().Count(), 0);
    ASSERT_EQ(world.inbox().Items().Count(), 2);
    EXPECT_EQ(world.inbox().Items().Item(2).MessageClass(), u"IPM.Post.Drop Down");
}

}  // namespace
}  // namespace acceptance
