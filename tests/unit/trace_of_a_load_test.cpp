// A load that is traced does what one does that isn't, and its trace names nobody, whatever fails.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

#include "tests/native/native_world.h"
#include "tests/native/nth_call.h"
#include "tests/world/note_dialog.h"
#include "tests/world/people.h"

namespace addin_tests {
namespace {

using acceptance::message;
using automation::Failure;
using automation::Text;
using automation::TextView;
using host::outlook::Item;
using native::NativeWorld;
namespace result = automation::result;

/// A world whose add-in may write a trace.
struct TracedWorld {
    NativeWorld world;
    Text file;

    explicit TracedWorld(bool traced, const std::string& database = "empty")
        : world({.database = database, .started = false}), file(world.write_file("trace.txt", "")) {
        if (traced) world.own_option(u"TraceFile", file);
        world.start();
        world.family(u"EmailAutoFile", u"1");
        world.option(u"AutoFileSentEmails", u"1");
        world.option(u"SaveExchangeEmail", u"1");
    }
    std::string trace() const {
        std::ifstream text(std::filesystem::path(file), std::ios::binary);
        return {std::istreambuf_iterator<char>(text), {}};
    }
};

/// What the add-in asks for when a mail is read and when one is sent.
std::vector<std::string> calls_of_mails(NativeWorld& world) {
    acceptance::add_contact(world);
    const Item read = world.deliver(message());
    const Item sent =
        world.deliver(message({.from = "Pat Example <pat@tarnwell.example>",
                               .to = "Annie <ann.lee@northmill.example>, Bo <bo@one.example>"}));
    world.settle();
    world.boundary().forget_calls();
    NativeWorld::read(read);
    sent.call(u"Send");
    world.settle();
    EXPECT_EQ(acceptance::count_in(world, u"Email"), 2);
    return world.boundary().calls();
}

TEST(TraceOfALoad, IsNotThereWithoutAFileForIt) {
    TracedWorld plain(false);
    const addin::Rooms& rooms = plain.world.add_in()->rooms();
    EXPECT_EQ(rooms.trace, nullptr);
    EXPECT_EQ(rooms.session.step_observer, nullptr);
    EXPECT_EQ(&rooms.session.desktop, &plain.world.desktop()) << "nothing stands before the system";
    EXPECT_EQ(&rooms.session.engine, &plain.world.engine_of_add_in());
    calls_of_mails(plain.world);
    EXPECT_EQ(plain.trace(), "");
}

TEST(TraceOfALoad, MakesNoCallOfItsOwn) {
    TracedWorld plain(false), traced(true);
    EXPECT_EQ(calls_of_mails(traced.world), calls_of_mails(plain.world));
    EXPECT_NE(traced.trace(), "");
}

TEST(TraceOfALoad, LeavesNothingOfTheHostHeld) {
    TracedWorld traced(true);
    calls_of_mails(traced.world);
    traced.world.unload_add_in(1);
    EXPECT_TRUE(traced.world.boundary().live().empty());
}

TEST(TraceOfALoad, TellsWhatCountsCouldNotBeRead) {
    TracedWorld traced(true);
    traced.world.boundary().before_call = [](const std::string& member) {
        if (member.ends_with("Recipients.Count")) throw Failure(result::fail, u"made to fail");
    };
    traced.world.deliver(message()).call(u"Send");
    EXPECT_NE(traced.trace().find("\n    not filed: no recipient was found, after "), std::string::npos)
        << traced.trace();
}

/// What nobody is to read.
constexpr const char* theirs[] = {"Ann",   "Lee",   "northmill", "North",  "Mill", "Delivery",
                                  "dates", "first", "Tom",       "Prior",  "bo@",  "one.example",
                                  "A-100", "C-200", "Mia",       "secret", "Hart"};

TEST(TraceOfALoad, NamesNobodyWhateverCallFailsWithTheirNames) {
    std::string text;
    native::for_each_call(
        [&](native::NthCall& call) {
            TracedWorld traced(true);
            acceptance::add_contact(traced.world);
            const Item read = traced.world.deliver(message());
            const Item sent = traced.world.deliver(
                message({.from = "Pat Example <pat@tarnwell.example>",
                         .to = "Annie <ann.lee@northmill.example>, Bo <bo@one.example>"}));
            traced.world.settle();
            call.with(
                traced.world,
                [] {
                    throw Failure(
                        result::fail,
                        u"Delivery dates of Ann Lee <ann.lee@northmill.example>: 'A secret' of C:\\Mia "
                        u"Hart\\first.msg failed");
                },
                [&] {
                    NativeWorld::read(read);
                    sent.call(u"Send");
                });
            text = traced.trace();
            if (call.came() && !call.member().starts_with("registry.")) {
                EXPECT_NE(text.find("0x80004005 "), std::string::npos) << call.member() << "\n" << text;
            }
            for (const char* const word : theirs)
                EXPECT_EQ(text.find(word), std::string::npos) << word << " in\n" << text;
        },
        3);
}

TEST(TraceOfALoad, NamesNobodyOfTheSampleMails) {
    TracedWorld traced(true, "sample");
    std::set<std::string> said;
    const std::filesystem::path folder = std::filesystem::path(TARNWELL_DATA_FOLDER) / "sample" / "mails";
    int mails = 0;
    for (const auto& file : std::filesystem::directory_iterator(folder)) {
        const Item mail(traced.world.desk().call(u"Deliver", {file.path().u16string()}).to_object());
        NativeWorld::read(mail);
        ++mails;
        for (const TextView member : {u"Subject", u"SenderName", u"SenderEmailAddress", u"To"}) {
            const std::string text = automation::to_utf8(mail.get(member).to_text());
            if (text.size() > 2) said.insert(text);
        }
    }
    EXPECT_EQ(mails, 25);
    const std::string text = traced.trace();
    EXPECT_GT(std::ranges::count(text, '#'), 2 * mails - 10);
    for (const std::string& words : said) EXPECT_EQ(text.find(words), std::string::npos) << words;
    EXPECT_EQ(text.find('@'), std::string::npos);
}

TEST(TraceOfALoad, CountsTheTimeOfADialogAsTheUsers) {
    TracedWorld traced(true);
    acceptance::OpenedItem mail(traced.world.deliver(message()));
    mail.show();
    {
        acceptance::NoteDialog dialog(traced.world);
        ASSERT_TRUE(dialog.open(mail));
        dialog.click(u"Option1");
        dialog.click(u"Option2");  // lists the mail's people anew
    }
    traced.world.settle();
    const std::string trace = traced.trace();
    EXPECT_NE(trace.find("  dlgSend.Option2.Click, during #"), std::string::npos)
        << "its events are stories\n"
        << trace;
    const std::size_t pressed = trace.rfind("  _CommandBarButtonEvents.Click\n");
    ASSERT_NE(pressed, std::string::npos) << trace;
    EXPECT_NE(trace.find(" ms of waiting\n", pressed), std::string::npos) << trace.substr(pressed);
}

}  // namespace
}  // namespace addin_tests
