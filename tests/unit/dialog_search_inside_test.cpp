// A search of the Create Note dialog that is started inside of another one, at each yield of the first.
#include "tests/acceptance/note_dialog.h"
#include "tests/native/native_world.h"

namespace addin_tests {
namespace {

using acceptance::add_contact;
using acceptance::Lines;
using acceptance::NoteDialog;
using native::NativeWorld;

const Lines names{"Ann One", "Ann Two", "Ann Three"};
const Lines keys{"C-1", "C-2", "C-3"};

/// Searches for the three contacts; the button is pressed once more at the n-th yield.
void search_with_a_click_at(NativeWorld& world, const NoteDialog& dialog, int n) {
    const std::function<void()> usual = world.system().on_yield;
    int yields = 0;
    world.system().on_yield = [&] {
        if (++yields == n) dialog.control(u"cmdSearch").call(u"Click");
        usual();
    };
    dialog.search(u"People", u"Ann");
    world.system().on_yield = usual;
    EXPECT_GE(yields, n);
}

TEST(DialogSearchInside, ListsWhatItFindsAndLeavesTheFirstNothingMore) {
    NativeWorld world({});
    for (std::size_t i = 0; i < names.size(); ++i) {
        add_contact(world, {.full_name = host::from_utf8(names[i]),
                            .properties = {{u"ContactID", host::from_utf8(keys[i])}}});
    }
    acceptance::install(world, {acceptance::Target{}});
    acceptance::OpenedItem mail(world.deliver(acceptance::message()));
    mail.show();
    NoteDialog dialog(world);
    ASSERT_TRUE(dialog.open(mail));
    struct Case {
        const char* moment;
        std::size_t empty_rows;  // of the first search, behind those of the second
        const char* key;         // which they bear: that of the last item whose own could be read
    };
    // choosing the target gives way twice before
    const Case cases[] = {{"before the first reads anything", 0, ""},
                          {"before the first has its filter", 0, ""},
                          {"after its first row", 2, "C-1"},
                          {"after its second row", 1, "C-2"},
                          {"after its last row", 0, ""},
                          {"at its end", 0, ""}};
    int yield = 2;
    for (const Case& one : cases) {
        SCOPED_TRACE(one.moment);
        search_with_a_click_at(world, dialog, ++yield);
        EXPECT_EQ(dialog.column(1), acceptance::joined({names, Lines(one.empty_rows, "")}));
        EXPECT_EQ(dialog.column(7), acceptance::joined({keys, Lines(one.empty_rows, one.key)}));
    }
    EXPECT_EQ(acceptance::count_messages(world), 0);
}

}  // namespace
}  // namespace addin_tests
