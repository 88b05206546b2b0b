// Whenever the add-in yields to the host's message loop, the host's next event may come: it is handled there
// and then, and what waited goes on.
#include "tests/world/outgoing.h"

namespace acceptance {
namespace {

using automation::Missing;
using automation::Object;
using automation::TextView;
using automation::Value;
using host::outlook::Item;
using host::outlook::Items;

class Reentrancy : public Outgoing {
  protected:
    World& both_ways(const WorldSetup& setup = {}) {
        World& world = sending(setup);
        world.family(u"EmailAutoFile", u"1");
        add_contact(world);
        add_contact(world, u"Bob Ray", u"bob@ray.example");
        return world;
    }

    /// Plans a call for the next yield after a moment: an event, or a text of the status window.
    static void meanwhile(World& world, TextView moment, const Object& object, TextView member,
                          const Value& value = Missing{}) {
        world.desk().call(u"Meanwhile", {Value(moment), Value(object), Value(member), value});
    }

    /// A mail that is read as soon as it is saved.
    static Item about_to_be_read(World& world, const MailPlan& plan = {.from = "Bob Ray <bob@ray.example>"}) {
        const Item mail = world.deliver(message(plan));
        mail.put(u"UnRead", false);
        return mail;
    }

    /// Whom the notes tell of, in the order in which they were made.
    static std::vector<std::string> noted(World& world, TextView property = u"Contact Name") {
        const Items notes = world.below(u"Email").Items();
        const std::int32_t count = notes.Count();
        std::vector<std::string> names;
        for (std::int32_t i = 1; i <= count; ++i)
            names.push_back(shown(World::property(notes.Item(i), property)));
        return names;
    }
};

using Names = std::vector<std::string>;

/// The moments of a mail's sending to Ann Lee that a yield follows.
constexpr TextView moments_of_sending[] = {
    u"ItemSend",
    u"Checking names...",
    u"Checking names - Ann Lee",
    u"Checking names  Ann Lee",
    u"Searching for Ann Lee",
    u"Ann Lee - Saving",
};

TEST_F(Reentrancy, AMailThatIsReadWhileAnotherIsSentIsFiledInBetween) {
    World& world = both_ways();
    for (const TextView moment : moments_of_sending) {
        SCOPED_TRACE(shown(moment));
        World& same = cleared();
        same.family(u"EmailAutoFile", u"1");
        add_contact(same);
        add_contact(same, u"Bob Ray", u"bob@ray.example");
        const Item received = about_to_be_read(same);
        meanwhile(same, moment, received, u"Save");
        const Item sent = send(same, new_mail(same));
        EXPECT_EQ(noted(same), (Names{"Bob Ray", "Ann Lee"}));
        EXPECT_EQ(noted(same, u"Type"), (Names{"Email (Received)", "Email (Sent)"}));
        EXPECT_TRUE(is_marked(received));
        EXPECT_TRUE(is_marked_as_sent(sent));
        EXPECT_FALSE(window_of(same, u"Tarnwell"));
    }
    EXPECT_EQ(count_messages(world), 0);
}

TEST_F(Reentrancy, AMailThatIsReadWhileAStrangersIsSentIsFiledInBetween) {
    World& world = both_ways();
    const Item received = about_to_be_read(world);
    meanwhile(world, u" - NOT FOUND", received, u"Save");
    send(world,
         new_mail(world, {.to = u"Zoe Quill <zoe@quill.example>; Ann Lee <ann.lee@northmill.example>"}));
    EXPECT_EQ(noted(world), (Names{"Bob Ray", "Ann Lee"}));
    EXPECT_TRUE(is_marked(received));
}

TEST_F(Reentrancy, AMailThatIsSentWhileAnotherIsSentIsFiledInBetween) {
    World& world = both_ways();
    const Item second = new_mail(world, {.to = u"Bob Ray <bob@ray.example>"});
    meanwhile(world, u"Ann Lee - Saving", second, u"Send");
    new_mail(world).call(u"Send");
    EXPECT_EQ(noted(world), (Names{"Bob Ray", "Ann Lee"}));
    EXPECT_EQ(statuses(world), joined({{status::entry},
                                       status::contact("Ann Lee", "Ann Lee"),
                                       {status::entry},
                                       status::contact("Bob Ray", "Bob Ray")}));
    const Items sent = sent_items(world);
    ASSERT_EQ(sent.Count(), 2);
    EXPECT_TRUE(is_marked_as_sent(sent.Item(1)));
    EXPECT_TRUE(is_marked_as_sent(sent.Item(2)));
    EXPECT_FALSE(window_of(world, u"Tarnwell"));
}

TEST_F(Reentrancy, AMailThatIsChangedWhileItIsSentIsFiledAsItStandsThen) {
    World& world = both_ways();
    const Item mail = new_mail(world);
    meanwhile(world, u"Ann Lee - Saving", mail, u"Subject", u"Our better offer");
    send(world, mail);
    const Item note = only_item(world);
    ASSERT_TRUE(note);
    EXPECT_EQ(shown(note.Subject()), "Our better offer");
}

TEST_F(Reentrancy, AnItemThatIsOpenedWhileAMailIsSentGetsItsButtons) {
    World& world = both_ways();
    const OpenedItem opened(new_mail(world, {.to = u"Bob Ray <bob@ray.example>"}));
    meanwhile(world, u"Checking names - ", opened.item, u"Display");
    send(world, new_mail(world));
    EXPECT_TRUE(find_control(opened.window, u"TarnwellCreateNote", u"CreateNoteButton"));
    EXPECT_EQ(noted(world), Names{"Ann Lee"});
}

TEST_F(Reentrancy, AWindowThatIsOpenedWhileAMailIsSentIsTheLastOneWhenItHasGone) {
    for (const bool opened_in_between : {false, true}) {
        SCOPED_TRACE(opened_in_between);
        World& world = both_ways();
        desk_option(world, u"WordMail", true);
        OpenedItem word(new_mail(world, {.to = u"Bob Ray <bob@ray.example>"}));
        word.show();
        desk_option(world, u"WordMail", false);
        const OpenedItem other(new_mail(world, {.to = u"Bob Ray <bob@ray.example>"}));
        if (opened_in_between) meanwhile(world, u"Checking names - ", other.item, u"Display");
        send(world, new_mail(world));
        EXPECT_EQ(static_cast<bool>(find_bar(word.window, u"TarnwellCreateNote")), opened_in_between)
            << "the bar goes with the last window, if that is one of Word's";
    }
}

TEST_F(Reentrancy, AMailThatIsReadWhileAnotherIsFiledComesFirst) {
    World& world = both_ways();
    const Item first = about_to_be_read(world, {});
    const Item second = about_to_be_read(world);
    meanwhile(world, u"ItemChange", second, u"Save");
    first.Save();
    EXPECT_EQ(noted(world), (Names{"Bob Ray", "Ann Lee"}));
    EXPECT_TRUE(is_marked(first));
    EXPECT_TRUE(is_marked(second));
}

TEST_F(Reentrancy, MailsThatWaitForTheSameYieldAreFiledOnceEach) {
    World& world = both_ways({.event_order = desk::EventOrder::deferred});
    const Item ann = about_to_be_read(world, {.subject = "One"});
    const Item bob = about_to_be_read(world, {.from = "bob@ray.example", .subject = "Two"});
    const Item again = about_to_be_read(world, {.subject = "Three"});
    for (const Item& mail : {ann, bob, again}) mail.Save();
    ASSERT_TRUE(world.wait_until([&] { return is_marked(ann) && is_marked(bob) && is_marked(again); }));
    world.settle();
    EXPECT_EQ(count_in(world, u"Email"), 3);
}

TEST_F(Reentrancy, AMailThatChangesWhileItsChangeIsHandledIsFiledOnce) {
    World& world = both_ways();
    const Item mail = about_to_be_read(world, {});
    meanwhile(world, u"ItemChange", mail, u"Categories", u"Blue");
    meanwhile(world, u"ItemChange", mail, u"Save");
    mail.Save();
    EXPECT_TRUE(is_marked(mail));
    EXPECT_EQ(shown(mail.get(u"Categories").to_text()), "Blue");
    EXPECT_EQ(count_in(world, u"Email"), 1) << "the mark is looked at after the handler's own yield";
}

TEST_F(Reentrancy, AMailThatIsReadWhileItIsSentFromTheInboxIsFiledBothWays) {
    World& world = both_ways();
    const Item mail = world.deliver(message({.to = "Bob Ray <bob@ray.example>"}));
    mail.put(u"UnRead", false);
    meanwhile(world, u"Bob Ray - Saving", mail, u"Save");
    send(world, mail);
    const Names types = noted(world, u"Type");
    ASSERT_EQ(types.size(), 2U);
    EXPECT_EQ(types[0], "Email (Received)");
    EXPECT_EQ(types[1], "Email (Sent)");
}

TEST_F(Reentrancy, AMailIsSentWhileTheUserReadsAnother) {
    World& world = both_ways();
    const Item received = about_to_be_read(world);
    const Item outgoing = new_mail(world);
    meanwhile(world, u"ItemChange", outgoing, u"Send");
    received.Save();
    EXPECT_EQ(noted(world, u"Type"), (Names{"Email (Sent)", "Email (Received)"}));
    EXPECT_EQ(sent_items(world).Count(), 1);
    EXPECT_TRUE(is_marked(received));
}

TEST_F(Reentrancy, AStatusTextMayBeOverwrittenByAnother) {
    World& world = both_ways();
    const Object connect = world.connect();
    meanwhile(world, u"First", connect, u"AutomaticCreateNoteSend", Value(new_mail(world)));
    connect.call(u"ShowMessage", {u"First"});
    EXPECT_EQ(statuses(world), joined({{"First"}, status::contact("Ann Lee", "Ann Lee")}));
    EXPECT_EQ(noted(world), Names{"Ann Lee"});
    const Object window = window_of(world, u"Tarnwell");
    EXPECT_FALSE(window && window.get(u"Visible").to_boolean());
}

/// Something that gives way, and a moment of it that a yield follows.
struct GivesWay {
    const char* name;
    TextView moment;
    std::function<void(World&)> deed;
};

TEST_F(Reentrancy, TheHostMayLetGoOfTheAddInWhileItGivesWay) {
    const auto select = [](World& world) {
        world.option(u"EnableQuickView", u"1");
        show_folder(world, world.inbox());
        world.desk().call(u"Select", {Value(world.deliver(message()))});
    };
    const auto add_linked = [](World& world, std::int32_t folder, TextView message_class) {
        const Item item = new_item(world, folder, message_class);
        item.Subject(u"Linked");
        item.UserProperties().Item(u"AccountID").value(Value(u"A-100"));
        OpenedItem form(item);
        form.show();
        item.Save();
        world.settle();
        item.Subject(u"Changed");
        item.Save();
        EXPECT_TRUE(world.wait_for_handlers());
        EXPECT_EQ(item.Subject(), u"Changed");
    };
    const GivesWay cases[] = {
        {"a mail is read", u"ItemChange", [](World& world) { about_to_be_read(world).Save(); }},
        {"a mail is sent", u"Checking names - Ann Lee", [](World& world) { send(world, new_mail(world)); }},
        {"a mail is sent, and its note made", u"Ann Lee - Saving",
         [](World& world) { send(world, new_mail(world)); }},
        {"a selection is looked at", u"SelectionChange", select},
        {"Quick View searches", u"Searching for Ann Lee", select},
        {"an appointment is replicated", u"Updating Global Calendar ",
         [&](World& world) {
             add_linked(world, host::outlook::default_folder::calendar, u"IPM.Appointment.TarnwellAppt");
         }},
        {"a task is replicated", u"Updating Global Tasks ",
         [&](World& world) {
             add_linked(world, host::outlook::default_folder::tasks, u"IPM.Task.TarnwellTask");
         }},
        {"a message is shown", u"First",
         [](World& world) { world.connect().call(u"ShowMessage", {u"First"}); }},
    };
    for (const GivesWay& one : cases) {
        SCOPED_TRACE(one.name);
        World& world = both_ways();
        const Object entry = world.application().COMAddIns().Item(u"CreateNote.Connect");
        meanwhile(world, one.moment, entry, u"Connect", false);
        one.deed(world);
        EXPECT_TRUE(world.wait_until([&] { return !entry.get(u"Connect").to_boolean(); }));
        EXPECT_TRUE(world.wait_for_handlers());

        // it comes back, and works
        entry.put(u"Connect", true);
        const std::int32_t before = count_in(world, u"Email");
        about_to_be_read(world, {.from = "Bob Ray <bob@ray.example>", .subject = "Later"}).Save();
        EXPECT_TRUE(world.wait_until([&] { return count_in(world, u"Email") == before + 1; }));
    }
}

}  // namespace
}  // namespace acceptance
