// The Create Note dialog where a single call of the host fails.
#include <algorithm>

#include "tests/native/native_world.h"
#include "tests/world/note_dialog.h"

namespace addin_tests {
namespace {

using native::NativeWorld;

/// Creates a note of the sender while the n-th look below a folder fails. Answers whether there was such a
/// call.
bool create_with_failure(NativeWorld& world, std::int32_t n) {
    acceptance::add_contact(world);
    acceptance::OpenedItem mail(world.deliver(acceptance::message()));
    mail.show();
    acceptance::NoteDialog dialog(world);
    EXPECT_TRUE(dialog.open(mail));
    world.fail(u"MAPIFolder.Folders", n);
    dialog.click(u"cmdSend");
    const bool failed =
        std::ranges::any_of(world.model().planned_failures,
                            [](const desk::PlannedFailure& planned) { return planned.times == 0; });
    world.model().planned_failures.clear();
    return failed;
}

TEST(CreateNoteFailures, NoSingleLookupThatFailsSendsTheNoteToAnotherFolder) {
    constexpr std::int32_t most_lookups = 40;
    std::int32_t n = 0, posted = 0;
    for (bool failed = true; failed && n < most_lookups; ++n) {
        SCOPED_TRACE(n);
        NativeWorld world{acceptance::WorldSetup{}};
        failed = create_with_failure(world, n);
        EXPECT_EQ(acceptance::count_in(world, u"Notes"), 0) << "the folder of mail is looked for twice";
        posted += acceptance::count_in(world, u"Email");
    }
    EXPECT_GT(n, 3) << "the contacts, and the notes' folder twice";
    EXPECT_LT(n, most_lookups);
    EXPECT_GE(posted, 2);
}

/// A recipient whose entry can't be read is compared by the entry of the one before.
TEST(CreateNoteFailures, ARecipientWhoCannotBeReadIsNotTakenForTheRow) {
    NativeWorld world{acceptance::WorldSetup{}};
    for (const char16_t* const name : {u"Bob Ray", u"Cid Fox"}) {
        acceptance::add_contact(world, {.full_name = name, .fields = {}});
    }
    acceptance::OpenedItem mail(world.deliver(acceptance::message(
        {.to = "Tom <tom@one.example>, Bob Ray <bob@one.example>, Cid Fox <cid@one.example>"})));
    mail.show();
    acceptance::NoteDialog dialog(world);
    ASSERT_TRUE(dialog.open(mail));
    constexpr int row_of_cid = 4;
    dialog.select(row_of_cid);
    ASSERT_EQ(dialog.cell(row_of_cid, 1), "cid@one.example");
    int entries = 0;
    world.boundary().before_call = [&](const std::string& member) {
        constexpr int of_bob = 2;
        if (!member.ends_with(".AddressEntry") || ++entries != of_bob) return;
        throw automation::Failure(automation::result::fail, u"made to fail");
    };
    dialog.create();
    world.boundary().before_call = nullptr;
    EXPECT_EQ(entries, 3);
    const host::outlook::Item note = acceptance::only_item(world);
    ASSERT_TRUE(note);
    EXPECT_EQ(NativeWorld::property(note, u"Contact Name"), u"Cid Fox");
}

}  // namespace
}  // namespace addin_tests
