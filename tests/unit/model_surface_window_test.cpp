// The window part of the desk's surface, on windows in memory: what scripts see of a window, and what they do
// to it.
#include "tests/unit/support/model_support.h"

namespace model_tests {
namespace {

using forms::Column;
using forms::ControlKind;
using forms::ControlRow;
using forms::FormTable;

constexpr Column columns[] = {{u"Name", 1500}, {u"Place", 750}};
constexpr TextView entries[] = {u"One", u"Two"};
constexpr ControlRow rows[] = {
    {.kind = ControlKind::label, .name = u"Label1", .text = u"A label", .tool_tip = u"A tip"},
    {.kind = ControlKind::button, .name = u"Command1", .text = u"Go"},
    {.kind = ControlKind::text_box, .name = u"Text1", .text = u"before"},
    {.kind = ControlKind::check_box, .name = u"Check1", .text = u"Also"},
    {.kind = ControlKind::drop_down_list, .name = u"Combo1", .entries = entries},
    {.kind = ControlKind::report_list, .name = u"List1", .columns = columns},
    {.kind = ControlKind::button, .name = u"Hidden1", .visible = false},
};
constexpr FormTable table{.name = u"Sample",
                          .caption = u"Sample Window",
                          .width = 6000,
                          .height = 3000,
                          .sizable = true,
                          .controls = rows};
constexpr FormTable status_table{
    .name = u"SearchForm", .caption = u"Tarnwell", .width = 3000, .height = 900, .controls = rows};

/// What the window's logic is told, as "click Command1".
struct Logic : forms::Events {
    Told told;
    std::function<void()> at_click = [] {};

    void note(const char* what, TextView control) {
        told.push_back(what + (" " + automation::to_utf8(control)));
    }
    void on_close() override { told.emplace_back("close"); }
    void on_click(TextView control) override {
        note("click", control);
        at_click();
    }
    void on_double_click(TextView control) override { note("double click", control); }
    void on_change(TextView control) override { note("change", control); }
    void on_column_click(TextView, int column) override {
        told.push_back("column " + std::to_string(column));
    }
    void on_drop(TextView control, int, int) override { note("drop", control); }
};

class SurfaceWindows : public ModelTest {
  protected:
    std::shared_ptr<Logic> logic = std::make_shared<Logic>();
    std::unique_ptr<forms::View> view = world.engine().make(table, logic);

