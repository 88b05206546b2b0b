// Command bars as an add-in meets them: the host's own and custom ones, their controls, and what they tell.
#include "tests/unit/support/model_support.h"

namespace model_tests {
namespace {

constexpr std::int32_t button = 1, popup = 10;
constexpr std::int32_t no_customize = 1;

class CommandBarsOf : public ModelTest {
  protected:
    Object bars = application.ActiveExplorer().CommandBars();

    static Object named(const Object& owner, TextView name) {
        return owner.get(u"Item", {Value(name)}).to_object();
    }
    Object bar(TextView name) const { return named(bars, name); }
    static Object controls(const Object& owner) { return owner.get(u"Controls").to_object(); }
    static Object add(const Object& owner, TextView caption, TextView tag = {}) {
        const Object control = controls(owner).call(u"Add", {button}).to_object();
        control.put(u"Caption", Value(caption));
        control.put(u"Tag", Value(tag));
        return control;
    }
    static Object find(const Object& owner, std::vector<automation::NamedArgument> wishes) {
        automation::Request request{.member = u"FindControl", .named = std::move(wishes)};
        return owner.invoke(request).to_object();
    }
    std::vector<Text> captions(const Object& owner) const {
        std::vector<Text> all;
        const Object list = controls(owner);
        for (std::int32_t i = 1; i <= integer(list, u"Count"); ++i) {
            all.push_back(text(list.get(u"Item", {i}).to_object(), u"Caption"));
        }
        return all;
    }
    Object new_mail_window() const {
        const Object inspector = create(item_type::mail).get(u"GetInspector").to_object();
        inspector.call(u"Display");
        return inspector;
    }
    static Object bars_of(const Object& window) { return window.get(u"CommandBars").to_object(); }
};

TEST_F(CommandBarsOf, WindowsHoldTheHostsOwn) {
    EXPECT_EQ(text(bar(u"context menu"), u"Name"), u"Context Menu");
    for (const TextView name : {u"Menu Bar", u"Standard", u"Context Menu"}) {
        const Object own = bar(name);
        EXPECT_TRUE(own.get(u"BuiltIn").to_boolean());
        EXPECT_EQ(failure_of([&] { own.call(u"Delete"); }), result::fail) << shown(name);
        EXPECT_EQ(named(bars, name), own) << "still there";
    }
    EXPECT_EQ(integer(bar(u"Menu Bar"), u"Type"), 1);
    EXPECT_EQ(integer(bar(u"Context Menu"), u"Type"), 2);
    EXPECT_EQ(bars.get(u"ActiveMenuBar").to_object(), bar(u"Menu Bar"));
    const Object inspector_bars = bars_of(new_mail_window());
    EXPECT_EQ(integer(inspector_bars, u"Count"), 2);
    EXPECT_EQ(failure_of([&] { named(inspector_bars, u"Context Menu"); }), result::invalid_argument);
    EXPECT_EQ(failure_of([&] { named(inspector_bars, u"TarnwellCreateNote"); }), result::invalid_argument);
}

TEST_F(CommandBarsOf, WindowsTakeNewOnesByNamePositionAndKind) {
    const Object made = bars.call(u"Add", {u"One", 3, false, true}).to_object();
    EXPECT_EQ(text(made, u"Name"), u"One");
    EXPECT_EQ(integer(made, u"Position"), 3);
    EXPECT_EQ(integer(made, u"Type"), 0);
    EXPECT_EQ(integer(made, u"Index"), integer(bars, u"Count"));
    EXPECT_FALSE(made.get(u"Visible").to_boolean());
    EXPECT_FALSE(made.get(u"BuiltIn").to_boolean());
    EXPECT_EQ(made.get(u"Parent").to_object(), bars);
    EXPECT_EQ(integer(bars.call(u"Add", {u"Two", 1, true}).to_object(), u"Type"), 1);
    EXPECT_EQ(integer(bars.call(u"Add", {u"Three", 5}).to_object(), u"Type"), 2);
    EXPECT_NE(text(bars.call(u"Add").to_object(), u"Name"), u"") << "the host finds a name";
    EXPECT_EQ(failure_of([&] { bars.call(u"Add", {u"ONE"}); }), result::invalid_argument);
    EXPECT_EQ(failure_of([&] { bars.call(u"Add", {u"Four", 7}); }), result::invalid_argument);
    EXPECT_EQ(failure_of([&] { bar(u"Four"); }), result::invalid_argument);
}

TEST_F(CommandBarsOf, WindowsGoWithThem) {
    const Object inspector = new_mail_window();
    const Object own_bars = bars_of(inspector);
    const Object made = own_bars.call(u"Add", {u"TarnwellCreateNote", 1, false, true}).to_object();
    const Object control = add(made, u"Create Note");
    const Object on_menu =
        controls(named(own_bars, u"Menu Bar")).call(u"Add", {button, 1, u"", 1, true}).to_object();
    constexpr std::int32_t discard = 1;
    inspector.call(u"Close", {discard});
    EXPECT_EQ(failure_of([&] { named(own_bars, u"TarnwellCreateNote"); }), result::invalid_argument);
    EXPECT_EQ(failure_of([&] { made.get(u"Visible"); }), result::object_deleted);
    EXPECT_EQ(failure_of([&] { control.get(u"Caption"); }), result::object_deleted);
    EXPECT_EQ(failure_of([&] { on_menu.get(u"Caption"); }), result::object_deleted) << "it was temporary";
    EXPECT_EQ(failure_of([&] { own_bars.call(u"Add", {u"Another"}); }), result::object_deleted);
}

TEST_F(CommandBarsOf, WindowsLetGoOfWhoeverListensToTheirMenus) {
    const Object inspector = new_mail_window();
    const Object opened = controls(named(bars_of(inspector), u"Menu Bar")).call(u"Add", {popup}).to_object();
    const Object entry = add(opened, u"Grind");
    int clicks = 0;
    automation::Sink sink;
    sink.connect(host::events::button, entry, {{u"Click", [&](std::span<Value>) { ++clicks; }}});
    entry.call(u"Execute");
    EXPECT_EQ(clicks, 1);
    constexpr std::int32_t discard = 1;
    inspector.call(u"Close", {discard});
    entry.call(u"Execute");
    EXPECT_EQ(clicks, 1) << "what isn't temporary can still be read, and does nothing any more";
}

TEST_F(CommandBarsOf, WordAreSharedByItsWindowsAndStay) {
    automation::Request word{
        .access = automation::Access::put, .member = u"Options", .arguments = {u"WordMail", true}};
    desk.invoke(word);
    constexpr std::int32_t discard = 1, editor_word = 4, editor_text = 1;
    const Object first = new_mail_window(), second = new_mail_window();
    EXPECT_TRUE(first.call(u"IsWordMail").to_boolean());
    EXPECT_EQ(integer(first, u"EditorType"), editor_word);
    const Object made = bars_of(first).call(u"Add", {u"TarnwellCreateNote", 1, false, true}).to_object();
    EXPECT_EQ(named(bars_of(second), u"TarnwellCreateNote"), made);
    first.call(u"Close", {discard});
    second.call(u"Close", {discard});
    const Object third = new_mail_window();
    EXPECT_EQ(named(bars_of(third), u"TarnwellCreateNote"), made);
    made.call(u"Delete");
    EXPECT_NE(failure_of([&] { named(bars_of(third), u"TarnwellCreateNote"); }), 0);
    const Object contact = create(item_type::contact).get(u"GetInspector").to_object();
    EXPECT_FALSE(contact.call(u"IsWordMail").to_boolean()) << "only mail";
    EXPECT_EQ(integer(contact, u"EditorType"), editor_text);
}

TEST_F(CommandBarsOf, WindowsDeletedFailAtEveryUse) {
    const Object made = bars.call(u"Add", {u"One"}).to_object();
    const Object its_controls = controls(made);
    const Object control = add(made, u"Create Note");
    made.call(u"Delete");
    const auto deleted = [&](const std::function<void()>& use) {
        EXPECT_EQ(failure_of(use), result::object_deleted);
    };
    deleted([&] { made.get(u"Name"); });
    deleted([&] { made.call(u"Delete"); });
    deleted([&] { its_controls.get(u"Count"); });
    deleted([&] { control.get(u"Caption"); });
    deleted([&] { control.put(u"Caption", u"x"); });
    deleted([&] { control.call(u"Execute"); });
    deleted([&] { control.call(u"Delete"); });
}

TEST_F(CommandBarsOf, WindowsHaveControlsInTheirOrder) {
    const Object menu = bar(u"Context Menu");
    add(menu, u"One");
    const Object two = add(menu, u"Two");
    const Object first = controls(menu).call(u"Add", {button, 1, u"parameter", 1}).to_object();
    first.put(u"Caption", u"Zero");
    EXPECT_EQ(captions(menu), (std::vector<Text>{u"Zero", u"One", u"Two"}));
    EXPECT_EQ(text(first, u"Parameter"), u"parameter");
    EXPECT_EQ(integer(two, u"Index"), 3);
    EXPECT_EQ(two.get(u"Parent").to_object(), menu);
    EXPECT_EQ(controls(menu).get(u"Item", {u"TWO"}).to_object(), two);
    EXPECT_EQ(failure_of([&] { controls(menu).get(u"Item", {u"Three"}); }), result::invalid_argument);
    EXPECT_EQ(failure_of([&] { controls(menu).get(u"Item", {0}); }), result::bad_index);
    EXPECT_EQ(failure_of([&] { controls(menu).call(u"Add", {button, 1, u"", 5}); }), result::bad_index);
    EXPECT_EQ(failure_of([&] { controls(menu).call(u"Add", {popup}); }), result::invalid_argument);
    two.call(u"Move", {Value(menu), 1});
    EXPECT_EQ(captions(menu), (std::vector<Text>{u"Two", u"Zero", u"One"}));
    const Object twin = two.call(u"Copy", {Value(bar(u"Standard"))}).to_object();
    EXPECT_EQ(text(twin, u"Caption"), u"Two");
    EXPECT_EQ(twin.get(u"Parent").to_object(), bar(u"Standard"));
    two.call(u"Delete");
    EXPECT_EQ(captions(menu), (std::vector<Text>{u"Zero", u"One"}));
    EXPECT_EQ(captions(bar(u"Standard")), (std::vector<Text>{u"Two"}));
}

TEST_F(CommandBarsOf, WindowsFindControlsByWhatIsAsked) {
    const Object menu = bar(u"Context Menu"), standard = bar(u"Standard");
    add(menu, u"One", u"tag one");
    const Object two = add(menu, u"Two", u"tag two");
    const Object other = add(standard, u"Three", u"tag two");
    two.put(u"Visible", false);
    EXPECT_EQ(find(menu, {{u"Tag", u"tag two"}}), two);
    EXPECT_EQ(find(menu, {{u"Type", button}, {u"Tag", u"tag two"}}), two);
    EXPECT_EQ(find(menu, {{u"Tag", u"tag two"}, {u"Visible", false}}), two) << "hidden ones, too";
    EXPECT_FALSE(find(menu, {{u"Tag", u"tag two"}, {u"Visible", true}}));
    EXPECT_FALSE(find(menu, {{u"Type", popup}, {u"Tag", u"tag two"}}));
    EXPECT_FALSE(find(menu, {{u"Id", 2617}}));
    EXPECT_EQ(find(bars, {{u"Tag", u"tag two"}}), other) << "through all bars, in their order";
    EXPECT_FALSE(find(menu, {{u"Tag", u"TAG TWO"}})) << "tags are compared exactly";
}

TEST_F(CommandBarsOf, WindowsHavePopupsWithEntriesInTheirMenuBars) {
    const Object menu_bar = bar(u"Menu Bar");
    const Object opened = controls(menu_bar).call(u"Add", {popup}).to_object();
    opened.put(u"Caption", u"&Mill");
    EXPECT_EQ(integer(opened, u"Type"), popup);
    const Object menu = opened.get(u"CommandBar").to_object();
    EXPECT_EQ(integer(menu, u"Type"), 2);
    EXPECT_EQ(integer(menu, u"Index"), 0) << "it is none of the window's bars";
    const Object entry = add(opened, u"Grind", u"grind");
    const Object inner = controls(opened).call(u"Add", {popup}).to_object();
    const Object deep = add(inner, u"Bake", u"bake");
    EXPECT_EQ(captions(opened), (std::vector<Text>{u"Grind", u""}));
    EXPECT_EQ(find(bars, {{u"Tag", u"bake"}}), deep) << "a search through all bars looks into menus";
    EXPECT_FALSE(find(menu_bar, {{u"Tag", u"bake"}}));
    EXPECT_EQ(find(menu_bar, {{u"Tag", u"bake"}, {u"Recursive", true}}), deep);
    const Object twin = opened.call(u"Copy", {Value(menu_bar)}).to_object();
    EXPECT_EQ(captions(twin), (std::vector<Text>{u"Grind", u""})) << "with its entries";
    automation::Request all{.member = u"FindControls", .named = {{u"Tag", Value(u"bake")}}};
    EXPECT_EQ(integer(bars.invoke(all).to_object(), u"Count"), 2);
    int clicks = 0;
    automation::Sink sink;
    sink.connect(host::events::button, opened, {{u"Click", [&](std::span<Value>) { ++clicks; }}});
    opened.call(u"Execute");
    EXPECT_EQ(clicks, 0) << "it opens its menu, and does nothing else";

    EXPECT_EQ(failure_of([&] { entry.get(u"Controls"); }), result::member_not_found) << "a button has none";
    EXPECT_EQ(failure_of([&] { controls(bar(u"Standard")).call(u"Add", {popup}); }),
              result::invalid_argument);
    EXPECT_EQ(failure_of([&] { opened.call(u"Move", {Value(bar(u"Standard"))}); }), result::invalid_argument);
    EXPECT_EQ(failure_of([&] { opened.call(u"Move", {inner.get(u"CommandBar")}); }), result::invalid_argument)
        << "it would stand in itself";
    EXPECT_EQ(failure_of([&] { menu.call(u"Delete"); }), result::fail) << "it goes with its popup";
    opened.call(u"Delete");
    EXPECT_EQ(failure_of([&] { text(deep, u"Caption"); }), result::object_deleted);
    EXPECT_EQ(find(bars, {{u"Tag", u"bake"}}).get(u"Caption"), Value(u"Bake")) << "the copy stays";
}

TEST_F(CommandBarsOf, WindowsThatAreProtectedTakeNoControls) {
    const Object menu = bar(u"Context Menu");
    menu.put(u"Protection", no_customize);
    EXPECT_EQ(failure_of([&] { add(menu, u"One"); }), result::fail);
    menu.put(u"Protection", integer(menu, u"Protection") & ~no_customize);
    EXPECT_EQ(failure_of([&] { add(menu, u"One"); }), 0);
}

TEST_F(CommandBarsOf, EachWindowAreItsOwn) {
    add(bar(u"Context Menu"), u"One");
    const Object other = inbox().call(u"GetExplorer").to_object().get(u"CommandBars").to_object();
    EXPECT_EQ(integer(controls(other.get(u"Item", {u"Context Menu"}).to_object()), u"Count"), 0);
    const Object inspector = add_mail(u"x").get(u"GetInspector").to_object().get(u"CommandBars").to_object();
    EXPECT_EQ(failure_of([&] { inspector.get(u"Item", {u"Context Menu"}); }), result::invalid_argument);
}

/// Clicks of a control, and what its listener answers.
struct Clicks {
    int count = 0;
    Object last;
    bool cancels = false;
    automation::Sink sink;

