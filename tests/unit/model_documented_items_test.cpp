// What the host's documentation says of items, one table of cases for each page.
#include "tests/unit/support/model_support.h"

namespace model_tests {
namespace {

struct Written {
    TextView name, value;
};

class DocumentedItems : public ModelTest {
  protected:
    static void write(const Object& item, std::initializer_list<Written> fields) {
        for (const Written& field : fields) item.put(field.name, Value(field.value));
    }
    static void expect(const Object& item, std::initializer_list<Written> fields) {
        for (const Written& field : fields)
            EXPECT_EQ(shown(text(item, field.name)), shown(field.value)) << shown(field.name);
    }
};

// "Setting the HTMLBody property will always update the Body property immediately":
// learn.microsoft.com/office/vba/api/outlook.mailitem.htmlbody
// A format is plain (1), HTML (2) or rich text (3), and formatting is lost with a change of it:
// learn.microsoft.com/office/vba/api/outlook.mailitem.bodyformat
// "The property can not be set to olFormatUnspecified":
// learn.microsoft.com/previous-versions/office/developer/office-xp/aa200900(v=office.10)
TEST_F(DocumentedItems, HaveABodyThatIsTextAndPageAtOnce) {
    constexpr TextView page = u"<html><body><p>Dear <b>Ann</b>,</p><p>twelve &lt; thirteen</p></body></html>";
    constexpr TextView text_of_page = u"Dear Ann,\r\n\r\ntwelve < thirteen";
    constexpr TextView page_of_text = u"<html><body>a &amp; b<br>\r\n&lt;c&gt;</body></html>";
    struct Case {
        std::vector<std::pair<TextView, Value>> written;
        TextView body, page;
        std::int32_t format;
    };
    const Case cases[] = {
        {{}, u"", u"", 1},
        {{{u"Body", u"a & b\r\n<c>"}}, u"a & b\r\n<c>", page_of_text, 1},
        {{{u"HTMLBody", Value(page)}}, text_of_page, page, 2},
        {{{u"Body", u"old"}, {u"HTMLBody", Value(page)}}, text_of_page, page, 2},
        {{{u"HTMLBody", Value(page)}, {u"Body", u"a & b\r\n<c>"}}, u"a & b\r\n<c>", page_of_text, 1},
        {{{u"HTMLBody", Value(page)}, {u"HTMLBody", u""}}, u"", u"", 2},
        {{{u"Body", u"a & b\r\n<c>"}, {u"BodyFormat", 2}}, u"a & b\r\n<c>", page_of_text, 2},
        {{{u"HTMLBody", Value(page)}, {u"BodyFormat", 1}},
         text_of_page,
         u"<html><body>Dear Ann,<br>\r\n<br>\r\ntwelve &lt; thirteen</body></html>",
         1},
        {{{u"HTMLBody", Value(page)}, {u"BodyFormat", 3}, {u"BodyFormat", 2}},
         text_of_page,
         u"<html><body>Dear Ann,<br>\r\n<br>\r\ntwelve &lt; thirteen</body></html>",
         2},
        {{{u"Body", u"x"}, {u"BodyFormat", 3}}, u"x", u"<html><body>x</body></html>", 3},
    };
    for (const std::int32_t type : {item_type::mail, item_type::post}) {
        for (const Case& one : cases) {
            SCOPED_TRACE(&one - std::begin(cases));
            const Item item = create(type);
            for (const auto& [field, value] : one.written) item.put(field, value);
            expect(item, {{u"Body", one.body}, {u"HTMLBody", one.page}});
            EXPECT_EQ(integer(item, u"BodyFormat"), one.format);
        }
    }
    const Item mail = create(item_type::mail);
    mail.put(u"HTMLBody", Value(page));
    for (const std::int32_t none : {0, 4, -1})
        EXPECT_EQ(failure_of([&] { mail.put(u"BodyFormat", none); }), result::invalid_argument);
    expect(mail, {{u"HTMLBody", page}});
    mail.Save();
    EXPECT_EQ(
        integer(Item(name_space.call(u"GetItemFromID", {Value(mail.EntryID())}).to_object()), u"BodyFormat"),
        2);
}

// How each name is put together, by the number that it has in common with its property:
// learn.microsoft.com/office/client-developer/outlook/mapi/pidlidfileunderid-canonical-property
// Separators around a part that is missing go:
// learn.microsoft.com/openspecs/exchange_server_protocols/ms-oxocntc, section 2.2.1.1.12 Those with
// "LastFirst" are filled for Asian letters only:
// learn.microsoft.com/office/vba/api/outlook.contactitem.lastfirstnospacecompany
TEST_F(DocumentedItems, HaveNamesOfContactsPutTogether) {
    const Item ann = create(item_type::contact);
    write(ann, {{u"FullName", u"Ann van Lee Jr."}, {u"CompanyName", u"North Mill"}});
    expect(ann, {{u"LastNameAndFirstName", u"Lee, Ann van"},
                 {u"FullNameAndCompany", u"Lee, Ann van\r\nNorth Mill"},
                 {u"CompanyAndFullName", u"North Mill\r\nLee, Ann van"},
                 {u"FileAs", u"Lee, Ann van"},
                 {u"Initials", u"A.v.L."},
                 {u"LastFirstNoSpace", u""},
                 {u"LastFirstSpaceOnly", u""},
                 {u"LastFirstNoSpaceCompany", u""},
                 {u"LastFirstSpaceOnlyCompany", u""},
                 {u"CompanyLastFirstNoSpace", u""},
                 {u"CompanyLastFirstSpaceOnly", u""},
                 {u"LastFirstAndSuffix", u""},
                 {u"LastFirstNoSpaceAndSuffix", u""}});
    EXPECT_EQ(failure_of([&] { ann.put(u"FullNameAndCompany", u"x"); }), result::member_not_found);

    const Item asian = create(item_type::contact);
    write(asian, {{u"LastName", u"田中"}, {u"FirstName", u"太郎"}, {u"CompanyName", u"北"}});
    expect(asian, {{u"LastFirstNoSpace", u"田中太郎"},
                   {u"LastFirstSpaceOnly", u"田中 太郎"},
                   {u"LastFirstNoSpaceCompany", u"田中太郎\r\n北"},
                   {u"LastFirstSpaceOnlyCompany", u"田中 太郎\r\n北"},
                   {u"CompanyLastFirstNoSpace", u"北\r\n田中太郎"},
                   {u"CompanyLastFirstSpaceOnly", u"北\r\n田中 太郎"}});

    const Item firm = create(item_type::contact);
    write(firm, {{u"CompanyName", u"North Mill"}});
    expect(firm, {{u"FileAs", u"North Mill"},
                  {u"FullNameAndCompany", u"North Mill"},
                  {u"CompanyAndFullName", u"North Mill"},
                  {u"LastNameAndFirstName", u""},
                  {u"Initials", u""}});
    write(firm, {{u"Initials", u"NM"}, {u"FullName", u"Ann Lee"}});
    expect(firm, {{u"Initials", u"NM"}, {u"FileAs", u"Lee, Ann"}});
}

// FullName "is parsed into the FirstName, MiddleName, LastName, and Suffix properties":
// learn.microsoft.com/office/vba/api/outlook.contactitem.fullname; suffixes are "such as Jr., III, or Ph.D.":
// learn.microsoft.com/office/vba/api/outlook.contactitem.suffix
TEST_F(DocumentedItems, TakeNamesOfContactsApart) {
    struct Case {
        TextView given, full, title, first, middle, last, suffix;
    };
    constexpr Case cases[] = {
        {u"Dr. Ann Lee, Ph.D.", u"Dr. Ann Lee, Ph.D.", u"Dr.", u"Ann", u"", u"Lee", u"Ph.D."},
        {u"Mr. Bob Ray III", u"Mr. Bob Ray III", u"Mr.", u"Bob", u"", u"Ray", u"III"},
        {u"Lee, Ann", u"Ann Lee", u"", u"Ann", u"", u"Lee", u""},
        {u"van Lee, Ann Mary", u"Ann Mary van Lee", u"", u"Ann", u"Mary", u"van Lee", u""},
        {u"Prof. Lee, Ann Sr.", u"Prof. Ann Lee Sr.", u"Prof.", u"Ann", u"", u"Lee", u"Sr."},
        {u"Lee,", u"Lee", u"", u"", u"", u"Lee", u""},
        {u", Ann", u", Ann", u"", u",", u"", u"Ann", u""},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(shown(one.given));
        const Item contact = create(item_type::contact);
        write(contact, {{u"FullName", one.given}});
        expect(contact, {{u"FullName", one.full},
                         {u"Title", one.title},
                         {u"FirstName", one.first},
                         {u"MiddleName", one.middle},
                         {u"LastName", one.last},
                         {u"Suffix", one.suffix}});
    }
}

// A part "is parsed from the BusinessAddress property, but may be changed or entered independently", and is
// overwritten by "any subsequent changes or entries to the BusinessAddress property":
// learn.microsoft.com/office/vba/api/outlook.contactitem.businessaddressstreet
TEST_F(DocumentedItems, TakeAddressesApart) {
    struct Case {
        TextView whole, street, box, city, state, code, country;
    };
    constexpr Case cases[] = {
        {u"1 Mill Lane\r\nYork, Yorkshire YO1 7AB\r\nEngland", u"1 Mill Lane", u"", u"York", u"Yorkshire",
         u"YO1 7AB", u"England"},
        {u"4567 Main St\r\nRedmond, WA  98052-1234", u"4567 Main St", u"", u"Redmond", u"WA", u"98052-1234",
         u""},
        {u"Mill House\n1 Mill Lane\nPO Box 12\nYork YO1 7AB\nEngland", u"Mill House\r\n1 Mill Lane",
         u"PO Box 12", u"York", u"", u"YO1 7AB", u"England"},
        {u"Hauptstr. 5\r\n10115 Berlin\r\nDeutschland", u"Hauptstr. 5", u"", u"Berlin", u"", u"10115",
         u"Deutschland"},
        {u"2 Hill Road\r\nYork", u"2 Hill Road", u"", u"York", u"", u"", u""},
        {u"2 Hill Road, York", u"2 Hill Road, York", u"", u"", u"", u"", u""},
        {u"P.O. Box 7", u"", u"P.O. Box 7", u"", u"", u"", u""},
        {u"", u"", u"", u"", u"", u"", u""},
    };
    for (const TextView kind : {u"Business", u"Home", u"Other", u"Mailing"}) {
        for (const Case& one : cases) {
            const Text whole = Text(kind) + u"Address";
            SCOPED_TRACE(shown(whole) + ": " + shown(one.whole));
            const Item contact = create(item_type::contact);
            contact.put(whole + u"City", u"overwritten");
            contact.put(whole, Value(one.whole));
            expect(contact, {{whole, one.whole},
                             {whole + u"Street", one.street},
                             {whole + u"PostOfficeBox", one.box},
                             {whole + u"City", one.city},
                             {whole + u"State", one.state},
                             {whole + u"PostalCode", one.code},
                             {whole + u"Country", one.country}});
        }
    }
    const Item contact = create(item_type::contact);
    write(contact, {{u"BusinessAddressStreet", u"1 Mill Lane"},
                    {u"BusinessAddressCity", u"York"},
                    {u"BusinessAddressState", u"Yorkshire"},
                    {u"BusinessAddressPostalCode", u"YO1 7AB"},
                    {u"BusinessAddressCountry", u"England"}});
    expect(contact, {{u"BusinessAddress", u"1 Mill Lane\r\nYork, Yorkshire YO1 7AB\r\nEngland"},
                     {u"MailingAddress", u""}});
}

// MailingAddress "replicates the property indicated by the SelectedMailingAddress property ... any such
// changes or entries to this property will be overwritten by any subsequent changes or entries to the
// property indicated": learn.microsoft.com/office/vba/api/outlook.contactitem.mailingaddress
TEST_F(DocumentedItems, RepeatTheAddressThatIsSelectedForMail) {
    constexpr std::int32_t none = 0, home = 1, business = 2, other = 3;  // OlMailingAddress
    const Item contact = create(item_type::contact);
    EXPECT_EQ(integer(contact, u"SelectedMailingAddress"), none);
    write(contact, {{u"HomeAddress", u"2 Hill Road\r\nYork"},
                    {u"BusinessAddress", u"1 Mill Lane\r\nLeeds"},
                    {u"OtherAddress", u"4 Other Way\r\nHull"}});
    expect(contact, {{u"MailingAddress", u""}});
    struct Case {
        std::int32_t selected;
        TextView address, city;
    };
    constexpr Case cases[] = {{business, u"1 Mill Lane\r\nLeeds", u"Leeds"},
                              {home, u"2 Hill Road\r\nYork", u"York"},
                              {other, u"4 Other Way\r\nHull", u"Hull"}};
    for (const Case& one : cases) {
        contact.put(u"SelectedMailingAddress", one.selected);
        expect(contact, {{u"MailingAddress", one.address}, {u"MailingAddressCity", one.city}});
    }
    write(contact, {{u"MailingAddress", u"5 Own Street\r\nGoole"}});
    expect(contact,
           {{u"MailingAddress", u"5 Own Street\r\nGoole"}, {u"OtherAddress", u"4 Other Way\r\nHull"}});
    write(contact, {{u"HomeAddressCity", u"Ripon"}});
    expect(contact, {{u"MailingAddress", u"5 Own Street\r\nGoole"}});
    write(contact, {{u"OtherAddressCity", u"Selby"}});
    expect(contact, {{u"MailingAddress", u"4 Other Way\r\nSelby"}, {u"MailingAddressCity", u"Selby"}});
}

// "Categories is a delimited string of category names that have been assigned to an Outlook item", and the
// delimiter is the user's: learn.microsoft.com/office/vba/api/outlook.mailitem.categories
TEST_F(DocumentedItems, HaveEachCategoryOnce) {
    constexpr Written cases[] = {{u"Blue", u"Blue"},
                                 {u"Blue,Green", u"Blue, Green"},
                                 {u" Blue ;  Green,,Blue , blue", u"Blue, Green"},
                                 {u", ;", u""},
                                 {u"", u""}};
    for (const Written& one : cases) {
        const Item mail = create(item_type::mail);
        mail.put(u"Categories", Value(one.name));
        EXPECT_EQ(shown(text(mail, u"Categories")), shown(one.value));
    }
}

// A folder that is deleted comes to Deleted Items, and one of Deleted Items is gone:
// learn.microsoft.com/office/vba/outlook/how-to/items-folders-and-stores/delete-all-items-and-subfolders-in-the-deleted-items-folder
TEST_F(DocumentedItems, GoToDeletedItemsWithTheirFolder) {
    const Object bin_folders = default_folder(folder_number::deleted).get(u"Folders").to_object();
    const Object inbox_folders = inbox().get(u"Folders").to_object();
    for (const TextView name_there : {u"Old", u"Old1"}) {
        const Folder old(inbox_folders.call(u"Add", {u"Old"}).to_object());
        const Item mail = old.Items().Add(u"IPM.Note");
        mail.Subject(u"Kept");
        mail.Save();
        old.call(u"Delete");
        EXPECT_EQ(integer(inbox_folders, u"Count"), 0);
        const Folder there(bin_folders.call(u"Item", {Value(name_there)}).to_object());
        EXPECT_EQ(there.Items().Item(1).Subject(), u"Kept");
    }
    EXPECT_EQ(integer(bin_folders, u"Count"), 2);
    bin_folders.call(u"Item", {u"Old"}).to_object().call(u"Delete");
    EXPECT_EQ(integer(bin_folders, u"Count"), 1);
    const Object shared = world.below(u"Notes").get(u"Folders").to_object();
    shared.call(u"Add", {u"Old"}).to_object().call(u"Delete");
    EXPECT_EQ(integer(bin_folders, u"Count"), 1) << "a shared folder has no place for what is deleted";
}

// learn.microsoft.com/office/vba/api/outlook.mailitem.replyall(method): "a reply to all original recipients"
TEST_F(DocumentedItems, AreAnsweredToAllButTheUser) {
    struct Case {
        std::string from, to, more;
        TextView to_line, cc_line;
    };
    const Case cases[] = {
        {"Ann Lee <ann@n.example>", "Tarnwell User <user@tarnwell.example>, Bob <bob@r.example>", "",
         u"Ann Lee; Bob", u""},
        {"Ann Lee <ann@n.example>", "USER@Tarnwell.example", "Cc: Bob <bob@r.example>\n", u"Ann Lee", u"Bob"},
        {"Tarnwell User <user@tarnwell.example>", "Bob <bob@r.example>, Ann Lee <ann@n.example>", "",
         u"Bob; Ann Lee", u""},
    };
    for (const Case& one : cases) {
        const Item mail =
            world.deliver(acceptance::message({.from = one.from, .to = one.to, .more = one.more}));
        const Object all = mail.call(u"ReplyAll").to_object();
        expect(all, {{u"To", one.to_line}, {u"CC", one.cc_line}});
    }
}

// "The display name of the true recipient":
// learn.microsoft.com/office/vba/api/outlook.mailitem.receivedbyname
TEST_F(DocumentedItems, AreReceivedByTheUser) {
    const Item mail = world.deliver(acceptance::message({.to = "all@tarnwell.example"}));
    const Object user = name_space.get(u"CurrentUser").to_object().get(u"AddressEntry").to_object();
    expect(mail, {{u"ReceivedByName", text(user, u"Name")}, {u"ReceivedByEntryID", text(user, u"ID")}});
    expect(create(item_type::mail), {{u"ReceivedByName", u""}});
}

// Names are resolved before a mail is sent, as the example of this page shows:
// learn.microsoft.com/office/vba/api/outlook.mailitem.beforechecknames
TEST_F(DocumentedItems, AreNotSentToSomebodyUnknown) {
    const Item mail = create(item_type::mail);
    mail.put(u"To", u"bob@ray.example; Nobody Known");
    const Listener sending(host::events::application, application, {u"ItemSend"});
    EXPECT_EQ(failure_of([&] { mail.call(u"Send"); }), result::fail);
    EXPECT_TRUE(sending.told.empty());
    EXPECT_EQ(default_folder(folder_number::sent).Items().Count(), 0);

    const Item contact = create(item_type::contact);
    write(contact, {{u"FullName", u"Nobody Known"}, {u"Email1Address", u"nobody@known.example"}});
    contact.Save();
    mail.call(u"Send");
    const Item sent = default_folder(folder_number::sent).Items().Item(1);
    EXPECT_EQ(text(sent.get(u"Recipients").to_object().call(u"Item", {2}).to_object(), u"Address"),
              u"nobody@known.example");
}

// A mail that was sent has been moved: there is no more to it than an error.
// learn.microsoft.com/office/vba/api/outlook.mailitem.send(method)
TEST_F(DocumentedItems, CannotBeUsedOnceTheyAreSent) {
    for (const bool saved_before : {false, true}) {
        SCOPED_TRACE(saved_before);
        const Item mail = create(item_type::mail);
        mail.Subject(u"Offer");
        mail.put(u"To", u"ann@northmill.example");
        if (saved_before) mail.Save();
        mail.call(u"Send");
        EXPECT_EQ(failure_of([&] { mail.Subject(); }), result::object_deleted);
        EXPECT_EQ(failure_of([&] { mail.call(u"Send"); }), result::object_deleted);
        EXPECT_EQ(default_folder(folder_number::drafts).Items().Count(), 0);
    }
    const Items sent = default_folder(folder_number::sent).Items();
    ASSERT_EQ(sent.Count(), 2);
    for (const std::int32_t place : {1, 2}) {
        const Item mail = sent.Item(place);
        EXPECT_TRUE(mail.get(u"Sent").to_boolean());
        expect(mail, {{u"Subject", u"Offer"},
                      {u"SenderName", text(name_space.get(u"CurrentUser").to_object(), u"Name")},
                      {u"SenderEmailAddress", u"user@tarnwell.example"}});
    }
}

}  // namespace
}  // namespace model_tests
