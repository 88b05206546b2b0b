// Windows in memory: what the logic sees of them and what a person does with them.
#include "tests/native/memory_forms.h"

#include <gmock/gmock.h>

#include "forms/form.h"
#include "host/failure.h"

namespace {

using addin::forms::Column;
using addin::forms::Control;
using addin::forms::ControlKind;
using addin::forms::ControlRow;
using addin::forms::Form;
using addin::forms::FormTable;
using host::Text;
using host::TextView;
using native::MemoryControl;
using native::MemoryEngine;
using native::MemoryWindow;
using native::Strands;
using testing::ElementsAre;

constexpr Column columns[] = {{u"Name", 4586}, {u"City", 2540}, {u"Key", 0}};
constexpr TextView entries[] = {u"Notes", u"Opportunities", u"My Calendar"};
constexpr ControlRow sample_rows[] = {
    {.kind = ControlKind::text_box, .name = u"words", .text = u"old"},
    {.kind = ControlKind::button, .name = u"go", .text = u"Go"},
    {.kind = ControlKind::button, .name = u"stop", .text = u"Stop"},
    {.kind = ControlKind::check_box, .name = u"check"},
    {.kind = ControlKind::frame, .name = u"frame"},
    {.kind = ControlKind::option_button, .name = u"left", .selected = true, .frame = u"frame"},
    {.kind = ControlKind::option_button, .name = u"right", .frame = u"frame"},
    {.kind = ControlKind::option_button, .name = u"alone", .selected = true},
    {.kind = ControlKind::combo_box, .name = u"free", .text = u"Choose", .entries = entries},
    {.kind = ControlKind::drop_down_list, .name = u"strict", .entries = entries},
    {.kind = ControlKind::report_list, .name = u"list", .columns = columns},
    {.kind = ControlKind::link, .name = u"link", .text = u"Who"},
    {.kind = ControlKind::label, .name = u"label", .text = u"Label"},
};
constexpr FormTable sample{.name = u"Sample",
                           .caption = u"A Sample",
                           .width = 7500,
                           .height = 4500,
                           .sizable = true,
                           .can_minimize = true,
                           .controls = sample_rows};
constexpr FormTable with_buttons{.name = u"WithButtons",
                                 .caption = u"With Buttons",
                                 .width = 3000,
                                 .height = 3000,
                                 .default_button = u"go",
                                 .cancel_button = u"stop",
                                 .first_focus = u"words",
                                 .controls = sample_rows};

/// Writes its events down, and does what it was told to do at one of them.
class Noted : public Form {
  public:
    using Form::Form;
    std::vector<std::string> told;
    std::function<void(const std::string&)> at;

  private:
    void note(const std::string& event) {
        told.push_back(event);
        if (at) at(event);
    }
    static std::string named(const char* event, TextView name) { return event + (" " + host::to_utf8(name)); }

    void on_load() override { note("load"); }
    void on_unload() override { note("unload"); }
    void on_activate() override { note("activate"); }
    void on_focus() override { note("focus"); }
    void on_resize() override { note("resize"); }
    void on_key(int code) override { note("key " + std::to_string(code)); }
    void on_close() override {
        note("close");
        Form::on_close();
    }
    void on_click(TextView name) override { note(named("click", name)); }
    void on_double_click(TextView name) override { note(named("double", name)); }
    void on_change(TextView name) override { note(named("change", name)); }
    void on_key_press(TextView name, char16_t character) override {
        note(named("press", name) + " " + std::to_string(character));
    }
    void on_column_click(TextView name, int column) override {
        note(named("column", name) + " " + std::to_string(column));
    }
    void on_drop(TextView name, int x, int y) override {
        note(named("drop", name) + " at row " + std::to_string(control(name).list().hit(x, y).row));
    }
};

struct MemoryForms : testing::Test {
    Strands strands;
    MemoryEngine engine{strands};

    std::shared_ptr<Noted> shown(const FormTable& table) {
        auto form = std::make_shared<Noted>(engine, table);
        form->show();
        form->told.clear();
        return form;
    }
    std::shared_ptr<Noted> form = shown(sample);

