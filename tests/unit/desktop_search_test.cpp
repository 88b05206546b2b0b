// The desktop search, as an automation client asks it.
#include <algorithm>

#include "desk/search/ado.h"
#include "desk/search/select_query.h"
#include "tests/unit/support/model_support.h"

namespace model_tests {
namespace {

constexpr TextView connection_string =
    u"Provider=Search.CollatorDSO;Extended Properties='Application=Windows';";
constexpr TextView folder_path = u"System.ItemFolderPathDisplay";

class DesktopSearch : public ModelTest {
  protected:
    explicit DesktopSearch(const acceptance::WorldSetup& setup = {.instant_search = true, .add_in = false})
        : ModelTest(setup) {}

    Object connection = world.desktop().create(u"ADODB.Connection");
    Object rows = world.desktop().create(u"ADODB.Recordset");

    void connect() const { connection.call(u"Open", {Value(connection_string)}); }
    void search(TextView phrase) const {
        connect();
        open(
            u"SELECT System.FileName,system.subject,System.ItemFolderPathDisplay,"
            u"system.message.sendername,System.DateCreated,system.datemodified "
            u"FROM SYSTEMINDEX WHERE Contains('\"" +
            Text(phrase) + u"\"')");
    }
    void open(TextView command) const { rows.call(u"Open", {Value(command), Value(connection)}); }
    Value value(TextView column) const {
        return rows.get(u"Fields").to_object().call(u"Item", {Value(column)}).to_object().get(u"Value");
    }
    /// What a column holds, row by row; what is lacking as "-".
    std::vector<Text> column(TextView column_name) const {
        std::vector<Text> all;
        for (; !rows.get(u"EOF").to_boolean(); rows.call(u"MoveNext")) {
            const Value found = value(column_name);
            all.push_back(found.is(Value::Type::null) ? Text(u"-") : found.to_text());
        }
        return all;
    }
};

using Texts = std::vector<Text>;

TEST_F(DesktopSearch, FindsMailsAndFilesThatHoldThePhrase) {
    add_mail(u"The offer for Golden Acre Eggs");
    add_mail(u"Golden eggs, an acre of them");
    world.write_document("visit.txt", "We met golden ACRE, eggs at hand.");
    world.write_document("Golden Acre Eggs.pdf", "");
    world.write_document("other.txt", "Golden Acres Eggs");
    search(u"Golden Acre Eggs");
    EXPECT_EQ(column(u"System.Subject"), (Texts{u"The offer for Golden Acre Eggs", u"-", u"-"}));
    rows.call(u"MoveFirst");
    EXPECT_EQ(column(u"System.FileName"), (Texts{u"-", u"Golden Acre Eggs.pdf", u"visit.txt"}));
}

TEST_F(DesktopSearch, TellsWhereSomethingIs) {
    add_mail(u"Quinces");
    const Item note = world.below(u"Email").Items().Add(u"IPM.Post.Note");
    note.Subject(u"Quinces");
    note.Save();
    const Text file = world.write_document("quinces.txt", "");
    search(u"Quinces");
    const Texts folders = column(folder_path);
    ASSERT_EQ(folders.size(), 3U);
    EXPECT_EQ(folders[0], u"/Mailbox - Tarnwell/Inbox");
    EXPECT_EQ(folders[1], u"/Public Folders/All Public Folders/Tarnwell/Account Profiles/Email");
    EXPECT_EQ(folders[2] + u"\\quinces.txt", file);
}

TEST_F(DesktopSearch, TellsTheSenderAndTheTimes) {
    const Item mail(desk.call(u"Deliver", {Value(world.write_file("mail.eml",
                                                                  "From: Ann Lee <ann@one.example>\r\n"
                                                                  "Subject: Quinces\r\n\r\nText\r\n"))})
                        .to_object());
    search(u"text");
    EXPECT_EQ(value(u"SYSTEM.MESSAGE.SENDERNAME").to_text(), u"Ann Lee");
    EXPECT_EQ(value(u"System.DateCreated"), mail.get(u"CreationTime"));
    EXPECT_EQ(value(u"System.DateModified"), mail.get(u"LastModificationTime"));
}

TEST_F(DesktopSearch, TakesADoubledApostropheAsOne) {
    add_mail(u"O'Malley's Bakehouse");
    search(u"O''Malley''s Bakehouse");
    EXPECT_EQ(column(u"System.Subject"), Texts{u"O'Malley's Bakehouse"});
}

TEST_F(DesktopSearch, FindsNothingWhereNothingIs) {
    search(u"Nowhere");
    EXPECT_TRUE(rows.get(u"EOF").to_boolean());
    EXPECT_TRUE(rows.get(u"BOF").to_boolean());
    EXPECT_EQ(failure_of([&] { rows.call(u"MoveFirst"); }), desk::ado_error::no_current_record);
    EXPECT_EQ(failure_of([&] { value(folder_path); }), desk::ado_error::no_current_record);
}

TEST_F(DesktopSearch, RefusesAnythingElseThanItsSelect) {
    connect();
    constexpr TextView wrong[] = {
        u"",
        u"DELETE FROM SYSTEMINDEX",
        u"SELECT FROM SYSTEMINDEX WHERE Contains('\"x\"')",
        u"SELECT System.FileName FROM SYSTEMINDEX",
        u"SELECT System.FileName FROM Elsewhere WHERE Contains('\"x\"')",
        u"SELECT System.Colour FROM SYSTEMINDEX WHERE Contains('\"x\"')",
        u"SELECT System.FileName FROM SYSTEMINDEX WHERE Contains('\"x\"') ORDER BY System.FileName",
        u"SELECT System.FileName FROM SYSTEMINDEX WHERE Contains('\"x\"'",
        u"SELECT System.FileName FROM SYSTEMINDEX WHERE Contains('\"it's\"')",
        u"SELECT System.FileName FROM SYSTEMINDEX WHERE Contains('\"x\"\"')",
        u"SELECT System.FileName FROM SYSTEMINDEX WHERE Contains('x')",
        u"SELECT System.FileName FROM SYSTEMINDEX WHERE Contains('\"\"')",
    };
    for (const TextView command : wrong) {
        EXPECT_EQ(failure_of([&] { open(command); }), desk::errors_in_command) << shown(command);
    }
    open(u"select system.filename from SystemIndex where contains ( '\"x\"' )");
}

TEST_F(DesktopSearch, KnowsTheColumnsOfThePanel) {
    connect();
    open(
        u"SELECT system.document.lastauthor,system.message.sendername,system.message.conversationIndex,"
        u"System.ItemURL,System.SourceItem,system.subject,system.Search.entryid,System.FileName,"
        u"System.ItemFolderPathDisplay,System.DateCreated,system.datemodified FROM SYSTEMINDEX "
        u"WHERE Contains('\"x\"')");
    const Object fields = rows.get(u"Fields").to_object();
    EXPECT_EQ(integer(fields, u"Count"), 11);
    EXPECT_EQ(text(fields.call(u"Item", {0}).to_object(), u"Name"), u"system.document.lastauthor");
    EXPECT_EQ(failure_of([&] { fields.call(u"Item", {11}); }), desk::ado_error::item_not_found);
    EXPECT_EQ(failure_of([&] { fields.call(u"Item", {u"System.Kind"}); }), desk::ado_error::item_not_found);
}

TEST_F(DesktopSearch, IsAskedThroughAnOpenConnectionOnly) {
    EXPECT_EQ(failure_of([&] { open(u"x"); }), desk::ado_error::invalid_connection);
    EXPECT_EQ(failure_of([&] { rows.call(u"Open", {u"x"}); }), desk::ado_error::invalid_connection);
    for (const TextView member : {u"EOF", u"BOF", u"Fields"}) {
        EXPECT_EQ(failure_of([&] { rows.get(member); }), desk::ado_error::object_closed) << shown(member);
    }
    EXPECT_EQ(failure_of([&] { rows.call(u"Close"); }), desk::ado_error::object_closed);
    EXPECT_EQ(failure_of([&] { connection.call(u"Close"); }), desk::ado_error::object_closed);
    search(u"x");
    EXPECT_EQ(failure_of([&] { connect(); }), desk::ado_error::object_open);
    EXPECT_EQ(failure_of([&] { open(u"x"); }), desk::ado_error::object_open);
    rows.call(u"Close");
    connection.call(u"Close");
    EXPECT_EQ(failure_of([&] { open(u"x"); }), desk::ado_error::invalid_connection);
}

TEST_F(DesktopSearch, HasNoOtherProvider) {
    for (const TextView wrong :
         {u"", u"Provider=SQLOLEDB;", u"Extended Properties='Provider=Search.CollatorDSO'",
          u"Search.CollatorDSO"}) {
        EXPECT_EQ(failure_of([&] { connection.call(u"Open", {Value(wrong)}); }),
                  desk::ado_error::provider_not_found)
            << shown(wrong);
    }
}

TEST_F(DesktopSearch, EndsWithInstantSearch) {
    automation::Request off{
        .access = automation::Access::put, .member = u"Options", .arguments = {u"InstantSearch", false}};
    desk.invoke(off);
    EXPECT_EQ(failure_of([&] { connect(); }), desk::ado_error::provider_not_found);
}

class WithoutTheProvider : public DesktopSearch {
  protected:
    WithoutTheProvider()
        : DesktopSearch({.instant_search = true, .without = {"Search.CollatorDSO"}, .add_in = false}) {}
};

TEST_F(WithoutTheProvider, AConnectionIsNotOpened) {
    EXPECT_EQ(failure_of([&] { connect(); }), desk::ado_error::provider_not_found);
}

class SampleDocuments : public DesktopSearch {
  protected:
    SampleDocuments() : DesktopSearch({.database = "sample", .instant_search = true, .add_in = false}) {}
};

TEST_F(SampleDocuments, NameTheCompanysAccounts) {
    struct Case {
        TextView phrase;
        std::size_t files;
    };
    constexpr Case cases[] = {{u"Arctic Tern Seafood", 2}, {u"O''Malley''s Bakehouse", 2},
                              {u"Bellweather Dairy", 2},   {u"Greyfriars Brewery", 2},
                              {u"Café Lumière", 1},        {u"Hannah Weatherby", 2}};
    for (const Case& one : cases) {
        search(one.phrase);
        const Texts folders = column(folder_path);
        EXPECT_EQ(
            std::ranges::count_if(folders, [](const Text& path) { return path.find(u'\\') != Text::npos; }),
            static_cast<std::ptrdiff_t>(one.files))
            << shown(one.phrase);
        rows.call(u"Close");
        connection.call(u"Close");
    }
}

}  // namespace
}  // namespace model_tests
