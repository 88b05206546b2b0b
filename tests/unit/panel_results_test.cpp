// Rows of the system's index in the panel, the opening of each kind of row, and the sort of short and long
// lists.
#include <algorithm>
#include <functional>
#include <map>

#include "addin/searchpanel/show_items.h"
#include "automation/automated.h"
#include "tests/native/native_world.h"
#include "tests/native/nth_call.h"
#include "tests/world/item_state.h"
#include "tests/world/note_dialog.h"
#include "tests/world/search_panel.h"

namespace addin_tests {
namespace {

using acceptance::Lines;
using acceptance::SearchPanel;
using acceptance::shown;
using automation::Object;
using automation::Text;
using automation::TextView;
using automation::Use;
using automation::Value;
using host::outlook::Item;
using native::NativeWorld;

using Row = std::map<std::string, Value>;

/// What the provider of the index is asked and answers.
struct Provider {
    std::vector<Row> rows;
    Lines told;
    std::string failing{};  ///< the member that fails
    void tell(const std::string& what) {
        told.push_back(what);
        if (!failing.empty() && what.starts_with(failing))
            throw automation::Failure(automation::result::fail);
    }
};

class FakeField : public automation::Automated<FakeField> {
  public:
    explicit FakeField(Value value) : value_(std::move(value)) {}
    static const automation::Members<FakeField>& members() {
        static const automation::Members<FakeField> table{
            {u"Value", 0, Use::get, [](FakeField& self) { return self.value_; }}};
        return table;
    }

  private:
    Value value_;
};

class FakeFields : public automation::Automated<FakeFields> {
  public:
    explicit FakeFields(Row row) : row_(std::move(row)) {}
    static const automation::Members<FakeFields>& members() {
        static const automation::Members<FakeFields> table{
            {u"Item", 0, Use::method, {u"Name"}, [](FakeFields& self, const Text& name) {
                 const auto found = self.row_.find(automation::to_utf8(automation::upper(name)));
                 if (found == self.row_.end()) throw automation::Failure(automation::result::not_found);
                 return Value(std::make_shared<FakeField>(found->second));
             }}};
        return table;
    }

  private:
    Row row_;
};

/// Connection and recordset in one: both take what they are told.
class FakeDatabase : public automation::Automated<FakeDatabase> {
  public:
    FakeDatabase(Provider& provider, std::string name) : provider_(provider), name_(std::move(name)) {}
    static const automation::Members<FakeDatabase>& members() {
        static const automation::Members<FakeDatabase> table{
            {u"Open",
             automation::no_id,
             Use::method,
             {u"Text", u"Connection"},
             [](FakeDatabase& self, const Text& text, const std::optional<Object>&) {
                 self.told("Open " + shown(text));
             }},
            {u"Close", automation::no_id, Use::method, [](FakeDatabase& self) { self.told("Close"); }},
            {u"MoveFirst", automation::no_id, Use::method,
             [](FakeDatabase& self) {
                 self.place_ = 0;
                 self.told("MoveFirst");
             }},
            {u"MoveNext", automation::no_id, Use::method,
             [](FakeDatabase& self) {
                 self.told("MoveNext");
                 ++self.place_;
             }},
            {u"EOF", automation::no_id, Use::get,
             [](FakeDatabase& self) { return self.place_ >= self.provider_.rows.size(); }},
            {u"Fields", automation::no_id, Use::get,
             [](FakeDatabase& self) {
                 return Value(std::make_shared<FakeFields>(self.provider_.rows.at(self.place_)));
             }},
        };
        return table;
    }

  private:
    void told(const std::string& what) { provider_.tell(name_ + "." + what); }
    Provider& provider_;
    std::string name_;
    std::size_t place_ = 0;
};

Row result_row(TextView path, TextView name_or_subject, TextView sender = u"") {
    return {{"SYSTEM.ITEMFOLDERPATHDISPLAY", Value(path)},
            {"SYSTEM.FILENAME", Value(name_or_subject)},
            {"SYSTEM.SUBJECT", Value(name_or_subject)},
            {"SYSTEM.MESSAGE.SENDERNAME", Value(sender)},
            {"SYSTEM.DATECREATED", Value(automation::to_date({2026, 3, 3, 9, 15, 0}))},
            {"SYSTEM.DATEMODIFIED", Value(automation::to_date({2026, 3, 4, 0, 0, 0}))}};
}

/// A world whose panel asks an index for what belongs to an account.
struct Indexed {
    NativeWorld world{acceptance::WorldSetup{.instant_search = true}};
    Provider provider;
    SearchPanel panel{world};

