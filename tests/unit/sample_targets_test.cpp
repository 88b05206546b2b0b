// The search targets of the sample company: its file, the records in the "System Folder", and what the Create
// Note dialog makes of them.
#include <gmock/gmock.h>

#include <set>

#include "addin/createnote/dlg_send.h"
#include "addin/createnote/search_targets.h"
#include "desk/tools/database/sample_data.h"
#include "tests/native/native_world.h"

namespace {

using automation::Text;
using automation::TextView;
using desk::sample::RecordPlan;
using testing::ElementsAre;

const std::filesystem::path sample_folder = std::filesystem::path(TARNWELL_DATA_FOLDER) / "sample";

const desk::sample::Data& sample_data() {
    static const desk::sample::Data data = desk::sample::read_data(sample_folder);
    return data;
}

Text property_of(const RecordPlan& record, const Text& name) {
    const auto& properties = record.item.user_properties;
    const auto found = std::ranges::find(properties, name, &desk::UserPropertyData::name);
    return found == properties.end() ? Text() : found->value.to_text();
}

Text numbered(TextView name, int number) { return Text(name) + automation::to_text(number); }

/// The system record of a class and a subject; null if there isn't exactly one.
const RecordPlan* system_record(TextView message_class, TextView subject) {
    const RecordPlan* found = nullptr;
    for (const RecordPlan& record : sample_data().records) {
        if (record.item.message_class != message_class) continue;
        if (record.item.fields.at(u"Subject").to_text() != subject) continue;
        if (found) return nullptr;
        found = &record;
    }
    return found;
}

struct SampleTargets : testing::Test {
    native::NativeWorld world{{.database = "sample"}};

    SampleTargets() { world.family(u"SpecialFolder", sample_folder.u16string()); }

