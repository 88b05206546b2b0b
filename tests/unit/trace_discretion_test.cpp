// What a trace tells of a host's own words where addresses and subjects are not to be told.
#include <gtest/gtest.h>

#include "addin/trace/discretion.h"

namespace addin_tests {
namespace {

TEST(Discretion, TellsOnlyTheWordsOfWhichFailuresAreMade) {
    struct Case {
        const char* name;
        automation::TextView text;
        const char* said;
    };
    const Case cases[] = {
        {"nothing", u"", ""},
        {"the host's own words", u"The operation failed. An object could not be found.",
         "The operation failed. An object could not be found."},
        {"lines", u"The operation\r\nfailed", "The operation  failed"},
        {"a word of anybody's", u"Delivery failed for Lee.", "\u2026 failed for \u2026."},
        {"a number", u"The item 0700123 is missing", "The item \u2026 is missing"},
        {"what is quoted", u"Cannot parse condition. Error at \"not found\".",
         "Cannot parse condition. Error at \u2026."},
        {"from the first quote to the last", u"Error at 'the' and \"an\" field", "Error at \u2026 field"},
        {"a quotation that doesn't end", u"Error at \"the and an", "Error at \u2026"},
        {"an address", u"No user of <the@the.example> found", "No user of \u2026 found"},
        {"a path with blanks", u"No file C:\\the\\the an\\mail.msg found", "No file \u2026 found"},
        {"letters of every alphabet", u"Error at J\u00FCrgen", "Error at \u2026"},
    };
    const addin::trace::Discretion discretion;
    for (const Case& one : cases) EXPECT_EQ(discretion.said_discreetly(one.text), one.said) << one.name;
}

TEST(Discretion, LeavesOutWhatWasHeardWhereItTellsTheRest) {
    addin::trace::Discretion discretion(true);
    discretion.hears(u"Sincerely yours, the J\u00FCrgen");
    EXPECT_EQ(discretion.said_discreetly(u"'Delivery' of J\u00DCRGEN is sincerely the missing"),
              "'Delivery' of \u2026 is \u2026 the missing");
    discretion.forgets();
    EXPECT_EQ(discretion.said_discreetly(u"Sincerely"), "Sincerely");
}

TEST(Discretion, CutsWhatIsLong) {
    const std::string line = addin::trace::on_one_line(automation::Text(500, u'x'));
    EXPECT_EQ(line, std::string(200, 'x') + "\u2026");
}

}  // namespace
}  // namespace addin_tests
