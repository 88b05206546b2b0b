// An event that comes at any yield of the add-in's long routines is handled inside of it, and both come out
// right. What comes is posted before the n-th call of the routine, for every n, so that it runs at the next
// yield.
#include <algorithm>
#include <iterator>
#include <set>

#include "tests/native/native_world.h"
#include "tests/native/nth_call.h"
#include "tests/world/people.h"

namespace addin_tests {
namespace {

using acceptance::add_contact;
using acceptance::is_marked;
using acceptance::message;
using acceptance::World;
using automation::TextView;
using host::outlook::Item;
using host::outlook::Items;
using native::for_each_call;
using native::NativeWorld;
using native::NthCall;

/// What became of an action that came while a routine ran.
struct Came {
    bool inside = false;  ///< the action ran before the routine came back
    std::size_t at = 0;   ///< the routine's calls until then
};

/// Runs a routine with an action that is posted before its n-th call.
Came run_with(NativeWorld& world, NthCall& call, const std::function<void()>& routine,
              const std::function<void()>& action) {
    Came came;
    bool running = true;
    world.boundary().forget_calls();
    const auto post = [&] {
        world.model().surroundings().post([&] {
            came.inside = running;
            came.at = world.boundary().calls().size();
            action();
        });
    };
    call.with(world, post, [&] {
        routine();
        running = false;
        world.settle();
    });
    return came;
}

std::unique_ptr<NativeWorld> world_that_files() {
    auto world = std::make_unique<NativeWorld>(acceptance::WorldSetup{});
    world->family(u"EmailAutoFile", u"1");
    world->option(u"AutoFileSentEmails", u"1");
    add_contact(*world);
    add_contact(*world, u"Bob Ray", u"bob@ray.example");
    return world;
}

/// A mail that is read as soon as it is saved.
Item about_to_be_read(NativeWorld& world, const acceptance::MailPlan& plan) {
    const Item mail = world.deliver(message(plan));
    mail.put(u"UnRead", false);
    return mail;
}

/// How many notes tell of somebody; they are gone afterwards.
int take_notes(NativeWorld& world, TextView contact) {
    const Items notes = world.below(u"Email").Items();
    int count = 0;
    for (std::int32_t i = notes.Count(); i >= 1; --i) {
        if (World::property(notes.Item(i), u"Contact Name") != contact) continue;
        EXPECT_EQ(notes.Item(i).Attachments().Count(), 1);
        notes.Item(i).call(u"Delete");
        ++count;
    }
    return count;
}

Item mail_to_ann(NativeWorld& world) {
    constexpr std::int32_t mail_item = 0;
    const Item mail(world.application().call(u"CreateItem", {mail_item}).to_object());
    mail.put(u"To", u"Ann Lee <ann.lee@northmill.example>");
    mail.Subject(u"Our offer");
    return mail;
}

Items sent_items(NativeWorld& world) {
    return world.name_space().GetDefaultFolder(host::outlook::default_folder::sent_mail).Items();
}

TEST(Reentrancies, OfFilingAReceivedMailByAnother) {
    const auto world = world_that_files();
    std::set<std::size_t> yields;
    for_each_call([&](NthCall& call) {
        const Item ann = world->deliver(message());
        const Item bob = about_to_be_read(*world, {.from = "bob@ray.example"});
        const Came came = run_with(
            *world, call, [&] { World::read(ann); }, [&] { bob.Save(); });
        if (came.inside) yields.insert(came.at);
        if (!call.came()) bob.Save();
        EXPECT_TRUE(is_marked(ann));
        EXPECT_TRUE(is_marked(bob));
        EXPECT_EQ(take_notes(*world, u"Ann Lee"), 1);
        EXPECT_EQ(take_notes(*world, u"Bob Ray"), 1);
    });
    // those of the handler, of the operation, around the search and after the mark, with calls between them
    EXPECT_GE(yields.size(), 5U);
}

TEST(Reentrancies, OfFilingAReceivedMailByItself) {
    const auto world = world_that_files();
    std::vector<int> notes;
    for_each_call([&](NthCall& call) {
        const Item mail = world->deliver(message());
        run_with(
            *world, call, [&] { World::read(mail); },
            [&] {
                mail.put(u"Categories", u"Blue");
                mail.Save();
            });
        EXPECT_TRUE(is_marked(mail));
        notes.push_back(take_notes(*world, u"Ann Lee"));
    });
    // in time for the handler's own test of the mark, too late for it, and after the mark was written
    std::vector<int> in_turn;
    std::ranges::unique_copy(notes, std::back_inserter(in_turn));
    EXPECT_EQ(in_turn, (std::vector{1, 2, 1})) << "nothing but the mark guards against a second filing";
}

TEST(Reentrancies, OfFilingASentMailByAReceivedOne) {
    const auto world = world_that_files();
    std::set<std::size_t> yields;
    for_each_call([&](NthCall& call) {
        const Item bob = about_to_be_read(*world, {.from = "bob@ray.example"});
        const Item outgoing = mail_to_ann(*world);
        const Came came = run_with(
            *world, call, [&] { outgoing.call(u"Send"); }, [&] { bob.Save(); });
        if (came.inside) yields.insert(came.at);
        if (!call.came()) bob.Save();
        EXPECT_TRUE(is_marked(bob));
        ASSERT_EQ(sent_items(*world).Count(), 1);
        EXPECT_EQ(sent_items(*world).Item(1).get(u"FlagRequest").to_text(), u"TW-Sent Email Auto Filed");
        sent_items(*world).Item(1).call(u"Delete");
        EXPECT_EQ(take_notes(*world, u"Ann Lee"), 1);
        EXPECT_EQ(take_notes(*world, u"Bob Ray"), 1);
        EXPECT_EQ(world->engine().find(u"Tarnwell"), nullptr);
    });
    EXPECT_GE(yields.size(), 7U) << "the handler's, the operation's, and those of the recipient";
}

TEST(Reentrancies, OfFilingASentMailByAnother) {
    const auto world = world_that_files();
    for_each_call([&](NthCall& call) {
        const Item second = mail_to_ann(*world);
        second.put(u"To", u"bob@ray.example");
        const Item first = mail_to_ann(*world);
        run_with(
            *world, call, [&] { first.call(u"Send"); }, [&] { second.call(u"Send"); });
        if (!call.came()) return;
        const Items sent = sent_items(*world);
        ASSERT_EQ(sent.Count(), 2);
        for (std::int32_t i = sent.Count(); i >= 1; --i) {
            EXPECT_EQ(sent.Item(i).get(u"FlagStatus").to_integer(), 1);
            sent.Item(i).call(u"Delete");
        }
        EXPECT_EQ(take_notes(*world, u"Ann Lee"), 1);
        EXPECT_EQ(take_notes(*world, u"Bob Ray"), 1);
        EXPECT_EQ(world->engine().find(u"Tarnwell"), nullptr) << "no status window stays";
    });
}

TEST(Reentrancies, OfFilingASentMailByTheEndOfTheAddIn) {
    for_each_call([&](NthCall& call) {
        const auto world = world_that_files();
        const Item outgoing = mail_to_ann(*world);
        const auto connect = world->add_in()->shared_from_this();
        run_with(
            *world, call, [&] { outgoing.call(u"Send"); }, [&] { connect->StopAddIn(); });
        if (!call.came()) return;
        EXPECT_EQ(sent_items(*world).Count(), 1) << "the mail goes out";
        EXPECT_EQ(take_notes(*world, u"Ann Lee"), 1) << "and what has begun is ended";
        EXPECT_EQ(world->engine().find(u"Tarnwell"), nullptr);
    });
}

}  // namespace
}  // namespace addin_tests
