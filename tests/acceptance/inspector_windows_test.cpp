// What opening and closing an item's window does beside its buttons: flags, the window that is remembered as
// the last one, and what is held.
#include "tests/world/bars.h"
#include "tests/world/button_lines.h"
#include "tests/world/outgoing.h"

namespace acceptance {
namespace {

using automation::Object;
using automation::TextView;
using automation::Value;
using host::outlook::Item;
namespace default_folder = host::outlook::default_folder;

constexpr TextView create_note_tag = u"CreateNoteButton", open_contact_tag = u"OpenContactButton";

class InspectorWindows : public Outgoing {
  protected:
    /// Has the handler of a closed window run, as the sending of a mail that nobody sees does.
    static void send_unseen(World& world, TextView message_class = u"IPM.Note") {
        const Item mail = new_mail(world);
        mail.put(u"MessageClass", message_class);
        mail.call(u"Send");
    }

    /// A new mail whose window is one of Word's, or of the host itself, from the next `OpenedItem` on.
    static Item word_mail(World& world) {
        desk_option(world, u"WordMail", true);
        return new_mail(world);
    }
    static Item plain_mail(World& world) {
        desk_option(world, u"WordMail", false);
        return new_mail(world);
    }
};

// flags

TEST_F(InspectorWindows, OfLinkedRecordsRaiseTheGuardsOfTheirReplicas) {
    struct Case {
        const char* name;
        Item (*make)(World&);
        bool calendar, task;
    };
    const Case cases[] = {
        {"a personal appointment", [](World& w) { return new_item(w, item_type::appointment); }, false,
         false},
        {"a plain task", [](World& w) { return new_item(w, item_type::task); }, false, false},
        {"a mail", [](World& w) { return new_mail(w); }, false, false},
        {"a sticky note", [](World& w) { return new_item(w, item_type::note); }, false, false},
        {"a linked appointment",
         [](World& w) { return new_item(w, default_folder::calendar, u"IPM.Appointment.TarnwellAppt"); },
         true, false},
        {"a linked task",
         [](World& w) { return new_item(w, default_folder::tasks, u"IPM.Task.TarnwellTask"); }, false, true},
        {"a linked appointment's class in other case",
         [](World& w) { return new_item(w, default_folder::calendar, u"IPM.Appointment.Tarnwellappt"); },
         false, false},
    };
    World& world = with({});
    const Object connect = world.connect();
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        connect.put(u"GlobalCalendar", false);
        connect.put(u"GlobalTask", false);
        {
            OpenedItem window(one.make(world));
            window.show();
            EXPECT_EQ(connect.get(u"GlobalCalendar").to_boolean(), one.calendar);
            EXPECT_EQ(connect.get(u"GlobalTask").to_boolean(), one.task);
        }
        EXPECT_EQ(connect.get(u"GlobalCalendar").to_boolean(), one.calendar)
            << "it stays when the window closes";
        EXPECT_EQ(connect.get(u"GlobalTask").to_boolean(), one.task);
    }
}

// the last window

TEST_F(InspectorWindows, OfWordMailShareTheirBarAndLoseItWhenTheLastOneCloses) {
    World& world = with({});
    OpenedItem first(word_mail(world)), last(word_mail(world));
    first.show();
    last.show();
    ASSERT_TRUE(find_bar(first.window, item_bar));
    first.close();
    EXPECT_TRUE(find_bar(last.window, item_bar)) << "only the last window's close is seen";
    last.close();
    OpenedItem next(word_mail(world));
    EXPECT_FALSE(find_bar(next.window, item_bar));
    next.show();
    EXPECT_EQ(bars_of(next.window),
              joined({{"Menu Bar, row -1, shown, enabled",
                       // the button is looked for under another tag, so each window adds its own
                       menu_bar("")[1], menu_bar("")[1], menu_bar("")[1], "Standard, row 0, shown, enabled"},
                      shown_bar({create_note, email_templates, save_as_template})}));
}

TEST_F(InspectorWindows, LoseTheirBarToASendingWhetherItIsFiledOrNot) {
    for (const TextView filing : {u"0", u"1"}) {
        SCOPED_TRACE(shown(filing));
        World& world = cleared();
        world.option(u"AutoFileSentEmails", filing);
        OpenedItem window(word_mail(world));
        window.show();
        ASSERT_TRUE(find_bar(window.window, item_bar));
        send_unseen(world);
        EXPECT_FALSE(find_bar(window.window, item_bar));
        EXPECT_TRUE(find_control(window.window, u"Menu Bar", u"ApptButton1"))
            << "the host's own bar is not touched";
    }
}

TEST_F(InspectorWindows, ThatAreNoWordMailKeepTheirBarWhenAMailIsSent) {
    for (const TextView filing : {u"0", u"1"}) {
        SCOPED_TRACE(shown(filing));
        World& world = cleared();
        world.option(u"AutoFileSentEmails", filing);
        OpenedItem word(word_mail(world)), last(plain_mail(world));
        word.show();
        last.show();
        send_unseen(world);
        EXPECT_TRUE(find_bar(last.window, item_bar));
        EXPECT_TRUE(find_bar(word.window, item_bar)) << "it isn't the last one";
    }
}

TEST_F(InspectorWindows, KeepTheirBarWhenAnotherClassIsSent) {
    World& world = sending();
    OpenedItem last(word_mail(world));
    last.show();
    for (const TextView name : {u"IPM.Note.Other", u"IPM.NOTE"}) send_unseen(world, name);
    const Item meeting = new_item(world, item_type::appointment);
    meeting.get(u"Recipients").to_object().call(u"Add", {u"Ann Lee <ann.lee@northmill.example>"});
    meeting.call(u"Send");
    EXPECT_TRUE(find_bar(last.window, item_bar));
    send_unseen(world);
    EXPECT_FALSE(find_bar(last.window, item_bar));
}

TEST_F(InspectorWindows, AreForgottenByTheFirstSending) {
    World& world = sending();
    world.option(u"AutoFileSentEmails", u"0");
    OpenedItem last(word_mail(world));
    last.show();
    world.fail(u"CommandBar.Delete");
    send_unseen(world);
    ASSERT_TRUE(find_bar(last.window, item_bar)) << "the host refused to delete it";
    send_unseen(world);
    EXPECT_TRUE(find_bar(last.window, item_bar)) << "nobody knows the window any more";
    last.close();
    EXPECT_TRUE(find_bar(OpenedItem(word_mail(world)).window, item_bar)) << "and its close isn't seen";
}

TEST_F(InspectorWindows, ThatAreLeftAloneLeaveTheLastOneWhatItIs) {
    struct Case {
        const char* name;
        Item (*make)(World&);
        bool remembered;  ///< the mail's window stays the last one
    };
    const Case cases[] = {
        {"a sticky note", [](World& w) { return new_item(w, item_type::note); }, true},
        {"a conflict message",
         [](World& w) { return w.deliver(message({.more = "X-Desk-Class: IPM.Conflict.Message\n"})); }, true},
        {"a task", [](World& w) { return new_item(w, item_type::task); }, false},
        {"a linked appointment",
         [](World& w) { return new_item(w, default_folder::calendar, u"IPM.Appointment.TarnwellAppt"); },
         false},
        {"a personal appointment", [](World& w) { return new_item(w, item_type::appointment); }, false},
        {"a contact", [](World& w) { return new_item(w, item_type::contact); }, false},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        World& world = cleared();
        world.option(u"AutoFileSentEmails", u"0");
        OpenedItem mail(word_mail(world)), other(one.make(world));
        mail.show();
        other.show();
        send_unseen(world);
        EXPECT_EQ(static_cast<bool>(find_bar(mail.window, item_bar)), !one.remembered);
    }
}

TEST_F(InspectorWindows, StayTheLastOneThoughAReplicationOffersItsItem) {
    World& world = sending();
    for (const auto& [folder, message_class, key, shared] :
         {std::tuple(default_folder::calendar, u"IPM.Appointment.TarnwellAppt", u"ApptID",
                     u"Global Calendar"),
          std::tuple(default_folder::tasks, u"IPM.Task.TarnwellTask", u"TaskID", u"Global Tasks")}) {
        SCOPED_TRACE(shown(message_class));
        const Item plan = new_item(world, folder, message_class);
        for (const TextView name : {TextView(key), TextView(u"AccountID")})
            plan.UserProperties().Item(name).value(u"A-1");
        plan.Save();
        OpenedItem form(plan), word(word_mail(world));
        form.show();
        word.show();
        plan.Subject(u"Another plan");
        plan.Save();
        EXPECT_TRUE(world.wait_for_handlers());
        const host::outlook::Folder root(world.account_profiles().Parent());
        EXPECT_EQ(root.Folders().Item(shared).Items().Count(), 1);
        ASSERT_TRUE(find_bar(word.window, item_bar));
        send_unseen(world);
        EXPECT_FALSE(find_bar(word.window, item_bar)) << "its end is still the one that is seen";
    }
}

TEST_F(InspectorWindows, CloseQuietlyWhileTheStatusWindowIsUp) {
    World& world = with({});
    world.connect().call(u"ShowImportMessage", {u"Importing", 0});
    {
        OpenedItem window(new_mail(world));
        window.show();
    }
    const Object status = window_of(world, u"Tarnwell");
    ASSERT_TRUE(status);
    EXPECT_TRUE(status.get(u"Visible").to_boolean()) << "the small window of the same name is another one";
    EXPECT_EQ(shown(status.call(u"Control", {u"Label1"}).to_object().get(u"Text").to_text()), "Importing");
    world.connect().call(u"ShowImportMessage", {u"", 0});
    EXPECT_FALSE(window_of(world, u"Tarnwell"));
}

// each button's one slot

TEST_F(InspectorWindows, OfOtherKindsShowTheButtonsOfTheMailBefore) {
    struct Case {
        const char* name;
        std::int32_t folder;  ///< that the explorer shows
        bool saved;           ///< the task that is opened then
        const char *create_note, *open_contact;
    };
    const Case cases[] = {
        {"a saved task, from the Inbox", default_folder::inbox, true, "shown", "shown"},
        {"a new task, from the Inbox", default_folder::inbox, false, "shown", "hidden"},
        {"a saved task, from Sent Items", default_folder::sent_mail, true, "shown", "hidden"},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        World& world = with({});
        show_folder(world, world.inbox());
        OpenedItem mail(world.deliver(message()));
        mail.show();
        for (const TextView tag : {create_note_tag, open_contact_tag}) {
            find_control(mail.window, item_bar, tag).put(u"Visible", false);
        }
        show_folder(world, world.name_space().GetDefaultFolder(one.folder));
        const Item task = new_item(world, item_type::task);
        if (one.saved) task.Save();
        OpenedItem(task).show();
        const auto state = [&](TextView tag) {
            return find_control(mail.window, item_bar, tag).get(u"Visible").to_boolean() ? "shown" : "hidden";
        };
        EXPECT_STREQ(state(create_note_tag), one.create_note);
        EXPECT_STREQ(state(open_contact_tag), one.open_contact);
    }
}

TEST_F(InspectorWindows, OfOtherKindsHideOpenContactOfTheMailBeforeInSentItems) {
    World& world = with({});
    show_folder(world, world.inbox());
    OpenedItem mail(world.deliver(message()));
    mail.show();
    ASSERT_TRUE(find_control(mail.window, item_bar, open_contact_tag).get(u"Visible").to_boolean());
    show_folder(world, world.name_space().GetDefaultFolder(default_folder::sent_mail));
    OpenedItem(new_item(world, item_type::task)).show();
    EXPECT_FALSE(find_control(mail.window, item_bar, open_contact_tag).get(u"Visible").to_boolean());
}

TEST_F(InspectorWindows, AskTheFirstExplorerForItsFolder) {
    World& world = with({});
    const Object first = world.application().ActiveExplorer();
    first.put(u"CurrentFolder", Value(world.name_space().GetDefaultFolder(default_folder::sent_mail)));
    const Object second = world.inbox().call(u"GetExplorer").to_object();
    second.call(u"Display");
    OpenedItem mail(world.deliver(message()));
    mail.show();
    EXPECT_FALSE(find_control(mail.window, item_bar, open_contact_tag).get(u"Visible").to_boolean());
}

// what fails

TEST_F(InspectorWindows, StayWithoutCommandsIfTheirItemTellsNeitherClassNorId) {
    for (const TextView member : {u"Inspector.CurrentItem", u"MailItem.Class", u"MailItem.EntryID"}) {
        SCOPED_TRACE(shown(member));
        World& world = sending();
        world.option(u"AutoFileSentEmails", u"0");
        OpenedItem before(word_mail(world)), mail(plain_mail(world));
        before.show();
        world.fail(member);
        mail.show();
        EXPECT_EQ(bars_of(mail.window), own_bars());
        EXPECT_EQ(count_messages(world), 0);
        send_unseen(world);
        EXPECT_FALSE(find_bar(before.window, item_bar)) << "the last window is the one before";
    }
}

TEST_F(InspectorWindows, GetWhatElseTheyCanIfAStepFails) {
    struct Case {
        TextView member;
        std::int32_t after;
        Lines bars;
    };
    const Case cases[] = {
        // the button of the host's own bar
        {u"CommandBarControls.Add", 0,
         joined({{"Menu Bar, row -1, shown, enabled", "Standard, row 0, shown, enabled"},
                 shown_bar({create_note, email_templates, save_as_template})})},
        {u"CommandBarControls.Add", 2, joined({menu_bar(""), shown_bar({create_note, save_as_template})})},
        {u"CommandBarControls.Add", 3, joined({menu_bar(""), shown_bar({create_note, email_templates})})},
        {u"CommandBars.Add", 0, menu_bar("")},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(shown(one.member) + ", call " + std::to_string(one.after + 1));
        World& world = with({});
        OpenedItem mail(new_mail(world));
        world.fail(one.member, one.after);
        mail.show();
        EXPECT_EQ(bars_of(mail.window), one.bars);
    }
}

TEST_F(InspectorWindows, OfferTheContactIfTheExplorersFolderCannotBeTold) {
    World& world = with({});
    show_folder(world, world.name_space().GetDefaultFolder(default_folder::sent_mail));
    OpenedItem mail(world.deliver(message()));
    world.fail(u"Explorer.CurrentFolder");
    mail.show();
    EXPECT_TRUE(find_control(mail.window, item_bar, open_contact_tag).get(u"Visible").to_boolean())
        << "a test that fails counts as passed";
}

TEST_F(InspectorWindows, OfPersonalAppointmentsLeaveABarOfTheirNameAsItIs) {
    World& world = with({});
    OpenedItem appointment(new_item(world, item_type::appointment));
    constexpr std::int32_t top = 1;
    appointment.window.get(u"CommandBars")
        .to_object()
        .call(u"Add", {u"Convert Appointment", top, false, true});
    appointment.show();
    EXPECT_EQ(bars_of(appointment.window),
              joined({own_bars(), {"Convert Appointment, row 0, hidden, enabled"}}));
}

// many

TEST_F(InspectorWindows, LeaveNothingBehind) {
    World& world = with({});
    constexpr int rounds = 25;
    const auto open_each_kind = [&] {
        OpenedItem(new_item(world, item_type::mail)).show();
        OpenedItem(new_item(world, item_type::contact)).show();
        OpenedItem(new_item(world, item_type::appointment)).show();
        OpenedItem(new_item(world, item_type::task)).show();
    };
    open_each_kind();
    open_each_kind();
    world.settle();
    const std::int32_t all = held(world);
    const std::int32_t controls = held(world, u"CommandBarButton"), bars = held(world, u"CommandBar");
    for (int i = 0; i < rounds; ++i) open_each_kind();
    world.settle();
    EXPECT_EQ(held(world), all);
    EXPECT_EQ(held(world, u"CommandBarButton"), controls) << "one slot for each button";
    EXPECT_EQ(held(world, u"CommandBar"), bars);
    EXPECT_EQ(held(world, u"Inspector"), 0);
    EXPECT_EQ(world.application().Inspectors().Count(), 0);
    EXPECT_FALSE(window_of(world, u"Tarnwell"));
}

}  // namespace
}  // namespace acceptance
