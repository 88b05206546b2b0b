// The system's calls that the add-in makes pass the boundary, and fail there in the way of the system's own.
#include "tests/forms/support/gallery.h"
#include "tests/native/native_world.h"

namespace native {
namespace {

using automation::Failure;
using automation::Text;

/// Runs what makes calls of one name, while these fail. Whether it is told of that.
bool is_told(Boundary& boundary, const char* name, const std::function<void()>& routine) {
    boundary.before_call = [name](const std::string& call) {
        if (call == name) throw Failure(automation::result::fail);
    };
    bool told = false;
    try {
        routine();
    } catch (const Failure&) {
        told = true;
    }
    boundary.before_call = nullptr;
    return told;
}

TEST(SystemCalls, OfTheDesktopFailInTheSystemsWay) {
    constexpr std::uint32_t size = 100;
    NativeWorld world{acceptance::WorldSetup{}};
    host::Desktop& desktop = world.desktop();
    const Text ini = world.write_file("some.ini", "[One]\r\nKey=Value\r\n");
    Text answer;
    struct Case {
        const char* name;
        std::function<void()> call;  // sets the answer
        Text usual;
        bool told;  // or else the answer is empty
    };
    const Case cases[] = {
        {"section_names", [&] { answer = desktop.section_names(ini, size); }, Text(u"One\0", 4), false},
        {"profile_text", [&] { answer = desktop.profile_text(ini, u"One", u"Key", size); }, u"Value", false},
        {"text_of", [&] { answer = desktop.text_of(automation::Value(12)); }, u"12", true},
        {"date_of", [&] { answer = desktop.text_of(desktop.date_of(u"2/3/2024")); }, u"2/3/2024", true},
        {"format", [&] { answer = desktop.format(u"0.5", u"Percent"); }, u"50.00%", true},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        answer.clear();
        one.call();
        EXPECT_EQ(answer, one.usual);
        answer.clear();
        EXPECT_EQ(is_told(world.boundary(), one.name, one.call), one.told);
        EXPECT_EQ(answer, u"");
    }
}

TEST(SystemCalls, OfABoxThatCantBeShownAnswerNothing) {
    NativeWorld world{acceptance::WorldSetup{}};
    int answer = -1;
    const auto ask = [&] { answer = world.desktop().message_box(u"text", u"title", host::box::ok); };
    EXPECT_FALSE(is_told(world.boundary(), "message_box", ask));
    EXPECT_EQ(answer, 0);
    EXPECT_TRUE(world.model().messages.empty());
    ask();
    EXPECT_EQ(answer, host::box::answer_ok);
}

TEST(SystemCalls, OfWindowsFailInTheSystemsWay) {
    Boundary boundary;
    Strands strands;
    MemoryEngine memory{strands};
    EngineAcross engine(boundary, memory);
    const auto form = std::make_shared<forms_test::Noted>(engine, forms_test::gallery);
    EXPECT_TRUE(is_told(boundary, "make_window", [&] { form->show(); }));
    EXPECT_FALSE(form->loaded());
    EXPECT_TRUE(memory.windows().empty());

    form->show();
    forms::List& list = form->control(u"list").list();
    EXPECT_TRUE(is_told(boundary, "list_add", [&] { list.add(u"one"); }));
    EXPECT_EQ(list.count(), 0);
    EXPECT_TRUE(is_told(boundary, "takes_drops", [&] { list.takes_drops(true); }));
    list.add(u"one");
    EXPECT_FALSE(is_told(boundary, "list_text", [&] { list.text(0, 0, u"two"); }));
    EXPECT_EQ(list.text(0, 0), u"one");
    forms::Choice& choice = form->control(u"free").choice();
    const int entries = choice.count();
    EXPECT_FALSE(is_told(boundary, "choice_add", [&] { choice.add(u"entry"); }));
    EXPECT_EQ(choice.count(), entries);
}

}  // namespace
}  // namespace native
