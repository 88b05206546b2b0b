// What a trace tells of a host's own words where addresses and subjects are not to be told.
#include <gtest/gtest.h>

#include "addin/trace/discretion.h"

namespace addin_tests {
namespace {

TEST(Discretion, LeavesOutWhatMayBeSomebodys) {
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
        {"a word of the mail", u"Delivery failed", "\u2026 failed"},
        {"in another case", u"DELIVERY failed for Lee.", "\u2026 failed for \u2026."},
        {"a plain word that the mail has, too", u"The object is not found", "The object is not found"},
        {"what is quoted", u"Cannot parse condition. Error at \"Email1\".",
         "Cannot parse condition. Error at \u2026."},
        {"from the first quote to the last", u"Error at 'x' and \"y\" here", "Error at \u2026 here"},
        {"a quotation that doesn't end", u"Error at \"x and y", "Error at \u2026"},
        {"an apostrophe quotes nothing", u"You don't have access", "You don't have access"},
        {"an address", u"No mailbox of <someone@else.example> here", "No mailbox of \u2026 here"},
        {"a path with blanks", u"No file C:\\Users\\Some One\\mail.msg there", "No file \u2026 there"},
        {"letters of every alphabet", u"Fehler bei J\u00FCrgen", "Fehler bei \u2026"},
    };
    addin::trace::Discretion discretion;
    discretion.hears(u"The delivery to Ann Lee is not found");
    discretion.hears(u"J\u00FCrgen");
    for (const Case& one : cases) EXPECT_EQ(discretion.said_discreetly(one.text), one.said) << one.name;
    discretion.forgets();
    EXPECT_EQ(discretion.said_discreetly(u"Delivery failed"), "Delivery failed");
}

TEST(Discretion, CutsWhatIsLong) {
    const std::string line = addin::trace::on_one_line(automation::Text(500, u'x'));
    EXPECT_EQ(line, std::string(200, 'x') + "\u2026");
}

}  // namespace
}  // namespace addin_tests
