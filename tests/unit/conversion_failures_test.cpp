// Conversions, new contacts and templates with their n-th call to the outside failing, for every n; and what
// of them only this build can see.
#include <gmock/gmock.h>

#include "addin/conversions/appointment_conversion.h"
#include "addin/conversions/contact_conversion.h"
#include "addin/ground/settings.h"
#include "addin/templates/template_commands.h"
#include "tests/native/native_world.h"
#include "tests/native/nth_call.h"
#include "tests/world/item_state.h"
#include "tests/world/note_dialog.h"

namespace addin_tests {
namespace {

using acceptance::changes;
using acceptance::ItemState;
using acceptance::Lines;
using acceptance::state_of;
using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Folder;
using host::outlook::Item;
using native::NativeWorld;
using native::NthCall;

/// More calls than any of the routines makes: a run that goes on for longer never ends.

constexpr std::int32_t yes = 6, contacts = 10;  // an answer; OlDefaultFolders

/// What a button of a window runs.
using Command = void (*)(addin::Session& session);

void run(NativeWorld& world, Command command) { command(world.add_in()->session()); }

void close_windows(NativeWorld& world) {
    const host::outlook::Inspectors open = world.application().Inspectors();
    while (open.Count() > 0) open.Item(1).Close(host::outlook::discard_changes);
}

Folder leads(NativeWorld& world) {
    return Folder(world.account_profiles().Parent()).Folders().Item(u"Leads");
}

Item personal(NativeWorld& world, TextView full_name = u"Ann Lee") {
    const Item contact = acceptance::new_item(world, contacts, u"IPM.Contact");
    contact.FullName(full_name);
    contact.CompanyName(u"North Mill Ltd");
    contact.Save();
    return contact;
}

/// The option's text as it is stored, read beside the boundary; "?" if it is no text.
std::string stored_sync(NativeWorld& world) {
    native::MemoryRegistry& registry = world.memory_registry();
    host::KeyHandle key = host::no_key;
    const std::string path = automation::to_utf8(addin::Settings::key_name);
    if (registry.open_key(host::current_user, path, key) != 0) return {};
    std::string bytes(8, '\0');
    auto size = static_cast<std::uint32_t>(bytes.size());
    std::uint32_t type = 0;
    const std::int32_t status = registry.query_value(key, "PDAContactSync", type, bytes.data(), size);
    registry.close_key(key);
    if (status != 0) return {};
    return type == host::registry_type::text ? bytes.substr(0, size) : "?";
}

class Conversions : public testing::Test {
  protected:
    static NativeWorld& furnished(std::unique_ptr<NativeWorld>& place) {
        place = std::make_unique<NativeWorld>(acceptance::WorldSetup{});
        place->family(u"UserName", u"Tom Prior");
        return *place;
    }
    void SetUp() override { furnished(world_); }
    NativeWorld& world() { return *world_; }

    /// Runs a routine with its n-th call failing, for every n; `check` is told the failed call, or "" when
    /// none did. Answers how many calls there were.
    template <class Routine, class Check>
    int with_each_call_failing(Routine routine, Check check) {
        return native::for_each_call([&](NthCall& call) { check(call.failing(world(), routine)); });
    }

