// Which equalities a filter offers to look up, and that the filters which the add-in sends are read.
#include <gtest/gtest.h>

#include "tests/unit/support/filter_support.h"

namespace {

using namespace filter_tests;
using desk::filter::Equality;
using desk::filter::Filter;
using desk::filter::Words;

/// The candidates as "name=value|name=value", "-" for none.
std::string candidates(automation::TextView text, const Filter::Usable& usable = {}) {
    const auto found = Filter::parse(text, KnownNames(), Words::indexed).candidates(usable);
    if (!found) return "-";
    std::string shown;
    for (const Equality& equality : *found) {
        if (!shown.empty()) shown += '|';
        shown += (equality.is_address ? "@" : "") + automation::to_utf8(equality.name) + '=' +
                 automation::to_utf8(equality.value);
    }
    return shown;
}

struct CandidateCase {
    automation::Text filter;
    const char* candidates;
};

class FilterCandidates : public testing::TestWithParam<CandidateCase> {};

TEST_P(FilterCandidates, AreTheEqualitiesThatEachMatchFulfils) {
    EXPECT_EQ(candidates(GetParam().filter), GetParam().candidates) << automation::to_utf8(GetParam().filter);
}

const CandidateCase candidate_cases[] = {
    {u"[Subject] = 'a'", "Subject=a"},
    {u"[Subject] = ''", "Subject="},
    {u"[Subject] = 'a' Or [FullName] = 'b' Or [Email1Address] = 'c'", "Subject=a|FullName=b|Email1Address=c"},
    {u"[Subject] = 'a' Or [FullName] > 'b'", "-"},
    {u"[Subject] = 'a' And [FullName] > 'b'", "Subject=a"},
    {u"[FullName] > 'b' And [Subject] = 'a'", "Subject=a"},
    {u"([Subject] = 'a' Or [Subject] = 'b') And [FullName] = 'c'", "FullName=c"},
    {u"([Subject] = 'a' And [Size] = 5) Or [FullName] = 'c'", "Subject=a|FullName=c"},
    {u"[Subject] = 'a' Or [Size] = 5", "-"},
    {u"Not [Subject] = 'a'", "-"},
    {u"Not [Subject] = 'a' And [FullName] = 'b'", "FullName=b"},
    {u"[Subject] <> 'a'", "-"},
    {u"[Subject] >= 'a' And [Subject] < 'b'", "-"},
    {u"[Size] = 5", "-"},
    {u"[Topic] = 'fw: a'", "Topic=fw: a|Topic=RE: fw: a|Topic=FW: fw: a"},
    {u"[Keywords] = 'a'", "-"},
    {u"@SQL=\"p\" = 'a'", "@p=a"},
    {u"@SQL=\"p\" Like 'a'", "@p=a"},
    {u"@SQL=\"p\" Like 'a%'", "-"},
    {u"@SQL=\"p\" Is Null", "-"},
    {u"@SQL=\"p\" ci_phrasematch 'a'", "-"},
    {u"@SQL=(\"p\" ci_phrasematch 'a' And \"q\" = 'b')", "@q=b"},
};
INSTANTIATE_TEST_SUITE_P(EachForm, FilterCandidates, testing::ValuesIn(candidate_cases));

TEST(FilterCandidatesOf, OnlyUsableFieldsAreOffered) {
    auto subject_only = [](const Equality& equality) { return equality.name == u"Subject"; };
    EXPECT_EQ(candidates(u"[Message Class] = 'a' And [Subject] = 'b'", subject_only), "Subject=b");
    EXPECT_EQ(candidates(u"[Message Class] = 'a' Or [Subject] = 'b'", subject_only), "-");
    EXPECT_EQ(candidates(u"[Message Class] = 'a'", subject_only), "-");
}

/// The address of a string-named property.
automation::Text named(const char16_t* name) {
    return u"\"http://schemas.microsoft.com/mapi/string/{00020329-0000-0000-C000-000000000046}/" +
           automation::Text(name) + u"\"";
}

/// Filters in the very spelling in which the add-in sends them.
const CandidateCase sent[] = {
    {u"[Subject] = \"Ann\" Or [Fullname] = \"Ann\" Or [EmailSearchString]= \"Ann\" Or [Email1Address] = "
     u"\"Ann\" Or "
     u"[Email2Address] = \"Ann\" Or [Email3Address] = \"Ann\"",
     "Subject=Ann|Fullname=Ann|EmailSearchString=Ann|Email1Address=Ann|Email2Address=Ann|Email3Address=Ann"},
    {u"[FullName] = \"O'Brien\"", "FullName=O'Brien"},
    {u"[Subject] >= \"O'Brien\" AND [Subject] < \"O'Brieo\"", "-"},
    {u"[Subject] >= \"A\" AND [Subject] < \"B\" Or [Fileas] >= \"A\" AND [FileAs] < \"B\" Or [Fullname] >= "
     u"\"A\" AND "
     u"[Fullname] < \"B\" Or [Email3DisplayName] >= \"A\" AND [Email3DisplayName] < \"B\"",
     "-"},
    {u"[CompanyName] >= 'O~Brien' AND [CompanyName] < 'O~Brieo'                ", "-"},
    {u"[Message Class] = 'IPM.Post.ListDefinition' AND [Subject] = 'Accounts'",
     "Message Class=IPM.Post.ListDefinition"},
    {u"@SQL=\"http://schemas.microsoft.com/mapi/proptag/0x001a001e\" = 'IPM.Post.ListDefinition' AND "
     u"\"urn:schemas:httpmail:subject\" = 'Accounts'",
     "@http://schemas.microsoft.com/mapi/proptag/0x001a001e=IPM.Post.ListDefinition"},
    {u"@SQL=(" + named(u"RecordType") + u" ci_phrasematch 'Folder Drop Down' AND " + named(u"MessageClass") +
         u" ci_phrasematch 'IPM.Note')",
     "-"},
    {u"@SQL=(" + named(u"Account%20LocationID") + u" Like '42')",
     "@http://schemas.microsoft.com/mapi/string/{00020329-0000-0000-C000-000000000046}/"
     "Account%20LocationID=42"},
    {u"@SQL=(\"urn:schemas:httpmail:subject\" = 'x' AND \"urn:schemas:httpmail:fromname\" = 'y')",
     "@urn:schemas:httpmail:subject=x"},
};
INSTANTIATE_TEST_SUITE_P(AsTheyAreSent, FilterCandidates, testing::ValuesIn(sent));

}  // namespace
