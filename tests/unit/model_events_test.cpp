#include "tests/unit/support/model_support.h"

namespace model_tests {
namespace {

class ItemEvents : public ModelTest {};

Listener listen(const Items& items) {
    return {host::events::items, items, {u"ItemAdd", u"ItemChange", u"ItemRemove"}};
}

TEST_F(ItemEvents, TellOfAChangeDuringTheSave) {
    const Item mail = add_mail(u"One");
    const Items items = inbox().Items();
    const Listener listener = listen(items);
    mail.Subject(u"Two");
    EXPECT_TRUE(listener.told.empty());
    mail.Save();
    EXPECT_EQ(listener.told, (Told{"ItemChange Two"}));
    mail.Save();
    EXPECT_EQ(listener.told.size(), 1U) << "a save without a change is none";
}

TEST_F(ItemEvents, TellOfWhatComesAndGoesAtTheNextYield) {
    const Items items = inbox().Items();
    const Listener listener = listen(items);
    const Item mail = add_mail(u"One");
    EXPECT_TRUE(listener.told.empty());
    world.settle();
    EXPECT_EQ(listener.told, (Told{"ItemAdd One"}));
    mail.call(u"Delete");
    EXPECT_EQ(listener.told.size(), 1U);
    world.settle();
    EXPECT_EQ(listener.told, (Told{"ItemAdd One", "ItemRemove"}));
}

TEST_F(ItemEvents, DropAnAddWhoseItemHasLeftTheFolder) {
    const Items items = inbox().Items();
    const Items elsewhere = default_folder(folder_number::drafts).Items();
    const Listener listener = listen(items);
    const Listener other = listen(elsewhere);
    const Item mail = add_mail(u"One");
    mail.call(u"Move", {Value(default_folder(folder_number::drafts))});
    world.settle();
    EXPECT_EQ(listener.told, (Told{"ItemRemove"}));
    EXPECT_EQ(other.told, (Told{"ItemAdd One"}));
}

TEST_F(ItemEvents, ReachEveryCollectionThatIsHeld) {
    const Items one = inbox().Items();
    const Items two = inbox().Items();
    const Listener first = listen(one);
    Listener second = listen(two);
    add_mail(u"One");
    world.settle();
    second.leave();
    add_mail(u"Two");
    world.settle();
    EXPECT_EQ(first.told, (Told{"ItemAdd One", "ItemAdd Two"}));
    EXPECT_EQ(second.told, (Told{"ItemAdd One"}));
}

TEST_F(ItemEvents, StayWithTheirFolder) {
    const Items items = inbox().Items();
    const Listener listener = listen(items);
    const Item draft = default_folder(folder_number::drafts).Items().Add(u"IPM.Note");
    draft.Save();
    world.settle();
    EXPECT_TRUE(listener.told.empty());
}

TEST_F(ItemEvents, MayChangeTheItemThatTheyTellOf) {
    const Item mail = add_mail(u"One");
    const Items items = inbox().Items();
    int rounds = 0;
    automation::Sink sink;
    sink.connect(host::events::items, items, {{u"ItemChange", [&](std::span<Value> arguments) {
                                                   const Item changed(arguments[0].to_object());
                                                   if (++rounds > 1) return;
                                                   changed.BillingInformation(u"marked");
                                                   changed.Save();
                                               }}});
    mail.Subject(u"Two");
    mail.Save();
    EXPECT_EQ(rounds, 2) << "the handler's own save tells again, at once";
    EXPECT_EQ(mail.BillingInformation(), u"marked");
}

TEST_F(ItemEvents, OfAListenerThatFailsHarmNobody) {
    const Item mail = add_mail(u"One");
    const Items items = inbox().Items();
    automation::Sink sink;
    sink.connect(host::events::items, items,
                 {{u"ItemChange", [](std::span<Value>) { throw automation::Failure(result::fail); }}});
    const Items others = inbox().Items();
    const Listener listener = listen(others);
    mail.Subject(u"Two");
    EXPECT_EQ(failure_of([&] { mail.Save(); }), 0);
    EXPECT_EQ(listener.told, (Told{"ItemChange Two"}));
}

TEST_F(ItemEvents, NeedAnInterfaceThatTheObjectHas) {
    automation::Sink sink;
    EXPECT_EQ(failure_of([&] { sink.connect(host::events::button, inbox().Items(), {}); }),
              result::no_connection);
}

struct OrderCase {
    const char* name;
    desk::EventOrder order;
    Told at_save, after_yield;
};

TEST(EventOrder, IsAnOption) {
    const OrderCase cases[] = {
        {"the host's",
         desk::EventOrder::host,
         {"ItemChange Two"},
         {"ItemChange Two", "ItemAdd Two", "ItemRemove"}},
        {"everything later", desk::EventOrder::deferred, {}, {"ItemAdd Two", "ItemChange Two", "ItemRemove"}},
        {"everything at once",
         desk::EventOrder::at_once,
         {"ItemAdd One", "ItemChange Two", "ItemRemove"},
         {"ItemAdd One", "ItemChange Two", "ItemRemove"}},
    };
    for (const OrderCase& one : cases) {
        SCOPED_TRACE(one.name);
        native::NativeWorld world({.event_order = one.order, .add_in = false});
        const Items items = world.inbox().Items();
        const Listener listener = listen(items);
        const Item mail = items.Add(u"IPM.Note");
        mail.Subject(u"One");
        mail.Save();
        mail.Subject(u"Two");
        mail.Save();
        const Item other =
            world.name_space().GetDefaultFolder(folder_number::drafts).Items().Add(u"IPM.Note");
        other.Save();
        const Item moved(
            other.call(u"Move", {Value(world.name_space().GetDefaultFolder(folder_number::outbox))})
                .to_object());
        if (one.order == desk::EventOrder::at_once) mail.call(u"Copy").to_object().call(u"Delete");
        Told at_save = listener.told;
        if (one.order == desk::EventOrder::at_once) {
            EXPECT_EQ(at_save, (Told{"ItemAdd One", "ItemChange Two", "ItemAdd Two", "ItemRemove"}));
            continue;
        }
        EXPECT_EQ(at_save, one.at_save);
        world.settle();
        const Item gone = items.Item(1);
        gone.call(u"Delete");
        world.settle();
        EXPECT_EQ(listener.told, one.after_yield);
    }
}

TEST(EventOrder, CanBeChangedWhileTheHostRuns) {
    native::NativeWorld world({.add_in = false});
    const Items items = world.inbox().Items();
    const Listener listener = listen(items);
    const auto option = [&](TextView name, bool value) {
        automation::Request request{
            .access = automation::Access::put, .member = u"Options", .arguments = {Value(name), value}};
        world.desk().invoke(request);
    };
    option(u"EventsAtOnce", true);
    items.Add(u"IPM.Note").Save();
    EXPECT_EQ(listener.told.size(), 1U);
    option(u"EventsAtOnce", false);
    items.Add(u"IPM.Note").Save();
    EXPECT_EQ(listener.told.size(), 1U);
    world.settle();
    EXPECT_EQ(listener.told.size(), 2U);
}

TEST(EventOrder, CanBeChosenForEachKindOfEvent) {
    struct Case {
        TextView at_once;
        Told at_first;
    };
    const Case cases[] = {{u"AddsAtOnce", {"ItemAdd One"}},
                          {u"ChangesAtOnce", {"ItemChange Two"}},
                          {u"RemovalsAtOnce", {"ItemRemove"}}};
    for (const Case& one : cases) {
        native::NativeWorld world({.event_order = desk::EventOrder::deferred, .add_in = false});
        automation::Request request{
            .access = automation::Access::put, .member = u"Options", .arguments = {Value(one.at_once), true}};
        world.desk().invoke(request);
        const Items items = world.inbox().Items();
        const Listener listener = listen(items);
        const Item mail = items.Add(u"IPM.Note");
        mail.Subject(u"One");
        mail.Save();
        mail.Subject(u"Two");
        mail.Save();
        mail.call(u"Delete");
        EXPECT_EQ(listener.told, one.at_first);
    }
}

TEST(EventOrder, TellsOfNoChangeOfWhatHasLeft) {
    native::NativeWorld world({.event_order = desk::EventOrder::deferred, .add_in = false});
    const Items items = world.inbox().Items();
    const Item mail = items.Add(u"IPM.Note");
    mail.Save();
    world.settle();
    const Listener listener = listen(items);
    mail.Subject(u"Two");
    mail.Save();
    mail.call(u"Delete");
    world.settle();
    EXPECT_EQ(listener.told, Told{"ItemRemove"});
}

class Dragging : public ModelTest {
  protected:
    Folder target = world.below(u"Account Contacts");
    Item contact = [this] {
        const Item made = default_folder(folder_number::contacts).Items().Add(u"IPM.Contact");
        made.put(u"FullName", u"Ann Lee");
        made.Save();
        world.settle();
        return made;
    }();
    /// What the selection is while the folder tells of what was dropped.
    std::vector<std::string> selected_meanwhile(bool copies) const {
        desk.call(u"Select", {Value(contact)});
        std::vector<std::string> seen;
        const Items items = target.Items();
        automation::Sink sink;
        sink.connect(
            host::events::items, items,
            {{u"ItemAdd", [&](std::span<Value> arguments) {
                  seen.push_back(shown(Item(arguments[0].to_object()).Subject()));
                  seen.push_back(shown(text(selection().call(u"Item", {1}).to_object(), u"Subject")));
              }}});
        desk.call(u"Drag", {Value(target), copies});
        world_settle();
        return seen;
    }
    Object selection() const {
        return application.call(u"ActiveExplorer").to_object().get(u"Selection").to_object();
    }
    void world_settle() const { desk.call(u"Pump", {0}); }
};

TEST_F(Dragging, ACopyLeavesTheItemWhereItIsAndSelected) {
    EXPECT_EQ(selected_meanwhile(true), (std::vector<std::string>{"Ann Lee", "Ann Lee"}));
    EXPECT_EQ(target.Items().Count(), 1);
    EXPECT_EQ(default_folder(folder_number::contacts).Items().Count(), 1);
    EXPECT_EQ(integer(selection(), u"Count"), 1);
    EXPECT_EQ(text(contact, u"FullName"), u"Ann Lee");
}

TEST_F(Dragging, AMoveTakesTheItemAlong) {
    EXPECT_EQ(selected_meanwhile(false), (std::vector<std::string>{"Ann Lee", "Ann Lee"}));
    EXPECT_EQ(target.Items().Count(), 1);
    EXPECT_EQ(default_folder(folder_number::contacts).Items().Count(), 0);
    EXPECT_EQ(integer(selection(), u"Count"), 0) << "it isn't in the folder that is shown any more";
}

TEST_F(Dragging, OntoItsOwnFolderMovesNothing) {
    desk.call(u"Select", {Value(contact)});
    desk.call(u"Drag", {Value(default_folder(folder_number::contacts))});
    EXPECT_EQ(integer(selection(), u"Count"), 1);
    EXPECT_EQ(text(contact, u"FullName"), u"Ann Lee") << "it is still the same object";
}

class OtherEvents : public ModelTest {};

TEST_F(OtherEvents, OfSendingMayCancelIt) {
    bool cancel = true;
    Text asked;
    automation::Sink sink;
    sink.connect(host::events::application, application, {{u"ItemSend", [&](std::span<Value> arguments) {
                                                               asked =
                                                                   Item(arguments[0].to_object()).Subject();
                                                               arguments[1] = cancel;
                                                           }}});
    const Item mail = create(item_type::mail);
    mail.Subject(u"Offer");
    EXPECT_EQ(failure_of([&] { mail.call(u"Send"); }), result::fail) << "nobody to send it to";
    EXPECT_EQ(asked, u"");
    mail.put(u"To", u"ann@northmill.example");
    mail.call(u"Send");
    EXPECT_EQ(asked, u"Offer");
    EXPECT_EQ(default_folder(folder_number::sent).Items().Count(), 0);
    cancel = false;
    mail.call(u"Send");
    const Items sent = default_folder(folder_number::sent).Items();
    ASSERT_EQ(sent.Count(), 1);
    EXPECT_TRUE(sent.Item(1).get(u"Sent").to_boolean());
    EXPECT_EQ(text(sent.Item(1), u"To"), u"ann@northmill.example");
}

TEST_F(OtherEvents, OfInspectorsComeWithTheWindow) {
    const Object inspectors = application.get(u"Inspectors").to_object();
    Text opened;
    automation::Sink sink;
    sink.connect(host::events::inspectors, inspectors,
                 {{u"NewInspector", [&](std::span<Value> arguments) {
                       const Object inspector = arguments[0].to_object();
                       opened = text(inspector.get(u"CurrentItem").to_object(), u"Subject");
                   }}});
    const Item mail = add_mail(u"One");
    const Object inspector = mail.get(u"GetInspector").to_object();
    EXPECT_EQ(opened, u"") << "not before it is shown";
    const Listener window(host::events::inspector, inspector, {u"Activate", u"Deactivate", u"Close"});
    mail.call(u"Display");
    EXPECT_EQ(opened, u"One");
    EXPECT_EQ(integer(inspectors, u"Count"), 1);
    add_mail(u"Two").call(u"Display");
    mail.call(u"Display");
    constexpr std::int32_t discard = 1;
    inspector.call(u"Close", {discard});
    EXPECT_EQ(window.told, (Told{"Activate", "Deactivate", "Activate", "Close"}));
    EXPECT_EQ(integer(inspectors, u"Count"), 1);
    EXPECT_EQ(integer(desk.get(u"Displayed").to_object(), u"Count"), 3);
}

TEST_F(OtherEvents, OfTheExplorerFollowSelectionAndFolder) {
    const Item one = add_mail(u"One"), two = add_mail(u"Two");
    const Item draft = default_folder(folder_number::drafts).Items().Add(u"IPM.Note");
    draft.Save();
    const Object explorer = application.ActiveExplorer();
    const Listener listener(host::events::explorer, explorer,
                            {u"SelectionChange", u"FolderSwitch", u"BeforeFolderSwitch"});
    desk.call(u"Select", {Value(one), Value(two)});
    const Object selection = explorer.get(u"Selection").to_object();
    EXPECT_EQ(integer(selection, u"Count"), 2);
    EXPECT_EQ(Item(selection.call(u"Item", {2}).to_object()).Subject(), u"Two");
    EXPECT_EQ(failure_of([&] { selection.call(u"Item", {0}); }), result::bad_index);
    EXPECT_EQ(listener.told, (Told{"SelectionChange"}));
    desk.call(u"Select", {Value(draft)});
    EXPECT_EQ(listener.told, (Told{"SelectionChange", "BeforeFolderSwitch ?", "FolderSwitch",
                                   "SelectionChange", "SelectionChange"}));
    EXPECT_EQ(text(explorer.get(u"CurrentFolder").to_object(), u"Name"), u"Drafts");
    EXPECT_EQ(integer(selection, u"Count"), 2) << "a selection that was handed out stays";
    EXPECT_EQ(failure_of([&] { desk.call(u"Select", {Value(inbox())}); }), result::type_mismatch);
}

TEST_F(OtherEvents, OfExplorersTellOfANewOne) {
    const Object explorers = application.Explorers();
    const Listener listener(host::events::explorers, explorers, {u"NewExplorer"});
    const Object first = application.ActiveExplorer();
    const Object made = inbox().call(u"GetExplorer").to_object();
    EXPECT_EQ(listener.told, (Told{"NewExplorer ?"}));
    EXPECT_EQ(Object(application.ActiveExplorer()), first) << "it comes up when it is displayed";
    made.call(u"Display");
    EXPECT_EQ(Object(application.ActiveExplorer()), made);
    made.call(u"Close");
    EXPECT_EQ(Object(application.ActiveExplorer()), first);
    EXPECT_EQ(integer(explorers, u"Count"), 1);
}

TEST_F(OtherEvents, OfNewMailComeOnDelivery) {
    constexpr automation::Event told_events[] = {{u"NewMail", 0xF003}};
    const automation::EventInterface interface {
        "ApplicationEvents", host::events::application.id, told_events
    };
    const Listener listener(interface, application, {u"NewMail"});
    const Item mail = world.deliver(acceptance::message());
    EXPECT_TRUE(mail.UnRead());
    world.settle();
    EXPECT_EQ(listener.told, (Told{"NewMail"}));
    EXPECT_EQ(integer(inbox(), u"UnReadItemCount"), 1);
}

}  // namespace
}  // namespace model_tests
