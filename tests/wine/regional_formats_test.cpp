// What the dialog's list shows of amounts, dates and shares to users with other regional settings. The host
// reads them as it starts.
#include "tests/acceptance/note_dialog.h"
#include "tests/windows/regional_settings.h"

namespace wine {
namespace {

using acceptance::Lines;
using acceptance::NoteDialog;
using acceptance::Target;
using acceptance::World;
using host::Value;
using host::outlook::Item;

class RegionalFormats : public acceptance::WithNoteDialog {};

/// A contact with an amount, a debt, a date and a share, which are no texts.
void add_contact_with_figures(World& world) {
    constexpr std::int32_t number = 3, date = 5;  // OlUserPropertyType
    const Item contact = acceptance::add_contact(world);
    const auto add = [&](host::TextView name, std::int32_t type, const Value& value) {
        contact.UserProperties().Add(name, type, false).value(value);
    };
    add(u"Amount", number, 1234.5);
    add(u"Debt", number, -1234.5);
    add(u"Day", date, host::to_date({2009, 12, 31, 22, 30, 0}));
    add(u"Share", number, 0.25);
    contact.Save();
}

TEST_F(RegionalFormats, ShowFiguresAsTheUserIsUsedToThem) {
    using acceptance::named_field;
    Target target{.types = {u"String", u"Currency", u"Currency", u"Date", u"Percent", u"String"}};
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
        const auto shown = [](host::TextView text) { return acceptance::shown(text); };
        EXPECT_EQ(dialog.rows(), Lines{"Ann Lee|" + shown(one.amount) + "|" + shown(one.debt) + "|" +
                                       shown(one.date) + "|" + shown(one.share) + "||C-200"});
    }
}

}  // namespace
}  // namespace wine
