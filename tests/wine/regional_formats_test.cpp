// What the dialog's list shows of amounts, dates and shares to users with other regional settings. The host
// reads them as it starts.
#include "desk/setup/registry_text.h"
#include "tests/windows/support/regional_settings.h"
#include "tests/world/note_dialog.h"
#include "tests/world/quick_view.h"

namespace wine {
namespace {

using acceptance::Lines;
using acceptance::NoteDialog;
using acceptance::SearchTarget;
using acceptance::World;
using automation::Value;
using host::outlook::Item;

class RegionalFormats : public acceptance::WithNoteDialog {};

/// A contact with an amount, a debt, a date and a share, which are no texts.
void add_contact_with_figures(World& world) {
    constexpr std::int32_t number = 3, date = 5;  // OlUserPropertyType
    const Item contact = acceptance::add_contact(world);
    const auto add = [&](automation::TextView name, std::int32_t type, const Value& value) {
        contact.UserProperties().Add(name, type, false).value(value);
    };
    add(u"Amount", number, 1234.5);
    add(u"Debt", number, -1234.5);
    add(u"Day", date, automation::to_date({2009, 12, 31, 22, 30, 0}));
    add(u"Share", number, 0.25);
    contact.Save();
}

TEST_F(RegionalFormats, ShowFiguresAsTheUserIsUsedToThem) {
    using acceptance::named_field;
    SearchTarget target{.types = {u"String", u"Currency", u"Currency", u"Date", u"Percent", u"String"}};
    target.fields = {u"&H3001001E",       named_field(u"Amount"), named_field(u"Debt"),
                     named_field(u"Day"), named_field(u"Share"),  u""};
    for (const windows::testing::RegionalCase& one : windows::testing::regional_cases) {
        SCOPED_TRACE(one.name);
        close_dialog();
        const windows::testing::RegionalSettings settings(one.locale);
        World& world = with({});
        add_contact_with_figures(world);
        acceptance::install(world, {target});
        NoteDialog& dialog = opened();
        dialog.search(u"People", u"Ann");
        const auto shown = [](automation::TextView text) { return acceptance::shown(text); };
        EXPECT_EQ(dialog.rows(), Lines{"Ann Lee|" + shown(one.amount) + "|" + shown(one.debt) + "|" +
                                       shown(one.date) + "|" + shown(one.share) + "||C-200"});
    }
}

class RegionalQuickView : public acceptance::SideView {};

/// What a program's messages and the list of related items show, and what is written to the registry.
TEST_F(RegionalQuickView, ShowsAndReadsDatesAsTheUserWritesThem) {
    struct Case {
        const char* name;
        LCID locale;
        const char* date;
    };
    const Case cases[] = {{"United States", 0x0409, "12/31/2009 10:30:00 PM"},
                          {"British", 0x0809, "31/12/2009 22:30:00"},
                          {"German", 0x0407, "31.12.2009 22:30:00"}};
    const automation::Date date = automation::to_date({2009, 12, 31, 22, 30, 0});
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        const windows::testing::RegionalSettings settings(one.locale);
        World& world = viewing();
        const automation::Object connect = world.connect();
        connect.call(u"ShowMessage", {date});
        const automation::Object statuses = world.desk().get(u"Statuses").to_object();
        EXPECT_EQ(acceptance::shown(statuses.call(u"Item", {1}).to_text()), one.date);
        constexpr std::int32_t as_text = 1;
        connect.call(u"SetKeyValue",
                     {host::current_user, u"Software\\Tarnwell\\Desk", u"Set", date, as_text});
        EXPECT_EQ(acceptance::shown(
                      desk::registry::read_text(HKEY_CURRENT_USER, u"Software\\Tarnwell\\Desk", u"Set")
                          .value_or(u"")),
                  one.date);

        show_ann();
        Lines dates;  // of different seconds, the later one first
        for (const automation::TextView subject : {u"first", u"second"}) {
            const Item record =
                acceptance::add_record(world, u"Notes", u"IPM.Post.Note", subject, acceptance::keys_of_ann);
            const auto modified = [&] {
                return acceptance::shown(world.desktop().text_of(record.LastModificationTime()));
            };
            while (!dates.empty() && modified() == dates.front()) {
                record.Body(record.Body() + u".");
                record.Save();
            }
            dates.insert(dates.begin(), modified());
        }
        const acceptance::QuickView window = view();
        window.choose_folder(u"Notes");
        EXPECT_EQ(window.column(2), (Lines{dates.back(), dates.front()}));
        window.click_column(2);
        EXPECT_EQ(window.column(2), dates);
        window.click_column(2);
        EXPECT_EQ(window.column(2), (Lines{dates.back(), dates.front()}));
    }
}

}  // namespace
}  // namespace wine
