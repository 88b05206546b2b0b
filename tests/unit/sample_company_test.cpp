// The data of the sample company, and the database made of it.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <set>

#include "desk/outlook/item_kinds.h"
#include "desk/tools/database/sample_data.h"
#include "tests/unit/support/mail_support.h"

namespace {

using automation::Text;
using automation::TextView;
using desk::sample::Data;
using desk::sample::FolderPlan;
using desk::sample::RecordPlan;

const Data& sample() {
    static const Data data = desk::sample::read_data(std::filesystem::path(TARNWELL_DATA_FOLDER) / "sample");
    return data;
}

const Data& empty() {
    static const Data data = desk::sample::read_data(std::filesystem::path(TARNWELL_DATA_FOLDER) / "empty");
    return data;
}

Text property(const RecordPlan& record, TextView name) {
    const auto& properties = record.item.user_properties;
    const auto found = std::ranges::find(properties, name, &desk::UserPropertyData::name);
    return found == properties.end() ? Text() : found->value.to_text();
}

Text field(const RecordPlan& record, TextView name) {
    const auto found = record.item.fields.find(name);
    return found == record.item.fields.end() ? Text() : found->second.to_text();
}

std::vector<const RecordPlan*> of_class(TextView message_class) {
    std::vector<const RecordPlan*> found;
    for (const RecordPlan& record : sample().records) {
        if (record.item.message_class == message_class) found.push_back(&record);
    }
    return found;
}

const FolderPlan* folder_at(TextView path) {
    const auto found = std::ranges::find(sample().folders, path, &FolderPlan::path);
    return found == sample().folders.end() ? nullptr : &*found;
}

constexpr TextView root = u"Public Folders/All Public Folders/Tarnwell";

struct FolderCase {
    Text path;
    std::int32_t item_type, default_number;
    TextView default_class;
};
const Text box = u"Mailbox - Tarnwell/";
const Text database_root = Text(root) + u"/";
const Text profiles = database_root + u"Account Profiles";
const FolderCase folder_cases[] = {
    {u"Mailbox - Tarnwell", 0, 0, u"IPM.Note"},
    {box + u"Deleted Items", 0, 3, u"IPM.Note"},
    {box + u"Outbox", 0, 4, u"IPM.Note"},
    {box + u"Sent Items", 0, 5, u"IPM.Note"},
    {box + u"Inbox", 0, 6, u"IPM.Note"},
    {box + u"Calendar", 1, 9, u"IPM.Appointment"},
    {box + u"Contacts", 2, 10, u"IPM.Contact"},
    {box + u"Journal", 4, 11, u"IPM.Activity"},
    {box + u"Notes", 5, 12, u"IPM.StickyNote"},
    {box + u"Tasks", 3, 13, u"IPM.Task"},
    {box + u"Drafts", 0, 16, u"IPM.Note"},
    {u"Public Folders", 0, 0, u"IPM.Note"},
    {profiles, 6, 0, u"IPM.Post.Tarnwell_2000"},
    {profiles + u"/Account Contacts", 2, 0, u"IPM.Contact.Account Contact"},
    {profiles + u"/Email", 6, 0, u"IPM.Post.Note"},
    {profiles + u"/Notes", 6, 0, u"IPM.Post.Note"},
    {profiles + u"/Opportunities", 6, 0, u"IPM.Post.Opportunity"},
    {profiles + u"/Customer Service", 6, 0, u"IPM.Post.CustomerService"},
    {profiles + u"/Customer Service/Actions", 6, 0, u"IPM.Post.Action"},
    {profiles + u"/Drop Downs", 6, 0, u"IPM.Post.Drop Down"},
    {database_root + u"Leads", 2, 0, u"IPM.Contact.Lead"},
    {database_root + u"System Folder", 6, 0, u"IPM.Post.ListDefinition"},
    {database_root + u"Global Calendar", 1, 0, u"IPM.Appointment.TarnwellAppt"},
    {database_root + u"Global Tasks", 3, 0, u"IPM.Task.TarnwellTask"},
};

TEST(SampleDatabase, HasEachFolder) {
    for (const FolderCase& expected : folder_cases) {
        SCOPED_TRACE(automation::to_utf8(expected.path));
        const FolderPlan* folder = folder_at(expected.path);
        ASSERT_TRUE(folder);
        EXPECT_EQ(folder->row.item_type, expected.item_type);
        EXPECT_EQ(folder->row.default_number, expected.default_number);
        EXPECT_EQ(folder->row.default_class, expected.default_class);
    }
}

TEST(SampleDatabase, FoldersKnowThePropertiesOfTheirRecords) {
    for (const RecordPlan& record : sample().records) {
        const FolderPlan* folder = folder_at(record.folder_path);
        ASSERT_TRUE(folder);
        for (const desk::UserPropertyData& each : record.item.user_properties) {
            EXPECT_EQ(std::ranges::count(folder->row.fields, desk::FolderField{each.name, each.type}), 1)
                << automation::to_utf8(folder->path) << " " << automation::to_utf8(each.name);
        }
    }
    const auto& fields = folder_at(profiles + u"/Email")->row.fields;
    EXPECT_EQ(std::ranges::count(fields, desk::FolderField{u"Activity Date", 5}), 1);
}

TEST(SampleDatabase, OnlyTheRootsOfStoresHaveAnIdOfTheirOwn) {
    std::set<Text> ids;
    for (const FolderPlan& folder : sample().folders) {
        EXPECT_EQ(folder.row.store_uid.empty(), !folder.parent_path.empty())
            << automation::to_utf8(folder.path);
        if (folder.row.store_uid.empty()) continue;
        EXPECT_EQ(folder.row.store_uid.size(), 32U);
        EXPECT_EQ(folder.row.store_uid.find_first_not_of(u"0123456789ABCDEF"), Text::npos);
        EXPECT_TRUE(ids.insert(folder.row.store_uid).second);
    }
    EXPECT_EQ(ids.size(), 2U);
}

struct CountCase {
    TextView message_class;
    std::size_t at_least;
};
const CountCase count_cases[] = {
    {u"IPM.Post.Tarnwell_2000", 40},
    {u"IPM.Contact.Account Contact", 150},
    {u"IPM.Contact.Lead", 15},
    {u"IPM.Post.Opportunity", 20},
    {u"IPM.Post.CustomerService", 15},
    {u"IPM.Post.Action", 20},
    {u"IPM.Post.Note", 20},
    {u"IPM.Post.Drop Down", 8},
    {u"IPM.Contact", 3},
    {u"IPM.Appointment", 3},
    {u"IPM.Appointment.TarnwellAppt", 3},
    {u"IPM.Task", 3},
    {u"IPM.Task.TarnwellTask", 3},
};

TEST(SampleDatabase, HasACompanysWorthOfRecords) {
    for (const CountCase& each : count_cases) {
        EXPECT_GE(of_class(each.message_class).size(), each.at_least)
            << automation::to_utf8(each.message_class);
    }
}

TEST(SampleDatabase, RecordsLieInTheFolderOfTheirClass) {
    for (const RecordPlan& record : sample().records) {
        const Text& default_class = folder_at(record.folder_path)->row.default_class;
        const Text& own = record.item.message_class;
        if (record.folder_path == database_root + u"System Folder") {
            EXPECT_TRUE(own == default_class || own == u"IPM.Post.Folder Drop Down")
                << automation::to_utf8(own);
            continue;
        }
        EXPECT_TRUE(own == default_class || own.starts_with(default_class + u"."))
            << automation::to_utf8(own) << " in " << automation::to_utf8(record.folder_path);
        const bool personal = record.folder_path.starts_with(box);
        EXPECT_EQ(own == default_class || personal, true) << automation::to_utf8(own);
    }
}

TEST(SampleDatabase, RecordsBearThePropertiesOfTheirFormInItsOrder) {
    int lacking = 0;
    for (const RecordPlan& record : sample().records) {
        const auto form = sample().forms.find(record.item.message_class);
        std::vector<Text> expected, borne;
        if (form != sample().forms.end()) {
            for (const desk::FolderField& each : form->second) expected.push_back(each.name);
        }
        for (const Text& name : record.lacks) std::erase(expected, name);
        for (const desk::UserPropertyData& each : record.item.user_properties) borne.push_back(each.name);
        EXPECT_EQ(borne, expected) << automation::to_utf8(field(record, u"Subject"));
        lacking += !record.lacks.empty();
    }
    EXPECT_EQ(lacking, 1) << "one contact has no Team";
}

// The data names the forms, too, since its records and folders are built from them: both lists say the same.
TEST(SampleDatabase, FormsAreThoseOfTheDesk) {
    for (const auto& [message_class, fields] : sample().forms) {
        std::vector<desk::FolderField> known;
        for (const desk::FormProperty& each : desk::form_of(message_class))
            known.push_back({Text(each.name), each.type});
        EXPECT_EQ(known, fields) << automation::to_utf8(message_class);
    }
}

TEST(SampleDatabase, IdsAreUnique) {
    struct Key {
        TextView message_class, name;
    };
    const Key keys[] = {
        {u"IPM.Post.Tarnwell_2000", u"AccountID"},    {u"IPM.Contact.Account Contact", u"ContactID"},
        {u"IPM.Contact.Lead", u"ContactID"},          {u"IPM.Post.Opportunity", u"OppID"},
        {u"IPM.Post.CustomerService", u"Inquiry ID"}, {u"IPM.Post.Note", u"NoteID"}};
    std::set<Text> ids;
    for (const Key& key : keys) {
        for (const RecordPlan* record : of_class(key.message_class)) {
            const Text id = property(*record, key.name);
            EXPECT_FALSE(id.empty());
            EXPECT_TRUE(ids.insert(id).second) << automation::to_utf8(id);
        }
    }
}

std::map<Text, const RecordPlan*> by_id(TextView message_class, TextView key) {
    std::map<Text, const RecordPlan*> found;
    for (const RecordPlan* record : of_class(message_class)) found[property(*record, key)] = record;
    return found;
}

TEST(SampleDatabase, LinksLeadToRecords) {
    const auto accounts = by_id(u"IPM.Post.Tarnwell_2000", u"AccountID");
    const auto contacts = by_id(u"IPM.Contact.Account Contact", u"ContactID");
    const auto inquiries = by_id(u"IPM.Post.CustomerService", u"Inquiry ID");
    const auto opportunities = by_id(u"IPM.Post.Opportunity", u"OppID");
    int without_account = 0, links = 0;
    for (const RecordPlan& record : sample().records) {
        const bool contact = record.item.message_class == u"IPM.Contact.Account Contact";
        const Text account = property(record, u"AccountID");
        without_account += contact && account.empty();
        if (!account.empty()) {
            ASSERT_TRUE(accounts.contains(account));
            EXPECT_EQ(property(record, u"Account Name"), field(*accounts.at(account), u"Subject"));
            ++links;
        }
        if (contact || record.item.message_class == u"IPM.Contact.Lead") continue;
        if (const Text id = property(record, u"ContactID"); !id.empty()) {
            ASSERT_TRUE(contacts.contains(id));
            EXPECT_EQ(property(record, u"Contact Name"), field(*contacts.at(id), u"FullName"));
            EXPECT_EQ(account, property(*contacts.at(id), u"AccountID"));
        }
        const Text inquiry = property(record, u"Inquiry ID");
        EXPECT_TRUE(inquiry.empty() || inquiries.contains(inquiry));
        const Text opportunity = property(record, u"OppID");
        EXPECT_TRUE(opportunity.empty() || opportunities.contains(opportunity));
    }
    EXPECT_EQ(without_account, 1);
    EXPECT_GT(links, 250);
}

TEST(SampleDatabase, ContactsTryWhatAddressesCanBe) {
    std::map<Text, int> holders;
    int exchange = 0, apostrophes = 0, beyond_ascii = 0, third = 0, search = 0;
    for (const RecordPlan* contact : of_class(u"IPM.Contact.Account Contact")) {
        for (const TextView name : {u"Email1Address", u"Email2Address", u"Email3Address"}) {
            const Text address = field(*contact, name);
            if (address.empty()) continue;
            ++holders[address];
            exchange += address.starts_with(u"/o=");
        }
        const Text full = field(*contact, u"FullName");
        EXPECT_EQ(full, field(*contact, u"FirstName") + u" " + field(*contact, u"LastName"));
        EXPECT_EQ(field(*contact, u"CompanyName"), property(*contact, u"Account Name"));
        apostrophes += full.find(u'\'') != Text::npos;
        beyond_ascii += std::ranges::any_of(full, [](char16_t c) { return c > 0x7F; });
        third += !field(*contact, u"Email3Address").empty();
        search += !property(*contact, u"EmailSearchString").empty();
    }
    EXPECT_EQ(std::ranges::count_if(holders, [](const auto& each) { return each.second == 2; }), 1);
    EXPECT_GE(exchange, 3);
    EXPECT_GE(apostrophes, 3);
    EXPECT_GE(beyond_ascii, 20);
    EXPECT_GE(third, 1);
    EXPECT_GE(search, 2);
}

TEST(SampleDatabase, HasTheTypesOfNotesAsDropDowns) {
    std::vector<Text> types;
    for (const RecordPlan* record : of_class(u"IPM.Post.Drop Down")) {
        if (property(*record, u"RecordType") == u"Note Type") types.push_back(field(*record, u"Subject"));
    }
    ASSERT_GE(types.size(), 5U);
    EXPECT_EQ(types[0], u"Email (Received)");
    EXPECT_EQ(types[1], u"Email (Sent)");
    for (const RecordPlan* note : of_class(u"IPM.Post.Note")) {
        EXPECT_NE(std::ranges::find(types, property(*note, u"Type")), types.end());
    }
}

/// The domains behind '@' and "http://www." in a text.
void collect_domains(std::string_view text, std::set<std::string>& domains) {
    for (const std::string_view mark : {"@", "http://www.", "http://", "https://"}) {
        for (std::size_t at = text.find(mark); at != std::string_view::npos; at = text.find(mark, at + 1)) {
            const std::string_view rest = text.substr(at + mark.size());
            const std::size_t end =
                rest.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-.");
            std::string domain(rest.substr(0, end));
            while (domain.ends_with('.')) domain.pop_back();
            if (domain.find('.') != std::string::npos) domains.insert(domain);
        }
    }
}

TEST(SampleDatabase, NamesNoDomainThatIsSomebodys) {
    std::set<std::string> domains;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(TARNWELL_DATA_FOLDER)) {
        if (entry.is_regular_file()) collect_domains(mail_tests::bytes_of(entry.path()), domains);
    }
    EXPECT_GT(domains.size(), 60U);
    EXPECT_EQ(domains.erase("schemas.microsoft.com"), 1U) << "the root of the host's own addresses";
    for (const std::string& domain : domains) EXPECT_TRUE(domain.ends_with(".example")) << domain;
}

