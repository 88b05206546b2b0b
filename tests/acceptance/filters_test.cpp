// The texts of searches, and how a found value is shown. Formats are those of a machine with United States
// settings.
#include <span>

#include "addin/records/filters.h"
#include "tests/world/people.h"

namespace acceptance {
namespace {

using addin::records::EqualTerm;
using addin::records::FormatFieldValue;
using addin::records::NoteFilter;
using addin::records::NoteFilterBoxes;
using addin::records::RangeTerm;
using addin::records::TemplateFilter;
using automation::Text;
using automation::TextView;

/// What a builder makes of a value, and what it leaves of the value itself.
struct Built {
    TextView value;
    TextView left;  ///< the value afterwards
    TextView text;
};

/// Hands each value to a builder, which may change it.
void expect_built(std::span<const Built> cases, Text (*build)(Text& value)) {
    for (const Built& one : cases) {
        SCOPED_TRACE(shown(one.value));
        Text value(one.value);
        EXPECT_EQ(shown(build(value)), shown(one.text));
        EXPECT_EQ(shown(value), shown(one.left));
    }
}

TEST(EqualTerm, IsOneEquality) {
    constexpr Built cases[] = {
        {u"O'Brien", u"O~Brien", u"[FullName] = \"O'Brien\""},
        {u"Jane Doe", u"Jane Doe", u"[FullName] = \"Jane Doe\""},
        {u"a~b", u"a~b", u"[FullName] = \"a'b\""},
        {u"'Abc'", u"Abc", u"[FullName] = \"Abc\""},
        {u"'Abc", u"Abc", u"[FullName] = \"Abc\""},
        {u"Abc'", u"Abc", u"[FullName] = \"Abc\""},
        {u"'It's'", u"It~s~", u"[FullName] = \"It's'\""},
        {u"''Abc", u"~Abc", u"[FullName] = \"'Abc\""},
        {u"'", u"", u"[FullName] = \"\""},
        {u"''", u"", u"[FullName] = \"\""},
        {u"", u"", u"[FullName] = \"\""},
        {u"'Abc  ", u"Abc ", u"[FullName] = \"Abc \""},  // four characters from the second on
        {u"Abc'  ", u"Abc", u"[FullName] = \"Abc\""},    // one less than the trimmed length
        {u"  ", u"  ", u"[FullName] = \"  \""},
        {u" 'Abc", u" ~Abc", u"[FullName] = \" 'Abc\""},
        {u"a\"b", u"a\"b", u"[FullName] = \"a\"b\""},  // breaks the term
        {u"[x]", u"[x]", u"[FullName] = \"[x]\""},
    };
    expect_built(cases, [](Text& value) { return EqualTerm(value, u"FullName"); });
}

TEST(RangeTerm, ReachesToTheUpperLimit) {
    constexpr Built cases[] = {
        {u"John Smith", u"John Smith", u"[F] >= \"John Smith\" AND [F] < \"John Smiti\""},
        {u"O'Brien", u"O~Brien", u"[F] >= \"O'Brien\" AND [F] < \"O'Brieo\""},
        {u"z", u"z", u"[F] >= \"z\" AND [F] < \"za\""},
        {u"Z", u"Z", u"[F] >= \"Z\" AND [F] < \"Za\""},
        {u"Fritz", u"Fritz", u"[F] >= \"Fritz\" AND [F] < \"Fritza\""},
        {u"Room 9", u"Room 9", u"[F] >= \"Room 9\" AND [F] < \"Room :\""},
        {u"'Abc'", u"Abc", u"[F] >= \"Abc\" AND [F] < \"'Abc(\""},
        {u"Abc'", u"Abc", u"[F] >= \"Abc\" AND [F] < \"Abc(\""},
        {u"'Abc", u"Abc", u"[F] >= \"Abc\" AND [F] < \"'Abd\""},
        {u"'It's'", u"It~s~", u"[F] >= \"It's'\" AND [F] < \"'It's(\""},
        {u"", u"", u"[F] >= \"\" AND [F] < \"\""},
        {u"Abc ", u"Abc ", u"[F] >= \"Abc \" AND [F] < \"Abc!\""},
        {u"a~", u"a~", u"[F] >= \"a'\" AND [F] < \"a\x7F\""},
        {u"a}", u"a}", u"[F] >= \"a}\" AND [F] < \"a'\""},  // the limit's own tilde is lost, too
        {u"\u00FC", u"\u00FC", u"[F] >= \"\u00FC\" AND [F] < \"\u00FD\""},
        {u"\u017E", u"\u017E", u"[F] >= \"\u017E\" AND [F] < \"\u017F\""},
    };
    expect_built(cases, [](Text& value) { return RangeTerm(value, u"F"); });
}

TEST(RangeTerm, CalledAgainOnTheSameVariableGivesTheSameTerm) {
    Text value = u"O'Brien";
    EXPECT_EQ(RangeTerm(value, u"FullName"), u"[FullName] >= \"O'Brien\" AND [FullName] < \"O'Brieo\"");
    EXPECT_EQ(RangeTerm(value, u"FilesAs"), u"[FilesAs] >= \"O'Brien\" AND [FilesAs] < \"O'Brieo\"");
    EXPECT_EQ(RangeTerm(value, u"EmailSearchString"),
              u"[EmailSearchString] >= \"O'Brien\" AND [EmailSearchString] < \"O'Brieo\"");
    EXPECT_EQ(value, u"O~Brien");
}

TEST(NoteFilter, InModeCreateIsMadeOfEqualities) {
    struct Case {
        bool account_level;
        TextView value, text, end, limit;
    };
    constexpr Case cases[] = {
        {false, u"Ann",
         u"[Subject] = \"Ann\" Or [Fullname] = \"Ann\" Or [EmailSearchString]= \"Ann\" Or [Email1Address] = "
         u"\"Ann\" Or "
         u"[Email2Address] = \"Ann\" Or [Email3Address] = \"Ann\"",
         u"o", u"Ano"},
        {true, u"Acme", u"[Subject] = \"Acme\"", u"f", u"Acmf"},
        {true, u"O'Neil", u"[Subject] = \"O'Neil\"", u"m", u"O'Neim"},
        {true, u"Ritz", u"[Subject] = \"Ritz\"", u"za", u"Ritza"},
        {true, u"", u"[Subject] = \"\"", u"", u""},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(shown(one.value));
        Text value(one.value);
        NoteFilterBoxes boxes{.Option1 = one.account_level};
        EXPECT_EQ(shown(NoteFilter(value, u"Create", boxes)), shown(one.text));
        EXPECT_EQ(shown(boxes.Text1), shown(one.end));
        EXPECT_EQ(shown(boxes.Text2), shown(one.limit));
    }
}

TEST(NoteFilter, InAnyOtherModeIsMadeOfRanges) {
    NoteFilterBoxes boxes{.Option1 = true};
    Text account = u"O'Neil";
    EXPECT_EQ(NoteFilter(account, u"Find", boxes), u"[Subject] >= \"O'Neil\" AND [Subject] < \"O'Neim\"");

    constexpr TextView ranges[][2] = {
        {u"Subject", u"Subject"},
        {u"Fileas", u"FileAs"},
        {u"Fullname", u"Fullname"},
        {u"Fileas", u"Fileas"},
        {u"EmailSearchString", u"EmailSearchString"},
        {u"CompanyName", u"CompanyName"},
        {u"FirstName", u"FirstName"},
        {u"LastName", u"LastName"},
        {u"Email1Address", u"Email1Address"},
        {u"Email2Address", u"Email2Address"},
        {u"Email3Address", u"Email3Address"},
        {u"Email1DisplayName", u"Email1DisplayName"},
        {u"Email2DisplayName", u"Email2DisplayName"},
        {u"Email3DisplayName", u"Email3DisplayName"},
    };
    Text expected;
    for (const auto& [lower, upper] : ranges) {
        if (!expected.empty()) expected += u" Or ";
        expected += u"[" + Text(lower) + u"] >= \"Ann\" AND [" + Text(upper) + u"] < \"Ano\"";
    }
    for (const TextView mode : {u"", u"create", u"CREATE", u"Create "}) {
        boxes.Option1 = false;
        Text contact = u"Ann";
        EXPECT_EQ(shown(NoteFilter(contact, mode, boxes)), shown(expected)) << shown(mode);
    }
}

TEST(TemplateFilter, FillsThePlaceholdersAndKeepsTheRest) {
    constexpr TextView text = u"[CompanyName] >= '<<mString>>' AND [CompanyName] < '<<UpperLimit>>'";
    struct Case {
        TextView value, filled;
    };
    constexpr Case cases[] = {
        {u"Acme", u"[CompanyName] >= 'Acme' AND [CompanyName] < 'Acmf'"},
        {u"Ritz", u"[CompanyName] >= 'Ritz' AND [CompanyName] < 'Ritzz'"},
        {u"z", u"[CompanyName] >= 'z' AND [CompanyName] < 'zz'"},
        {u"Z", u"[CompanyName] >= 'Z' AND [CompanyName] < 'Zz'"},
        {u"Plant 9", u"[CompanyName] >= 'Plant 9' AND [CompanyName] < 'Plant 99'"},
        {u"O'Brien", u"[CompanyName] >= 'O~Brien' AND [CompanyName] < 'O~Brieo'"},
        {u"'Abc'", u"[CompanyName] >= 'Abc' AND [CompanyName] < '~Abc('"},
        {u"", u"[CompanyName] >= '' AND [CompanyName] < ''"},
    };
    constexpr std::size_t length = 4096;
    Text padded(text);
    padded.resize(length, u' ');
    const Text padding = padded.substr(text.size());
    for (const Case& one : cases) {
        SCOPED_TRACE(shown(one.value));
        Text value(one.value);
        EXPECT_EQ(TemplateFilter(value, padded), Text(one.filled) + padding);
    }
    Text value = u"Acme";
    EXPECT_EQ(TemplateFilter(value, Text(length, u' ')), Text(length, u' '))
        << "an empty template is all blanks";
    EXPECT_EQ(TemplateFilter(value, u"<<mString>> <<mString>> <<mstring>>"), u"Acme Acme <<mstring>>");
}

class FieldValue : public Acceptance {};

TEST_F(FieldValue, IsShownByItsType) {
    struct Case {
        TextView type, value, shown;
    };
    constexpr Case cases[] = {
        {u"String", u"Jane", u"Jane"},
        {u"Currency", u"1234.5", u"$1,234.50"},
        {u"Currency", u"0", u"$0.00"},
        {u"Currency", u"1234567.891", u"$1,234,567.89"},
        {u"Currency", u"Jane", u"Jane"},
        {u"Currency", u"", u""},
        {u"Date", u"12/31/2009 10:30:00 AM", u"12/31/2009"},
        {u"Date", u"1/2/2009", u"1/2/2009"},
        {u"Date", u"10:30:00", u"12/30/1899"},
        {u"Date", u"soon", u"soon"},
        {u"Date", u"", u""},
        {u"Percent", u"0.25", u"25.00%"},
        {u"Percent", u"-1.5", u"-150.00%"},
        {u"Percent", u"half", u"half"},
        {u"Percent", u"", u""},
        {u"", u"x", u"x"},
        {u"currency", u"1234.5", u"1234.5"},
        {u"DATE", u"1/2/2009 10:30", u"1/2/2009 10:30"},
        {u"Percent ", u"0.25", u"0.25"},
        {u"Number", u"0.250", u"0.250"},
    };
    World& world = with({.started = false});
    for (const Case& one : cases) {
        EXPECT_EQ(acceptance::shown(FormatFieldValue(Text(one.value), one.type, world.desktop())),
                  acceptance::shown(one.shown))
            << acceptance::shown(one.type) << " of " << acceptance::shown(one.value);
    }
}

}  // namespace
}  // namespace acceptance