    explicit Clicks(const Object& control) {
        sink.connect(host::events::button, control, {{u"Click", [this](std::span<Value> arguments) {
                                                          ++count;
                                                          last = arguments[0].to_object();
                                                          if (cancels) arguments[1] = true;
                                                      }}});
    }
};

TEST_F(CommandBarsOf, WindowsTellOfClicks) {
    const Object one = add(bar(u"Context Menu"), u"One");
    Clicks clicks(one);
    one.call(u"Execute");
    EXPECT_EQ(clicks.count, 1);
    EXPECT_EQ(clicks.last, one);
    desk.call(u"Press", {Value(one)});
    world.settle();
    EXPECT_EQ(clicks.count, 2);
    one.put(u"Enabled", false);
    one.call(u"Execute");
    one.put(u"Enabled", true);
    one.put(u"Visible", false);
    one.call(u"Execute");
    EXPECT_EQ(clicks.count, 2) << "what is disabled or hidden can't be pressed";
    EXPECT_EQ(failure_of([&] { desk.call(u"Press", {Value(bar(u"Standard"))}); }), result::type_mismatch);
}

TEST_F(CommandBarsOf, WindowsKnowWhichControlIsPressed) {
    const Object one = add(bar(u"Context Menu"), u"One");
    Object pressed;
    automation::Sink sink;
    sink.connect(host::events::button, one,
                 {{u"Click", [&](std::span<Value>) { pressed = bars.get(u"ActionControl").to_object(); }}});
    one.call(u"Execute");
    EXPECT_EQ(pressed, one);
    EXPECT_FALSE(bars.get(u"ActionControl").to_object());
}

TEST_F(CommandBarsOf, NewMailSendAndCanBeKeptFromIt) {
    const Object inspector = new_mail_window();
    const Object mail = inspector.get(u"CurrentItem").to_object();
    mail.put(u"Subject", u"Out it goes");
    mail.put(u"To", u"ann@one.example");
    const Object send = controls(named(bars_of(inspector), u"Standard")).get(u"Item", {u"Send"}).to_object();
    EXPECT_TRUE(send.get(u"BuiltIn").to_boolean());
    {
        Clicks clicks(send);
        clicks.cancels = true;
        send.call(u"Execute");
        EXPECT_EQ(integer(application.Inspectors(), u"Count"), 1) << "a listener cancelled it";
    }
    send.call(u"Execute");
    EXPECT_EQ(integer(application.Inspectors(), u"Count"), 0);
    EXPECT_EQ(subjects(default_folder(folder_number::sent).Items()), (std::vector<Text>{u"Out it goes"}));
}

TEST_F(CommandBarsOf, NewMailWithoutRecipientsTellThePersonWhy) {
    const Object inspector = new_mail_window();
    desk.call(u"Answer", {u"Outlook", u"at least one name", 1});
    controls(named(bars_of(inspector), u"Standard")).get(u"Item", {u"Send"}).to_object().call(u"Execute");
    EXPECT_EQ(integer(desk.get(u"Messages").to_object(), u"Count"), 1);
    EXPECT_EQ(integer(application.Inspectors(), u"Count"), 1);
}

class Updates : public CommandBarsOf {
  protected:
    void listen(
        const Object& source, std::function<void()> also = [] {}) {
        sink.connect(host::events::command_bars, source,
                     {{u"OnUpdate", [this, also = std::move(also)](std::span<Value>) {
                           ++count;
                           also();
                       }}});
    }
    /// How many come by the next turn.
    int after_turn() {
        world.settle();
        return std::exchange(count, 0);
    }
    int count = 0;
    automation::Sink sink;
};

TEST_F(Updates, ComeOnceForAllChangesOfATurn) {
    listen(bars);
    EXPECT_EQ(after_turn(), 0) << "nothing has changed";
    const Object one = add(bar(u"Context Menu"), u"One");
    one.put(u"Visible", false);
    EXPECT_EQ(count, 0) << "not at once";
    EXPECT_EQ(after_turn(), 1);
    one.put(u"Visible", false);
    EXPECT_EQ(after_turn(), 0) << "the value it had";
    bars.call(u"Add", {u"Another"});
    EXPECT_EQ(after_turn(), 1);
    one.call(u"Delete");
    EXPECT_EQ(after_turn(), 1);
    bar(u"Context Menu").put(u"Protection", no_customize);
    EXPECT_EQ(after_turn(), 1);
}

TEST_F(Updates, FollowWhatTheExplorerShows) {
    const Item mail = add_mail(u"One");
    listen(bars);
    desk.call(u"Select", {Value(mail)});
    EXPECT_EQ(after_turn(), 1);
    application.ActiveExplorer().put(u"CurrentFolder", Value(default_folder(folder_number::drafts)));
    EXPECT_EQ(after_turn(), 1);
    const Object first = application.ActiveExplorer();
    mail.call(u"Display");
    EXPECT_EQ(after_turn(), 0) << "of another window";
    first.call(u"Activate");
    EXPECT_EQ(after_turn(), 1);
}

TEST_F(Updates, ComeBeforeTheContextMenuOpens) {
    listen(bars, [&] {
        if (integer(controls(bar(u"Context Menu")), u"Count") == 0) add(bar(u"Context Menu"), u"One");
    });
    const Object menu = desk.get(u"ContextMenu").to_object();
    EXPECT_EQ(count, 1);
    EXPECT_EQ(captions(menu), (std::vector<Text>{u"One"}));
}

TEST_F(Updates, OfTheListenersOwnMakingComeNoMore) {
    listen(bars, [&] { add(bar(u"Context Menu"), u"Another"); });
    add(bar(u"Context Menu"), u"One");
    EXPECT_EQ(after_turn(), 1);
    EXPECT_EQ(after_turn(), 0);
    EXPECT_EQ(integer(controls(bar(u"Context Menu")), u"Count"), 2);
}

}  // namespace
}  // namespace model_tests
