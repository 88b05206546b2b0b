// The trace tells of each mail that was left alone why, and of nobody whom that doesn't concern.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/world/outgoing.h"

namespace acceptance {
namespace {

using automation::Text;
using automation::TextView;
using host::outlook::Item;

class Traced : public Outgoing {
  protected:
    /// A world that files all mail, and whose add-in writes a trace.
    World& traced(TextView content = {}) {
        World& made = with({.started = false});
        file_ = made.write_file("trace.txt", "");
        made.own_option(u"TraceFile", file_);
        if (!content.empty()) made.own_option(u"TraceContent", content);
        made.start();
        made.family(u"EmailAutoFile", u"1");
        made.option(u"AutoFileSentEmails", u"1");
        return made;
    }

    std::string trace() const {
        std::ifstream file(std::filesystem::path(file_), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    /// How the last event of that kind has ended that came after the first so many characters.
    std::string ending(World& world, std::size_t after, const std::string& event = read_event) const {
        std::string line;
        world.wait_until([&] {
            const std::string text = trace().substr(after);
            const std::size_t story = text.rfind("  " + event + "\n");
            if (story == std::string::npos) return false;
            const std::size_t begin =
                std::min(text.find("\n    filed: ", story), text.find("\n    not filed: ", story));
            if (begin == std::string::npos) return false;
            line = text.substr(begin + 5, text.find('\n', begin + 1) - begin - 5);
            return true;
        });
        return line;
    }

    static constexpr const char* read_event = "ItemsEvents.ItemChange";
    static constexpr const char* sent_event = "ApplicationEvents.ItemSend";
    Text file_;
};

enum class Does { read, change, send };

struct LeftAlone {
    const char* name;
    Does does;
    MailPlan plan;
    const char* why;
    TextView option{};  ///< that has another value than usual
    TextView value{};
    TextView billing{};
};

constexpr const char* by_main_add_in =
    "option off: received mail is not to be filed (the main add-in's own switch)";
constexpr const char* by_directory =
    "option off: mail of the company's own directory is not to be filed (SaveExchangeEmail)";
constexpr const char* by_type =
    "the address is neither one of the Internet nor of the company's own directory";
constexpr const char* by_class = "it is no plain mail (of the class IPM.Note)";
constexpr const char* by_mark = "it is marked as personal, private or confidential";
constexpr const char* by_contact = "no contact was found that has the address";
constexpr const char* by_to_line = "no To line was found";

const LeftAlone left_alone[] = {
    {"a report", Does::read, {.more = "X-Desk-Class: IPM.Note.Other\n"}, by_class},
    {"unread", Does::change, {}, "it is still unread"},
    {"filed", Does::read, {}, "it is filed already", {}, {}, u"TW Auto Filed"},
    {"private", Does::read, {.more = "X-Desk-Sensitivity: 2\n"}, by_mark},
    {"switched off", Does::read, {}, by_main_add_in, u"EmailAutoFile", u"0"},
    {"no sender", Does::read, {.more = "X-Desk-Sender: SMTP -\n"}, "no address of the sender was found"},
    {"a colleague", Does::read, {.more = "X-Desk-Sender: EX /o=Example/cn=ann\n"}, by_directory},
    {"another system", Does::read, {.more = "X-Desk-Sender: NOTES CN=Ann/O=Example\n"}, by_type},
    {"no To line", Does::read, {.to = ""}, by_to_line},
    {"a stranger", Does::read, {.from = "Nobody <nobody@elsewhere.example>"}, by_contact},
    {"a report sent", Does::send, {.more = "X-Desk-Class: IPM.Note.Other\n"}, by_class},
    {"private and sent", Does::send, {.more = "X-Desk-Sensitivity: 1\n"}, by_mark},
    {"sending switched off",
     Does::send,
     {},
     "option off: sent mail is not to be filed (AutoFileSentEmails)",
     u"AutoFileSentEmails",
     u"0"},
    {"no recipient's address",
     Does::send,
     {.more = "X-Desk-Recipient: tom.prior@tarnwell.example SMTP -\n"},
     "no address of the recipient was found"},
    {"to a colleague",
     Does::send,
     {.more = "X-Desk-Recipient: tom.prior@tarnwell.example EX /o=Example/cn=tom\n"},
     by_directory},
    {"to another system",
     Does::send,
     {.more = "X-Desk-Recipient: tom.prior@tarnwell.example NOTES CN=Tom/O=Example\n"},
     by_type},
    {"without a To line",
     Does::send,
     {.to = "", .more = "Cc: Tom Prior <tom.prior@tarnwell.example>\n"},
     by_to_line},
    {"to a stranger", Does::send, {}, by_contact},
};

TEST_F(Traced, MailThatIsLeftAloneSaysWhy) {
    World& world = traced();
    add_contact(world);
    for (const LeftAlone& one : left_alone) {
        SCOPED_TRACE(one.name);
        MailPlan plan = one.plan;
        if (one.does == Does::send) plan.from = "Pat Example <pat@tarnwell.example>";
        const Item mail = world.deliver(message(plan));
        if (!one.billing.empty()) mail.BillingInformation(one.billing);
        const bool by_family = one.option == u"EmailAutoFile";
        if (by_family) {
            world.family(one.option, one.value);
        } else if (!one.option.empty()) {
            world.option(one.option, one.value);
        }
        world.settle();
        const std::size_t before = trace().size();
        switch (one.does) {
            case Does::read:
                World::read(mail);
                break;
            case Does::change:
                mail.put(u"Categories", u"Blue");
                mail.Save();
                break;
            case Does::send:
                mail.call(u"Send");
                break;
        }
        const std::string why = std::string("not filed: ") + one.why;
        if (one.does == Does::send) {  // a mail without a window has no bar to take down, which is told, too
            const std::string told = ending(world, before, sent_event);
            EXPECT_EQ(told.substr(0, told.find(", after ")), why);
        } else {
            EXPECT_EQ(ending(world, before), why);
        }
        if (by_family) {
            world.family(one.option, u"1");
        } else if (!one.option.empty()) {
            world.option(one.option, u"1");
        }
    }
    EXPECT_EQ(count_in(world, u"Email"), 0);
}

TEST_F(Traced, MailThatIsFiledSaysSoAndNamesNobody) {
    World& world = traced();
    add_contact(world);
    const Item mail = read_mail(world);
    EXPECT_EQ(ending(world, 0), "filed: 1 note");
    EXPECT_TRUE(is_marked(mail));
    const std::string text = trace();
    EXPECT_NE(text.find(" is traced, without addresses and subjects\n"), std::string::npos) << text;
    EXPECT_NE(text.find("  OnConnection\n"), std::string::npos) << text;
    EXPECT_NE(text.find("  ItemsEvents.ItemChange\n"), std::string::npos) << text;
    EXPECT_NE(text.find(" ms in the host ("), std::string::npos) << text;
    for (const char* const theirs : {"Ann", "Lee", "northmill", "North Mill", "Delivery", "dates",
                                     "first line", "Tom", "Prior", "A-100", "C-200", "Mia"}) {
        EXPECT_EQ(text.find(theirs), std::string::npos) << theirs << " in\n" << text;
    }
}

TEST_F(Traced, MailTellsItsAddressesAndSubjectIfThatIsWanted) {
    World& world = traced(u"1");
    read_mail(world, {.from = "Nobody <nobody@elsewhere.example>"});
    EXPECT_EQ(ending(world, 0),
              "not filed: no contact was found that has the address nobody@elsewhere.example");
    add_contact(world);
    const std::size_t before = trace().size();
    read_mail(world);
    EXPECT_EQ(ending(world, before), "filed: 1 note");
    const std::string text = trace();
    for (const char* const wanted : {" is traced, with addresses and subjects\n", "Delivery dates",
                                     "[Email1Address] = \"ann.lee@northmill.example\""}) {
        EXPECT_NE(text.find(wanted), std::string::npos) << wanted << " in\n" << text;
    }
    EXPECT_EQ(text.find("The first line"), std::string::npos) << "never a body";
}

TEST_F(Traced, MailIsFiledAllTheSameIfTheTraceCannotBeWritten) {
    World& world = with({.started = false});
    file_ = world.write_file("trace.txt", "in the way");
    world.own_option(u"TraceFile", file_ + u"/trace.txt");
    world.start();
    world.family(u"EmailAutoFile", u"1");
    add_contact(world);
    EXPECT_TRUE(is_marked(read_mail(world)));
    EXPECT_EQ(trace(), "in the way");
}

TEST_F(Traced, HostsWriteOneAfterTheOther) {
    World& world = traced();
    world.quit();
    const std::string first = trace();
    world.start();
    const std::string both = trace();
    EXPECT_TRUE(both.starts_with(first));
    EXPECT_NE(first.find("  OnDisconnection\n"), std::string::npos) << first;
    EXPECT_NE(both.find("  OnConnection\n", first.size()), std::string::npos) << both;
}

}  // namespace
}  // namespace acceptance
