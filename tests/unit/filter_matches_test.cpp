// What passes a filter: each case is a filter text and whether the record of Jane passes it.
#include <gtest/gtest.h>

#include "tests/unit/support/filter_support.h"

namespace {

using namespace filter_tests;
using desk::filter::Filter;
using desk::filter::Words;

struct Case {
    const char16_t* filter;
    bool passes;
};

class FilterMatches : public testing::TestWithParam<Case> {};

TEST_P(FilterMatches, JaneOrNot) {
    const Filter filter = Filter::parse(GetParam().filter, KnownNames(), Words::indexed);
    EXPECT_EQ(filter.matches(jane()), GetParam().passes) << automation::to_utf8(GetParam().filter);
}

const Case bracketed_texts[] = {
    {u"[FullName] = \"Jane O'Brien\"", true},
    {u"[FullName] = 'Jane O''Brien'", true},
    {u"[fullname] = \"JANE o'brien\"", true},
    {u"[Fullname]=\"Jane O'Brien\"", true},
    {u"[Email1Address]= \"jane@one.example\"", true},
    {u"  [Email1Address]  =  \"jane@one.example\"   ", true},
    {u"[ Account Name ] = 'Acme'", true},
    {u"[CompanyName] = \"Acme \"\"Best\"\" Ltd\"", true},
    {u"[CompanyName] = 'Acme \"Best\" Ltd'", true},
    {u"[FullName] = 'Jane'", false},
    {u"[FullName] = 'Jane%'", false},  // no wildcard in this language
    {u"[FullName] <> 'Jane'", true},
    {u"[FullName] <> 'jane o''brien'", false},
    {u"[FullName] >= 'Jane' AND [FullName] < 'Janf'", true},
    {u"[FullName] >= \"jane\" AND [FullName] < \"janf\"", true},
    {u"[FullName] > 'Jane O''Brien'", false},
    {u"[FullName] >= 'Jane O''Brien'", true},
    {u"[FullName] < 'Jane O''Brien'", false},
    {u"[FullName] <= 'Jane O''Brien'", true},
};
INSTANTIATE_TEST_SUITE_P(BracketedTexts, FilterMatches, testing::ValuesIn(bracketed_texts));

const Case other_types[] = {
    {u"[UnRead] = True", true},
    {u"[UnRead] = yes", true},
    {u"[UnRead] = 'Yes'", true},
    {u"[UnRead] = 1", true},
    {u"[UnRead] = False", false},
    {u"[UnRead] = No", false},
    {u"[UnRead] <> NO", true},
    {u"[UnRead] = On", true},
    {u"[UnRead] = off", false},
    {u"[UnRead] = -1", true},
    {u"[UnRead] = 0", false},
    {u"[UnRead] = 'No'", true},  // a text that is there is yes, whatever it says
    {u"[UnRead] <> 'no'", false},
    {u"[UnRead] = ''", false},
    {u"[Size] = 512", true},
    {u"[Size] = '512'", true},
    {u"[Size] > 60", true},  // as numbers, not as texts
    {u"[Size] < 1e3", true},
    {u"[Size] > -1", true},
    {u"[Size] = 'Half'", true},  // by the name of a number
    {u"[Size] < 'Half'", false},
    {u"[Amount] = 12.5", true},
    {u"[Amount] >= +12.50", true},
    {u"[Amount] = .5", false},
    {u"[Account Name] = 5", false},
    {u"[ReceivedTime] = '2026-03-03 09:15'", true},
    {u"[ReceivedTime] = '3/3/2026 9:15 AM'", true},
    {u"[ReceivedTime] > '12/31/2025'", true},  // as dates, not as texts
    {u"[ReceivedTime] < '2026-03-03'", false},
    {u"[ReceivedTime] > '2026-03-03'", true},
};
INSTANTIATE_TEST_SUITE_P(OtherTypes, FilterMatches, testing::ValuesIn(other_types));

const Case subjects_and_keywords[] = {
    {u"[Topic] = 'offer of may'", true},
    {u"[Topic] = 'RE: Offer of May'", true},
    {u"[Topic] = 'FW: Offer of May'", false},
    {u"[Topic] <> 'Offer of May'", false},
    {u"[Topic] = 'Offer'", false},
    {u"[Topic] >= 'O' And [Topic] < 'P'", true},
    {u"@SQL=\"topic\" = 'offer of may'", true},
    {u"@SQL=\"topic\" Like 'offer of may'", true},
    {u"@SQL=\"topic\" Like 'offer%'", true},
    {u"@SQL=\"topic\" Like 're:%'", true},
    {u"@SQL=\"topic\" Like 'of%'", true},
    {u"@SQL=\"topic\" Like 'may%'", false},
    {u"[Keywords] = 'Partner'", true},
    {u"[Keywords] = 'tier1 partner'", true},
    {u"[Keywords] = 'Part'", false},
    {u"[Keywords] = 'Red'", true},
    {u"[Keywords] = 'Red Car'", false},  // not across two of them
    {u"[Keywords] = 'Tier1 Partner, Big Red, Car'", true},
    {u"[Keywords] <> 'Partner'", false},
    {u"[Keywords] <> 'Boat'", true},
    {u"@SQL=\"keywords\" = 'car'", true},
    {u"@SQL=\"keywords\" = 'Red'", false},
    {u"@SQL=\"keywords\" <> 'Red'", true},
    {u"@SQL=\"keywords\" Like 'big%'", true},
    {u"@SQL=\"keywords\" Like '%boat%'", false},
    {u"@SQL=\"keywords\" ci_startswith 'part'", true},
    {u"@SQL=\"unread\" = 1", true},
    {u"@SQL=\"unread\" = '0'", false},
};
INSTANTIATE_TEST_SUITE_P(SubjectsAndKeywords, FilterMatches, testing::ValuesIn(subjects_and_keywords));

const Case unset_fields[] = {
    {u"[AccountID] = ''", true},
    {u"[AccountID] <> ''", false},
    {u"[AccountID] = 'x'", false},
    {u"[AccountID] < 'x'", true},
    {u"[AccountID] = 0", true},
    {u"[AccountID] = False", true},
    {u"[AccountID] = 5", false},
    {u"[Unset Date] > '12/31/2999'", true},  // no date is shown as 1/1/4501
    {u"[Unset Date] < '12/31/2999'", false},
    {u"[Unset Date] = '1/1/4501'", true},
    {u"[Unset Number] = '0'", true},
    {u"[Unset Number] < '5'", true},
    {u"[Unset Number] = 'Half'", false},
    {u"[Unset Mark] = ''", true},
    {u"[Unset Mark] = False", true},
    {u"[Unset Mark] = 'x'", false},
};
INSTANTIATE_TEST_SUITE_P(UnsetFields, FilterMatches, testing::ValuesIn(unset_fields));

// The three fields are true, true and false of Jane.
const Case precedence[] = {
    {u"[UnRead] = True Or [Size] = 512 And [Subject] = 'x'", true},
    {u"[Subject] = 'x' And [Size] = 512 Or [UnRead] = True", true},
    {u"([UnRead] = True Or [Size] = 512) And [Subject] = 'x'", false},
    {u"Not [UnRead] = True Or [Size] = 512", true},
    {u"Not ([UnRead] = True Or [Size] = 512)", false},
    {u"Not [Subject] = 'x' And [UnRead] = True", true},
    {u"NOT not [UnRead] = True", true},
    {u"Not Not Not [UnRead] = True", false},
    {u"((([UnRead] = True)))", true},
    {u"[UnRead] = True and not([Subject] = 'x')", true},
    {u"[Subject] = 'x' oR [Size] = 1 or [UnRead] = True", true},
    {u"[Subject] = 'x' Or [Size] = 1 Or [UnRead] = False", false},
    {u"[UnRead] = True AND [Size] = 512 aNd [Amount] = 12.5", true},
};
INSTANTIATE_TEST_SUITE_P(Precedence, FilterMatches, testing::ValuesIn(precedence));

const Case sql[] = {
    {u"@SQL=\"http://schemas.microsoft.com/mapi/proptag/0x001a001e\" = 'IPM.Contact'", true},
    {u"@SQL=(\"http://schemas.microsoft.com/mapi/proptag/0x001A001E\" = 'ipm.contact')", true},
    {u"@SQL=(\"http://schemas.microsoft.com/mapi/proptag/0x001a001e\" = 'IPM.Contact' AND "
     u"\"urn:schemas:httpmail:subject\" = 'x')",
     false},
    {u"@SQL=\"size\" > 60 And \"size\" <= 512", true},
    {u"@SQL=\"size\" Like '5%'", true},
    {u"@SQL=\"blank\" Like ''", true},
    {u"@SQL=\"blank\" Like '%'", true},
    {u"@SQL=\"http://schemas.microsoft.com/mapi/proptag/0x001a001e\" Like 'IPM.contact'", true},
    {u"@SQL=\"http://schemas.microsoft.com/mapi/proptag/0x001a001e\" Like 'IPM.Contact%.Contact'", false},
    {u"@SQL=\"unknown\" ci_phrasematch 'jane'", false},
    {u"@SQL=\"size\" ci_phrasematch '512'", true},
};
INSTANTIATE_TEST_SUITE_P(Sql, FilterMatches, testing::ValuesIn(sql));

const Case lacking[] = {
    {u"@SQL=\"unknown\" = ''", false},      {u"@SQL=\"unknown\" <> 'x'", false},
    {u"@SQL=\"unknown\" < 'x'", false},     {u"@SQL=\"unknown\" Like '%'", false},
    {u"@SQL=\"unknown\" Is Null", true},    {u"@SQL=\"unknown\" is not null", false},
    {u"@SQL=\"empty\" IS NULL", true},      {u"@SQL=\"empty\" = ''", false},
    {u"@SQL=\"blank\" Is Null", true},      {u"@SQL=\"blank\" Is Not Null", false},
    {u"@SQL=\"blank\" = ''", true},         {u"@SQL=Not \"unknown\" = 'x'", true},
    {u"@SQL=Not \"blank\" Is Null", false},
};
INSTANTIATE_TEST_SUITE_P(LackingProperties, FilterMatches, testing::ValuesIn(lacking));

/// What follows the property's name in a condition on the subject, which is: 100% of under_scores, Jane-Anne
/// O'Brien
class FilterOnSubject : public testing::TestWithParam<Case> {};

TEST_P(FilterOnSubject, JaneOrNot) {
    const automation::Text text =
        u"@SQL=\"urn:schemas:httpmail:subject\" " + automation::Text(GetParam().filter);
    EXPECT_EQ(Filter::parse(text, KnownNames(), Words::indexed).matches(jane()), GetParam().passes)
        << automation::to_utf8(text);
}

const Case comparisons[] = {
    {u"= '100% of under_scores, Jane-Anne O''Brien'", true},
    {u"<> 'x'", true},
    {u"Like '100%'", true},
    {u"LIKE '%o''BRIEN'", true},
    {u"like '%jane%'", true},
    {u"Like '1%under_%brien'", true},
    {u"Like '1%brien%under%'", false},
    {u"Like 'Jane%'", false},
    {u"Like '%Jane'", false},
    {u"Like '%under?scores%'", false},
    {u"Like '%under%scores%'", true},
    {u"Like '%u_der%'", false},               // _ stands for itself
    {u"Like '%anne%o''brien%brien'", false},  // the end is not there twice
    {u"Like '%anne%o''%brien'", true},
    {u"Like '%'", true},
    {u"Like '%%'", true},
    {u"Like ''", false},
};
INSTANTIATE_TEST_SUITE_P(Comparisons, FilterOnSubject, testing::ValuesIn(comparisons));

const Case words[] = {
    {u"ci_phrasematch 'jane'", true},
    {u"CI_PhraseMatch 'under'", true},
    {u"ci_phrasematch 'under scores'", true},
    {u"ci_phrasematch 'scores, Jane'", true},
    {u"ci_phrasematch 'scores jane anne'", true},
    {u"ci_phrasematch 'o''brien'", true},
    {u"ci_phrasematch 'jan'", false},
    {u"ci_phrasematch 'ane'", false},
    {u"ci_phrasematch 'jane scores'", false},
    {u"ci_phrasematch 'scores anne'", false},
    {u"ci_phrasematch 'brien and more'", false},
    {u"ci_phrasematch ''", false},
    {u"ci_phrasematch ' - '", false},
    {u"ci_startswith 'jan'", true},
    {u"ci_startswith 'Jane An'", true},
    {u"ci_startswith 'Jan An'", true},  // each of them the start of some word
    {u"ci_startswith 'bri jan'", true},
    {u"ci_startswith 'Jan cat'", false},
    {u"ci_startswith 'ane'", false},
    {u"ci_startswith ''", false},
};
INSTANTIATE_TEST_SUITE_P(Words, FilterOnSubject, testing::ValuesIn(words));

// "Filtering Items Using a Date-time Comparison": the days are the user's, who has 4 March 2026, a Wednesday,
// two hours east of Greenwich; properties are in UTC.
struct SpanCase {
    const char16_t* macro;
    const char16_t *first, *last;  ///< the first and the last second that are in it
};
const SpanCase spans[] = {
    {u"today", u"2026-03-03 22:00:00", u"2026-03-04 21:59:59"},
    {u"tomorrow", u"2026-03-04 22:00:00", u"2026-03-05 21:59:59"},
    {u"yesterday", u"2026-03-02 22:00:00", u"2026-03-03 21:59:59"},
    {u"next7days", u"2026-03-03 22:00:00", u"2026-03-10 21:59:59"},
    {u"last7days", u"2026-02-25 22:00:00", u"2026-03-04 21:59:59"},
    {u"nextweek", u"2026-03-07 22:00:00", u"2026-03-14 21:59:59"},
    {u"thisweek", u"2026-02-28 22:00:00", u"2026-03-07 21:59:59"},
    {u"LastWeek", u"2026-02-21 22:00:00", u"2026-02-28 21:59:59"},
    {u"nextmonth", u"2026-03-31 22:00:00", u"2026-04-30 21:59:59"},
    {u"thismonth", u"2026-02-28 22:00:00", u"2026-03-31 21:59:59"},
    {u"lastmonth", u"2026-01-31 22:00:00", u"2026-02-28 21:59:59"},
};

TEST(FilterDateMacros, AreWholeDaysOfTheUser) {
    for (const SpanCase& span : spans) {
        const Filter filter = Filter::parse(u"@SQL=%" + automation::Text(span.macro) + u"(\"time\")%",
                                            KnownNames(), Words::refused);
        auto holds = [&](const char16_t* time, int seconds_later) {
            MapRecord record;
            constexpr double seconds_of_day = 86400;
            record.properties[u"time"] =
                automation::Date{automation::read_date(time)->days + seconds_later / seconds_of_day};
            return filter.matches(record);
        };
        SCOPED_TRACE(automation::to_utf8(span.macro));
        EXPECT_FALSE(holds(span.first, -1));
        EXPECT_TRUE(holds(span.first, 0));
        EXPECT_TRUE(holds(span.last, 0));
        EXPECT_FALSE(holds(span.last, 1));
        EXPECT_FALSE(filter.matches(jane())) << "a time that isn't there";
    }
}

TEST(FilterDateMacros, StandAmongOtherConditions) {
    MapRecord record;
    record.properties[u"time"] = *automation::read_date(u"2026-03-04 09:15");
    auto passes = [&](const char16_t* text) {
        return Filter::parse(text, KnownNames(), Words::refused).matches(record);
    };
    EXPECT_TRUE(passes(u"@SQL= % today ( \"time\" ) % And Not %tomorrow(\"time\")%"));
    EXPECT_TRUE(passes(u"@SQL=(%tomorrow(\"time\")% Or (%today(\"time\")%))"));
    EXPECT_FALSE(passes(u"@SQL=Not %today(\"time\")%"));
}

TEST(FilterMatchesText, LettersBeyondAsciiBelongToWords) {
    MapRecord record;
    record.properties[u"p"] = u"Herr M\u00FCller\u2019s \u00DCbung";
    auto passes = [&](const char16_t* text) {
        return Filter::parse(text, KnownNames(), Words::indexed).matches(record);
    };
    EXPECT_TRUE(passes(u"@SQL=\"p\" ci_phrasematch 'M\u00DCLLER'"));
    EXPECT_FALSE(passes(u"@SQL=\"p\" ci_phrasematch 'M'"));
    EXPECT_FALSE(passes(u"@SQL=\"p\" ci_phrasematch 'ller'"));
    EXPECT_TRUE(passes(u"@SQL=\"p\" ci_startswith '\u00FCb'"));
}

TEST(FilterMatchesText, ValuesThatAreNoTextMatchNoText) {
    MapRecord record;
    record.fields[u"Subject"] = automation::Array::of({automation::Value(u"x")});
    record.properties[u"p"] = automation::Array::of({automation::Value(u"x")});
    for (const char16_t* text : {u"[Subject] = 'x'", u"[Subject] <> 'x'", u"@SQL=\"p\" Like '%'"}) {
        EXPECT_FALSE(Filter::parse(text, KnownNames(), Words::refused).matches(record))
            << automation::to_utf8(text);
    }
}

}  // namespace
