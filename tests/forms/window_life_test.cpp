// The life of a window as its logic sees it: its size, the focus, modal shows, its end in the middle of an
// event.
#include <gmock/gmock.h>

#include "automation/failure.h"
#include "tests/forms/support/forms_test.h"

namespace forms_test {
namespace {

using automation::TextView;
using forms::Control;
using forms::List;
using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

TEST_F(FormsTest, OnlySizableWindowsAreResized) {
    EXPECT_TRUE(stage->resize(gallery_caption, 600, 400));
    EXPECT_EQ(form->view().size().width, 9000);
    EXPECT_EQ(form->view().size().height, 6000);
    // A real desktop may bring a window to its size in more than one step.
    EXPECT_THAT(deeds(form), AllOf(Not(IsEmpty()), Each("resize")));
    form->told.clear();
    EXPECT_TRUE(stage->minimize(gallery_caption));
    EXPECT_TRUE(form->view().minimized());
    EXPECT_THAT(deeds(form), AllOf(Not(IsEmpty()), Each("resize")));
    const auto fixed = shown(with_keys);
    EXPECT_FALSE(stage->resize(with_keys_caption, 600, 400));
    EXPECT_FALSE(stage->minimize(with_keys_caption));
}

TEST_F(FormsTest, WindowTellsWhenItBecomesActive) {
    form->show();
    EXPECT_THAT(form->told, ElementsAre()) << "it is the active one";
    stage->activate_host();
    form->show();
    EXPECT_THAT(form->told, ElementsAre("activate"));
    EXPECT_TRUE(stage->activate(gallery_caption));
    EXPECT_THAT(form->told, ElementsAre("activate", "activate"));
    EXPECT_FALSE(stage->topmost(gallery_caption));
    form->view().topmost();
    EXPECT_TRUE(stage->topmost(gallery_caption));
}

TEST_F(FormsTest, FocusMayMoveOnWhenTheWindowGetsIt) {
    const auto other = std::make_shared<Noted>(stage->engine(), with_keys);
    other->at = [&](const std::string& event) {
        if (event == "focus") other->control(u"list").focus();
    };
    other->show();
    EXPECT_EQ(stage->focused(with_keys_caption), u"list");
}

TEST_F(FormsTest, FocusThatIsGivenBeforeTheShowComesWithIt) {
    const auto other = std::make_shared<Noted>(stage->engine(), with_keys);
    other->control(u"stop").focus();
    other->show();
    EXPECT_EQ(stage->focused(with_keys_caption), u"stop");
    other->control(u"stop").enabled(false);
    other->control(u"stop").focus();
    EXPECT_NE(stage->focused(with_keys_caption), u"stop") << "a disabled one can't have it";
}

TEST_F(FormsTest, ModalShowComesBackWhenItsWindowIsHidden) {
    const auto dialog = std::make_shared<Noted>(stage->engine(), with_keys);
    dialog->at = [&](const std::string& event) {
        if (event == "click stop") dialog->hide();
    };
    bool back = false;
    stage->modal(
        [&] {
            dialog->show_modal();
            back = true;
        },
        {[&] { EXPECT_FALSE(stage->click(in_gallery(u"go"))) << "it waits behind the modal one"; },
         [&] { EXPECT_TRUE(stage->click(in_keys(u"go"))); }, [&] { EXPECT_FALSE(back); },
         [&] { EXPECT_TRUE(stage->click(in_keys(u"stop"))); }});
    EXPECT_TRUE(back);
    EXPECT_FALSE(dialog->view().visible());
    EXPECT_TRUE(stage->click(in_gallery(u"go")));
    EXPECT_THAT(deeds(form), ElementsAre("click go"));
}

/// Each way in which a person makes a window tell something, inside of which it may end.
struct WayOut {
    const char* event;
    bool (*deed)(Stage&, TextView window);
};
constexpr WayOut ways_out[] = {
    {"click go",
     [](Stage& stage, TextView window) {
         return stage.click({window, u"go"});
     }},
    {"click check",
     [](Stage& stage, TextView window) {
         return stage.click({window, u"check"});
     }},
    {"click right",
     [](Stage& stage, TextView window) {
         return stage.click({window, u"right"});
     }},
    {"click link",
     [](Stage& stage, TextView window) {
         return stage.click({window, u"link"});
     }},
    {"click plus",
     [](Stage& stage, TextView window) {
         return stage.click({window, u"plus"});
     }},
    {"click free",
     [](Stage& stage, TextView window) {
         return stage.choose({window, u"free"}, 1);
     }},
    {"click strict",
     [](Stage& stage, TextView window) {
         return stage.choose({window, u"strict"}, 1);
     }},
    {"change words",
     [](Stage& stage, TextView window) {
         return stage.type({window, u"words"}, u"x");
     }},
    {"character 97",
     [](Stage& stage, TextView window) {
         return stage.key({window, u"words"}, 'A');
     }},
    {"character 27",
     [](Stage& stage, TextView window) {
         return stage.key({window, u"list"}, 27);
     }},
    {"press words 13",
     [](Stage& stage, TextView window) {
         return stage.key({window, u"words"}, 13);
     }},
    {"click go",
     [](Stage& stage, TextView window) {
         return stage.key({window, u"go"}, 13);
     }},
    {"double list",
     [](Stage& stage, TextView window) {
         return stage.double_click({window, u"list"}, 0);
     }},
    {"column list 0",
     [](Stage& stage, TextView window) {
         return stage.column_click({window, u"list"}, 0);
     }},
    {"drop list at row 0",
     [](Stage& stage, TextView window) {
         return stage.drop({window, u"list"}, 0);
     }},
    {"resize", [](Stage& stage, TextView window) { return stage.resize(window, 640, 480); }},
    {"close", [](Stage& stage, TextView window) { return stage.close(window); }},
};

TEST_F(FormsTest, HandlerMayEndItsOwnWindowInAnyEvent) {
    form.reset();
    for (const WayOut& way : ways_out) {
        SCOPED_TRACE(way.event);
        auto other = shown(gallery);
        List& rows = other->control(u"list").list();
        rows.add(u"row");
        rows.takes_drops(true);
        bool ended = false;
        other->at = [&](const std::string& event) {
            if (event != way.event) return;
            ended = true;
            other->unload();
        };
        EXPECT_TRUE(way.deed(*stage, gallery_caption));
        EXPECT_TRUE(ended);
        EXPECT_FALSE(other->loaded());
        EXPECT_FALSE(stage->there(gallery_caption));
    }
}

TEST_F(FormsTest, HandlerMayEndItsOwnModalWindow) {
    form.reset();
    for (const WayOut& way : ways_out) {
        SCOPED_TRACE(way.event);
        auto dialog = std::make_shared<Noted>(stage->engine(), gallery);
        dialog->at = [&](const std::string& event) {
            if (event == way.event) dialog->unload();
        };
        List& rows = dialog->control(u"list").list();
        rows.add(u"row");
        rows.takes_drops(true);
        bool back = false;
        stage->modal(
            [&] {
                dialog->show_modal();
                back = true;
            },
            {[&] { EXPECT_TRUE(way.deed(*stage, gallery_caption)); }});
        EXPECT_TRUE(back);
        EXPECT_FALSE(stage->there(gallery_caption));
    }
}

TEST_F(FormsTest, ModalWindowOverAModalWindow) {
    form.reset();
    const auto lower = std::make_shared<Noted>(stage->engine(), with_keys);
    const auto upper = std::make_shared<Noted>(stage->engine(), gallery);
    lower->at = [&](const std::string& event) {
        if (event == "click go") upper->show_modal();
        if (event == "click stop") lower->hide();
    };
    bool upper_was_there = false;
    stage->modal([&] { lower->show_modal(); }, {[&] { EXPECT_TRUE(stage->click(in_keys(u"go"))); },
                                                [&] {
                                                    upper_was_there = stage->there(gallery_caption);
                                                    EXPECT_FALSE(stage->click(in_keys(u"stop")));
                                                },
                                                [&] { EXPECT_TRUE(stage->close(gallery_caption)); },
                                                [&] { EXPECT_TRUE(stage->click(in_keys(u"stop"))); }});
    EXPECT_TRUE(upper_was_there);
    EXPECT_FALSE(lower->view().visible());
}

TEST_F(FormsTest, FailureOfAnEventEndsThere) {
    form->at = [](const std::string&) { throw automation::Failure(automation::result::fail, u"no luck"); };
    EXPECT_TRUE(stage->click(in_gallery(u"go")));
    form->at = nullptr;
    EXPECT_TRUE(stage->click(in_gallery(u"go")));
    EXPECT_THAT(deeds(form), ElementsAre("click go", "click go"));
}

TEST_F(FormsTest, HiddenControlsAreFullOfState) {
    Control& hidden = form->control(u"hidden");
    hidden.text(u"12");
    EXPECT_EQ(hidden.text(), u"12");
    hidden.visible(true);
    EXPECT_TRUE(stage->type(in_gallery(u"hidden"), u"13"));
    EXPECT_EQ(hidden.text(), u"13");
}

}  // namespace
}  // namespace forms_test
