// The window of the family that lists what was filed today.
#include "family/filed_today.h"

#include <gmock/gmock.h>

#include "tests/unit/support/family_fakes.h"

namespace {

using namespace family_test;
using testing::ElementsAre;

Object note_made(TextView subject, TextView made, TextView message_class = u"IPM.Post.Note") {
    auto item = fake({{u"EntryID", Text(u"ID of ") + Text(subject)},
                      {u"Subject", subject},
                      {u"MessageClass", message_class},
                      {u"CreationTime", automation::read_date(made).value()}});
    auto properties = fake();
    properties->functions[u"Find"] = [](std::vector<Value>&) -> Value { return Object(); };
    item->properties[u"UserProperties"] = Object(properties);
    return Object(item);
}

Profile::Node profile_with(std::vector<Object> notes, std::vector<Object> mails) {
    return {u"Tarnwell",
            {{.name = u"Account Profiles",
              .children = {{.name = u"Notes", .items = std::move(notes)},
                           {.name = u"Email", .items = std::move(mails)}}}}};
}

TEST(FiledTodayWindow, ListsTheNotesOfAllFoldersTheNewestFirst) {
    FakeContext around({profile_with(
        {note_made(u"At nine", u"2026-11-23 09:00:00"), note_made(u"At noon", u"2026-11-23 12:00:00")},
        {note_made(u"At ten", u"2026-11-23 10:00:00"),
         note_made(u"No note", u"2026-11-23 11:00:00", u"IPM.Post")})});
    around.strands.run([&] { family::show_filed_today(around); });
    native::MemoryWindow* const window = around.windows.find(u"What Was Filed Today");
    ASSERT_TRUE(window);
    std::vector<std::string> rows;
    const forms::List& list = window->control(u"lstNotes").list();
    for (int row = 0; row < list.count(); ++row)
        rows.push_back(automation::to_utf8(list.text(row, 0) + u" " + list.text(row, 1)));
    EXPECT_THAT(rows, ElementsAre("12:00 At noon", "10:00 At ten", "09:00 At nine"));
    EXPECT_EQ(window->control(u"lblCount").text(), u"3 notes were made today.");
    EXPECT_TRUE(around.shows_windows());
    window->close();
    EXPECT_FALSE(around.shows_windows());
}

TEST(FiledTodayWindow, DoesNotComeUpWithoutADatabase) {
    FakeContext around({{.name = u"Mailbox"}});
    std::string told;
    around.strands.run([&] {
        try {
            family::show_filed_today(around);
        } catch (const Failure& failure) {
            told = automation::to_utf8(failure.description());
        }
    });
    EXPECT_EQ(told, "There is no database in this profile.");
    EXPECT_FALSE(around.shows_windows());
}

}  // namespace