    explicit Indexed(std::vector<Row> rows = {}, const Text& account_name = u"Bell") {
        provider.rows = std::move(rows);
        world.system().stand_in = [this](TextView prog_id) {
            if (prog_id == u"ADODB.Connection" || prog_id == u"ADODB.Recordset") {
                return Object(std::make_shared<FakeDatabase>(
                    provider, prog_id == u"ADODB.Connection" ? "connection" : "rows"));
            }
            return Object();
        };
        acceptance::search_in_phrases(world);
        acceptance::install_panel(world);
        account = acceptance::add_full_account(world, account_name);
    }

    void search() const { panel.open_new(account); }

    Item account;
};

TEST(PanelIndexRows, AreFilesAndMailOfTheMailbox) {
    Indexed indexed({result_row(u"C:\\Work\\Bell", u"offer.txt"),
                     result_row(u"/Mailbox - Pat/Inbox", u"Hello", u"Ann Lee"),
                     result_row(u"/Archive/Inbox", u"Old", u"Ann Lee"),
                     result_row(u"/Mailbox - Pat/Inbox/Bell", u"Deeper", u"Ann Lee"),
                     result_row(u"/Mailbox", u"Top", u"Ann Lee"),
                     result_row(u"/mailbox - pat/Inbox", u"Small", u"Ann Lee"),
                     result_row(u"", u"nowhere.txt")});
    indexed.search();
    ASSERT_EQ(indexed.panel.count(), 1 + 5);
    EXPECT_EQ(indexed.panel.rows(),
              (Lines{"Account Profiles|Bell|", "File Search|offer.txt|C:\\Work\\Bell", "Inbox|Hello|Ann Lee",
                     "Inbox/Bell|Deeper|Ann Lee", "Mailbox|Top|Ann Lee", "File Search|nowhere.txt|"}));
    EXPECT_EQ(indexed.panel.cell(2, 4), "3/3/2026 9:15:00 AM");
    EXPECT_EQ(indexed.panel.cell(2, 5), "3/4/2026");
    EXPECT_EQ(indexed.panel.cell(2, 6), "C:\\Work\\Bell");
    EXPECT_EQ(indexed.panel.cell(3, 6), "/Mailbox - Pat/Inbox");
    const std::string question =
        "SELECT system.document.lastauthor,system.message.sendername,system.message.conversationIndex,"
        "System.ItemURL,System.SourceItem,system.subject,system.Search.entryid,System.FileName,"
        "System.ItemFolderPathDisplay,System.DateCreated,system.datemodified FROM SYSTEMINDEX WHERE "
        "Contains('\"Bell\"')";
    Lines expected{"connection.Open Provider=Search.CollatorDSO;Extended Properties='Application=Windows';",
                   "rows.Open " + question, "rows.MoveFirst"};
    for (std::size_t i = 0; i < indexed.provider.rows.size(); ++i) expected.push_back("rows.MoveNext");
    expected.insert(expected.end(), {"rows.Close", "connection.Close"});
    EXPECT_EQ(indexed.provider.told, expected);
}

TEST(PanelIndexRows, AreAskedForByTheSubjectWithDoubledApostrophes) {
    // the account itself isn't found by a name with an apostrophe, so the contact is
    Indexed indexed;
    acceptance::add_contact(indexed.world,
                            {.full_name = u"Bo O'Hara",
                             .company = u"Bell",
                             .properties = {{u"ContactID", u"C-1"}, {u"Account Name", u"Bell"}}});
    indexed.panel.open_new(acceptance::only_item(indexed.world, u"Account Contacts"));
    ASSERT_GE(indexed.provider.told.size(), 2U);
    EXPECT_TRUE(indexed.provider.told[1].ends_with("Contains('\"Bo O''Hara\"')")) << indexed.provider.told[1];
}

TEST(PanelIndexRows, AreNoneWithoutASubjectAndWithoutTheOption) {
    Indexed unnamed({result_row(u"C:\\Work", u"offer.txt")}, u"O'Malley");
    unnamed.search();
    EXPECT_TRUE(unnamed.provider.told.empty()) << "no record is shown, so nothing is asked";
    Indexed off({result_row(u"C:\\Work", u"offer.txt")});
    off.world.option(u"EnableDesktopSearch", u"0");
    off.search();
    EXPECT_TRUE(off.provider.told.empty());
    EXPECT_EQ(off.panel.count(), 1);
}

TEST(PanelIndexRows, LeaveTheOthersWhateverFails) {
    struct Case {
        const char* failing;
        std::int32_t rows;
    };
    for (const Case& one : {Case{"connection.Open", 3}, Case{"rows.Open", 3}, Case{"rows.MoveFirst", 3},
                            Case{"rows.MoveNext", 2}, Case{"rows.Close", 3}}) {
        SCOPED_TRACE(one.failing);
        Indexed indexed({result_row(u"C:\\Work", u"a.txt"), result_row(u"C:\\Work", u"b.txt")});
        indexed.provider.failing = one.failing;
        indexed.search();
        EXPECT_EQ(indexed.panel.count(), one.rows);
        EXPECT_EQ(acceptance::count_messages(indexed.world), 0);
    }
    // the provider isn't there at all
    Indexed missing;
    missing.world.system().stand_in = [](TextView prog_id) -> Object {
        if (prog_id.starts_with(u"ADODB.")) throw automation::Failure(automation::result::bad_prog_id);
        return {};
    };
    missing.search();
    EXPECT_EQ(missing.panel.count(), 1);
}

// opening

/// A panel with rows put into its list.
struct Listed {
    NativeWorld world{acceptance::WorldSetup{}};
    SearchPanel panel{world};

