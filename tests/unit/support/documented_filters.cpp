#include "tests/unit/support/documented_filters.h"

#include "automation/value.h"

namespace filter_tests {
namespace {

using automation::Text;
using automation::TextView;
using automation::Value;
using desk::ItemData;
using Fields = std::vector<std::pair<TextView, Value>>;

ItemData item(TextView message_class, TextView subject, const Fields& fields = {}) {
    ItemData data;
    data.message_class = message_class;
    data.fields[u"Subject"] = subject;
    for (const auto& [name, value] : fields) data.fields[Text(name)] = value;
    return data;
}

Shelf subjects(const char* name, std::initializer_list<TextView> all) {
    Shelf shelf{name, {}};
    for (const TextView subject : all) shelf.items.push_back(item(u"IPM.Note", subject));
    return shelf;
}

Shelf in_categories(const char* name, std::initializer_list<std::pair<TextView, TextView>> all) {
    Shelf shelf{name, {}};
    for (const auto& [subject, categories] : all) {
        shelf.items.push_back(item(u"IPM.Note", subject, {{u"Categories", categories}}));
    }
    return shelf;
}

Value time(TextView text) { return *automation::read_date(text); }

Shelf mails() {
    ItemData with_file = item(u"IPM.Note", u"today's",
                              {{u"ReceivedTime", time(u"2026-03-04 00:30")},
                               {u"Importance", 2},
                               {u"SenderName", u"Ann Lee"},
                               {u"Body", u"The office is open."}});
    with_file.attachments.push_back({u"a.txt", u"a.txt", 1, 0, "a", nullptr});
    return {"mails",
            {with_file,
             item(u"IPM.Note", u"yesterday's",
                  {{u"ReceivedTime", time(u"2026-03-03 23:30")}, {u"UnRead", true}, {u"Importance", 0}}),
             item(u"IPM.Note", u"last week's",
                  {{u"ReceivedTime", time(u"2026-02-27 12:00")}, {u"Sensitivity", 2}})}};
}

Shelf contacts() {
    const auto contact = [](TextView name, TextView first, TextView last, TextView company, TextView modified,
                            TextView ordered = {}) {
        ItemData data = item(u"IPM.Contact", name,
                             {{u"FullName", name},
                              {u"FirstName", first},
                              {u"LastName", last},
                              {u"CompanyName", company},
                              {u"LastModificationTime", time(modified)}});
        if (!ordered.empty()) data.user_properties.push_back({u"Order Date", 5, time(ordered)});
        return data;
    };
    ItemData gift = contact(u"Mary Miller", u"Mary", u"Miller", u"", u"2005-06-13 10:00");
    gift.user_properties.push_back({u"Mom's \"Gift\"", 1, Value(u"Two pearls")});
    gift.user_properties.push_back({u"MyProperty", 1, Value(u"12-74440")});
    return {"contacts",
            {contact(u"Jane Smith", u"Jane", u"Smith", u"Northmill", u"2005-06-12 14:30", u"2005-01-01"),
             contact(u"Jane Smithson", u"Jane", u"Smithson", u"Can't Ltd", u"2005-06-12 16:30"), gift}};
}

constexpr char logic[] = "Filtering Items Using Comparison and Logical Operators",
               strings[] = "Filtering Items Using a String Comparison",
               keywords[] = "Filtering Items Using Query Keywords",
               booleans[] = "Filtering Items Using a Boolean Comparison",
               integers[] = "Filtering Items Using an Integer Comparison",
               dates[] = "Filtering Items Using a Date-time Comparison",
               custom[] = "Filtering a Custom Field", in_general[] = "Filtering Items",
               body[] = "Filter the Body of a Mail Item",
               no_categories[] = "Filter Items that Do Not Have Categories",
               restrict[] = "Items.Restrict method",
               categories[] = "Filtering Items Using a Comparison with a Keywords Property",
               namespaces[] = "Referencing Properties by Namespace";

constexpr Documented rows[] = {
    // names
    {"contacts", u"[Colour] = 'x'", "an error", in_general},
    {"contacts", u"[lastname] = 'smith'", "Jane Smith", in_general},
    {"contacts", u"@SQL=\"urn:schemas:contacts:colour\" = 'x'", "an error", in_general},
    {"contacts", u"@SQL=\"URN:schemas:contacts:sn\" = 'Smith'", "an error", in_general},
    {"contacts", u"@sql=\"urn:schemas:contacts:sn\" = 'Smith'", "an error", in_general},
    {"contacts", u"@SQL=urn:schemas:contacts:sn = 'Smith'", "an error", in_general},
    {"contacts", u"[LastName] = 'Smith' And \"urn:schemas:contacts:sn\" = 'Smith'", "an error", in_general},
    {"contacts", u"@SQL=", "an error", in_general},
    {"mails", u"@SQL=\"http://schemas.microsoft.com/mapi/proptag/0x0037001E\" = 'today''s'", "today's",
     namespaces},
    {"mails", u"@SQL=\"http://schemas.microsoft.com/mapi/proptag/0x0037\" = 'today''s'", "an error",
     namespaces},
    {"mails", u"@SQL=\"http://schemas.microsoft.com/mapi/proptag/0x850E000B\" = 0", "an error", namespaces},
    {"mails",
     u"@SQL=\"http://schemas.microsoft.com/mapi/id/{00062008-0000-0000-C000-000000000046}/850E000B\" Is Null",
     "today's; yesterday's; last week's", namespaces},
    {"mails",
     u"@SQL=\"http://schemas.microsoft.com/mapi/string/{00020386-0000-0000-C000-000000000046}/"
     u"content-class\" = 'x'",
     "nothing", namespaces},
    {"mails", u"@SQL=\"http://schemas.microsoft.com/mapi/string/content-class\" = 'x'", "an error",
     namespaces},
    {"mails", u"@SQL=\"urn:schemas:mailheader:subject\" = 'today''s'", "today's", namespaces},
    {"contacts",
     u"@SQL=\"http://schemas.microsoft.com/mapi/string/{00020329-0000-0000-C000-000000000046}/"
     u"Mom%27s%20%22Gift%22\" like '%pearls%'",
     "Mary Miller", strings},
    {"contacts",
     u"@SQL=\"http://schemas.microsoft.com/mapi/string/{00020329-0000-0000-C000-000000000046}/MyProperty/"
     u"0000001f\" = '12-74440'",
     "Mary Miller", custom},
    // texts
    {"contacts", u"[CompanyName] = 'Can''t Ltd'", "Jane Smithson", strings},
    {"contacts", u"[CompanyName] = \"can't ltd\"", "Jane Smithson", strings},
    {"contacts", u"@SQL=\"urn:schemas-microsoft-com:office:office#Company\" = 'Northmill'", "Jane Smith",
     strings},
    {"contacts", u"@SQL=\"urn:schemas:contacts:sn\" ci_startswith 'Smith'", "Jane Smith; Jane Smithson",
     keywords},
    {"contacts", u"@SQL=\"urn:schemas:contacts:sn\" ci_phrasematch 'Smith'", "Jane Smith", keywords},
    {"questions", u"@SQL=\"urn:schemas:httpmail:subject\" ci_startswith 'question'",
     "Question; Questionable; RE: Question; The big question", strings},
    {"questions", u"@SQL=\"urn:schemas:httpmail:subject\" ci_phrasematch 'question'",
     "Question; RE: Question; The big question", strings},
    {"questions", u"[Subject] = 'question'", "Question; RE: Question", strings},
    {"questions", u"@SQL=\"urn:schemas:httpmail:subject\" = 'question'", "Question; RE: Question", strings},
    {"questions", u"@SQL=\"urn:schemas:httpmail:subject\" like 'question'", "Question; RE: Question",
     strings},
    {"questions", u"@SQL=\"urn:schemas:httpmail:subject\" like '%question%'",
     "Question; Questionable; Unquestionable; RE: Question; The big question", strings},
    {"words", u"@SQL=\"urn:schemas:httpmail:subject\" ci_startswith 'sea'",
     "search; Subject: the deep blue sea; Nova special on sea creatures; sealife creatures", strings},
    {"words", u"@SQL=\"urn:schemas:httpmail:subject\" ci_startswith 'law order'",
     "law & order; I like the show Law and Order.", strings},
    {"words", u"@SQL=\"urn:schemas:httpmail:subject\" ci_startswith 'law and order'",
     "I like the show Law and Order.", strings},
    {"words", u"@SQL=\"urn:schemas:httpmail:subject\" ci_startswith 'sea creatures'",
     "Nova special on sea creatures; sealife creatures", strings},
    {"cats", u"@SQL=\"urn:schemas:httpmail:subject\" ci_phrasematch 'cat'",
     "cat; cat box; black cat; re: cat is out; put the kitty cat out", strings},
    {"cats", u"@SQL=\"urn:schemas:httpmail:subject\" ci_phrasematch 'kitty cat'", "put the kitty cat out",
     strings},
    {"cats", u"@SQL=\"urn:schemas:httpmail:subject\" like '%kitty%'",
     "kittycat; put the kitty cat out; great kitty catalog", strings},
    {"mails", u"@SQL=\"urn:schemas:httpmail:textdescription\" ci_phrasematch 'office'", "today's", body},
    // what isn't there
    {"contacts",
     u"@SQL=(NOT(\"http://schemas.microsoft.com/mapi/string/{00020329-0000-0000-C000-000000000046}/"
     u"Order%20Date\" IS NULL) AND \"urn:schemas-microsoft-com:office:office#Company\" = 'Northmill')",
     "Jane Smith", keywords},
    {"contacts", u"@SQL=\"urn:schemas:contacts:o\" Is Null", "Mary Miller", keywords},
    {"mails", u"@SQL=\"urn:schemas:httpmail:date\" Is Null", "today's; yesterday's; last week's", keywords},
    {"mails", u"@SQL=\"urn:schemas-microsoft-com:office:office#Keywords\" is null",
     "today's; yesterday's; last week's", no_categories},
    // yes and no, numbers
    {"mails", u"[UnRead] = True", "yesterday's", booleans},
    {"mails", u"[UnRead] = Yes", "yesterday's", booleans},
    {"mails", u"[UnRead] = On", "yesterday's", booleans},
    {"mails", u"[UnRead] = Off", "today's; last week's", booleans},
    {"mails", u"[UnRead] = 'False'", "yesterday's", booleans},
    {"mails", u"[UnRead] = ''", "today's; last week's", booleans},
    {"mails", u"@SQL=\"urn:schemas:httpmail:read\" = 0", "yesterday's", booleans},
    {"mails", u"@SQL=\"urn:schemas:httpmail:read\" = 1", "today's; last week's", booleans},
    {"mails", u"@SQL=\"urn:schemas:httpmail:hasattachment\" = 1", "today's", booleans},
    {"mails", u"[Importance] = 2", "today's", integers},
    {"mails", u"[Importance] = '2'", "today's", integers},
    {"mails", u"[Importance] = 'High'", "today's", integers},
    {"mails", u"@SQL=\"urn:schemas:httpmail:importance\" = 2", "today's", integers},
    {"mails", u"@SQL=\"urn:schemas:httpmail:importance\" = 1", "last week's", integers},
    // dates
    {"contacts", u"[LastModificationTime] < '6/12/2005 3:30:00 PM'", "Jane Smith", dates},
    {"contacts", u"@SQL=\"DAV:getlastmodified\" < '6/12/2005 3:30:00 PM'", "Jane Smith; Jane Smithson",
     dates},
    {"contacts", u"@SQL=\"DAV:getlastmodified\" < '6/12/2005 1:30:00 PM'", "Jane Smith", dates},
    {"mails", u"@SQL=%today(\"urn:schemas:httpmail:datereceived\")%", "today's", dates},
    {"mails", u"@SQL=%yesterday(\"urn:schemas:httpmail:datereceived\")%", "yesterday's", dates},
    {"mails", u"@SQL=%lastweek(\"urn:schemas:httpmail:datereceived\")%", "last week's", dates},
    {"mails", u"@SQL=%thisweek(\"urn:schemas:httpmail:datereceived\")%", "today's; yesterday's", dates},
    {"mails", u"@SQL=%last7days(\"http://schemas.microsoft.com/mapi/proptag/0x0E060040\")%",
     "today's; yesterday's; last week's", dates},
    {"mails",
     u"@SQL=\"urn:schemas:httpmail:datereceived\" > '3/3/2026 10:00:00 PM' AND "
     u"\"urn:schemas:httpmail:datereceived\" < '3/4/2026 10:00:00 PM'",
     "today's", dates},
    {"mails", u"%today(\"urn:schemas:httpmail:datereceived\")%", "an error", dates},
    {"mails", u"[ReceivedTime] >= '03/04/2026 12:00 AM' AND [ReceivedTime] < 'March 5, 2026'", "today's",
     "Search the Calendar for Appointments Within a Date Range that Contain a Specific Word in the Subject"},
    {"contacts", u"[LastModificationTime] > '1/15/99 3:30 PM'", "Jane Smith; Jane Smithson; Mary Miller",
     restrict},
    {"contacts", u"[LastModificationTime] > '06/13/2005'", "Mary Miller", restrict},
    {"contacts", u"[LastModificationTime] > 'some day'", "an error", in_general},
    // categories
    {"partners", u"[Categories] = 'Partner'", "Partner; Partner and Important; Tier1 Partner", categories},
    {"partners", u"@SQL=\"urn:schemas-microsoft-com:office:office#Keywords\" ci_startswith 'Partner'",
     "Partner; Partner and Important; Tier1 Partner; Partnership", categories},
    {"books", u"@SQL=\"urn:schemas-microsoft-com:office:office#Keywords\" = 'Book'", "Book; Bookish and Book",
     categories},
    {"partners", u"[Categories] = 'Partner' And Not([Subject] = 'Partner')",
     "Partner and Important; Tier1 Partner", restrict},
    {"partners", u"@SQL=\"urn:schemas-microsoft-com:office:office#Keywords\" is null", "Uncategorized",
     no_categories},
    {"partners", u"[Categories] = ''", "an error", no_categories},
    // fields that can't be asked for
    {"mails", u"[Body] = 'x'", "an error", restrict},
    {"mails", u"[EntryID] = 'x'", "an error", restrict},
    {"mails", u"[Class] = 43", "an error", restrict},
    {"mails", u"[Sent] = True", "an error", restrict},
    {"mails", u"[HTMLBody] = 'x'", "an error", restrict},
    {"mails", u"[VotingOptions] = 'x'", "an error", restrict},
    {"contacts", u"[Children] = 'x'", "an error", restrict},
    {"contacts", u"[LastFirstNoSpace] = 'x'", "an error", restrict},
    {"contacts", u"[Preferred Gift] = 'x'", "an error", custom},
    // joined
    {"contacts", u"[FirstName] = 'Jane' And Not([CompanyName] = 'Northmill')", "Jane Smithson", logic},
    {"contacts", u"[FirstName] = 'Mary' And [LastName] = 'Smith'", "nothing", logic},
    {"contacts", u"[LastName] = 'Smith' or [FirstName] = 'Mary' AND [LastName] = 'Miller'",
     "Jane Smith; Mary Miller", logic},
};

}  // namespace

std::vector<Shelf> shelves() {
    return {
        subjects("questions",
                 {u"Question", u"Questionable", u"Unquestionable", u"RE: Question", u"The big question"}),
        subjects("words", {u"search", u"research", u"Subject: the deep blue sea", u"law & order",
                           u"I like the show Law and Order.", u"above the law",
                           u"Nova special on sea creatures", u"sealife creatures", u"undersea creatures"}),
        subjects("cats", {u"cat", u"cat box", u"black cat", u"re: cat is out", u"catalog", u"kittycat",
                          u"put the kitty cat out", u"great kitty catalog"}),
        mails(),
        contacts(),
        in_categories("partners", {{u"Partner", u"Partner"},
                                   {u"Partner and Important", u"Partner, Important"},
                                   {u"Tier1 Partner", u"Tier1 Partner"},
                                   {u"Partnership", u"Partnership"},
                                   {u"Uncategorized", u""}}),
        in_categories("books", {{u"Book", u"Book"},
                                {u"My Book", u"My Book"},
                                {u"Book Review", u"Book Review"},
                                {u"Bookish", u"Bookish"},
                                {u"Bookish and Book", u"Bookish, Book"}}),
    };
}

std::span<const Documented> documented() { return rows; }

}  // namespace filter_tests
