// The stories that a trace tells, by a clock of the test's own.
#include <gtest/gtest.h>

#include <algorithm>

#include "addin/ground/keyed.h"
#include "addin/host/host_events.h"
#include "addin/trace/reasons.h"
#include "addin/trace/story.h"

namespace addin_tests {
namespace {

using addin::Reason;
using addin::SourcePlace;
using addin::trace::Log;
using addin::trace::Teller;
using addin::trace::Turn;
using automation::Failure;
using automation::Request;
using automation::Value;
using namespace std::chrono_literals;
namespace result = automation::result;

class Written : public Log {
  public:
    Written(std::string& text, const bool& full) : text_(text), full_(full) {}
    bool write(std::string_view text) noexcept override {
        if (!full_) text_ += text;
        return !full_;
    }

  private:
    std::string& text_;
    const bool& full_;
};

class Stories : public ::testing::Test {
  protected:
    void pass(std::chrono::microseconds time) { now_ += time; }

    void call(automation::TextView member, std::chrono::microseconds time = 0us, const Value& argument = {},
              const Value& answer = {}) {
        const Request request{.member = member, .arguments = {argument}};
        teller_.asks(request);
        pass(time);
        teller_.asked(request, &answer, nullptr);
    }
    void read_mail() { teller_.tells(host::events::items.id, {.member = u"ItemChange", .id = 0xF002}); }
    void decide(Reason reason, bool answer = true, automation::TextView about = {}) {
        teller_.decided(place_, answer, {reason, about}, nullptr);
    }

    /// What is written when the event is over, without the places' names.
    std::string told() {
        teller_.told();
        std::string text = std::exchange(text_, {});
        const std::string place =
            addin::trace::name_of(place_.function_name(), place_.file_name(), place_.line());
        for (std::size_t at = text.find(place); at != std::string::npos; at = text.find(place)) {
            text.replace(at, place.size(), "HERE");
        }
        return text;
    }
    std::string last_line() {
        const std::string text = told();
        return text.substr(text.rfind("    ") + 4);
    }

