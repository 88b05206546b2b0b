// Which values add a term to the filter that is made of them, and which do not.
#include "fuzz/added_terms.h"

#include <gtest/gtest.h>

namespace addin_tests {
namespace {

using automation::Text;
using automation::TextView;

/// The builders of a kind, by the signs that they let out.
std::vector<const fuzz::Builder*> letting_out(TextView signs) {
    std::vector<const fuzz::Builder*> all;
    for (const fuzz::Builder& builder : fuzz::builders) {
        if (builder.breaks_out == signs) all.push_back(&builder);
    }
    return all;
}

// Values that add a term, by the reason why they may. What is found only is read, shown or filed to; where
// more hangs on it, the caller asks the item itself for its key.
TEST(ValuesOfFilters, AddATermWhereTheirOwnDelimiterEndsThem) {
    struct Case {
        TextView signs, value;
        const char* why;
    };
    constexpr Case cases[] = {
        {fuzz::mark, u"x\" Or [Subject] <> \"x",
         "A quotation mark in a value has no treatment: the host has a way to write it, the builders have "
         "none."},
        {fuzz::mark_or_before, u"x\" Or [Subject] <> \"x", "The same of ranges."},
        {fuzz::apostrophes, u"x' Or [Size] > 0 Or [Subject] = 'x",
         "Keys and names are put in by hand, as they stand; the add-in makes keys without apostrophes."},
    };
    for (const Case& one : cases) {
        for (const fuzz::Builder* builder : letting_out(one.signs)) {
            const bool is_schema = builder->build(u"x").starts_with(u"@SQL=");
            const Text value = is_schema ? u"x' Or \"urn:schemas:httpmail:subject\" <> 'x" : Text(one.value);
            EXPECT_TRUE(fuzz::adds_terms(*builder, value)) << builder->name << ": " << one.why;
        }
    }
}

// A limit ends with the sign behind the value's last one. Behind an exclamation mark comes the quotation
// mark.
TEST(ValuesOfFilters, AddNoTermToARangeThatTheHostRefuses) {
    for (const fuzz::Builder* builder : letting_out(fuzz::mark_or_before)) {
        EXPECT_EQ(fuzz::TermNames::of(builder->build(u"Stop!")), std::nullopt) << builder->name;
        EXPECT_FALSE(fuzz::adds_terms(*builder, u"Stop!")) << builder->name;
    }
}

TEST(ValuesOfFilters, AddNoTermBesides) {
    constexpr TextView values[] = {u"",
                                   u"O'Brien",
                                   u"'Abc'",
                                   u"a&",
                                   u"x' Or [Size] > 0 Or [Subject] = 'x",
                                   u"x~ Or [Size] > 0 Or [Subject] = ~x",
                                   u"<<UpperLimit>>' Or [Size] > 0 Or [Subject] = '<<mString>>",
                                   u"] = 0 Or [Size"};
    for (const fuzz::Builder& builder : fuzz::builders) {
        for (const TextView value : values) {
            if (value.find_first_of(builder.breaks_out) != TextView::npos) continue;
            EXPECT_FALSE(fuzz::adds_terms(builder, Text(value)))
                << builder.name << " of " << automation::to_utf8(value);
        }
    }
}

}  // namespace
}  // namespace addin_tests