    MemoryWindow& window(TextView caption = u"A Sample") {
        MemoryWindow* const found = engine.find(caption);
        if (!found) throw std::runtime_error("there is no such window");
        return *found;
    }
    MemoryControl& at(TextView name) { return window().control(name); }
};

TEST_F(MemoryForms, WindowIsLoadedOnFirstUseAndUnloadedAtItsClose) {
    auto other = std::make_shared<Noted>(engine, with_buttons);
    EXPECT_EQ(engine.find(u"With Buttons"), nullptr);
    other->show();
    EXPECT_THAT(other->told, ElementsAre("load", "activate", "focus"));
    ASSERT_TRUE(window(u"With Buttons").close());
    EXPECT_EQ(engine.find(u"With Buttons"), nullptr);
    EXPECT_FALSE(other->loaded());
}

TEST_F(MemoryForms, WindowsAreListedAsTheyWereMadeAndEndWithTheirOwner) {
    auto second = shown(with_buttons);
    ASSERT_EQ(engine.windows().size(), 2U);
    EXPECT_EQ(engine.windows()[0]->table().name, u"Sample");
    EXPECT_EQ(engine.windows()[1]->table().name, u"WithButtons");
    form.reset();
    ASSERT_EQ(engine.windows().size(), 1U);
}

TEST_F(MemoryForms, UnknownControlIsAFailure) {
    EXPECT_THROW(form->control(u"nobody"), host::Failure);
    EXPECT_THROW(form->control(u"label").list(), host::Failure);
    EXPECT_THROW(form->control(u"label").choice(), host::Failure);
}

TEST_F(MemoryForms, ClickReachesTheLogic) {
    EXPECT_TRUE(at(u"go").click());
    EXPECT_TRUE(at(u"link").click());
    EXPECT_FALSE(at(u"label").click());
    EXPECT_THAT(form->told, ElementsAre("click go", "click link"));
}

TEST_F(MemoryForms, DisabledOrHiddenControlTakesNoClick) {
    form->control(u"go").enabled(false);
    EXPECT_FALSE(at(u"go").click());
    form->control(u"go").enabled(true);
    form->control(u"go").visible(false);
    EXPECT_FALSE(at(u"go").click());
    form->control(u"frame").visible(false);
    EXPECT_FALSE(at(u"right").click()) << "it goes with its frame";
    form->hide();
    EXPECT_FALSE(at(u"check").click());
    EXPECT_THAT(form->told, ElementsAre());
}

TEST_F(MemoryForms, OptionsOfAFrameExcludeEachOther) {
    EXPECT_TRUE(at(u"right").click());
    EXPECT_FALSE(form->control(u"left").selected());
    EXPECT_TRUE(form->control(u"right").selected());
    EXPECT_TRUE(form->control(u"alone").selected()) << "it stands outside";
    EXPECT_TRUE(at(u"right").click());
    EXPECT_THAT(form->told, ElementsAre("click right")) << "the selected one stays so and tells nothing";
    form->control(u"left").selected(true);
    EXPECT_FALSE(form->control(u"right").selected());
}

TEST_F(MemoryForms, CheckBoxTurnsOver) {
    EXPECT_TRUE(at(u"check").click());
    EXPECT_TRUE(form->control(u"check").selected());
    EXPECT_TRUE(at(u"check").click());
    EXPECT_FALSE(form->control(u"check").selected());
}

TEST_F(MemoryForms, TypedTextIsAChangeAndSetTextIsNone) {
    EXPECT_TRUE(at(u"words").type(u"new"));
    form->control(u"words").text(u"newer");
    EXPECT_EQ(form->control(u"words").text(), u"newer");
    EXPECT_THAT(form->told, ElementsAre("change words"));
}

TEST_F(MemoryForms, KeyGoesToTheWindowAndItsCharacterToTheTextBox) {
    EXPECT_TRUE(at(u"words").key('S'));
    EXPECT_TRUE(at(u"words").key(13));
    EXPECT_EQ(form->control(u"words").text(), u"olds");
    EXPECT_TRUE(at(u"list").key('S'));
    EXPECT_THAT(form->told, ElementsAre("key 83", "press words 115", "change words", "key 13",
                                        "press words 13", "key 83"));
}

TEST_F(MemoryForms, EnterAndEscapePressTheNamedButtons) {
    auto other = shown(with_buttons);
    EXPECT_TRUE(window(u"With Buttons").focused()->row().name == u"words");
    EXPECT_TRUE(window(u"With Buttons").key(13));
    EXPECT_TRUE(window(u"With Buttons").key(27));
    EXPECT_THAT(other->told, ElementsAre("key 13", "click go", "key 27", "click stop"));
}

TEST_F(MemoryForms, EnterPressesTheButtonThatHasTheFocus) {
    auto other = shown(with_buttons);
    EXPECT_TRUE(window(u"With Buttons").control(u"stop").key(13));
    EXPECT_THAT(other->told, ElementsAre("key 13", "click stop"));
}

TEST_F(MemoryForms, TabFollowsTheTable) {
    EXPECT_EQ(window().focused()->row().name, u"words");
    form->control(u"go").enabled(false);
    EXPECT_TRUE(window().key(9));
    EXPECT_EQ(window().focused()->row().name, u"stop");
}

TEST_F(MemoryForms, DropDownListTakesOnlyItsEntries) {
    Control& strict = form->control(u"strict");
    EXPECT_EQ(strict.text(), u"");
    strict.text(u"Something");
    EXPECT_EQ(strict.text(), u"");
    strict.text(u"opportunities");
    EXPECT_EQ(strict.text(), u"Opportunities");
    EXPECT_EQ(strict.choice().chosen(), 1);
    EXPECT_FALSE(at(u"strict").type(u"Notes"));
    strict.choice().clear();
    EXPECT_EQ(strict.text(), u"");
}

TEST_F(MemoryForms, ComboBoxTakesAnyText) {
    Control& free = form->control(u"free");
    EXPECT_EQ(free.text(), u"Choose");
    EXPECT_EQ(free.choice().chosen(), -1);
    EXPECT_TRUE(at(u"free").type(u"Mine"));
    EXPECT_EQ(free.text(), u"Mine");
    free.choice().choose(2);
    EXPECT_EQ(free.text(), u"My Calendar");
    EXPECT_THAT(form->told, ElementsAre());
}

TEST_F(MemoryForms, ChoosingTheSameEntryAgainIsAClick) {
    EXPECT_TRUE(at(u"free").choose(1));
    EXPECT_TRUE(at(u"free").choose(1));
    EXPECT_FALSE(at(u"free").choose(3));
    EXPECT_EQ(form->control(u"free").text(), u"Opportunities");
    EXPECT_THAT(form->told, ElementsAre("click free", "click free"));
}

std::vector<std::string> names(addin::forms::List& list, int column = 0) {
    std::vector<std::string> texts;
    for (int row = 0; row < list.count(); ++row) texts.push_back(host::to_utf8(list.text(row, column)));
    return texts;
}

TEST_F(MemoryForms, SortedListKeepsItsOrderWithoutRegardToCase) {
    addin::forms::List& list = form->control(u"list").list();
    for (const TextView name : {u"banana", u"Cherry", u"apple"}) list.add(name);
    list.select(1);
    list.sort_order(0);
    list.sort_key(0);
    EXPECT_THAT(names(list), ElementsAre("banana", "Cherry", "apple"));
    list.sorted(true);
    EXPECT_THAT(names(list), ElementsAre("apple", "banana", "Cherry"));
    EXPECT_EQ(list.selected(), 2) << "the row stays selected, wherever it goes";
    EXPECT_EQ(list.add(u"Blueberry"), 2);
    list.sort_order(1);
    EXPECT_THAT(names(list), ElementsAre("Cherry", "Blueberry", "banana", "apple"));
    list.sorted(false);
    EXPECT_EQ(list.add(u"zucchini"), 4);
}

TEST_F(MemoryForms, ListSortsByAnyColumn) {
    addin::forms::List& list = form->control(u"list").list();
    constexpr const char16_t* cities[] = {u"Ulm", u"Bonn", u"Aachen"};
    for (const TextView city : cities) list.text(list.add(u"x"), 1, city);
    list.sort_key(1);
    list.sorted(true);
    EXPECT_THAT(names(list, 1), ElementsAre("Aachen", "Bonn", "Ulm"));
}

TEST_F(MemoryForms, SortByComparisonMayNeverAnswerLess) {
    addin::forms::List& list = form->control(u"list").list();
    for (const TextView name : {u"3", u"1", u"2", u"5", u"4"}) list.add(name);
    list.sort_rows([&](std::intptr_t first, std::intptr_t second) {
        const Text left = list.text(list.find(first), 0), right = list.text(list.find(second), 0);
        return left < right ? 0 : left == right ? 1 : 2;
    });
    EXPECT_THAT(names(list), ElementsAre("1", "2", "3", "4", "5"));
}

TEST_F(MemoryForms, HeadingsHaveTheirOwnItems) {
    namespace header = addin::forms::header;
    addin::forms::List& list = form->control(u"list").list();
    list.header_item(1, {.mask = header::format | header::image,
                         .format = header::string | header::image_on_right | header::with_image,
                         .image = 1});
    EXPECT_EQ(at(u"list").memory_list().mark(0), -1);
    EXPECT_EQ(at(u"list").memory_list().mark(1), 1);
    EXPECT_EQ(list.heading(1), u"City");
    list.header_item(1, {.mask = header::format, .format = header::string});
    EXPECT_EQ(at(u"list").memory_list().mark(1), -1);
    list.header_item(1, {.mask = header::text, .text = u"Town"});
    EXPECT_EQ(list.heading(1), u"Town");
}

TEST_F(MemoryForms, WidthsAreWholePixels) {
    addin::forms::List& list = form->control(u"list").list();
    EXPECT_EQ(list.width(0), 4590) << "306 pixels";
    engine.dots_per_inch = 192;
    auto sharp = shown(with_buttons);
    EXPECT_EQ(sharp->view().dots_per_inch(), 192);
    EXPECT_EQ(sharp->control(u"list").list().width(0), 4582) << "611 pixels";
}

TEST_F(MemoryForms, ListTellsWhatItsUserDoes) {
    addin::forms::List& list = form->control(u"list").list();
    list.add(u"one");
    list.add(u"two");
    EXPECT_EQ(list.selected(), -1);
    EXPECT_TRUE(at(u"list").select(1));
    EXPECT_EQ(list.selected(), 1);
    EXPECT_TRUE(at(u"list").double_click(0));
    EXPECT_EQ(list.selected(), 0);
    EXPECT_FALSE(at(u"list").double_click(2));
    EXPECT_TRUE(at(u"list").column_click(1));
    EXPECT_FALSE(at(u"list").column_click(2)) << "it has no width";
    EXPECT_THAT(form->told, ElementsAre("double list", "column list 1"));
    list.clear();
    EXPECT_EQ(list.selected(), -1);
    EXPECT_TRUE(at(u"list").double_click(-1)) << "an empty list can be clicked, too";
}

TEST_F(MemoryForms, DropsAreTakenOnlyWhereTheyAreWanted) {
    addin::forms::List& list = form->control(u"list").list();
    list.add(u"one");
    list.add(u"two");
    EXPECT_FALSE(at(u"list").drop(1));
    list.takes_drops(true);
    EXPECT_TRUE(at(u"list").drop(1));
    EXPECT_TRUE(at(u"list").drop(-1));
    EXPECT_THAT(form->told, ElementsAre("drop list at row 1", "drop list at row -1"));
}

TEST_F(MemoryForms, HitTellsTheColumn) {
    addin::forms::List& list = form->control(u"list").list();
    list.add(u"one");
    const auto middle = at(u"list").memory_list().middle(0);
    EXPECT_EQ(list.hit(306, middle.y).column, 1);
    EXPECT_EQ(list.hit(305, middle.y).column, 0);
    EXPECT_EQ(list.hit(2000, middle.y).row, -1);
    EXPECT_EQ(list.hit(5, 3).row, -1) << "the headings";
}

TEST_F(MemoryForms, OnlySizableWindowsAreResized) {
    EXPECT_TRUE(window().resize(600, 400));
    EXPECT_EQ(form->view().size().width, 9000);
    EXPECT_EQ(form->view().size().height, 6000);
    EXPECT_TRUE(window().minimize());
    EXPECT_TRUE(form->view().minimized());
    EXPECT_THAT(form->told, ElementsAre("resize", "resize"));
    auto fixed = shown(with_buttons);
    EXPECT_FALSE(window(u"With Buttons").resize(600, 400));
    EXPECT_FALSE(window(u"With Buttons").minimize());
}

TEST_F(MemoryForms, WindowTellsWhenItBecomesActive) {
    form->show();
    EXPECT_THAT(form->told, ElementsAre()) << "it is the active one";
    engine.activate_host();
    form->show();
    EXPECT_TRUE(window().activate());
    EXPECT_THAT(form->told, ElementsAre("activate", "activate"));
    form->view().topmost();
    EXPECT_TRUE(window().is_topmost());
}

TEST_F(MemoryForms, FocusMayMoveOnWhenTheWindowGetsIt) {
    auto other = std::make_shared<Noted>(engine, with_buttons);
    other->at = [&](const std::string& event) {
        if (event == "focus") other->control(u"list").focus();
    };
    other->show();
    EXPECT_TRUE(window(u"With Buttons").control(u"list").has_focus());
}

TEST_F(MemoryForms, ModalShowComesBackWhenItsWindowIsHidden) {
    auto dialog = std::make_shared<Noted>(engine, with_buttons);
    dialog->at = [&](const std::string& event) {
        if (event == "click stop") dialog->hide();
    };
    bool back = false;
    strands.run([&] {
        dialog->show_modal();
        back = true;
    });
    EXPECT_FALSE(back);
    EXPECT_FALSE(at(u"go").click()) << "it waits behind the modal one";
    EXPECT_TRUE(window(u"With Buttons").control(u"go").click());
    EXPECT_FALSE(back);
    EXPECT_TRUE(window(u"With Buttons").control(u"stop").click());
    EXPECT_TRUE(back);
    EXPECT_TRUE(at(u"go").click());
}

TEST_F(MemoryForms, HandlerMayEndItsOwnModalWindow) {
    auto dialog = std::make_shared<Noted>(engine, with_buttons);
    dialog->at = [&](const std::string& event) {
        if (event.starts_with("key")) dialog->unload();
    };
    bool back = false;
    strands.run([&] {
        dialog->show_modal();
        back = true;
    });
    EXPECT_TRUE(window(u"With Buttons").key(65));
    EXPECT_TRUE(back);
    EXPECT_EQ(engine.find(u"With Buttons"), nullptr);
}

TEST_F(MemoryForms, ModalWindowOverAModalWindow) {
    auto lower = std::make_shared<Noted>(engine, with_buttons);
    auto upper = std::make_shared<Noted>(engine, sample);
    lower->at = [&](const std::string& event) {
        if (event == "click go") upper->show_modal();
        if (event == "click stop") lower->hide();
    };
    strands.run([&] { lower->show_modal(); });
    ASSERT_TRUE(window(u"With Buttons").control(u"go").click());
    EXPECT_EQ(strands.parked(), 2);
    EXPECT_FALSE(window(u"With Buttons").control(u"stop").click());
    ASSERT_TRUE(engine.windows().back()->close());
    EXPECT_EQ(strands.parked(), 1);
    EXPECT_TRUE(window(u"With Buttons").control(u"stop").click());
    EXPECT_EQ(strands.parked(), 0);
}

TEST_F(MemoryForms, ModalShowNeedsAStrand) {
    auto dialog = std::make_shared<Noted>(engine, with_buttons);
    EXPECT_THROW(dialog->show_modal(), std::logic_error);
    EXPECT_FALSE(dialog->view().visible());
}

TEST_F(MemoryForms, EndOfTheWorldHidesModalWindows) {
    auto dialog = std::make_shared<Noted>(engine, with_buttons);
    bool back = false;
    strands.run([&] {
        dialog->show_modal();
        back = true;
    });
    strands.finish();
    EXPECT_TRUE(back);
    EXPECT_FALSE(dialog->view().visible());
}

TEST_F(MemoryForms, WhatAnEventThrowsEndsAtTheEngine) {
    form->at = [](const std::string&) { throw host::Failure(host::result::fail, u"no luck"); };
    EXPECT_TRUE(at(u"go").click());
    EXPECT_THAT(engine.thrown, ElementsAre("no luck"));
}

}  // namespace
