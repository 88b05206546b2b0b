// A client in another process is told of the host's events as the add-in is, may answer them, and takes
// nothing with it when it dies. The test is that client: the desk is a process of its own.
#include <array>

#include "desk/base/host_event_tables.h"
#include "tests/wine/support/client.h"
#include "tests/wine/support/listeners.h"
#include "tests/world/bars.h"

namespace wine {
namespace {

namespace events = desk::events;
using acceptance::World;
using automation::EventInterface;
using automation::Object;
using automation::Sink;
using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Folder;
using host::outlook::Item;

class EventsFromOutside : public acceptance::Acceptance {
  protected:
    World& bare() { return with({.add_in = false}); }
};

Object window_of(World& world) { return world.application().call(u"ActiveExplorer").to_object(); }

Item unsaved_mail(World& world) { return acceptance::new_item(world, acceptance::item_type::mail); }

Item saved_mail(World& world) {
    const Item mail = world.inbox().Items().Add(u"IPM.Note");
    mail.Save();
    return mail;
}

/// Each event: whose it is, and what the user does to bring it about. `what` is made before.
struct Occasion {
    const EventInterface* interface;
    TextView event;
    Object (*source)(World& world, const Item& what);
    void (*happens)(World& world, const Item& what);
};

Object application(World& world, const Item&) { return world.application(); }
Object explorers(World& world, const Item&) { return world.application().get(u"Explorers").to_object(); }
Object explorer(World& world, const Item&) { return window_of(world); }
Object inspectors(World& world, const Item&) { return world.application().get(u"Inspectors").to_object(); }
Object inspector(World&, const Item& what) { return what.get(u"GetInspector").to_object(); }
Object items(World& world, const Item&) { return world.inbox().Items(); }
Object folders(World& world, const Item&) { return world.inbox().Folders(); }
Object item(World&, const Item& what) { return what; }
Object command_bars(World& world, const Item&) { return window_of(world).get(u"CommandBars").to_object(); }
Object button(World& world, const Item&) {
    constexpr TextView bar = u"Standard", tag = u"events from outside";
    const Object window = window_of(world);
    if (const Object known = acceptance::find_control(window, bar, tag)) return known;
    const Object made = acceptance::add_button(acceptance::find_bar(window, bar), tag);
    made.put(u"Visible", true);
    return made;
}

void changes(World&, const Item& what) {
    what.Subject(u"changed");
    what.Save();
}
void is_shown(World&, const Item& what) { what.call(u"Display"); }
void is_shown_and_closed(World& world, const Item& what) {
    is_shown(world, what);
    constexpr std::int32_t discard = 1;
    what.get(u"GetInspector").to_object().call(u"Close", {discard});
}
void another_folder_is_shown(World& world, const Item&) {
    const Folder drafts = world.name_space().GetDefaultFolder(host::outlook::default_folder::drafts);
    window_of(world).put(u"CurrentFolder", Value(drafts));
    window_of(world).put(u"CurrentFolder", Value(world.inbox()));
}
void is_sent(World&, const Item& what) {
    what.put(u"To", u"ann@northmill.example");
    what.call(u"Send");
}

const std::array occasions = std::to_array<Occasion>({
    {&events::application_9, u"ItemSend", application, is_sent},
    {&events::application_11, u"NewMail", application,
     [](World& world, const Item&) { world.deliver("From: ann@northmill.example\n\nHello\n"); }},
    {&events::explorers_interface, u"NewExplorer", explorers,
     [](World& world, const Item&) {
         constexpr std::int32_t whole_window = 0;
         world.application()
             .get(u"Explorers")
             .to_object()
             .call(u"Add", {Value(world.inbox()), whole_window})
             .to_object()
             .call(u"Close");
     }},
    {&events::explorer_9, u"FolderSwitch", explorer, another_folder_is_shown},
    {&events::explorer_10, u"BeforeFolderSwitch", explorer, another_folder_is_shown},
    {&events::explorer_9, u"SelectionChange", explorer,
     [](World& world, const Item& what) { world.desk().call(u"Select", {Value(what)}); }},
    {&events::inspectors_interface, u"NewInspector", inspectors, is_shown_and_closed},
    {&events::inspector_9, u"Activate", inspector, is_shown_and_closed},
    {&events::inspector_10, u"Close", inspector, is_shown_and_closed},
    {&events::items_interface, u"ItemAdd", items, [](World& world, const Item&) { saved_mail(world); }},
    {&events::items_interface, u"ItemChange", items, changes},
    {&events::items_interface, u"ItemRemove", items, [](World&, const Item& what) { what.call(u"Delete"); }},
    {&events::folders_interface, u"FolderAdd", folders,
     [](World& world, const Item&) { world.inbox().Folders().call(u"Add", {u"From outside"}); }},
    {&events::item_9, u"Write", item, changes},
    {&events::item_10, u"PropertyChange", item, changes},
    {&events::item_9, u"Open", item, is_shown_and_closed},
    {&events::item_9, u"Close", item, is_shown_and_closed},
    {&events::item_9, u"Send", item, is_sent},
    {&events::command_bars_interface, u"OnUpdate", command_bars,
     [](World& world, const Item&) { button(world, {}).put(u"Caption", u"another"); }},
    {&events::button_interface, u"Click", button,
     [](World& world, const Item&) { world.desk().call(u"Press", {Value(button(world, {}))}); }},
});

TEST_F(EventsFromOutside, ReachAClientInAnotherProcess) {
    World& world = bare();
    for (const Occasion& each : occasions) {
        SCOPED_TRACE(std::string(each.interface->name) + "." + automation::to_utf8(each.event));
        const Item what = each.happens == is_sent ? unsaved_mail(world) : saved_mail(world);
        world.settle();
        bool told = false;
        Sink sink;
        sink.connect(*each.interface, each.source(world, what),
                     {{each.event, [&](std::span<Value>) { told = true; }}});
        each.happens(world, what);
        EXPECT_TRUE(world.wait_until([&] { return told; }));
    }
}

TEST_F(EventsFromOutside, BringTheItemAndTakeTheAnswer) {
    World& world = bare();
    const Item mail = unsaved_mail(world);
    mail.Subject(u"Not yet");
    Text subject;
    Sink sink;
    sink.connect(events::application_9, world.application(),
                 {{u"ItemSend", [&](std::span<Value> arguments) {
                       subject = Item(arguments[0].to_object()).Subject();
                       arguments[1] = true;
                   }}});
    is_sent(world, mail);
    EXPECT_EQ(subject, u"Not yet");
    EXPECT_FALSE(mail.get(u"Sent").to_boolean()) << "the answer was to keep it";
    sink.clear();
    is_sent(world, mail);
    EXPECT_EQ(world.name_space().GetDefaultFolder(host::outlook::default_folder::sent_mail).Items().Count(),
              1)
        << "nobody is asked after the end of the subscription";
}

TEST_F(EventsFromOutside, ReachAnotherApartmentOfAClient) {
    World& world = bare();
    const Item mail = saved_mail(world);
    world.settle();
    const std::unique_ptr<ListeningThread> other = ListeningThread::start();
    changes(world, mail);
    EXPECT_TRUE(world.wait_until([&] { return other->times_told() == 1; }));
}

TEST_F(EventsFromOutside, GoOnWhenAClientHasDied) {
    World& world = bare();
    const Item mail = saved_mail(world);
    world.settle();
    int told = 0;
    Sink sink;
    sink.connect(events::items_interface, world.inbox().Items(),
                 {{u"ItemChange", [&](std::span<Value>) { ++told; }}});
    ListeningProcess other;
    changes(world, mail);
    EXPECT_TRUE(world.wait_until([&] { return other.was_told(); }));
    other.kill();
    mail.Subject(u"changed once more");
    mail.Save();
    EXPECT_EQ(mail.Subject(), u"changed once more");
    EXPECT_TRUE(world.wait_until([&] { return told == 2; }));
}

}  // namespace
}  // namespace wine