    SurfaceWindows() { view->show(); }
    Object window(TextView caption = u"Sample Window") const {
        return desk.call(u"Window", {Value(caption)}).to_object();
    }
    Object control(TextView name) const { return window().call(u"Control", {Value(name)}).to_object(); }
    Told told() { return std::exchange(logic->told, {}); }
    static bool flag(const Object& object, TextView member) { return object.get(member).to_boolean(); }
};

TEST_F(SurfaceWindows, AreFoundByCaptionAndControlsByName) {
    EXPECT_FALSE(window(u"No such window"));
    EXPECT_FALSE(control(u"NoSuchControl"));
    EXPECT_TRUE(flag(window(), u"Visible"));
    EXPECT_FALSE(flag(window(), u"Topmost"));
    view->topmost();
    EXPECT_TRUE(flag(window(), u"Topmost"));
    window().call(u"Resize", {500, 300});
    EXPECT_EQ(integer(window(), u"Width"), 500);
    EXPECT_EQ(integer(window(), u"Height"), 300);
    EXPECT_EQ(text(control(u"label1"), u"Text"), u"A label");
    EXPECT_EQ(text(control(u"Label1"), u"ToolTip"), u"A tip");
    EXPECT_FALSE(flag(control(u"Hidden1"), u"Visible"));
    EXPECT_TRUE(flag(control(u"Command1"), u"Enabled"));
    window().call(u"Close");
    EXPECT_EQ(told(), Told{"close"});
}

TEST_F(SurfaceWindows, FailWhenTheyHaveGone) {
    const Object gone = window(), button = control(u"Command1");
    view.reset();
    EXPECT_EQ(failure_of([&] { gone.get(u"Visible"); }), result::object_deleted);
    EXPECT_EQ(failure_of([&] { button.call(u"Click"); }), result::object_deleted);
    EXPECT_FALSE(window());
}

TEST_F(SurfaceWindows, TakeClicksAndTexts) {
    control(u"Command1").call(u"Click");
    EXPECT_EQ(told(), Told{"click Command1"});
    control(u"Hidden1").call(u"Click");
    EXPECT_EQ(told(), Told{}) << "nobody could";
    control(u"Text1").put(u"Text", u"after");
    EXPECT_EQ(text(control(u"Text1"), u"Text"), u"after");
    EXPECT_EQ(told(), Told{"change Text1"});
    EXPECT_EQ(failure_of([&] { control(u"Label1").put(u"Text", u"x"); }), result::fail);
    EXPECT_EQ(integer(control(u"Check1"), u"Selected"), 0);
    control(u"Check1").call(u"Click");
    EXPECT_EQ(integer(control(u"Check1"), u"Selected"), 1);
}

TEST_F(SurfaceWindows, HaveEntriesFromOne) {
    const Object combo = control(u"Combo1");
    EXPECT_EQ(integer(combo, u"Count"), 2);
    EXPECT_EQ(combo.call(u"Item", {2}), Value(u"Two"));
    EXPECT_EQ(integer(combo, u"Selected"), 0);
    for (int i = 0; i < 2; ++i) combo.call(u"Select", {2});
    EXPECT_EQ(integer(combo, u"Selected"), 2);
    EXPECT_EQ(told(), (Told{"click Combo1", "click Combo1"})) << "the same one again is a choice, too";
    EXPECT_EQ(failure_of([&] { combo.call(u"Item", {3}); }), result::bad_index);
    EXPECT_EQ(failure_of([&] { combo.call(u"Select", {0}); }), result::bad_index);
    EXPECT_EQ(failure_of([&] { combo.get(u"Columns"); }), result::member_not_found);
    EXPECT_EQ(failure_of([&] { control(u"Label1").get(u"Count"); }), result::member_not_found);
}

TEST_F(SurfaceWindows, HaveListsWithRowsAndColumns) {
    forms::List& list = view->control(u"List1").list();
    for (const TextView name : {u"Ann", u"Bob"}) list.text(list.add(name), 1, u"Here");
    const Object control = this->control(u"List1");
    EXPECT_EQ(integer(control, u"Count"), 2);
    const Object bob = control.call(u"Item", {2}).to_object();
    EXPECT_EQ(text(bob, u"Text"), u"Bob");
    EXPECT_EQ(bob.get(u"SubItems", {1}), Value(u"Here"));
    EXPECT_EQ(failure_of([&] { bob.get(u"SubItems", {2}); }), result::bad_index);
    EXPECT_EQ(integer(control.get(u"Columns").to_object(), u"Count"), 2);
    const Object place = control.get(u"Columns", {2}).to_object();
    EXPECT_EQ(text(place, u"Text"), u"Place");
    EXPECT_EQ(integer(place, u"Width"), 50);
    EXPECT_EQ(integer(place, u"Image"), -1);
    control.call(u"Select", {2});
    EXPECT_EQ(integer(control, u"Selected"), 2);
    control.call(u"DoubleClick");
    control.call(u"ColumnClick", {2});
    EXPECT_EQ(told(), (Told{"double click List1", "column 1"}));
    EXPECT_EQ(failure_of([&] { control.call(u"Drop", {1}); }), result::fail) << "it takes no drops";
    list.takes_drops(true);
    control.call(u"Drop", {1});
    control.call(u"Drop", {1, 2});
    control.call(u"Drop", {0});
    EXPECT_EQ(told(), (Told{"drop List1", "drop List1", "drop List1"}));
    EXPECT_EQ(failure_of([&] { control.call(u"Drop", {1, 9}); }), result::bad_index);
}

TEST_F(SurfaceWindows, MayShowAModalOneWhileTheScriptGoesOn) {
    auto inner = std::make_shared<Logic>();
    const auto modal = world.engine().make(status_table, inner);
    inner->at_click = [&] { modal->hide(); };
    logic->at_click = [&] {
        modal->show_modal();
        logic->told.emplace_back("after");
    };
    control(u"Command1").call(u"Click");
    EXPECT_EQ(told(), Told{"click Command1"}) << "it waits in the modal window";
    window(u"Tarnwell").call(u"Control", {u"Command1"}).to_object().call(u"Click");
    EXPECT_EQ(told(), Told{"after"});
}

class Statuses : public SurfaceWindows {
  protected:
    std::unique_ptr<forms::View> status = world.engine().make(status_table, logic);
    std::vector<Text> statuses() const {
        std::vector<Text> all;
        const Object list = desk.get(u"Statuses").to_object();
        for (std::int32_t i = 1; i <= integer(list, u"Count"); ++i)
            all.push_back(list.call(u"Item", {i}).to_text());
        return all;
    }
    void say(TextView text) const { status->control(u"Label1").text(text); }
};

TEST_F(Statuses, AreTheTextsThatCouldBeRead) {
    say(u"nobody sees this");
    say(u"at the start");
    status->show();
    world.settle();
    say(u"second");
    say(u"third");
    status->hide();
    say(u"hidden");
    status->show();
    say(u"set at once");
    world.settle();
    EXPECT_EQ(statuses(), (std::vector<Text>{u"at the start", u"second", u"third", u"set at once"}));
}

TEST_F(Statuses, LeaveOutWhatTheLabelWasDesignedWith) {
    say(u"Label1");
    status->show();
    world.settle();
    EXPECT_EQ(statuses(), std::vector<Text>{});
}

class MeanwhileOf : public Statuses {
  protected:
    void meanwhile(TextView moment, const Object& object, TextView member,
                   const Value& value = automation::Missing{}) const {
        desk.call(u"Meanwhile", {Value(moment), Value(object), Value(member), value});
    }
};

TEST_F(MeanwhileOf, AnEventRunsOnceAtTheNextYield) {
    const Item mail = add_mail(u"One");
    const Items items = inbox().Items();
    Text in_the_handler, after_the_yield;
    automation::Sink sink;
    sink.connect(host::events::items, items, {{u"ItemChange", [&](std::span<Value>) {
                                                   in_the_handler = mail.BillingInformation();
                                                   world.system().yield();
                                                   after_the_yield = mail.BillingInformation();
                                               }}});
    meanwhile(u"ItemChange", mail, u"BillingInformation", u"meanwhile");
    mail.Subject(u"Two");
    mail.Save();
    EXPECT_EQ(in_the_handler, u"");
    EXPECT_EQ(after_the_yield, u"meanwhile");
    mail.BillingInformation(u"");
    mail.Save();
    EXPECT_EQ(after_the_yield, u"") << "once only";
}

TEST_F(MeanwhileOf, AStatusCallsAMember) {
    const Item mail = add_mail(u"One");
    meanwhile(u"Searching", mail, u"Delete");
    status->show();
    say(u"Checking");
    world.settle();
    EXPECT_EQ(inbox().Items().Count(), 1);
    say(u"Searching for Ann");
    world.settle();
    EXPECT_EQ(inbox().Items().Count(), 0);
    EXPECT_EQ(failure_of([&] { meanwhile(u"", mail, u"Delete"); }), result::invalid_argument);
}

}  // namespace
}  // namespace model_tests