    std::vector<addin::createnote::SearchTarget> targets(TextView place) {
        return addin::createnote::read_targets(world.desktop(), sample_folder.u16string(), place);
    }
    std::vector<std::string> names(TextView place) {
        std::vector<std::string> all;
        for (const auto& target : targets(place)) all.push_back(automation::to_utf8(target.name));
        return all;
    }
};

TEST_F(SampleTargets, AreOfferedInTheDialogInThePanelOrInBoth) {
    EXPECT_THAT(names(u"FIND"), ElementsAre("Account Contacts", "Account Profiles", "Customer Service",
                                            "Leads", "Opportunities"));
    EXPECT_THAT(names(u"SEARCH PANEL"), ElementsAre("Account Contacts", "Account Profiles",
                                                    "Customer Service", "Notes", "Opportunities"));
}

TEST_F(SampleTargets, HaveTheirRecords) {
    std::set<Text> types, forms;
    for (const auto& target : targets(u"")) {
        SCOPED_TRACE(automation::to_utf8(target.name));
        const RecordPlan* const entry = system_record(u"IPM.Post.Folder Drop Down", target.name);
        const RecordPlan* const definition =
            system_record(u"IPM.Post.ListDefinition", target.find_definition);
        ASSERT_TRUE(entry && definition);
        EXPECT_EQ(property_of(*entry, u"RecordType"), u"Folder Drop Down");
        EXPECT_EQ(property_of(*entry, u"FindDefinition"), target.find_definition);
        EXPECT_EQ(property_of(*definition, u"RecordType"), u"List Definition");
        EXPECT_EQ(property_of(*definition, u"SearchFolder"), target.folder_name);

        const Text path = automation::replaced(target.folder_name.substr(2), u"\\", u"/");
        const auto folder = std::ranges::find(sample_data().folders, path, &desk::sample::FolderPlan::path);
        ASSERT_NE(folder, sample_data().folders.end());
        EXPECT_EQ(property_of(*entry, u"MessageClass"), folder->row.default_class);
        EXPECT_EQ(property_of(*definition, u"KeyFieldName"),
                  u"{00020329-0000-0000-C000-000000000046}," + property_of(*definition, u"KeyColumnName"));
        for (int column = 1; column <= 6; ++column) {
            EXPECT_FALSE(property_of(*definition, numbered(u"ColumnName", column)).empty());
            const Text name = property_of(*definition, numbered(u"FieldName", column));
            types.insert(property_of(*definition, numbered(u"FieldType", column)));
            forms.insert(name.front() == u'&'                  ? u"tag"
                         : std::ranges::count(name, u',') == 2 ? u"number"
                                                               : u"name");
        }
    }
    EXPECT_THAT(types, ElementsAre(u"Currency", u"Date", u"Percent", u"String"));
    EXPECT_THAT(forms, ElementsAre(u"name", u"number", u"tag"));
}

/// The cells of the dialog's first row for a text.
struct SearchCase {
    TextView target, typed;
    int rows;
    std::vector<std::string> headings, cells;  ///< of seven columns, and of the first row
};

TEST_F(SampleTargets, AreSearchedByTheDialog) {
    const SearchCase cases[] = {
        {u"Account Contacts",
         u"umar lock",
         1,
         {"Contact Name", "Company Name", "Business Phone", "E-mail", "City", "State", "ContactID"},
         {"Umar Lockwood", "Alder & Finch Bakeries", "+44 1632 960156", "umar.lockwood@alderfinch.example",
          "Marlow Bridge", "Bucks", "4MYGVD8R2CGWRES5"}},
        {u"Account Profiles",
         u"Arctic",
         1,
         {"Account Name", "City", "Phone", "Address", "State", "Created", "AccountID"},
         {"Arctic Tern Seafood", "Nordvik", "+47 5550 1120", "Havnegata 8", "Troms", "3/28/2022",
          "QB7C9SZZMRQZTE6J"}},
        {u"Customer Service",
         u"printer stops",
         1,
         {"Inquiry", "Account Name", "Contact Name", "Business Phone", "Opened", "Account Manager",
          "Inquiry ID"},
         {"Printer stops after 200 labels", "Arctic Tern Seafood", "Øyvind Grønli", "+47 5550 1120",
          "10/9/2025", "Marek Nowak", "ZBCCVGQFABET4X5M"}},
        {u"Leads",
         u"Beatrix",
         1,
         {"Lead Name", "Company Name", "Business Phone", "E-mail", "Created", "Account Manager", "ContactID"},
         {"Beatrix Cavendish", "Cavendish Marmalade", "+44 1632 960401",
          "beatrix@cavendish-marmalade.example", "9/29/2025", "Tom Prior", "W97BFZJK1YBDC9VP"}},
        {u"Opportunities",
         u"Checkweigher for",
         1,
         {"Opportunity", "Account Name", "Contact Name", "Amount", "Close Date", "Probability", "OppID"},
         {"Checkweigher for line 2", "Arctic Tern Seafood", "Øyvind Vik", "$58,000.25", "12/23/2025",
          "40.00%", "D1JFBKX1WY5AXHVG"}},
    };
    const auto dialog = std::make_shared<addin::createnote::dlgSend>(world.add_in()->rooms().createnote);
    dialog->show();
    native::MemoryWindow* const window = world.engine().find(u"Tarnwell Create Note");
    ASSERT_TRUE(window);
    native::MemoryControl& combo = window->control(u"Combo2");
    const forms::List& list = window->control(u"lstRecipients").list();
    for (const SearchCase& each : cases) {
        SCOPED_TRACE(automation::to_utf8(each.target));
        int place = 0;
        while (place < combo.choice().count() && combo.choice().entry(place) != each.target) ++place;
        ASSERT_TRUE(combo.choose(place));
        EXPECT_TRUE(window->control(u"SearchString").type(each.typed));
        EXPECT_TRUE(window->control(u"cmdSearch").click());
        ASSERT_EQ(list.count(), each.rows);
        std::vector<std::string> headings, cells;
        for (int column = 0; column < static_cast<int>(each.headings.size()); ++column) {
            headings.push_back(automation::to_utf8(list.heading(column)));
            cells.push_back(automation::to_utf8(list.text(0, column)));
        }
        EXPECT_EQ(headings, each.headings);
        EXPECT_EQ(cells, each.cells);
        EXPECT_FALSE(list.text(0, addin::createnote::column::entry_id).empty());
    }
    EXPECT_TRUE(world.model().messages.empty());
    dialog->unload();
}

}  // namespace
