// What only windows in memory have; the rest they share with real ones (tests/forms/behaviour_test.cpp).
#include "tests/native/memory_forms.h"

#include <gmock/gmock.h>

#include "automation/failure.h"
#include "tests/forms/support/gallery.h"

namespace {

using automation::TextView;
using forms_test::gallery;
using forms_test::gallery_caption;
using forms_test::Noted;
using forms_test::with_keys;
using forms_test::with_keys_caption;
using native::MemoryControl;
using native::MemoryEngine;
using native::MemoryWindow;
using native::Strands;
using testing::ElementsAre;

struct MemoryForms : testing::Test {
    Strands strands;
    MemoryEngine engine{strands};

    std::shared_ptr<Noted> shown(const forms::FormTable& table) {
        auto form = std::make_shared<Noted>(engine, table);
        form->show();
        form->told.clear();
        return form;
    }
    std::shared_ptr<Noted> form = shown(gallery);

    MemoryWindow& window(TextView caption = gallery_caption) {
        MemoryWindow* const found = engine.find(caption);
        if (!found) throw std::runtime_error("there is no such window");
        return *found;
    }
    MemoryControl& at(TextView name) { return window().control(name); }
};

TEST_F(MemoryForms, WindowsAreListedAsTheyWereMadeAndEndWithTheirOwner) {
    auto second = shown(with_keys);
    ASSERT_EQ(engine.windows().size(), 2U);
    EXPECT_EQ(engine.windows()[0]->table().name, u"Gallery");
    EXPECT_EQ(engine.windows()[1]->table().name, u"WithKeys");
    form.reset();
    ASSERT_EQ(engine.windows().size(), 1U);
}

TEST_F(MemoryForms, HeadingsHaveTheirOwnItems) {
    namespace header = forms::header;
    forms::List& list = form->control(u"list").list();
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

TEST_F(MemoryForms, HitTellsTheColumn) {
    forms::List& list = form->control(u"list").list();
    list.add(u"one");
    const auto middle = at(u"list").memory_list().middle(0);
    EXPECT_EQ(list.hit(172, middle.y).column, 1);
    EXPECT_EQ(list.hit(171, middle.y).column, 0);
    EXPECT_EQ(list.hit(2000, middle.y).row, -1);
    EXPECT_EQ(list.hit(5, 3).row, -1) << "the headings";
}

TEST_F(MemoryForms, ModalWindowOverAModalWindow) {
    auto lower = std::make_shared<Noted>(engine, with_keys);
    auto upper = std::make_shared<Noted>(engine, gallery);
    lower->at = [&](const std::string& event) {
        if (event == "click go") upper->show_modal();
        if (event == "click stop") lower->hide();
    };
    strands.run([&] { lower->show_modal(); });
    ASSERT_TRUE(window(with_keys_caption).control(u"go").click());
    EXPECT_EQ(strands.parked(), 2);
    EXPECT_FALSE(window(with_keys_caption).control(u"stop").click());
    ASSERT_TRUE(engine.windows().back()->close());
    EXPECT_EQ(strands.parked(), 1);
    EXPECT_TRUE(window(with_keys_caption).control(u"stop").click());
    EXPECT_EQ(strands.parked(), 0);
}

TEST_F(MemoryForms, ModalShowNeedsAStrand) {
    auto dialog = std::make_shared<Noted>(engine, with_keys);
    EXPECT_THROW(dialog->show_modal(), std::logic_error);
    EXPECT_FALSE(dialog->view().visible());
}

TEST_F(MemoryForms, EndOfTheWorldHidesModalWindows) {
    auto dialog = std::make_shared<Noted>(engine, with_keys);
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
    form->at = [](const std::string&) { throw automation::Failure(automation::result::fail, u"no luck"); };
    EXPECT_TRUE(at(u"go").click());
    EXPECT_THAT(engine.failures, ElementsAre("no luck"));
    EXPECT_THAT(engine.faults, ElementsAre());
}

TEST_F(MemoryForms, AMistakeInAnEventIsNoFailureOfTheHost) {
    form->at = [](const std::string&) { throw std::logic_error("our own mistake"); };
    EXPECT_TRUE(at(u"go").click());
    EXPECT_THAT(engine.failures, ElementsAre());
    EXPECT_THAT(engine.faults, ElementsAre("our own mistake"));
}

}  // namespace