TEST(SampleDatabase, TheEmptyOneHasTheSameTreeAndNoRecord) {
    EXPECT_TRUE(empty().records.empty());
    ASSERT_EQ(empty().folders.size(), sample().folders.size());
    for (std::size_t i = 0; i < empty().folders.size(); ++i) {
        EXPECT_EQ(empty().folders[i].path, sample().folders[i].path);
        EXPECT_EQ(empty().folders[i].row.fields, sample().folders[i].row.fields);
    }
    const auto ini = [](const char* name) {
        return mail_tests::bytes_of(std::filesystem::path(TARNWELL_DATA_FOLDER) / name /
                                    "twsystemfolder.ini");
    };
    EXPECT_NE(ini("sample").find("[Account Contacts]\r\nDisplay in=Find, Search Panel\r\n"),
              std::string::npos);
    EXPECT_FALSE(ini("empty").empty());
    EXPECT_EQ(ini("empty").find('['), std::string::npos);
}

TEST(SampleDatabase, IsWrittenToAStoreAndFoundThere) {
    const mail_tests::TemporaryFile file("tarnwell sample database");
    const std::unique_ptr<desk::Store> store = desk::Store::open(file.path());
    desk::sample::write_data(sample(), *store);
    std::map<desk::RowId, desk::FolderRow> rows;
    for (const desk::FolderRow& row : store->folders()) rows[row.id] = row;
    ASSERT_EQ(rows.size(), sample().folders.size());
    const std::function<Text(const desk::FolderRow&)> path_of = [&](const desk::FolderRow& row) {
        return row.parent ? path_of(rows.at(row.parent)) + u"/" + row.name : row.name;
    };
    std::map<Text, desk::RowId> ids;
    for (const auto& [id, row] : rows) ids[path_of(row)] = id;
    for (const FolderPlan& plan : sample().folders) {
        ASSERT_TRUE(ids.contains(plan.path)) << automation::to_utf8(plan.path);
        const auto expected = std::ranges::count(sample().records, plan.path, &RecordPlan::folder_path);
        EXPECT_EQ(store->count(ids.at(plan.path)), expected) << automation::to_utf8(plan.path);
    }
    const auto found =
        store->lookup(ids.at(profiles + u"/Account Contacts"), u"Email1Address", u"SOREN@dalgaard.example");
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(store->load(found[0])->data.fields.at(u"FullName").to_text(), u"Søren Dalgaard");
}