  private:
    std::unique_ptr<NativeWorld> world_;
};

TEST_F(Conversions, OfAContactChangeNothingButItsCustomerIdWhateverFails) {
    struct Case {
        Command command;
        TextView question;
        int least_calls;
    };
    const Case cases[] = {{addin::conversions::convert_to_contact, u"to a Tarnwell Contact? ", 180},
                          {addin::conversions::convert_to_lead, u"to a Tarnwell Lead? ", 150}};
    acceptance::add_account(world(), {{u"AccountID", u"A-1"}, {u"Account Name", u"North Mill Ltd"}}, u"Mill");
    for (const Case& one : cases) {
        const bool lead = one.command == addin::conversions::convert_to_lead;
        const Folder folder = lead ? leads(world()) : world().below(u"Account Contacts");
        Item source;
        ItemState before;
        const auto prepare = [&] {
            source = personal(world());
            before = state_of(source);
            source.Display();
            acceptance::answer(world(), one.question, yes);
        };
        prepare();
        const int calls =
            with_each_call_failing([&] { run(world(), one.command); },
                                   [&](const std::string& failed) {
                                       EXPECT_LE(folder.Items().Count(), 1);
                                       Lines changed = changes(before, state_of(source));
                                       if (!changed.empty()) {
                                           EXPECT_EQ(changed.size(), 1U);
                                           EXPECT_EQ(changed[0].substr(0, 13), "CustomerID: C");
                                       }
                                       if (failed.empty()) {
                                           ASSERT_EQ(folder.Items().Count(), 1);
                                           const Item made = folder.Items().Item(1);
                                           EXPECT_EQ(made.FullName(), u"Ann Lee");
                                           EXPECT_EQ(made.CustomerID(), source.CustomerID());
                                           EXPECT_EQ(world().application().Inspectors().Count(), 0);
                                           if (!lead) {
                                               EXPECT_EQ(NativeWorld::property(made, u"AccountID"), u"A-1");
                                           }
                                       }
                                       close_windows(world());
                                       acceptance::empty_folder(folder);
                                       source.call(u"Delete");
                                       if (!failed.empty()) prepare();
                                   });
        EXPECT_GT(calls, one.least_calls);
    }
}

TEST_F(Conversions, OfAContactGoOnWithoutAWindow) {
    acceptance::answer(world(), u"to a Tarnwell Contact? ", yes);
    run(world(), addin::conversions::convert_to_contact);
    EXPECT_EQ(acceptance::message_texts(world()),
              (Lines{"Would you like to convert this contact to a Tarnwell Contact? ",
                     "Would you like to search for an Account? "}));
    const Item made = acceptance::only_item(world(), u"Account Contacts");
    ASSERT_TRUE(made);
    EXPECT_EQ(NativeWorld::property(made, u"ContactID").substr(0, 1), u"C");
    EXPECT_EQ(NativeWorld::property(made, u"Team"), u"Tom Prior");
    EXPECT_EQ(acceptance::statuses(world()), Lines{" was created as a Tarnwell Contact."});
}

TEST_F(Conversions, OfAContactLeaveAMailAloneThatIsShownInstead) {
    const Item mail = world().deliver(acceptance::message());
    mail.Display();
    const ItemState before = state_of(mail);
    for (const TextView question : {u"to a Tarnwell Contact? ", u"to a Tarnwell Lead? "})
        acceptance::answer(world(), question, yes);
    run(world(), addin::conversions::convert_to_contact);
    run(world(), addin::conversions::convert_to_lead);
    EXPECT_EQ(changes(before, state_of(mail)), Lines{});
    EXPECT_EQ(world().application().Inspectors().Count(), 1);
    for (const Folder& folder : {world().below(u"Account Contacts"), leads(world())}) {
        ASSERT_EQ(folder.Items().Count(), 1);
        EXPECT_EQ(folder.Items().Item(1).Body(), u"");
        EXPECT_EQ(NativeWorld::property(folder.Items().Item(1), u"Team"), u"Tom Prior");
    }
}

TEST_F(Conversions, OfAContactWaitASecondAfterTheMessageBesidesItsOwn) {
    personal(world()).Display();
    acceptance::answer(world(), u"to a Tarnwell Lead? ", yes);
    const std::uint32_t before = world().system().slept;
    run(world(), addin::conversions::convert_to_lead);
    EXPECT_EQ(world().system().slept - before, 2000U);
}

/// The option while a contact arrives.
struct SyncCase {
    const char* name;
    std::vector<TextView> selected;
    const char* while_stamped;  ///< the option then
};
const SyncCase sync_cases[] = {
    {"its source is selected", {u"Ann Lee"}, "0"},
    {"another is selected", {u"Bob Ray"}, "1"},
    {"several are selected", {u"Ann Lee", u"Bob Ray"}, "0"},
};

void select(NativeWorld& world, const std::vector<TextView>& names) {
    automation::Request request{.access = automation::Access::call, .member = u"Select"};
    for (const TextView name : names) request.arguments.emplace_back(Value(personal(world, name)));
    world.desk().invoke(request);
    world.settle();
}

Item arrive(NativeWorld& world) {
    const Item contact = world.below(u"Account Contacts").Items().Add(u"IPM.Contact");
    contact.FullName(u"Ann Lee");
    contact.Save();
    world.settle();
    return contact;
}

TEST_F(Conversions, OfNewContactsHaveTheSynchronisationOffMeanwhile) {
    for (const SyncCase& one : sync_cases) {
        SCOPED_TRACE(one.name);
        world().option(u"PDAContactSync", u"1");
        select(world(), one.selected);
        std::map<std::string, std::vector<std::string>> seen;
        world().boundary().before_call = [&](const std::string& member) {
            seen[member].push_back(stored_sync(world()));
        };
        arrive(world());
        world().boundary().before_call = nullptr;
        using testing::Each;
        EXPECT_THAT(seen["Explorer.Selection"], testing::ElementsAre("0"));
        EXPECT_THAT(seen["UserProperties.Add"], testing::AllOf(testing::SizeIs(5), Each(one.while_stamped)));
        EXPECT_THAT(seen["ContactItem.Save"],
                    testing::AllOf(testing::Not(testing::IsEmpty()), Each(one.while_stamped)));
        EXPECT_EQ(stored_sync(world()), "1") << "a text of one character";
    }
}

TEST_F(Conversions, OfNewContactsRestoreTheSynchronisationWhateverFails) {
    for (const SyncCase& one : sync_cases) {
        SCOPED_TRACE(one.name);
        select(world(), one.selected);
        world().option(u"PDAContactSync", u"1");
        const int calls = with_each_call_failing(
            [&] { arrive(world()); },
            [&](const std::string& failed) {
                EXPECT_EQ(stored_sync(world()), "1") << failed;
                const Item contact = acceptance::only_item(world(), u"Account Contacts");
                ASSERT_TRUE(contact);
                if (failed.empty()) {
                    EXPECT_EQ(contact.MessageClass(), u"IPM.Contact.Account Contact");
                    EXPECT_EQ(NativeWorld::property(contact, u"Team"), u"Tom Prior");
                }
                acceptance::empty_folder(world().below(u"Account Contacts"));
            });
        EXPECT_GT(calls, 50);
    }
}

/// Whether a contact has an id is told by the read of it alone: what failed before doesn't show in the
/// answer.
TEST_F(Conversions, OfNewContactsThatHaveAnIdLeaveThemAloneWhateverFailedBefore) {
    select(world(), {u"Ann Lee"});
    for (const char* const failing : {"create Tarnwell.connect", "Application.ActiveExplorer"}) {
        SCOPED_TRACE(failing);
        const Item contact = world().below(u"Account Contacts").Items().Add(u"IPM.Contact");
        contact.FullName(u"Ann Lee");
        contact.UserProperties().Add(u"ContactID", 1, false).value(u"C-7");
        int failed = 0;
        world().boundary().before_call = [&](const std::string& member) {
            if (member != failing) return;
            ++failed;
            throw automation::Failure(automation::result::fail, u"made to fail");
        };
        contact.Save();
        world().settle();
        world().boundary().before_call = nullptr;
        EXPECT_EQ(failed, 1);
        EXPECT_EQ(contact.MessageClass(), u"IPM.Contact");
        EXPECT_EQ(NativeWorld::property(contact, u"ContactID"), u"C-7");
    }
}

TEST_F(Conversions, OfNewContactsStampOnceForEachSelectedOfTheirName) {
    select(world(), {u"Ann Lee", u"Bob Ray", u"Ann Lee"});
    std::map<std::string, int> counts;
    world().boundary().before_call = [&](const std::string& member) { ++counts[member]; };
    arrive(world());
    world().boundary().before_call = nullptr;
    EXPECT_EQ(counts["UserProperties.Add"], 10);
    EXPECT_EQ(counts["MainAddIn.generateid"], 2);
    EXPECT_EQ(counts["ContactItem.Save"], 2) << "the sources aren't saved without synchronisation";
}

TEST_F(Conversions, OfAnAppointmentLoseNothingWhateverFails) {
    const Folder calendar = world().name_space().GetDefaultFolder(host::outlook::default_folder::calendar);
    ItemState before;
    const auto prepare = [&] {
        const Item appointment = calendar.Items().Add(u"IPM.Appointment");
        appointment.Subject(u"Tea");
        appointment.Save();
        before = state_of(appointment);
        appointment.Display();
    };
    prepare();
    const int calls = with_each_call_failing(
        [&] { run(world(), addin::conversions::convert_appointment); },
        [&](const std::string& failed) {
            ASSERT_EQ(calendar.Items().Count(), 1);
            const Item there = calendar.Items().Item(1);
            const Lines changed = changes(before, state_of(there));
            if (!changed.empty()) {
                EXPECT_EQ(changed,
                          Lines{"MessageClass: IPM.Appointment.TarnwellAppt instead of IPM.Appointment"});
            }
            if (failed.empty()) {
                EXPECT_EQ(changed.size(), 1U);
                EXPECT_EQ(world().application().Inspectors().Count(), 1);
            }
            close_windows(world());
            acceptance::empty_folder(calendar);
            if (!failed.empty()) prepare();
        });
    EXPECT_GT(calls, 15);
}

TEST_F(Conversions, OfAMailToATemplateLeaveTheMailAloneWhateverFails) {
    const Folder drop_downs = world().below(u"Drop Downs");
    ItemState before;
    Text id;
    const auto prepare = [&] {
        const Item mail = world().deliver(acceptance::message());
        id = mail.EntryID();
        before = state_of(mail);
        mail.Display();
        acceptance::answer(world(), u"Are you sure", yes);
    };
    prepare();
    const int calls = with_each_call_failing(
        [&] { run(world(), addin::templates::save_as_template); },
        [&](const std::string& failed) {
            const Item mail = world().name_space().GetItemFromID(id, world().inbox().StoreID());
            EXPECT_EQ(changes(before, state_of(mail)), Lines{});
            EXPECT_LE(drop_downs.Items().Count(), 1);
            const Lines texts = acceptance::message_texts(world());
            if (failed != "message_box") {
                ASSERT_FALSE(texts.empty());
                EXPECT_EQ(texts.back().substr(0, 16), "Email Template '") << "in any case";
            }
            if (failed.empty()) {
                ASSERT_EQ(drop_downs.Items().Count(), 1);
                EXPECT_EQ(NativeWorld::property(drop_downs.Items().Item(1), u"RecordType"), u"Email Blast");
            }
            close_windows(world());
            acceptance::empty_folder(drop_downs);
            acceptance::empty_folder(world().inbox());
            if (!failed.empty()) prepare();
        });
    EXPECT_GT(calls, 15);
}

TEST_F(Conversions, OfNothingOpenTheListsAllTheSame) {
    struct Case {
        Command command;
        TextView told;
    };
    const Case cases[] = {{addin::templates::show_email_templates, u"MainAddIn.ShowMailer"},
                          {addin::templates::show_document_templates, u"MainAddIn.Showlist(Document)"},
                          {addin::templates::show_excel_templates, u"MainAddIn.Showlist(Spreadsheet)"}};
    std::vector<Text> expected;
    for (const Case& one : cases) {
        run(world(), one.command);
        expected.emplace_back(one.told);
        EXPECT_EQ(world().family_calls(), expected) << "no item is told without a window";
    }
}

}  // namespace
}  // namespace addin_tests