    Listed() { panel.open(); }
    native::MemoryWindow& window() { return *world.engine().find(acceptance::panel_caption); }
    native::MemoryControl& list() { return window().control(u"lstItems"); }
    void add(TextView folder, TextView subject, TextView creator, TextView key) {
        native::MemoryList& rows = list().memory_list();
        const int place = rows.add(folder);
        rows.text(place, 1, subject);
        rows.text(place, 2, creator);
        rows.text(place, 5, key);
    }
    void open(int row) { list().double_click(row); }
    Lines displayed() {
        Lines subjects;
        for (const Object& item : world.model().displayed) subjects.push_back(shown(Item(item).Body()));
        return subjects;
    }
};

TEST(PanelResults, OfFilesAreHandedToTheShell) {
    Listed listed;
    const Text file = listed.world.write_document("offer.txt", "An offer");
    const Text folder = file.substr(0, file.rfind(u'\\'));
    listed.add(u"File Search", u"offer.txt", folder, folder);
    listed.open(0);
    EXPECT_EQ(listed.world.model().surroundings().opened(), std::vector<Text>{file});
    EXPECT_EQ(listed.world.system().shown_pointer, forms::Pointer::standard);
    EXPECT_EQ(native::NthCall(1).failing(listed.world, [&] { listed.open(0); }), "shell_execute");
    EXPECT_EQ(listed.world.model().surroundings().opened().size(), 1U);
    EXPECT_EQ(acceptance::count_messages(listed.world), 0) << "the shell's failure isn't told";
}

TEST(PanelResults, OfMailAreNeverHandedToTheShell) {
    Listed listed;
    const Text file = listed.world.write_document("offer.txt", "An offer");
    listed.add(u"Inbox", file, u"Ann Lee", u"/Mailbox - Pat/Inbox");
    listed.add(u"Inbox/Bell\\Quill", file, u"Ann Lee", u"/Mailbox - Pat/Inbox/Bell\\Quill");
    const auto handed = [&] { return std::ranges::count(listed.world.boundary().calls(), "shell_execute"); };
    listed.open(0);
    acceptance::answer(listed.world, u"Item is not in a default folder.", 1);
    listed.open(1);
    EXPECT_EQ(handed(), 0);
    EXPECT_EQ(acceptance::count_messages(listed.world), 1);
    listed.add(u"File Search", file, u"", u"C:\\Mailbox");
    listed.open(2);
    EXPECT_EQ(handed(), 1) << "a file is";
}

TEST(PanelResults, WithoutATextAreRefusedWithABeep) {
    Listed listed;
    listed.open(-1);
    EXPECT_EQ(listed.world.system().beeps, 1) << "no rows";
    listed.add(u"", u"A note", u"", u"C:\\Work");
    listed.open(0);
    listed.open(-1);
    EXPECT_EQ(listed.world.system().beeps, 3) << "no text, or no row";
    EXPECT_TRUE(listed.world.model().surroundings().opened().empty());
    EXPECT_EQ(acceptance::count_messages(listed.world), 0);
    EXPECT_EQ(listed.world.system().shown_pointer, forms::Pointer::standard);
}

/// Delivers mails of one subject and sender, whose bodies are their numbers.
void deliver(Listed& listed, int count, const std::string& subject) {
    for (int i = 1; i <= count; ++i) {
        listed.world.deliver(acceptance::message(
            {.from = "Ann Lee <ann@one.example>", .subject = subject, .body = std::to_string(i)}));
    }
}

TEST(PanelResults, OfTheIndexAreFoundAgainBySubjectAndSender) {
    constexpr TextView path = u"/Mailbox - Pat/Inbox";
    Listed listed;
    deliver(listed, 5, "Five");
    deliver(listed, 6, "Six");
    listed.world.deliver(acceptance::message({.from = "Bob Ray <bob@one.example>", .subject = "Five"}));
    listed.add(u"Inbox", u"Five", u"Ann Lee", path);
    listed.add(u"Inbox", u"Six", u"Ann Lee", path);
    listed.add(u"Inbox", u"It's", u"Ann Lee", path);
    listed.add(u"Inbox/Bell", u"Five", u"Ann Lee", path);
    listed.add(u"inbox", u"Five", u"Ann Lee", path);
    const auto trimmed_lines = [&] {
        Lines lines = listed.displayed();
        for (std::string& line : lines) line = line.substr(0, 1);
        listed.world.model().displayed.clear();
        return lines;
    };
    listed.open(0);
    EXPECT_EQ(trimmed_lines(), (Lines{"1", "2", "3", "4", "5"})) << "five open without a question";
    EXPECT_EQ(acceptance::count_messages(listed.world), 0);
    for (const int answer : {host::box::answer_no, 0, host::box::answer_yes}) {
        if (answer != 0) listed.world.desk().call(u"Answer", {u"Tarnwell", u"6 items", answer});
        listed.open(1);
        EXPECT_EQ(trimmed_lines(), answer == host::box::answer_yes ? (Lines{"1", "2", "3", "4", "5", "6"})
                                                                   : (Lines{"1", "2", "3", "4", "5"}));
    }
    const desk::ShownMessage& asked = listed.world.model().messages.front();
    EXPECT_EQ(shown(asked.text),
              "There are 6 items in this conversation.\r\rSix\r\rDo you want to open all items? Selecting No "
              "will open 5 items.");
    EXPECT_EQ(asked.style, host::box::yes_no);
    EXPECT_EQ(asked.title, u"Tarnwell");
    listed.world.model().messages.clear();
    listed.open(2);
    EXPECT_EQ(trimmed_lines(), Lines{}) << "an apostrophe breaks the filter";
    EXPECT_EQ(acceptance::count_messages(listed.world), 0) << "and nothing is said";
    for (const int row : {3, 4}) {
        listed.open(row);
        EXPECT_EQ(acceptance::message_texts(listed.world),
                  Lines(static_cast<std::size_t>(row) - 2,
                        "Item is not in a default folder. Please navigate to the folder to open the item"));
    }
    EXPECT_EQ(listed.world.model().messages.front().style, host::box::ok);
    EXPECT_EQ(trimmed_lines(), Lines{});
}

TEST(PanelResults, OfTheIndexLieInTheSixFoldersThatItNames) {
    struct Case {
        TextView name;
        std::int32_t number;
    };
    for (const Case& one : {Case{u"Inbox", 6}, Case{u"Calendar", 9}, Case{u"Tasks", 13},
                            Case{u"Deleted Items", 3}, Case{u"Sent Items", 5}, Case{u"Drafts", 16}}) {
        SCOPED_TRACE(shown(one.name));
        Listed listed;
        listed.add(one.name, u"A", u"B", u"/Mailbox - Pat/x");
        std::vector<std::int32_t> asked;
        listed.world.boundary().before_request = [&](const std::string& member,
                                                     const automation::Request& request) {
            if (member.ends_with("GetDefaultFolder")) asked.push_back(request.arguments.at(0).to_integer());
        };
        listed.open(0);
        EXPECT_EQ(asked, std::vector<std::int32_t>{one.number});
        EXPECT_EQ(acceptance::count_messages(listed.world), 0);
    }
}

TEST(PanelResults, WithAnIdThatLeadsNowhereOpenNothing) {
    Listed listed;
    for (const TextView key : {u"", u"00", u"not an id"}) {
        listed.add(u"Notes", u"A note", u"", key);
        listed.open(listed.list().memory_list().count() - 1);
    }
    EXPECT_TRUE(listed.world.model().displayed.empty());
    EXPECT_EQ(acceptance::count_messages(listed.world), 0);
}

// sorting

TEST(PanelSort, TakesListsOfEverySize) {
    for (const int size : {1, 2, 50, 2000}) {
        SCOPED_TRACE(size);
        Listed listed;
        native::MemoryList& rows = listed.list().memory_list();
        for (int i = 0; i < size; ++i) {
            const int place = rows.add(u"Notes");
            const std::string month = std::to_string(i * 7 % 12 + 1);
            rows.text(place, 3, i % 5 == 0 ? u"" : automation::from_utf8(month + "/1/2026 9:15:00 AM"));
        }
        for (const bool rises : {true, false, true}) {
            listed.panel.click_column(4);
            const Lines shown_dates = listed.panel.column(4);
            ASSERT_EQ(shown_dates.size(), static_cast<std::size_t>(size));
            EXPECT_TRUE(rises ? std::ranges::is_sorted(shown_dates)
                              : std::ranges::is_sorted(shown_dates, std::greater<>()))
                << "as texts: 10/1/2026 comes before 2/1/2026";
            EXPECT_EQ(listed.panel.marks().at(3), rises ? 1 : 0);
        }
    }
}

}  // namespace
}  // namespace addin_tests
