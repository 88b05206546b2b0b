// What a filter finds, and what it refuses.
#include "admin/probe/questions.h"

namespace admin {
namespace {

using host::outlook::Item;
using host::outlook::Items;

/// The subjects of what a filter leaves, in their order.
template <const char16_t* Filter>
std::string restricted(Probed& probed) {
    const Items found = probed.filtered().Items().Restrict(Filter);
    std::string subjects;
    const std::int32_t count = found.Count();
    for (std::int32_t i = 1; i <= count; ++i) {
        subjects += (i == 1 ? "" : ", ") + automation::to_utf8(found.Item(i).Subject());
    }
    return subjects.empty() ? "none" : subjects;
}

/// The subject of the first item that a filter finds.
template <const char16_t* Filter>
std::string found(Probed& probed) {
    const Item item = probed.filtered().Items().Find(Filter);
    return item ? automation::to_utf8(item.Subject()) : "nothing";
}

constexpr char16_t empty[] = u"";
constexpr char16_t unknown[] = u"[No Such Field] = 'x'";
constexpr char16_t unclosed[] = u"[Subject] = 'One";
constexpr char16_t exact[] = u"[Subject] = 'One'";
constexpr char16_t other_case[] = u"[Subject] = 'oNE'";
constexpr char16_t doubled[] = u"[Subject] = 'O''Hara'";
constexpr char16_t in_double_quotes[] = u"[Subject] = \"O'Hara\"";
constexpr char16_t range[] = u"[Subject] >= 'T' And [Subject] < 'U'";
constexpr char16_t no_match[] = u"[Subject] = 'Three'";
constexpr char16_t alternatives[] = u"[Subject] = 'Two' Or [Subject] = 'One'";
constexpr char16_t binding[] = u"[Subject] = 'One' Or [Subject] = 'Two' And [Subject] = 'O''Hara'";
constexpr char16_t of_property[] = u"[Probe Name] = 'Mill'";
constexpr char16_t unequal_property[] = u"[Probe Name] <> 'Mill'";
constexpr char16_t empty_property[] = u"[Probe Name] = ''";
constexpr char16_t items_property[] = u"[Probe Item Name] = 'Mill'";
constexpr char16_t dasl[] = u"@SQL=\"urn:schemas:httpmail:subject\" = 'One'";
constexpr char16_t dasl_like[] = u"@SQL=\"urn:schemas:httpmail:subject\" Like '%wo'";
constexpr char16_t dasl_named[] =
    u"@SQL=\"http://schemas.microsoft.com/mapi/string/{00020329-0000-0000-C000-000000000046}/"
    u"Probe%20Item%20Name\" = "
    u"'Mill'";
constexpr char16_t dasl_absent[] =
    u"@SQL=\"http://schemas.microsoft.com/mapi/string/{00020329-0000-0000-C000-000000000046}/"
    u"No%20Such%20Name\" = 'x'";
constexpr char16_t dasl_null[] =
    u"@SQL=\"http://schemas.microsoft.com/mapi/string/{00020329-0000-0000-C000-000000000046}/Probe%20Name\" "
    u"Is Null";
constexpr char16_t dasl_broken[] = u"@SQL=\"urn:schemas:httpmail:subject\" = 'One";

constexpr ProbeQuestion filter_rows[] = {
    {"Restrict with an empty filter", "an error", source::believed, restricted<empty>},
    {"Find with an empty filter", "an error", source::believed, found<empty>},
    {"Restrict by a field that nobody knows", "an error", "Items.Restrict method", restricted<unknown>},
    {"Find by a field that nobody knows", "an error", "Items.Find method", found<unknown>},
    {"Restrict with a text whose quote is not closed", "an error", source::believed, restricted<unclosed>},
    {"Find by a subject", "One", "Items.Find method", found<exact>},
    {"Find by a subject in other letters", "One", source::believed, found<other_case>},
    {"Find by a subject with an apostrophe, doubled between apostrophes", "O'Hara",
     "Filtering Items Using a String Comparison", found<doubled>},
    {"Find by a subject with an apostrophe, between quotation marks", "O'Hara", "Items.Find method",
     found<in_double_quotes>},
    {"Restrict to subjects in a range", "Two", "Items.Restrict method", restricted<range>},
    {"Find what is not there", "nothing", "Items.Find method", found<no_match>},
    {"Restrict to one or the other: what comes first", "One, Two", source::believed,
     restricted<alternatives>},
    {"And binds tighter than Or", "One", source::believed, restricted<binding>},
    {"Restrict by a user property that the folder knows", "One", "Items.Restrict method",
     restricted<of_property>},
    {"Restrict by another value than a user property's: items without it", "Two, O'Hara", source::believed,
     restricted<unequal_property>},
    {"Restrict by an empty user property: items without it", "Two, O'Hara", source::believed,
     restricted<empty_property>},
    {"Restrict by a user property that the item has and the folder doesn't know", "an error",
     "Items.Restrict method", restricted<items_property>},
    {"Restrict by a schema name", "One", "Filtering Items", restricted<dasl>},
    {"Restrict by a schema name and a pattern", "Two", "Filtering Items Using a String Comparison",
     restricted<dasl_like>},
    {"Restrict by the schema name of a user property that the folder doesn't know", "One", "Filtering Items",
     restricted<dasl_named>},
    {"Restrict by the schema name of a user property that nobody has", "none", source::believed,
     restricted<dasl_absent>},
    {"Restrict by the schema name of a user property that is not there", "Two, O'Hara",
     "Filtering Items Using Comparison and Logical Operators", restricted<dasl_null>},
    {"Restrict by a schema name with a text whose quote is not closed", "an error", source::believed,
     restricted<dasl_broken>},
};

}  // namespace

std::span<const ProbeQuestion> filter_questions() { return filter_rows; }

}  // namespace admin