TEST(SampleDatabase, TakesMadeUpContactsOnTop) {
    const mail_tests::TemporaryFile file("tarnwell bench database");
    const std::unique_ptr<desk::Store> store = desk::Store::open(file.path());
    EXPECT_THROW(desk::sample::add_contacts(empty(), *store, 1), automation::Failure);
    desk::sample::write_data(empty(), *store);
    desk::sample::add_contacts(empty(), *store, 250);
    for (const desk::FolderRow& row : store->folders()) {
        EXPECT_EQ(store->count(row.id), row.name == u"Account Contacts" ? 250 : 0)
            << automation::to_utf8(row.name);
    }
}

/// A data folder of its own with these files.
class DataFolder {
  public:
    DataFolder() : path_(std::filesystem::temp_directory_path() / "tarnwell data folder") {
        std::filesystem::remove_all(path_);
        std::filesystem::create_directories(path_ / "records");
    }
    DataFolder(const DataFolder&) = delete;
    DataFolder& operator=(const DataFolder&) = delete;
    ~DataFolder() { std::filesystem::remove_all(path_); }

    std::string refusal(const std::string& tree, const std::string& records) const {
        std::ofstream(path_ / "tree.json") << tree;
        std::ofstream(path_ / "records" / "all.json") << records;
        try {
            desk::sample::read_data(path_);
            return {};
        } catch (const automation::Failure& failure) {
            const std::string said = failure.what();
            return said.substr(said.find(": ") + 2);
        }
    }

