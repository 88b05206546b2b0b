// What the compiler demands of tables that are searched by a key: each kind of mistake is seen.
#include <gtest/gtest.h>

#include "addin/commands/buttons.h"
#include "addin/createnote/new_contact.h"
#include "addin/ground/keyed.h"
#include "forms/control_name.h"

namespace addin_tests {
namespace {

using forms::ControlKind;
using forms::ControlRow;
using forms::FormTable;

enum class Color { red, green, blue };
struct ColoredRow {
    Color color;
    int number;
};

TEST(KeyedTables, BearNoKeyTwice) {
    constexpr ColoredRow once[] = {{Color::blue, 1}, {Color::red, 2}, {Color::green, 1}};
    EXPECT_TRUE(addin::is_keyed(once, &ColoredRow::color));
    EXPECT_FALSE(addin::is_keyed(once, &ColoredRow::number));
}

TEST(KeyedTables, HaveARowForEachNumberAtItsPlace) {
    constexpr ColoredRow in_order[] = {{Color::red, 0}, {Color::green, 0}, {Color::blue, 0}};
    EXPECT_TRUE(addin::is_in_order(in_order, &ColoredRow::color, Color::blue));
    EXPECT_FALSE(addin::is_in_order(in_order, &ColoredRow::color, Color::green)) << "one too many";
    constexpr ColoredRow exchanged[] = {{Color::red, 0}, {Color::blue, 0}, {Color::green, 0}};
    EXPECT_FALSE(addin::is_in_order(exchanged, &ColoredRow::color, Color::blue));
    constexpr ColoredRow missing[] = {{Color::red, 0}, {Color::green, 0}};
    EXPECT_FALSE(addin::is_in_order(missing, &ColoredRow::color, Color::blue));
}

TEST(KeyedTables, OfTheButtonsFindEachByItsMember) {
    for (const addin::commands::ButtonRow& row : addin::commands::buttons()) {
        EXPECT_EQ(&addin::commands::button(row.member), &row) << automation::to_utf8(row.caption);
    }
}

TEST(KeyedTables, OfTheWaysToANewContactFindEachByItsPath) {
    using addin::records::Path;
    for (const Path path :
         {Path::quick_view_new_contact, Path::open_contact_new_contact, Path::create_new_contact}) {
        EXPECT_EQ(addin::createnote::new_contact_row(path).path, path);
    }
}

// Windows

constexpr ControlRow sound_controls[] = {
    {.kind = ControlKind::frame, .name = u"frame"},
    {.kind = ControlKind::button, .name = u"go", .frame = u"frame"},
    {.kind = ControlKind::image_list, .name = u"marks"},
    {.kind = ControlKind::report_list, .name = u"list", .image_list = u"marks"},
    {.kind = ControlKind::drop_down_list, .name = u"choice"}};
constexpr FormTable sound_table{.default_button = u"go", .first_focus = u"list", .controls = sound_controls};

TEST(WindowTables, KnowTheirControlsByNameAndKind) {
    EXPECT_TRUE(forms::knows(sound_table, u"go", forms::is_any));
    EXPECT_TRUE(forms::knows(sound_table, u"list", forms::is_list));
    EXPECT_TRUE(forms::knows(sound_table, u"choice", forms::is_choice));
    EXPECT_FALSE(forms::knows(sound_table, u"Go", forms::is_any)) << "as it is written";
    EXPECT_FALSE(forms::knows(sound_table, u"", forms::is_any));
    EXPECT_FALSE(forms::knows(sound_table, u"go", forms::is_list));
    EXPECT_FALSE(forms::knows(sound_table, u"list", forms::is_choice));
}

TEST(WindowTables, AreSoundWhereAllThatTheySayOfTheirControlsIsThere) {
    EXPECT_TRUE(forms::is_sound(sound_table));
    EXPECT_TRUE(forms::is_sound(FormTable{}));
    const auto with = [](auto change) {
        std::vector<ControlRow> rows(std::begin(sound_controls), std::end(sound_controls));
        FormTable table = sound_table;
        change(table, rows);
        table.controls = rows;
        return forms::is_sound(table);
    };
    using Rows = std::vector<ControlRow>;
    EXPECT_TRUE(with([](FormTable&, Rows&) {}));
    EXPECT_FALSE(with([](FormTable&, Rows& rows) { rows[4].name = u"go"; })) << "a name that stands twice";
    EXPECT_FALSE(with([](FormTable&, Rows& rows) { std::swap(rows[0], rows[1]); }))
        << "a frame after what stands in it";
    EXPECT_FALSE(with([](FormTable&, Rows& rows) { rows[1].frame = u"none"; }));
    EXPECT_FALSE(with([](FormTable&, Rows& rows) { rows[3].image_list = u"none"; }));
    EXPECT_FALSE(with([](FormTable& table, Rows&) { table.default_button = u"none"; }));
    EXPECT_FALSE(with([](FormTable& table, Rows&) { table.cancel_button = u"none"; }));
    EXPECT_FALSE(with([](FormTable& table, Rows&) { table.first_focus = u"none"; }));
}

}  // namespace
}  // namespace addin_tests
