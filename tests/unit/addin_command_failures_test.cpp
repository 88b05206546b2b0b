// The commands and the sending of mail, with their n-th call to the outside failing, for every n.
#include "addin/ground/settings.h"
#include "addin/quickview/quick_view.h"
#include "tests/native/native_world.h"
#include "tests/native/nth_call.h"
#include "tests/world/quick_view.h"

namespace addin_tests {
namespace {

using acceptance::count_in;
using automation::Object;
using automation::TextView;
using automation::Value;
using host::outlook::Item;
using native::for_each_call;
using native::NativeWorld;
using native::NthCall;

constexpr std::int32_t sent_folder = 5;

std::unique_ptr<NativeWorld> sending_world() {
    auto world = std::make_unique<NativeWorld>(acceptance::WorldSetup{});
    world->option(addin::setting::auto_file_sent_emails, u"1");
    acceptance::add_contact(*world);
    return world;
}

Item new_mail(NativeWorld& world) {
    const Item mail(world.application().call(u"CreateItem", {0}).to_object());
    mail.put(u"To", u"ann.lee@northmill.example");
    mail.Subject(u"An offer");
    return mail;
}

void remove_all_in(const host::outlook::Folder& folder) {
    const host::outlook::Items items = folder.Items();
    for (std::int32_t i = items.Count(); i >= 1; --i) items.Item(i).call(u"Delete");
}

TEST(CommandFailures, AMailGoesOutWhateverFails) {
    const auto world = sending_world();
    const host::outlook::Folder sent = world->name_space().GetDefaultFolder(sent_folder);
    const int calls = for_each_call([&](NthCall& call) {
        const Item mail = new_mail(*world);
        mail.call(u"Display");
        call.failing(*world, [&] { mail.call(u"Send"); });
        EXPECT_EQ(sent.Items().Count(), 1);
        EXPECT_LE(count_in(*world, u"Email") + count_in(*world, u"Notes"), 1);
        if (!call.came()) {
            EXPECT_EQ(count_in(*world, u"Email"), 1);
        }
        EXPECT_EQ(world->engine().find(u"Tarnwell"), nullptr) << "the status window doesn't stay";
        EXPECT_FALSE(world->add_in()->goInspector.source());
        remove_all_in(sent);
        remove_all_in(world->below(u"Email"));
        remove_all_in(world->below(u"Notes"));
    });
    EXPECT_GT(calls, 60);
}

/// An item whose window is fitted.
struct Shown {
    const char* name;
    std::int32_t type;
    TextView message_class;
    int least_calls;
};
constexpr Shown shown_items[] = {
    {"mail", 0, u"", 50},
    {"personal appointment", 1, u"", 15},
    {"linked task", 3, u"IPM.Task.TarnwellTask", 15},
    {"personal contact", 2, u"", 60},
    {"account contact", 2, u"IPM.Contact.Account Contact", 50},
};

TEST(CommandFailures, AWindowOpensAndClosesWhateverFails) {
    for (const Shown& shown : shown_items) {
        SCOPED_TRACE(shown.name);
        NativeWorld world{{}};
        const int calls = for_each_call([&](NthCall& call) {
            const Object item = world.application().call(u"CreateItem", {shown.type}).to_object();
            if (!shown.message_class.empty()) item.put(u"MessageClass", Value(shown.message_class));
            item.call(u"Save");
            call.failing(world, [&] { item.call(u"Display"); });
            const host::outlook::Inspectors inspectors = world.application().Inspectors();
            EXPECT_EQ(inspectors.Count(), 1);
            ASSERT_NO_THROW(inspectors.Item(1).Close(host::outlook::discard_changes));
            EXPECT_EQ(inspectors.Count(), 0);
            item.call(u"Delete");
        });
        EXPECT_GT(calls, shown.least_calls);
    }
}

TEST(CommandFailures, TheContextMenuOpensWhateverFails) {
    const int calls = for_each_call([&](NthCall& call) {
        NativeWorld world{{}};
        const Object bars = world.application().ActiveExplorer().get(u"CommandBars").to_object();
        call.failing(world, [&] {
            bars.call(u"Add", {u"Another bar"});
            world.settle();
        });
        const Object controls = bars.get(u"Item", {u"Context Menu"}).to_object().get(u"Controls").to_object();
        EXPECT_LE(controls.get(u"Count").to_integer(), 3);
        if (!call.came()) {
            EXPECT_EQ(controls.get(u"Count").to_integer(), 2);
        }
    });
    EXPECT_GT(calls, 20);
}

TEST(CommandFailures, ASelectionChangesWhateverFails) {
    NativeWorld world{{}};
    world.option(addin::setting::enable_quick_view, u"1");
    const Item mail = world.deliver(acceptance::message());
    acceptance::add_contact(world);
    int shown = 0;
    const int calls = for_each_call([&](NthCall& call) {
        call.failing(world, [&] { world.desk().call(u"Select", {Value(mail)}); });
        const native::MemoryWindow* const window = world.engine().find(u"TW Quick View");
        if (window && window->visible()) ++shown;
    });
    EXPECT_GT(calls, 10);
    EXPECT_GE(shown, 1);
}

// Quick View

std::unique_ptr<NativeWorld> quick_view_world() {
    auto world = std::make_unique<NativeWorld>(acceptance::WorldSetup{});
    world->option(addin::setting::enable_quick_view, u"1");
    acceptance::show_folder(*world, world->inbox());
    return world;
}

TEST(CommandFailures, QuickViewIsLaunchedWhateverFails) {
    for (const bool known : {true, false}) {
        const auto world = quick_view_world();
        if (known) acceptance::add_contact(*world);
        const Item mail = world->deliver(acceptance::message());
        const int calls = for_each_call([&](NthCall& call) {
            if (!known) {
                for (const TextView question : {acceptance::create_question, acceptance::account_question}) {
                    world->desk().call(u"Answer", {u"Tarnwell", Value(question),
                                                   question == acceptance::create_question ? 6 : 7});
                }
            }
            call.failing(*world, [&] { world->desk().call(u"Select", {Value(mail)}); });
            EXPECT_LE(count_in(*world, u"Email") + count_in(*world, u"Notes"), 1);
            EXPECT_FALSE(world->inbox().Items().Item(1).BillingInformation() == u"TW Auto Filed");
            const native::MemoryWindow* const shown = world->engine().find(u"TW Quick View");
            if (!call.came()) {
                EXPECT_EQ(shown && shown->visible(), known);
            }
            if (!call.came() && !known) {
                EXPECT_EQ(count_in(*world, u"Email"), 1);
            }
            if (!known) {
                remove_all_in(world->below(u"Account Contacts"));
                remove_all_in(world->below(u"Email"));
                remove_all_in(world->below(u"Notes"));
            }
            world->add_in()->rooms().quickview.QuickView.unload();
        });
        EXPECT_GT(calls, known ? 50 : 60);
    }
}

/// A deed in Quick View, and how many calls it makes at least.
struct Deed {
    const char* name;
    int folder;  ///< of the drop-down, or -1
    std::function<void(native::MemoryWindow&)> deed;
    int least_calls;
};
const Deed deeds[] = {
    {"lists notes", -1, [](native::MemoryWindow& w) { w.control(u"cmbFolders").choose(0); }, 15},
    {"lists appointments", -1, [](native::MemoryWindow& w) { w.control(u"cmbFolders").choose(2); }, 15},
    {"adds a note", 0, [](native::MemoryWindow& w) { w.control(u"cmdAdd").click(); }, 40},
    {"adds an opportunity", 1, [](native::MemoryWindow& w) { w.control(u"cmdAdd").click(); }, 60},
    {"adds an appointment", 2, [](native::MemoryWindow& w) { w.control(u"cmdAdd").click(); }, 40},
    {"adds nothing", -1, [](native::MemoryWindow& w) { w.control(u"cmdAdd").click(); }, 60},
    {"files what is dropped", 1, [](native::MemoryWindow& w) { w.control(u"lstItems").drop(0); }, 50},
};

TEST(CommandFailures, QuickViewWorksWhateverFails) {
    for (const Deed& one : deeds) {
        SCOPED_TRACE(one.name);
        const int calls = for_each_call([&](NthCall& call) {
            const auto world = quick_view_world();
            acceptance::add_contact(*world);
            acceptance::add_record(*world, u"Opportunities", u"IPM.Post.Opportunity", u"Row",
                                   {{u"ContactID", u"C-200"}, {u"Name", u"Row"}, {u"OppID", u"O-1"}});
            const Item mail = world->deliver(acceptance::message());
            world->desk().call(u"Select", {Value(mail)});
            native::MemoryWindow* const shown = world->engine().find(u"TW Quick View");
            ASSERT_NE(shown, nullptr);
            if (one.folder != -1) shown->control(u"cmbFolders").choose(one.folder);
            world->settle();
            call.failing(*world, [&] {
                one.deed(*shown);
                world->settle();
            });
            EXPECT_EQ(world->engine().find(u"TW Quick View"), shown) << "its caption is the usual one";
            EXPECT_LE(count_in(*world, u"Email") + count_in(*world, u"Notes"), 1);
            EXPECT_EQ(count_in(*world, u"Opportunities"), 1);
        });
        EXPECT_GT(calls, one.least_calls);
    }
}

}  // namespace
}  // namespace addin_tests