  private:
    std::filesystem::path path_;
};

TEST(SampleDatabase, SaysWhatIsWrongInADataFile) {
    struct Case {
        std::string tree, records, sentence;
    };
    const std::string tree =
        R"({"forms": {"A": ["x"]}, "stores": [{"name": "S", "holds": "mail", "class": "IPM.Note", "fields_of": ["A"]}]})";
    const Case cases[] = {
        {tree, R"([{"folder": "S", "class": "A", "records": [{"fields": {}, "properties": {"x": "1"}}]}])",
         ""},
        {"{", "[]", "it is not there or not JSON."},
        {"{}", "[]", "\"forms\" is missing."},
        {R"({"forms": {}, "stores": [{"name": "S", "holds": "cheese", "class": "x"}]})", "[]",
         "a folder can't hold \"cheese\"."},
        {R"({"forms": {}, "stores": [{"name": "S", "holds": "mail", "class": "x", "fields_of": ["B"]}]})",
         "[]", "there is no form \"B\"."},
        {tree, R"([{"folder": "T", "class": "A", "records": []}])", "there is no folder \"T\"."},
        {tree, R"([{"folder": "S", "class": "A", "records": [{"fields": {}, "properties": {"y": "1"}}]}])",
         "the form has no property \"y\"."},
        {tree, R"([{"folder": "S", "class": "B", "records": [{"fields": {}, "properties": {"x": "1"}}]}])",
         "the class has no form, so no properties."},
        {tree, R"([{"folder": "S", "class": "A", "records": [{}]}])", "\"fields\" is missing."},
    };
    const DataFolder folder;
    for (const Case& each : cases) EXPECT_EQ(folder.refusal(each.tree, each.records), each.sentence);
}

}  // namespace