    std::string text_;
    bool full_ = false;
    std::chrono::microseconds now_{};
    const SourcePlace place_ = SourcePlace::current();
    const addin::trace::Clock clock_ = [this] {
        return addin::trace::Moment{
            std::chrono::sys_days(std::chrono::year(2026) / 3 / 2) + 9h + 15min + now_,
            std::chrono::steady_clock::time_point(now_)};
    };
    Teller teller_{std::make_unique<Written>(text_, full_), clock_, {}};
};

TEST_F(Stories, TellWhatCameInWhatDecidedWhatFailedHowLongItTookAndHowItEnded) {
    pass(250ms);
    read_mail();
    pass(1500us);
    call(u"MessageClass", 2ms);
    decide(Reason::unread, false);
    teller_.skipped(place_, Failure(result::not_found, u"The operation failed."));
    teller_.turns(Turn::waiting);
    pass(1s);
    teller_.turns_back();
    teller_.decided(place_, false, {}, nullptr);
    decide(Reason::not_for_everybody);
    pass(1600us);
    EXPECT_EQ(told(),
              "2026-03-02T09:15:00.250Z  #1  ItemsEvents.ItemChange\n"
              "    no      HERE\n"
              "    failed  HERE: 0x8004010F The operation failed.\n"
              "    no      HERE\n"
              "    yes     HERE\n"
              "    took 3.1 ms in the add-in, 2.0 ms in the host (1 call), 1000.0 ms of waiting\n"
              "    not filed: it is marked as personal, private or confidential, after 1 step that failed "
              "(above)\n");
}

TEST_F(Stories, OfEventsThatComeDuringOthersStandForThemselves) {
    read_mail();
    pass(1ms);
    teller_.turns(Turn::host);  // the add-in gives way
    pass(2ms);
    teller_.entered("AutomaticCreateNote");
    pass(5ms);
    decide(Reason::filed_already);
    EXPECT_EQ(told(),
              "2026-03-02T09:15:00.003Z  #2  AutomaticCreateNote, during #1\n"
              "    yes     HERE\n"
              "    took 5.0 ms in the add-in, 0.0 ms in the host (0 calls)\n"
              "    not filed: it is filed already\n");
    pass(3ms);
    teller_.turns_back();
    pass(4ms);
    EXPECT_EQ(told(),
              "2026-03-02T09:15:00.000Z  #1  ItemsEvents.ItemChange\n"
              "    took 5.0 ms in the add-in, 5.0 ms in the host (0 calls)\n"
              "    ended\n");
}

TEST_F(Stories, AreNotToldOfEventsAtWhichNothingWasDone) {
    read_mail();
    pass(1ms);
    EXPECT_EQ(told(), "");
}

TEST_F(Stories, CountTheNotesAndNameEachReasonOnce) {
    read_mail();
    decide(Reason::no_contact, false);
    call(u"Post");
    decide(Reason::no_contact);
    decide(Reason::no_contact);
    decide(Reason::no_recipient_address);
    EXPECT_EQ(
        last_line(),
        "filed: 1 note; not for others: no contact was found that has the address (2 times); no address of "
        "the recipient was found\n");
    read_mail();
    call(u"Post");
    call(u"Post");
    EXPECT_EQ(last_line(), "filed: 2 notes\n");
    teller_.entered("ShowQuickView");
    decide(Reason::no_to_line);
    EXPECT_EQ(last_line(), "left: no To line was found\n");
}

TEST_F(Stories, DoNotCallFiledWhatCouldNotBePosted) {
    read_mail();
    decide(Reason::no_contact, false);
    const Request post{.member = u"Post"};
    const Failure failure(result::access_denied);
    teller_.asks(post);
    teller_.asked(post, nullptr, &failure);
    teller_.skipped(place_, failure);
    EXPECT_EQ(last_line(), "not filed: the note could not be posted, after 1 step that failed (above)\n");
}

TEST_F(Stories, TellATestThatCouldNotBeAnswered) {
    read_mail();
    teller_.decided(place_, true, Reason::no_to_line, std::make_unique<Failure>(result::fail).get());
    const std::string text = told();
    EXPECT_NE(text.find("    yes     HERE, taken for it: 0x80004005\n"), std::string::npos) << text;
    EXPECT_NE(text.find("not filed: no To line was found"), std::string::npos) << text;
}

TEST_F(Stories, HoldOnlySoManyLines) {
    read_mail();
    for (int i = 0; i < 1000; ++i) teller_.skipped(place_, Failure(result::fail));
    const std::string text = told();
    EXPECT_EQ(std::ranges::count(text, '\n'), 304);
    EXPECT_NE(text.find("\n    and 700 lines more\n"), std::string::npos);
    EXPECT_NE(text.find("\n    ended, after 1000 steps that failed (above)\n"), std::string::npos);
}

TEST_F(Stories, AreToldOfWhatHappensOutsideOfEvents) {
    teller_.skipped(place_, Failure(result::fail));
    read_mail();
    EXPECT_EQ(told(),
              "2026-03-02T09:15:00.000Z  #1  outside of an event\n"
              "    failed  HERE: 0x80004005\n"
              "    took 0.0 ms in the add-in, 0.0 ms in the host (0 calls)\n"
              "    ended, after 1 step that failed (above)\n");
}

TEST_F(Stories, EndWithTheLogThatCannotBeWritten) {
    full_ = true;
    read_mail();
    decide(Reason::unread);
    EXPECT_EQ(told(), "");
    full_ = false;
    read_mail();
    decide(Reason::unread);
    EXPECT_EQ(told(), "") << "it is not tried again";
}

TEST_F(Stories, LeaveOutWhatCallsSayUnlessItIsWanted) {
    read_mail();
    call(u"Subject", 0us, {}, u"Delivery dates");
    call(u"Body", 0us, {}, u"Sincerely yours");
    call(u"Find", 0us, u"[Email1Address] = \"ann@one.example\"");
    decide(Reason::no_contact, true, u"ann@one.example");
    teller_.skipped(place_, Failure(result::fail, u"No Delivery for Sincerely"));
    EXPECT_EQ(told(),
              "2026-03-02T09:15:00.000Z  #1  ItemsEvents.ItemChange\n"
              "    yes     HERE\n"
              "    failed  HERE: 0x80004005 No \u2026 for \u2026\n"
              "    took 0.0 ms in the add-in, 0.0 ms in the host (3 calls)\n"
              "    not filed: no contact was found that has the address, after 1 step that failed (above)\n");

    std::string text;
    Teller open(std::make_unique<Written>(text, full_), clock_, {.content = true});
    const auto say = [&](automation::TextView member, const Value& argument, const Value& answer) {
        const Request request{.member = member, .arguments = {argument}};
        open.asks(request);
        open.asked(request, &answer, nullptr);
    };
    open.tells(host::events::items.id, {.member = u"ItemChange"});
    say(u"Subject", {}, u"Delivery\r\ndates");
    say(u"Body", {}, u"Sincerely yours");
    say(u"Find", u"[Email1Address] = \"ann@one.example\"", {});
    open.decided(place_, true, {Reason::no_contact, u"ann@one.example"}, nullptr);
    open.skipped(place_, Failure(result::fail, u"No Delivery for Sincerely"));
    say(u"Body", u"Cordially ours", {});
    open.skipped(place_, Failure(result::fail, u"No Delivery for Cordially"));
    open.told();
    for (const char* const part :
         {"    read    Subject: Delivery  dates\n", "    find    [Email1Address] = \"ann@one.example\"\n",
          ": 0x80004005 No Delivery for \u2026\n",
          "no contact was found that has the address ann@one.example"}) {
        EXPECT_NE(text.find(part), std::string::npos) << part << " in\n" << text;
    }
    EXPECT_EQ(text.find("yours"), std::string::npos) << "never a body";
    EXPECT_EQ(text.find("Cordially"), std::string::npos) << "nor one that is written";
}

TEST(Places, AreNamedAsWhoReadsTheCodeKnowsThem) {
    struct Case {
        const char *function, *name;
    };
    constexpr Case cases[] = {
        {"void addin::filing::goInbox_ItemChange(addin::Session&, const host::outlook::Item&)",
         "filing::goInbox_ItemChange"},
        {"bool addin::filing::{anonymous}::Sending::run()", "filing::Sending::run"},
        {"void addin::filing::(anonymous namespace)::Sending::run()", "filing::Sending::run"},
        {"std::optional<std::pair<int, int> > addin::filing::read(int)", "filing::read"},
        {"addin::Connect::StartAddIn(const Object&, TextView)::<lambda()>", "Connect::StartAddIn"},
    };
    for (const auto& [function, name] : cases) {
        EXPECT_EQ(addin::trace::name_of(function, "C:\\folder/file.cpp", 7),
                  std::string(name) + " (file.cpp:7)");
    }
}

TEST(Reasons, HaveASentenceEach) {
    for (int i = 1; i <= static_cast<int>(Reason::no_contact); ++i) {
        EXPECT_GT(addin::trace::sentence(static_cast<Reason>(i)).size(), 10U) << i;
    }
}

}  // namespace
}  // namespace addin_tests
