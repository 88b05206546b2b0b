// What the logic of a window sees, whatever the window is made of.
#include <gmock/gmock.h>

#include <algorithm>

#include "automation/failure.h"
#include "tests/forms/support/forms_test.h"

namespace forms_test {
namespace {

using automation::Text;
using automation::TextView;
using forms::Control;
using testing::ElementsAre;
namespace header = forms::header;

TEST_F(FormsTest, WindowIsLoadedOnFirstUseAndUnloadedAtItsClose) {
    const auto other = std::make_shared<Noted>(stage->engine(), with_keys);
    EXPECT_FALSE(stage->there(with_keys_caption));
    other->show();
    EXPECT_THAT(other->told, ElementsAre("load", "activate", "focus"));
    ASSERT_TRUE(stage->close(with_keys_caption));
    EXPECT_FALSE(stage->there(with_keys_caption));
    EXPECT_FALSE(other->loaded());
    EXPECT_THAT(deeds(other), ElementsAre("load", "close", "unload"));
}

TEST_F(FormsTest, WindowEndsWithItsOwner) {
    EXPECT_TRUE(stage->there(gallery_caption));
    form.reset();
    EXPECT_FALSE(stage->there(gallery_caption));
}

TEST_F(FormsTest, CaptionMayChange) {
    form->view().caption(u"Copying");
    EXPECT_EQ(form->view().caption(), u"Copying");
    EXPECT_TRUE(stage->there(u"Copying"));
}

TEST_F(FormsTest, ControlsStartAsTheTableTells) {
    EXPECT_EQ(form->control(u"label").text(), u"Words & more:");
    EXPECT_EQ(form->control(u"words").text(), u"old");
    EXPECT_TRUE(form->control(u"left").selected());
    EXPECT_FALSE(form->control(u"right").selected());
    EXPECT_FALSE(form->control(u"hidden").visible());
    EXPECT_FALSE(form->control(u"disabled").enabled());
    EXPECT_EQ(form->control(u"free").choice().count(), 3);
    EXPECT_EQ(list().columns(), 3);
    EXPECT_EQ(list().heading(1), u"City");
    EXPECT_EQ(list().width(2), 0);
}

TEST_F(FormsTest, UnknownControlRowOrColumnIsAFailure) {
    EXPECT_THROW(form->control(u"nobody"), std::logic_error) << "no failure of the host";
    EXPECT_THROW(form->control(u"label").list(), std::logic_error);
    EXPECT_THROW(form->control(u"label").choice(), std::logic_error);
    EXPECT_THROW(list().text(0, 0), automation::Failure);
    EXPECT_THROW(list().select(0), automation::Failure);
    EXPECT_THROW(list().heading(3), automation::Failure);
    EXPECT_THROW(form->control(u"free").choice().entry(3), automation::Failure);
}

TEST_F(FormsTest, ClickReachesTheLogic) {
    EXPECT_TRUE(stage->click(in_gallery(u"go")));
    EXPECT_TRUE(stage->click(in_gallery(u"link")));
    EXPECT_TRUE(stage->click(in_gallery(u"plus")));
    EXPECT_THAT(deeds(form), ElementsAre("click go", "click link", "click plus"));
}

TEST_F(FormsTest, DisabledOrHiddenControlTakesNoClick) {
    form->control(u"go").enabled(false);
    EXPECT_FALSE(stage->click(in_gallery(u"go")));
    form->control(u"go").enabled(true);
    form->control(u"go").visible(false);
    EXPECT_FALSE(stage->click(in_gallery(u"go")));
    form->control(u"frame").visible(false);
    EXPECT_FALSE(stage->click(in_gallery(u"right"))) << "it goes with its frame";
    EXPECT_TRUE(form->control(u"right").visible()) << "it is not hidden for itself";
    form->hide();
    EXPECT_FALSE(stage->click(in_gallery(u"check")));
    EXPECT_THAT(deeds(form), ElementsAre());
}

TEST_F(FormsTest, OptionsOfAFrameExcludeEachOther) {
    EXPECT_TRUE(stage->click(in_gallery(u"right")));
    EXPECT_FALSE(form->control(u"left").selected());
    EXPECT_TRUE(form->control(u"right").selected());
    EXPECT_TRUE(form->control(u"alone").selected()) << "it stands outside";
    EXPECT_TRUE(stage->click(in_gallery(u"right")));
    EXPECT_THAT(deeds(form), ElementsAre("click right")) << "the selected one stays so and tells nothing";
    form->control(u"left").selected(true);
    EXPECT_FALSE(form->control(u"right").selected());
    EXPECT_TRUE(stage->click(in_gallery(u"right")));
    EXPECT_THAT(deeds(form), ElementsAre("click right", "click right"));
}

TEST_F(FormsTest, CheckBoxTurnsOver) {
    EXPECT_TRUE(stage->click(in_gallery(u"check")));
    EXPECT_TRUE(form->control(u"check").selected());
    EXPECT_TRUE(stage->click(in_gallery(u"check")));
    EXPECT_FALSE(form->control(u"check").selected());
    EXPECT_THAT(deeds(form), ElementsAre("click check", "click check"));
}

TEST_F(FormsTest, TypedTextIsAChangeAndSetTextIsNone) {
    EXPECT_TRUE(stage->type(in_gallery(u"words"), u"new"));
    EXPECT_EQ(form->control(u"words").text(), u"new");
    form->control(u"words").text(u"newer \u00e9\u4e2d");
    EXPECT_EQ(form->control(u"words").text(), u"newer \u00e9\u4e2d");
    EXPECT_THAT(deeds(form), ElementsAre("change words"));
}

TEST_F(FormsTest, CharacterComesToTheWindowAndThenToTheTextBox) {
    form->control(u"words").text(u"");
    EXPECT_TRUE(stage->key(in_gallery(u"words"), 'S'));
    EXPECT_TRUE(stage->key(in_gallery(u"words"), 13));
    EXPECT_EQ(form->control(u"words").text(), u"s");
    EXPECT_TRUE(stage->key(in_gallery(u"list"), 'S'));
    EXPECT_THAT(deeds(form), ElementsAre("character 115", "press words 115", "change words", "character 13",
                                         "press words 13", "character 115"));
}

TEST_F(FormsTest, KeysThatWriteNothingAreNoKeyPress) {
    constexpr int shift = 16, control = 17, alt = 18, left = 37, down = 40, function_5 = 116;
    EXPECT_TRUE(stage->key(in_gallery(u"list"), 27));
    for (const int key : {shift, control, alt, left, down, function_5}) {
        EXPECT_TRUE(stage->key(in_gallery(u"list"), key));
    }
    EXPECT_THAT(deeds(form), ElementsAre("character 27"));
}

TEST_F(FormsTest, EnterAndEscapePressTheNamedButtons) {
    const auto other = shown(with_keys);
    EXPECT_EQ(stage->focused(with_keys_caption), u"words");
    EXPECT_TRUE(stage->key({with_keys_caption, {}}, 13));
    EXPECT_TRUE(stage->key({with_keys_caption, {}}, 27));
    EXPECT_THAT(deeds(other), ElementsAre("click go", "click stop"));
    other->told.clear();
    other->control(u"go").enabled(false);
    EXPECT_TRUE(stage->key({with_keys_caption, {}}, 13));
    EXPECT_THAT(deeds(other), ElementsAre("character 13", "press words 13"));
}

TEST_F(FormsTest, EnterPressesTheButtonThatHasTheFocus) {
    const auto other = shown(with_keys);
    EXPECT_TRUE(stage->key(in_keys(u"stop"), 13));
    EXPECT_THAT(deeds(other), ElementsAre("click stop"));
}

TEST_F(FormsTest, TabFollowsTheTable) {
    EXPECT_EQ(stage->focused(gallery_caption), u"words");
    form->control(u"go").enabled(false);
    for (const TextView next : {u"stop", u"check", u"left"}) {
        EXPECT_TRUE(stage->key(in_gallery({}), 9));
        EXPECT_EQ(stage->focused(gallery_caption), next);
    }
    EXPECT_THAT(deeds(form), ElementsAre());
}

TEST_F(FormsTest, DropDownListTakesOnlyItsEntries) {
    Control& strict = form->control(u"strict");
    EXPECT_EQ(strict.text(), u"");
    strict.text(u"Something");
    EXPECT_EQ(strict.text(), u"");
    strict.text(u"opportunities");
    EXPECT_EQ(strict.text(), u"Opportunities");
    EXPECT_EQ(strict.choice().chosen(), 1);
    EXPECT_FALSE(stage->type(in_gallery(u"strict"), u"Notes"));
    strict.choice().clear();
    EXPECT_EQ(strict.text(), u"");
    EXPECT_EQ(strict.choice().count(), 0);
}

TEST_F(FormsTest, ComboBoxTakesAnyText) {
    Control& free = form->control(u"free");
    EXPECT_EQ(free.text(), u"Choose");
    EXPECT_EQ(free.choice().chosen(), -1);
    EXPECT_TRUE(stage->type(in_gallery(u"free"), u"Mine"));
    EXPECT_EQ(free.text(), u"Mine");
    free.choice().choose(2);
    EXPECT_EQ(free.text(), u"My Calendar");
    free.choice().clear();
    free.text(u"E-mail");
    free.choice().add(u"Letter");
    EXPECT_EQ(free.text(), u"E-mail");
    EXPECT_EQ(free.choice().entry(0), u"Letter");
    EXPECT_THAT(deeds(form), ElementsAre());
}

TEST_F(FormsTest, ChoosingTheSameEntryAgainIsAClick) {
    std::vector<Text> seen;
    form->at = [&](const std::string& event) {
        if (event.starts_with("click")) seen.push_back(form->control(u"free").text());
    };
    EXPECT_TRUE(stage->choose(in_gallery(u"free"), 1));
    EXPECT_TRUE(stage->choose(in_gallery(u"free"), 1));
    EXPECT_TRUE(stage->choose(in_gallery(u"free"), 0));
    EXPECT_FALSE(stage->choose(in_gallery(u"free"), 3));
    EXPECT_THAT(deeds(form), ElementsAre("click free", "click free", "click free"));
    EXPECT_THAT(seen, ElementsAre(u"Opportunities", u"Opportunities", u"Notes"))
        << "the text is there when the event comes";
    EXPECT_TRUE(stage->choose(in_gallery(u"strict"), 2));
    EXPECT_EQ(form->control(u"strict").text(), u"My Calendar");
}

TEST_F(FormsTest, ListKeepsLongTextsAndManyRows) {
    const Text long_text(1000, u'w');
    EXPECT_EQ(list().add(long_text), 0);
    list().text(0, 1, long_text);
    EXPECT_EQ(list().text(0, 0), long_text);
    EXPECT_EQ(list().text(0, 1), long_text);
    list().sorted(true);
    for (int row = 0; row < 300; ++row) list().add(automation::to_text((row * 7919) % 1000));
    std::vector<std::string> sorted = names(list());
    EXPECT_TRUE(std::ranges::is_sorted(sorted));
    list().clear();
    EXPECT_EQ(list().count(), 0);
    EXPECT_EQ(list().selected(), -1);
}

TEST_F(FormsTest, HeadingsHaveTheirMarks) {
    list().header_item(1, {.mask = header::format | header::image,
                           .format = header::string | header::image_on_right | header::with_image,
                           .image = 1});
    EXPECT_EQ(stage->mark(in_gallery(u"list"), 0), -1);
    EXPECT_EQ(stage->mark(in_gallery(u"list"), 1), 1);
    EXPECT_EQ(list().heading(1), u"City");
    list().header_item(1, {.mask = header::format, .format = header::string});
    EXPECT_EQ(stage->mark(in_gallery(u"list"), 1), -1);
    list().heading(1, u"Town");
    EXPECT_EQ(list().heading(1), u"Town");
    list().header_item(0, {.mask = header::text | header::format, .format = header::string, .text = u"Who"});
    EXPECT_EQ(list().heading(0), u"Who");
}

TEST_F(FormsTest, WidthsAreWholePixels) {
    list().width(0, 4586);
    EXPECT_EQ(list().width(0), 4590) << "306 pixels";
    stage->dots_per_inch(192);
    const auto sharp = shown(with_keys);
    EXPECT_EQ(sharp->view().dots_per_inch(), 192);
    sharp->control(u"list").list().width(0, 4586);
    EXPECT_EQ(sharp->control(u"list").list().width(0), 4582) << "611 pixels";
}

TEST_F(FormsTest, ListTellsWhatItsUserDoes) {
    list().add(u"one");
    list().add(u"two");
    EXPECT_EQ(list().selected(), -1);
    EXPECT_TRUE(stage->select(in_gallery(u"list"), 1));
    EXPECT_EQ(list().selected(), 1);
    EXPECT_TRUE(stage->double_click(in_gallery(u"list"), 0));
    EXPECT_EQ(list().selected(), 0);
    EXPECT_FALSE(stage->double_click(in_gallery(u"list"), 2));
    EXPECT_TRUE(stage->column_click(in_gallery(u"list"), 1));
    EXPECT_FALSE(stage->column_click(in_gallery(u"list"), 2)) << "it has no width";
    EXPECT_THAT(deeds(form), ElementsAre("double list", "column list 1"));
    list().clear();
    EXPECT_EQ(list().selected(), -1);
    EXPECT_TRUE(stage->double_click(in_gallery(u"list"), -1)) << "an empty list can be clicked, too";
    EXPECT_THAT(deeds(form), ElementsAre("double list", "column list 1", "double list"));
}

TEST_F(FormsTest, SelectedRowMovesWithTheLogic) {
    for (const TextView name : {u"one", u"two", u"three"}) list().add(name);
    list().select(0);
    list().select(2);
    EXPECT_EQ(list().selected(), 2);
    list().select(-1);
    EXPECT_EQ(list().selected(), -1);
}

TEST_F(FormsTest, DropsAreTakenOnlyWhereTheyAreWanted) {
    list().add(u"one");
    list().add(u"two");
    EXPECT_FALSE(stage->drop(in_gallery(u"list"), 1));
    list().takes_drops(true);
    EXPECT_TRUE(stage->drop(in_gallery(u"list"), 1));
    EXPECT_TRUE(stage->drop(in_gallery(u"list"), -1));
    list().takes_drops(false);
    EXPECT_FALSE(stage->drop(in_gallery(u"list"), 1));
    EXPECT_THAT(deeds(form), ElementsAre("drop list at row 1", "drop list at row -1"));
}

}  // namespace
}  // namespace forms_test
