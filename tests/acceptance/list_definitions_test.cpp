// Which targets the Create Note dialog offers, and what it knows of the one that is chosen.
#include "tests/world/host_numbers.h"
#include "tests/world/note_dialog.h"

namespace acceptance {
namespace {

using automation::Object;
using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Folder;
using host::outlook::Item;

constexpr TextView invalid = u"Invalid List Definition Record in the Tarnwell System Folder";

/// A section that the dialog offers.
std::string section(const std::string& name) {
    return "[" + name + "]\r\nDisplay in=Find\r\nFindDefinition=x\r\nFolder Name=y\r\n";
}

class ListDefinitions : public WithNoteDialog {
  protected:
    /// What a dialog offers with such a file.
    Lines offered(const std::string& file) {
        write_targets_file(world(), file);
        return opened().entries(u"Combo2");
    }

    /// Chooses a target whose definition isn't there.
    void choose_missing(NoteDialog& dialog, TextView target) {
        const std::int32_t before = count_messages(world());
        world().desk().call(u"Answer", {u"Tarnwell", Value(invalid), ok});
        dialog.choose(u"Combo2", target);
        ASSERT_EQ(message_texts(world(), before), Lines{shown(invalid)});
        const Object box =
            world().desk().get(u"Messages").to_object().call(u"Item", {before + 1}).to_object();
        constexpr std::int32_t critical = 16;
        EXPECT_EQ(box.get(u"Style").to_integer(), critical);
        EXPECT_EQ(box.get(u"Title").to_text(), u"Tarnwell");
    }
};

// the file

TEST_F(ListDefinitions, AreOfferedByTheFilesSectionsInTheOrderOfTheirCodes) {
    EXPECT_EQ(offered(section("banana") + section("Zoo") + section("Apple") + section("Search by Phone")),
              (Lines{"Apple", "Search by Phone", "Zoo", "banana", "Search by Email"}));
}

TEST_F(ListDefinitions, AreOfferedWhereTheyAreToBeDisplayed) {
    struct Case {
        const char* display_in;
        bool is_offered;
    };
    const Case cases[] = {
        {"Find", true},
        {"FIND", true},
        {"find, search panel", true},
        {"Search Panel", false},
        {"", false},
        {"Unfindable", true},
        {"Fi nd", false},
        {"\"Find\"", true},
        {"  Find  ", true},
        {"Search PanelFIND", true},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.display_in);
        const Lines expected = one.is_offered ? Lines{"Target", "Search by Email"} : Lines{"Search by Email"};
        EXPECT_EQ(offered(std::string("[Target]\r\nDisplay in=") + one.display_in + "\r\n"), expected);
    }
}

TEST_F(ListDefinitions, AreNoneWithoutSections) {
    const Lines none{"Search by Email"};
    EXPECT_EQ(opened().entries(u"Combo2"), none) << "there is no file";
    for (const char* const file : {"", "\r\n", "; only a remark\r\n", "Display in=Find\r\n", "[Target]", "[]",
                                   "[Target]\r\nDisplay=Find\r\n", "\xFF\xFE\x80\r\n", "=\r\n[\r\n"}) {
        SCOPED_TRACE(file);
        EXPECT_EQ(offered(file), none);
    }
    EXPECT_EQ(count_messages(world()), 0);
}

TEST_F(ListDefinitions, AreReadToTheFilesEndWhateverItsLinesEndWith) {
    const Lines both{"One", "Two", "Search by Email"};
    EXPECT_EQ(offered("[One]\r\nDisplay in=Find\r\n[Two]\r\nDisplay in=Find"), both);
    EXPECT_EQ(offered("[One]\nDisplay in=Find\n\n\n[Two]\ndisplay IN = find\n"), both);
    EXPECT_EQ(
        offered("; remark\r\n[One]\r\n;Display in=no\r\nDisplay in=Find\r\n[Two]\r\nDisplay in=Find\r\n"),
        both);
}

TEST_F(ListDefinitions, BearNamesOfAnyCharsetWithoutHarm) {
    const Lines names = offered(section("Zurich") + section("Z\xFCrich") + section("Oslo"));
    ASSERT_EQ(names.size(), 4U);
    EXPECT_EQ(names.front(), "Oslo");
    EXPECT_EQ(names.at(1), "Zurich");
    EXPECT_EQ(names.back(), "Search by Email");
}

TEST_F(ListDefinitions, AreCutWhereTheNamesOfTheSectionsEnd) {
    std::string file;
    for (int i = 100; i < 300; ++i) file += section("Target " + std::to_string(i));
    EXPECT_EQ(offered(file).size(), 201U) << "short names all fit";

    file.clear();
    for (int i = 100; i < 300; ++i) file += section("Target " + std::to_string(i) + " of a very long list");
    constexpr std::size_t that_fit = 132;  // of 31 characters with their ends, in a buffer of 4,096
    const Lines names = offered(file);
    ASSERT_EQ(names.size(), that_fit + 1);
    EXPECT_EQ(names.at(that_fit - 1), "Target 231 of a very long list");
}

TEST_F(ListDefinitions, MayHaveAVeryLongName) {
    const std::string name(300, 'n');
    EXPECT_EQ(offered(section(name)), (Lines{name, "Search by Email"}));
    NoteDialog& dialog = opened();
    choose_missing(dialog, automation::from_utf8(name));
    EXPECT_EQ(dialog.text(u"Combo2"), name);
}

TEST_F(ListDefinitions, AreReadWithValuesOf511Characters) {
    constexpr std::size_t longest = 511;
    const auto with_find_at_end_of = [](std::size_t length) {
        return "[Target]\r\nDisplay in=" + std::string(length - 4, 'x') + "Find\r\n";
    };
    EXPECT_EQ(offered(with_find_at_end_of(longest)), (Lines{"Target", "Search by Email"}));
    EXPECT_EQ(offered(with_find_at_end_of(longest + 1)), Lines{"Search by Email"});
    EXPECT_EQ(offered(with_find_at_end_of(5000)), Lines{"Search by Email"});
}

TEST_F(ListDefinitions, AreReadAfreshByEachDialog) {
    EXPECT_EQ(offered(section("One")), (Lines{"One", "Search by Email"}));
    EXPECT_EQ(offered(section("Two")), (Lines{"Two", "Search by Email"}));
}

// the records

TEST_F(ListDefinitions, GiveTheHeadings) {
    World& same = world();
    install(same, {{.name = u"One", .definition = u"First"},
                   {.name = u"Two",
                    .definition = u"Second",
                    .headings = {u"A", u"B", u"C", u"D", u"E", u"F"},
                    .key_heading = u"G"}});
    NoteDialog& dialog = opened();
    dialog.choose(u"Combo2", u"Two");
    EXPECT_EQ(dialog.headings(), (Lines{"A", "B", "C", "D", "E", "F", "G"}));
    dialog.choose(u"Combo2", u"One");
    EXPECT_EQ(dialog.headings(),
              (Lines{"Full Name", "Company", "Email", "Manager", "Team", "Alignment", "ContactID"}));
    EXPECT_EQ(count_messages(same), 0);
}

TEST_F(ListDefinitions, AreFoundBesideTheAccountsAndAmongThem) {
    World& same = world();
    install(same, {SearchTarget{}});
    const Folder beside = Folder(same.account_profiles().Parent()).Folders().Item(u"System Folder");
    NoteDialog& dialog = opened();
    for (const bool among : {false, true}) {
        SCOPED_TRACE(among);
        if (among) {
            const Object inside =
                same.account_profiles().Folders().call(u"Add", {u"System Folder"}).to_object();
            const host::outlook::Items records = beside.Items();
            for (std::int32_t i = records.Count(); i >= 1; --i)
                records.Item(i).call(u"Move", {Value(inside)});
            beside.put(u"Name", u"Another folder");
        }
        dialog.click(u"Option2");  // brings its own headings back
        same.fail(u"NameSpace.GetFolderFromID");
        dialog.choose(u"Combo2", u"People");
        EXPECT_EQ(dialog.headings().front(), "Full Name");
        EXPECT_EQ(count_messages(same), 0);
    }
}

TEST_F(ListDefinitions, ThatAreMissingAreReportedAndLeaveWhatWasThere) {
    World& same = world();
    add_contact(same);
    install(same, {SearchTarget{}});
    add_drop_down(same, u"Broken", u"No such definition");
    add_drop_down(same, u"O'Hara", u"People of accounts");
    write_targets_file(
        same, section("People") + section("Broken") + section("Without a record") + section("O'Hara"));
    NoteDialog& dialog = opened();
    choose_missing(dialog, u"Without a record");
    EXPECT_EQ(dialog.headings(), (Lines{"", "", "", "", "", "", "ENTRYID"})) << "nothing was there yet";
    EXPECT_EQ(dialog.rows(), Lines{});
    EXPECT_TRUE(dialog.is_enabled(u"SearchString"));

    dialog.choose(u"Combo2", u"People");
    const Lines headings = dialog.headings();
    for (const TextView target : {u"Broken", u"Without a record", u"O'Hara"}) {
        SCOPED_TRACE(shown(target));
        choose_missing(dialog, target);
        EXPECT_EQ(dialog.headings(), headings);
        dialog.type(u"SearchString", u"Ann");
        dialog.click(u"cmdSearch");
        EXPECT_TRUE(dialog.header_becomes(u"Search Complete for Ann"));
        EXPECT_EQ(dialog.column(1), Lines{"Ann Lee"}) << "the search is still the last one's";
    }
}

TEST_F(ListDefinitions, ThatAreHalfFilledKeepTheRestOfTheLastOne) {
    World& same = world();
    install(same, {SearchTarget{}});
    add_drop_down(same, u"Half", u"Half of it");
    const Item half = system_items(same).Add(u"IPM.Post.ListDefinition");
    half.Subject(u"Half of it");
    constexpr std::int32_t text = 1;  // OlUserPropertyType
    half.UserProperties().Add(u"ColumnName2", text, false).value(u"Firm");
    half.Save();
    const bool has_all = static_cast<bool>(half.UserProperties().Find(u"ColumnName1"));
    write_targets_file(same, section("People") + section("Half"));
    NoteDialog& dialog = opened();
    dialog.choose(u"Combo2", u"People");
    dialog.choose(u"Combo2", u"Half");
    EXPECT_EQ(dialog.headings(),
              has_all ? (Lines{"", "Firm", "", "", "", "", ""})  // the class's form gives it all of them
                      : (Lines{"Full Name", "Firm", "Email", "Manager", "Team", "Alignment", "ContactID"}));
    EXPECT_EQ(count_messages(same), 0);
}

TEST_F(ListDefinitions, OutliveTheDialog) {
    World& same = world();
    add_contact(same);
    install(same, {SearchTarget{}});
    opened().choose(u"Combo2", u"People");
    NoteDialog& again = opened();
    EXPECT_EQ(again.headings().front(), "Contact Name");
    again.search(u"Search by Email", u"Ann");
    EXPECT_EQ(again.column(1), Lines{"Ann Lee"}) << "the search isn't refused, and runs on the last target";
}

// the filter

TEST_F(ListDefinitions, HaveAFilterOf4096Characters) {
    World& same = world();
    add_contact(same);
    const Text filter = SearchTarget{}.filter;
    constexpr std::size_t longest = 4096;
    const Text padding(longest - filter.size(), u' ');
    install(same, {{.name = u"Cut", .definition = u"1", .filter = filter + padding + u" this is no filter"},
                   {.name = u"Broken", .definition = u"2", .filter = filter + u" this is no filter"},
                   {.name = u"Blanks", .definition = u"3", .filter = u"   " + filter + u"   "},
                   {.name = u"Constant", .definition = u"4", .filter = u"[CompanyName] = 'North Mill Ltd'"},
                   {.name = u"Long", .definition = u"5", .filter = filter + Text(5000, u'x')}});
    struct Case {
        TextView target;
        bool finds;
    };
    NoteDialog& dialog = opened();
    for (const auto& [target, finds] : {Case{u"Cut", true}, Case{u"Broken", false}, Case{u"Blanks", true},
                                        Case{u"Constant", true}, Case{u"Long", false}}) {
        SCOPED_TRACE(shown(target));
        if (!finds) same.desk().call(u"Answer", {u"Tarnwell", u"No Items Found!", ok});
        dialog.search(target, u"Ann");
        EXPECT_EQ(dialog.column(1), finds ? Lines{"Ann Lee"} : Lines{});
    }
    EXPECT_EQ(message_texts(same), Lines(2, "No Items Found!"));
}

// the host's language

struct LanguageCase {
    std::int32_t locale;
    TextView message_class, subject;  ///< what the host calls these fields; empty: it is not asked
};
constexpr LanguageCase languages[] = {
    {1033, u"Message Class", u"Subject"},
    {2057, u"Message Class", u"Subject"},
    {1043, u"BerichtKlasse", u"Onderwerp"},
    {2067, u"MeddelelsesKlasse", u"Emne"},
    {1036, u"ClasseDuMessage", u"Objet"},
    {2060, u"ClasseDuMessage", u"Objet"},
    {3084, u"ClasseDuMessage", u"Objet"},
    {1031, u"Nachrichtenklasse", u"Betreff"},
    {1040, u"ClasseMessaggio", u"Oggetto"},
    {1034, u"ClaseMensaje", u"Asunto"},
    {2058, u"ClaseMensaje", u"Asunto"},
    {3082, u"ClaseMensaje", u"Asunto"},
    {1030, u"", u""},
    {1032, u"", u""},
    {2055, u"", u""},
};

constexpr TextView english_subject = u"Subject";

/// A definition of another class, so that only the fields of a language lead to it, which the folder has
/// then. Its heading is that of the subject.
void add_definition_in(World& world, const LanguageCase& language) {
    constexpr std::int32_t text = 1;  // OlUserPropertyType
    const Item record = system_items(world).Add(u"IPM.Post.Other");
    const host::outlook::UserProperties properties = record.UserProperties();
    properties.Add(language.message_class, text, true).value(u"IPM.Post.ListDefinition");
    properties.Add(language.subject, text, true).value(u"People of accounts");
    properties.Add(u"ColumnName1", text, false).value(language.subject);
    record.Save();
}

/// Has a target chosen whose definition can't be asked for but by names of fields.
void choose_by_names_alone(World& world, const NoteDialog& dialog, TextView target) {
    constexpr std::int32_t of_the_drop_down = 1;
    world.fail(u"Items.Restrict", of_the_drop_down);
    dialog.choose(u"Combo2", target);
}

TEST_F(ListDefinitions, AreLookedForInTheHostsLanguageIfTheyAreNotFound) {
    World& same = world();
    install(same, {SearchTarget{}});
    for (const LanguageCase& one : languages) {
        if (!one.subject.empty() && one.subject != english_subject) add_definition_in(same, one);
    }
    NoteDialog& dialog = opened();
    for (const LanguageCase& one : languages) {
        SCOPED_TRACE(one.locale);
        desk_option(same, u"Language", one.locale);
        const std::int32_t before = count_messages(same);
        if (one.subject.empty()) same.desk().call(u"Answer", {u"Tarnwell", Value(invalid), ok});
        choose_by_names_alone(same, dialog, u"People");
        if (one.subject.empty()) {
            EXPECT_EQ(message_texts(same, before), Lines{shown(invalid)});
            continue;
        }
        EXPECT_EQ(count_messages(same), before);
        EXPECT_EQ(dialog.headings().front(),
                  one.subject == english_subject ? "Full Name" : shown(one.subject));
    }
}

TEST_F(ListDefinitions, ThatAreFoundInTheHostsLanguageAloneKeepTheLastFilter) {
    World& same = world();
    add_contact(same);
    install(same, {{.definition = u"Its own"},
                   {.name = u"Two",
                    .definition = u"Another",
                    .headings = {u"A", u"B", u"C", u"D", u"E", u"F"},
                    .filter = u"[FullName] = 'Nobody'"}});
    NoteDialog& dialog = opened();
    dialog.choose(u"Combo2", u"People");
    choose_by_names_alone(same, dialog, u"Two");
    EXPECT_EQ(dialog.headings().front(), "A");
    dialog.type(u"SearchString", u"Ann");
    dialog.click(u"cmdSearch");
    EXPECT_TRUE(dialog.header_becomes(u"Search Complete for Ann"));
    EXPECT_EQ(dialog.column(1), Lines{"Ann Lee"});
    EXPECT_EQ(count_messages(same), 0);
}

}  // namespace
}  // namespace acceptance
