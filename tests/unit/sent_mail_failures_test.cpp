// What the filing of a sent mail keeps from one recipient to the next where a call fails.
#include "tests/native/native_world.h"
#include "tests/world/people.h"

namespace addin_tests {
namespace {

using acceptance::add_contact;
using acceptance::message;
using host::outlook::Items;
using native::NativeWorld;

constexpr std::int32_t smtp_address = 0x39FE001E;

struct Sending {
    NativeWorld world{acceptance::WorldSetup{}};

    Sending() {
        world.option(u"AutoFileSentEmails", u"1");
        world.option(u"SaveExchangeEmail", u"1");
        add_contact(world, {.full_name = u"Nobody", .fields = {}});  // is found by an empty address
        add_contact(world);
        add_contact(world, u"Bob Ray", u"bob@ray.example");
    }

    /// Whom the notes of a mail to both are for, in their order.
    std::vector<std::string> names_of_notes() {
        world
            .deliver(message({.to = "Annie <ann.lee@northmill.example>, Bobby <bob@ray.example>",
                              .more = "X-Desk-Recipient: bob@ray.example EX /o=Example/cn=bob\n"}))
            .call(u"Send");
        world.settle();
        world.boundary().before_call = nullptr;
        world.boundary().before_request = nullptr;
        std::vector<std::string> names;
        const Items notes = world.below(u"Email").Items();
        for (std::int32_t i = 1; i <= notes.Count(); ++i) {
            names.push_back(automation::to_utf8(NativeWorld::property(notes.Item(i), u"Contact Name")));
        }
        return names;
    }
};

TEST(SentMailFailures, AnAddressThatCannotBeReadIsThatOfTheRecipientBefore) {
    EXPECT_EQ(Sending().names_of_notes(), (std::vector<std::string>{"Ann Lee", "Bob Ray"}));
    Sending sending;
    int failed = 0;
    sending.world.boundary().before_request = [&](const std::string& member,
                                                  const automation::Request& request) {
        if (!member.ends_with("AddressEntry.Fields")) return;
        if (request.arguments.at(0).to_integer() != smtp_address) return;
        ++failed;
        throw automation::Failure(automation::result::fail, u"made to fail");
    };
    EXPECT_EQ(sending.names_of_notes(), (std::vector<std::string>{"Ann Lee", "Ann Lee"}));
    EXPECT_EQ(failed, 1);
}

TEST(SentMailFailures, ANoteThatCannotBeMadeIsThatOfTheRecipientBefore) {
    Sending sending;
    int made = 0;
    sending.world.boundary().before_call = [&](const std::string& member) {
        constexpr int second = 2;
        if (member == "Items.Add" && ++made == second)
            throw automation::Failure(automation::result::fail, u"");
    };
    EXPECT_EQ(sending.names_of_notes(), std::vector<std::string>{"Bob Ray"});
    EXPECT_EQ(made, 2);
}

}  // namespace
}  // namespace addin_tests
