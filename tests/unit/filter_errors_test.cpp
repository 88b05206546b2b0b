// What is no filter, and what the host then says.
#include <gtest/gtest.h>

#include <random>

#include "tests/unit/support/filter_support.h"

namespace {

using namespace filter_tests;
using desk::filter::Filter;
using desk::filter::Words;

/// The host's complaint about a filter without indexed words; empty if it is read.
std::string complaint(automation::TextView text, Words words = Words::refused) {
    try {
        Filter::parse(text, KnownNames(), words);
        return {};
    } catch (const automation::Failure& failure) {
        EXPECT_EQ(failure.number(), automation::result::invalid_argument);
        const std::string head = "Condition is not valid. ";
        const std::string said = failure.what();
        EXPECT_TRUE(said.starts_with(head)) << said;
        return said.substr(std::min(head.size(), said.size()));
    }
}

struct RefusedCase {
    const char16_t* filter;
    const char* complaint;
};

class FilterErrors : public testing::TestWithParam<RefusedCase> {};

TEST_P(FilterErrors, SayWhatIsWrongAndWhere) {
    EXPECT_EQ(complaint(GetParam().filter), GetParam().complaint) << automation::to_utf8(GetParam().filter);
}

const RefusedCase refused_cases[] = {
    {u"", "The filter is empty. (character 1)"},
    {u"   ", "The filter is empty. (character 4)"},
    {u"@SQL=", "The filter is empty. (character 6)"},
    {u"@SQL=  ", "The filter is empty. (character 8)"},
    {u"[Colour] = 'red'", "The field \"Colour\" is unknown. (character 1)"},
    {u"[Subject] = 'x' Or [Colour] = 'red'", "The field \"Colour\" is unknown. (character 20)"},
    {u"[] = 'x'", "A field name is empty. (character 1)"},
    {u"[ ] = 'x'", "A field name is empty. (character 1)"},
    {u"[Subject = 'x'", "The bracket of a field name is not closed. (character 1)"},
    {u"[Subject] = 'x", "The quote of a text is not closed. (character 13)"},
    {u"[Subject] = \"x'", "The quote of a text is not closed. (character 13)"},
    {u"[Subject] = 'O'Brien'", "\"And\" or \"Or\" is expected instead of \"Brien\". (character 16)"},
    {u"[Subject] = \"5\" pipe\"", "\"And\" or \"Or\" is expected instead of \"pipe\". (character 17)"},
    {u"[Subject] = 'x' 'y'", "\"And\" or \"Or\" is expected instead of \"y\". (character 17)"},
    {u"[Subject] = 'x' [FullName] = 'y'",
     "\"And\" or \"Or\" is expected instead of \"FullName\". (character 17)"},
    {u"[Subject]", "An operator is expected. (character 10)"},
    {u"[Subject] 'x'", "An operator is expected. (character 11)"},
    {u"[Subject] = ", "A value is missing. (character 13)"},
    {u"[Subject] = = 'x'", "A value is missing. (character 13)"},
    {u"[Subject] == 'x'", "A value is missing. (character 12)"},
    {u"[Subject] => 'x'", "A value is missing. (character 12)"},
    {u"[Subject] != 'x'", "Unexpected character \"!\". (character 11)"},
    {u"[Subject] = [FullName]", "A value is missing. (character 13)"},
    {u"[Subject] = red", "A value is expected; a text stands between quotes. (character 13)"},
    {u"[Size] = 12kB", "A number is malformed. (character 10)"},
    {u"[Size] = 1e999", "A number is out of range. (character 10)"},
    {u"[Size] = -", "Unexpected character \"-\". (character 10)"},
    {u"[Subject] = 'x' And", "A field in brackets is expected. (character 20)"},
    {u"Or [Subject] = 'x'", "A field in brackets is expected. (character 1)"},
    {u"Not", "A field in brackets is expected. (character 4)"},
    {u"Subject = 'x'", "A field in brackets is expected. (character 1)"},
    {u"'x' = [Subject]", "A field in brackets is expected. (character 1)"},
    {u"([Subject] = 'x'", "A parenthesis is not closed. (character 1)"},
    {u"[Subject] = 'x')", "A parenthesis is closed that is not open. (character 16)"},
    {u"()", "A field in brackets is expected. (character 2)"},
    {u"[Subject] Like 'x'", "\"Like\" belongs to @SQL filters. (character 11)"},
    {u"[Subject] Is Null", "\"Is\" belongs to @SQL filters. (character 11)"},
    {u"\"subject\" = 'x'",
     "A field in brackets is expected; a property name in quotes needs @SQL=. (character 1)"},
    {u"[Subject] = 'x' Or \"subject\" = 'x'",
     "A field in brackets is expected; a property name in quotes needs @SQL=. (character 20)"},
    {u"@SQL=[Subject] = 'x'", "A field in brackets can't stand in an @SQL filter. (character 6)"},
    {u"@SQL=(\"subject\" = 'x' Or [Subject] = 'x')",
     "A field in brackets can't stand in an @SQL filter. (character 26)"},
    {u"@SQL=subject = 'x'", "A property name in double quotes is expected. (character 6)"},
    {u"@SQL='subject' = 'x'", "A property name in double quotes is expected. (character 6)"},
    {u"@SQL=\"\" = 'x'", "A property name is empty. (character 6)"},
    {u"@SQL=\"subject\" = \"x\"", "A value stands between apostrophes in an @SQL filter. (character 18)"},
    {u"@SQL=\"subject\" = 'O'Brien'", "\"And\" or \"Or\" is expected instead of \"Brien\". (character 21)"},
    {u"@SQL=\"subject\" Like 5", "\"Like\" needs a text between apostrophes. (character 21)"},
    {u"@SQL=\"subject\" Is 'x'", "\"Null\" or \"Not Null\" is expected after \"Is\". (character 19)"},
    {u"@SQL=\"subject\" Is Not", "\"Null\" or \"Not Null\" is expected after \"Is\". (character 22)"},
    {u"@SQL=\"subject\" contains 'x'", "An operator is expected. (character 16)"},
    {u"@SQL=\"subject\" ci_phrasematch 'x'", "\"ci_phrasematch\" is not supported here. (character 16)"},
    {u"@SQL=\"subject\" ci_startswith 'x'", "\"ci_startswith\" is not supported here. (character 16)"},
    {u"@SQL=\"no such name\" = 'x'", "The property \"no such name\" is unknown. (character 6)"},
    {u"@SQL=%today(\"no such name\")%", "The property \"no such name\" is unknown. (character 13)"},
    {u"@sql=\"subject\" = 'x'", "Unexpected character \"@\". (character 1)"},
    {u"%today(\"subject\")%", "A date macro belongs to @SQL filters. (character 1)"},
    {u"@SQL=%today%", "The property of a date macro stands between parentheses. (character 12)"},
    {u"@SQL=%thisyear(\"subject\")%", "A date macro is unknown. (character 7)"},
    {u"@SQL=%'today'(\"subject\")%", "A date macro is unknown. (character 7)"},
    {u"@SQL=%today(\"subject\"%", "The property of a date macro stands between parentheses. (character 22)"},
    {u"@SQL=%today(\"subject\")", "A date macro ends with a percent sign. (character 23)"},
    {u"@SQL=%today('subject')%", "A property name in double quotes is expected. (character 13)"},
    {u"@SQL=%today(\"subject\")% = 'x'", "\"And\" or \"Or\" is expected instead of \"=\". (character 25)"},
    {u"[Body] = 'x'", "The field \"Body\" can't stand in a filter. (character 1)"},
    {u"[Size] = 'large'", "\"large\" is no number. (character 10)"},
    {u"[ReceivedTime] > 'some day'", "\"some day\" is no date. (character 18)"},
    {u"[ReceivedTime] > ''", "\"\" is no date. (character 18)"},
    {u"[ReceivedTime] > 5", "\"5\" is no date. (character 18)"},
    {u"@SQL=\"receivedtime\" > 'some day'", "\"some day\" is no date. (character 23)"},
    {u"[Keywords] = ''", "Only an @SQL filter finds what has no keywords. (character 14)"},
    {u"@SQL=\"unread\" = 'True'", "0 or 1 is expected. (character 17)"},
    {u"@SQL=\"unread\" = True", "In an @SQL filter yes and no are 1 and 0. (character 17)"},
    {u"[Subject] = 'x';", "Unexpected character \";\". (character 16)"},
};
INSTANTIATE_TEST_SUITE_P(EachForm, FilterErrors, testing::ValuesIn(refused_cases));

TEST(FilterLimits, WordsNeedATextWhereTheyAreSupported) {
    EXPECT_EQ(complaint(u"@SQL=\"s\" ci_phrasematch 5", Words::indexed),
              "\"ci_phrasematch\" needs a text between apostrophes. (character 25)");
    EXPECT_EQ(complaint(u"@SQL=\"s\" ci_phrasematch '5'", Words::indexed), "");
}

automation::Text nested(int levels) {
    return automation::Text(static_cast<std::size_t>(levels), u'(') + u"[Size] = 512" +
           automation::Text(static_cast<std::size_t>(levels), u')');
}

TEST(FilterLimits, TwoHundredLevelsAreReadAndMoreAreRefused) {
    EXPECT_TRUE(Filter::parse(nested(200), KnownNames(), Words::refused).matches(jane()));
    EXPECT_EQ(complaint(nested(201)), "The filter is nested too deeply. (character 201)");
    EXPECT_EQ(complaint(nested(100000)), "The filter is nested too deeply. (character 201)");
    automation::Text negations;
    for (int i = 0; i < 25000; ++i) negations += u"Not ";
    EXPECT_EQ(complaint(negations + u"[Size] = 512"), "The filter is nested too deeply. (character 801)");
}

TEST(FilterLimits, LevelsSideBySideDoNotAddUp) {
    automation::Text text = nested(150);
    for (int i = 0; i < 60; ++i) text += u" And Not " + nested(150);
    EXPECT_FALSE(Filter::parse(text, KnownNames(), Words::refused).matches(jane()));
}

TEST(FilterLimits, AFilterOfAHundredThousandCharactersIsRead) {
    automation::Text text = u"[Subject] = \"x\"";
    while (text.size() < 100000) text += u" Or [Subject] = \"x\"";
    EXPECT_FALSE(Filter::parse(text, KnownNames(), Words::refused).matches(jane()));
    EXPECT_TRUE(Filter::parse(text + u" Or [Size] = 512", KnownNames(), Words::refused).matches(jane()));
}

TEST(FilterMutations, AreReadOrRefusedAndNothingElse) {
    std::mt19937 random(20260303);
    auto below = [&](std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random);
    };
    const automation::Text alphabet = u"[]()'\"=<>%_@ aN0-.\u00E9\xD800";
    int read = 0, refused = 0;
    for (int round = 0; round < 200; ++round) {
        for (const RefusedCase& seed : refused_cases) {
            automation::Text text = seed.filter;
            const automation::Text other = refused_cases[below(std::size(refused_cases))].filter;
            switch (below(3)) {
                case 0:
                    text.insert(below(text.size() + 1), 1, alphabet[below(alphabet.size())]);
                    break;
                case 1:
                    text.erase(below(text.size() + 1), 1 + below(3));
                    break;
                default:
                    text = text.substr(0, below(text.size() + 1)) + other.substr(below(other.size() + 1));
                    break;
            }
            try {
                Filter::parse(text, KnownNames(), Words::indexed).matches(jane());
                ++read;
            } catch (const automation::Failure& failure) {
                ASSERT_EQ(failure.number(), automation::result::invalid_argument)
                    << automation::to_utf8(text);
                ++refused;
            }
        }
    }
    EXPECT_GT(read, 100);
    EXPECT_GT(refused, 1000);
}

}  // namespace
