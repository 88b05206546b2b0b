// Every routine that talks to the outside, with its n-th call failing, for every n.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>

#include "addin/ground/settings.h"
#include "tests/native/native_world.h"
#include "tests/native/nth_call.h"
#include "tests/world/people.h"

namespace addin_tests {
namespace {

using acceptance::add_contact;
using acceptance::count_in;
using acceptance::is_marked;
using acceptance::message;
using acceptance::WorldSetup;
using automation::Text;
using automation::TextView;
using host::outlook::Item;
using native::for_each_call;
using native::NativeWorld;
using native::NthCall;

/// A world with one contact, in which received mail is filed.
std::unique_ptr<NativeWorld> filing_world(const WorldSetup& setup = {}) {
    auto world = std::make_unique<NativeWorld>(setup);
    world->family(u"EmailAutoFile", u"1");
    if (setup.started) add_contact(*world);
    return world;
}

/// Files one more mail, and has the folders as they were.
void expect_filing(NativeWorld& world) {
    const std::int32_t before = count_in(world, u"Email");
    const Item mail = acceptance::read_mail(world);
    EXPECT_TRUE(is_marked(mail));
    const host::outlook::Items notes = world.below(u"Email").Items();
    ASSERT_EQ(notes.Count(), before + 1);
    notes.Item(before + 1).call(u"Delete");
    mail.call(u"Delete");
}

TEST(Failures, FilingAReceivedMailOutlivesEveryOne) {
    const auto world = filing_world();
    const int calls = for_each_call([&](NthCall& call) {
        const Item mail = world->deliver(message());
        const std::string& member = call.failing(*world, [&] { acceptance::World::read(mail); });
        // a mail is filed once at most; only where the test of the mark itself fails, at the mark's own save,
        // a second note comes of it
        const bool test_of_mark = member == "MailItem.BillingInformation" || member == "MailItem.Sensitivity";
        EXPECT_LE(count_in(*world, u"Email") + count_in(*world, u"Notes"), test_of_mark ? 2 : 1);
        for (const TextView folder : {u"Email", u"Notes"}) {
            const host::outlook::Items items = world->below(folder).Items();
            for (std::int32_t i = items.Count(); i >= 1; --i) {
                EXPECT_EQ(items.Item(i).MessageClass(), u"IPM.Post.Note");
                items.Item(i).call(u"Delete");
            }
        }
        mail.call(u"Delete");
        expect_filing(*world);
    });
    EXPECT_GT(calls, 60) << "the routine makes that many calls at least";
}

TEST(Failures, StartOutlivesEveryOne) {
    const int calls = for_each_call([&](NthCall& call) {
        const auto world = filing_world({.started = false});
        world->option(u"EnablePowerPanel", u"1");
        call.failing(*world, [&] { world->start(); });
        add_contact(*world);
        // the features drop out one by one; the host stays up, and ends as ever
        const Item mail = acceptance::read_mail(*world);
        EXPECT_LE(count_in(*world, u"Email"), 1);
        if (!call.came()) {
            EXPECT_EQ(count_in(*world, u"Email"), 1);
        }
        ASSERT_NO_THROW(world->quit());
        ASSERT_NO_THROW(world->start());
        expect_filing(*world);
        ASSERT_NO_THROW(world->quit());
    });
    EXPECT_GT(calls, 25);
}

TEST(Failures, FirstRunOutlivesEveryOne) {
    for (const bool marked : {false, true}) {
        SCOPED_TRACE(marked);
        const int calls = for_each_call([&](NthCall& call) {
            const auto world = filing_world({.started = false});
            world->family(u"StoreID", u"-");
            const Text marker = world->add_in_folder() + u"/initial.txt";
            if (marked) std::ofstream{std::filesystem::path(marker)} << "first run";
            call.failing(*world, [&] { world->start(); });
            const std::size_t programs = world->model().surroundings().programs().size();
            EXPECT_LE(programs, 3U);
            if (!call.came()) {
                EXPECT_EQ(programs, marked ? 0U : 2U);
                EXPECT_EQ(world->file_exists(marker), false);
            }
        });
        EXPECT_GT(calls, 30);
    }
}

TEST(Failures, StopOutlivesEveryOne) {
    const auto world = filing_world();
    const int calls = for_each_call([&](NthCall& call) {
        call.failing(*world, [&] { world->quit(); });
        ASSERT_NO_THROW(world->start());
        expect_filing(*world);
    });
    EXPECT_GE(calls, 10);
}

TEST(Failures, StopLetsGoOfEverythingWhateverFails) {
    for_each_call([&](NthCall& call) {
        const auto world = filing_world();
        world->boundary().forget_calls();
        call.failing(*world, [&] { world->unload_add_in(1); });
        EXPECT_TRUE(world->boundary().live().empty());
    });
}

TEST(Failures, FindingADatabaseOutlivesEveryOne) {
    const int calls = for_each_call([&](NthCall& call) {
        const auto world = filing_world();
        world->family(u"CurrentUserName", u"Mia Hart");
        world->desk().call(u"Answer", {u"Choose Tarnwell Database", u"", host::box::answer_yes});
        call.failing(*world, [&] { world->connect().call(u"FindFolder"); });
        EXPECT_LE(world->model().messages.size(), 1U);
        const std::string path =
            automation::to_utf8(addin::Settings(world->desktop()).option(u"AccountProfileFolderName"));
        if (!call.came()) {
            EXPECT_EQ(path, "\\Public Folders\\All Public Folders\\Tarnwell\\Account Profiles\\");
        }
        expect_filing(*world);
    });
    EXPECT_GT(calls, 90);
}

// what the calls are

using Table = std::map<std::string, int>;

/// The add-in's calls while a mail is read, by member; those of the registry are left out.
Table calls_of_reading(NativeWorld& world, const acceptance::MailPlan& plan) {
    const Item mail = world.deliver(message(plan));
    world.settle();
    world.boundary().forget_calls();
    acceptance::World::read(mail);
    Table table;
    for (const std::string& member : world.boundary().calls()) {
        if (!member.starts_with("registry.")) ++table[member];
    }
    return table;
}

std::string printed(const Table& table) {
    std::string text;
    int all = 0;
    for (const auto& [member, count] : table) {
        text += "    " + std::to_string(count) + "  " + member + "\n";
        all += count;
    }
    return text + "    " + std::to_string(all) + " in all\n";
}

TEST(HostCalls, OfAMailThatIsFiledAreThoseThatItsStepsName) {
    const auto world = filing_world();
    const Table calls = calls_of_reading(*world, {});
    const Table expected = {
        // the handler's tests, twice: for the reading and for the mark's own save
        {"MailItem.MessageClass", 2},
        {"MailItem.UnRead", 2},
        {"MailItem.BillingInformation", 2 + 1},
        {"MailItem.Sensitivity", 2 + 1},
        // the siblings
        {"create Tarnwell.connect", 1},
        {"MainAddIn.getEmailAutoFile", 1},
        {"MainAddIn.GetFolderId", 1},
        {"MainAddIn.GetStoreId", 1},
        {"create TarnwellOMG.SafeMailItem", 1},
        {"SafeMailItem.Item", 1},
        {"SafeMailItem.Fields", 2},
        {"SafeMailItem.To", 1},
        {"SafeMailItem.Subject", 1},
        {"SafeMailItem.Body", 1},
        {"SafeMailItem.SentOn", 1},
        // the folders and the search
        {"application", 1},
        {"Application.GetNamespace", 1},
        {"NameSpace.GetFolderFromID", 1},
        {"MAPIFolder.Folders", 2},
        {"Folders.Item", 2},
        {"MAPIFolder.Items", 2},
        {"Items.Find", 1},
        // the note: five keys are copied, four texts and dates are set
        {"Items.Add", 1},
        {"ContactItem.UserProperties", 5},
        {"PostItem.UserProperties", 5 + 4},
        {"UserProperties.Item", 2 * 5 + 4},
        {"UserProperty.Value", 2 * 5 + 4},
        {"ContactItem.CompanyName", 1},
        {"ContactItem.FullName", 1},
        {"PostItem.Subject", 1},
        {"PostItem.Body", 1},
        {"PostItem.Attachments", 1},
        {"Attachments.Add", 1},
        {"PostItem.Post", 1},
        // the mark
        {"MailItem.FlagStatus", 1},
        {"MailItem.FlagRequest", 1},
        {"MailItem.Save", 1},
    };
    EXPECT_EQ(calls, expected) << printed(calls);
    std::cout << "calls of a mail that is filed:\n" << printed(calls);
}

TEST(HostCalls, OfAMailWithoutContactEndWithTheSearch) {
    const auto world = filing_world();
    const Table calls = calls_of_reading(*world, {.from = "nobody@elsewhere.example"});
    const Table expected = {
        {"MailItem.MessageClass", 1},
        {"MailItem.UnRead", 1},
        {"MailItem.BillingInformation", 1},
        {"MailItem.Sensitivity", 2},
        {"create Tarnwell.connect", 1},
        {"MainAddIn.getEmailAutoFile", 1},
        {"MainAddIn.GetFolderId", 1},
        {"MainAddIn.GetStoreId", 1},
        {"create TarnwellOMG.SafeMailItem", 1},
        {"SafeMailItem.Item", 1},
        {"SafeMailItem.Fields", 2},
        {"SafeMailItem.To", 1},
        {"application", 1},
        {"Application.GetNamespace", 1},
        {"NameSpace.GetFolderFromID", 1},
        {"MAPIFolder.Folders", 2},
        {"Folders.Item", 2},
        {"MAPIFolder.Items", 1},
        {"Items.Find", 1},
    };
    EXPECT_EQ(calls, expected) << printed(calls);
    std::cout << "calls of a mail without contact:\n" << printed(calls);
}

TEST(HostCalls, StopAsSoonAsTheMailIsNotMeant) {
    struct Case {
        const char* name;
        acceptance::MailPlan mail;
        const char* switched;
        Table calls;
    };
    const Table tests = {{"MailItem.MessageClass", 1},
                         {"MailItem.UnRead", 1},
                         {"MailItem.BillingInformation", 1},
                         {"MailItem.Sensitivity", 1}};
    Table switched_off = tests;
    switched_off["MailItem.Sensitivity"] = 2;
    switched_off["create Tarnwell.connect"] = 1;
    switched_off["MainAddIn.getEmailAutoFile"] = 1;
    Table no_address = switched_off;
    no_address["create TarnwellOMG.SafeMailItem"] = 1;
    no_address["SafeMailItem.Item"] = 1;
    no_address["SafeMailItem.Fields"] = 1;
    Table third_type = no_address;
    third_type["SafeMailItem.Fields"] = 2;
    Table no_to_line = third_type;
    no_to_line["SafeMailItem.To"] = 1;
    const Case cases[] = {
        {"another class",
         {.more = "X-Desk-Class: IPM.Note.Other\n"},
         "1",
         {{"MailItem.MessageClass", 1}, {"MailItem.UnRead", 1}}},
        {"a private mail", {.more = "X-Desk-Sensitivity: 2\n"}, "1", tests},
        {"switched off", {}, "0", switched_off},
        {"no native address", {.more = "X-Desk-Sender: SMTP -\n"}, "1", no_address},
        {"a third type of address", {.more = "X-Desk-Sender: NOTES CN=Ann\n"}, "1", third_type},
        {"no To line", {.to = ""}, "1", no_to_line},
    };
    const auto world = filing_world();
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        world->family(u"EmailAutoFile", automation::from_utf8(one.switched));
        const Table calls = calls_of_reading(*world, one.mail);
        EXPECT_EQ(calls, one.calls) << printed(calls);
    }
}

TEST(HostCalls, WriteTheMarkOnlyAfterTheNoteWasPosted) {
    const auto world = filing_world();
    const Item mail = world->deliver(message());
    world->boundary().forget_calls();
    acceptance::World::read(mail);
    const auto& calls = world->boundary().calls();
    const auto place = [&](const char* member) { return std::ranges::find(calls, member) - calls.begin(); };
    EXPECT_LT(place("MAPIFolder.Folders"), place("Items.Find")) << "the folder is chosen first";
    EXPECT_LT(place("Items.Find"), place("Items.Add"));
    EXPECT_LT(place("Items.Add"), place("Attachments.Add"));
    EXPECT_LT(place("Attachments.Add"), place("PostItem.Post"));
    EXPECT_LT(place("PostItem.Post"), place("MailItem.FlagStatus"));
    EXPECT_LT(place("MailItem.FlagStatus"), place("MailItem.FlagRequest"));
    EXPECT_LT(place("MailItem.FlagRequest"), place("MailItem.Save"));
}

TEST(HostCalls, OfAMailThatOnlyArrivesAreNone) {
    const auto world = filing_world();
    world->settle();
    world->boundary().forget_calls();
    world->deliver(message());
    world->settle();
    EXPECT_TRUE(world->boundary().calls().empty());
}

}  // namespace
}  // namespace addin_tests
