// The dialog's search: what it shows of each found item, by the notations of a definition's fields.
#include "tests/world/host_numbers.h"
#include "tests/world/note_dialog.h"

namespace acceptance {
namespace {

using automation::Object;
using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Item;

class DialogSearch : public WithNoteDialog {
  protected:
    /// What a search for "Ann" by a definition finds.
    Lines found(const SearchTarget& target) {
        install(world(), {target});
        NoteDialog& dialog = opened();
        dialog.search(target.name, u"Ann");
        return dialog.rows();
    }

    void expect_nothing(NoteDialog& dialog, TextView target, TextView text) {
        const std::int32_t before = count_messages(world());
        world().desk().call(u"Answer", {u"Tarnwell", u"No Items Found!", ok});
        dialog.search(target, text);
        EXPECT_EQ(dialog.rows(), Lines{});
        ASSERT_EQ(message_texts(world(), before), Lines{"No Items Found!"});
        constexpr std::int32_t information = 64;
        const Object box =
            world().desk().get(u"Messages").to_object().call(u"Item", {before + 1}).to_object();
        EXPECT_EQ(box.get(u"Style").to_integer(), information);
        EXPECT_EQ(box.get(u"Title").to_text(), u"Tarnwell");
    }
};

/// The cells of the only row when field 1 is written in a notation, and the contact's name is in field 2.
TEST_F(DialogSearch, ReadsAFieldByEachNotation) {
    struct Case {
        const char* name;
        Text field;
        const char* value;
    };
    const Case cases[] = {
        {"a tag", u"&H3A16001E", "North Mill Ltd"},
        {"a tag in small letters", u"&h3a16001e", "North Mill Ltd"},
        {"a tag that the item lacks", u"&H3A1A001E", ""},
        {"no tag after the sign", u"&Company", ""},
        {"a number in the set of contacts", u"{00062004-0000-0000-C000-000000000046},&H8083,&H1E",
         "ann.lee@northmill.example"},
        {"the same in decimal digits", u"{00062004-0000-0000-C000-000000000046},32899,30",
         "ann.lee@northmill.example"},
        {"no number", u"{00062004-0000-0000-C000-000000000046},Email,&H1E", ""},
        {"a name", named_field(u"Account Manager"), "Mia Hart"},
        {"a name between blanks", named_field(u"  Account Manager "), "Mia Hart"},
        {"a name and further parts", named_field(u"Account Manager,&H1E,more"), "Mia Hart"},
        {"an unknown name", named_field(u"No Such Thing"), ""},
        {"no comma", u"CompanyName", ""},
        {"nothing", u"", ""},
        {"no set", u"Users,Account Manager", ""},
    };
    add_contact(world());
    NoteDialog& dialog = [&]() -> NoteDialog& {
        std::vector<SearchTarget> targets;
        for (const Case& one : cases) {
            SearchTarget target{.name = automation::from_utf8(one.name),
                                .definition = automation::from_utf8(one.name)};
            target.fields[0] = one.field;
            target.fields[1] = u"&H3001001E";
            targets.push_back(target);
        }
        install(world(), targets);
        return opened();
    }();
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        dialog.search(automation::from_utf8(one.name), u"Ann");
        ASSERT_EQ(dialog.count(), 1);
        EXPECT_EQ(dialog.cell(1, 1), one.value);
        EXPECT_EQ(dialog.cell(1, 2), "Ann Lee");
    }
    EXPECT_EQ(count_messages(world()), 0);
}

TEST_F(DialogSearch, ShowsSixFieldsTheKeyAndTheEntryId) {
    World& same = world();
    const Item ann = add_contact(same);
    EXPECT_EQ(found({}), Lines{"Ann Lee|North Mill Ltd||Mia Hart|Sales|North|C-200"});
    NoteDialog& dialog = opened();
    dialog.search(u"People", u"Ann");
    EXPECT_EQ(dialog.cell(1, 8), shown(ann.EntryID()));
    EXPECT_EQ(dialog.selected(), 1);
}

TEST_F(DialogSearch, ShowsRowsInTheOrderOfTheCollection) {
    add_contact(world(), u"Anne Zorn", u"anne@zorn.example");
    add_contact(world(), u"Annabel Arch", u"annabel@arch.example");
    add_contact(world(), u"Bob Ray", u"bob@ray.example");
    add_contact(world(), u"ann young", u"ann@young.example");
    install(world(), {SearchTarget{}});
    NoteDialog& dialog = opened();
    dialog.search(u"People", u"Ann");
    EXPECT_EQ(dialog.column(1), (Lines{"Anne Zorn", "Annabel Arch", "ann young"}));
    dialog.click_column(1);
    dialog.click_column(1);
    dialog.search(u"People", u"Ann");
    EXPECT_EQ(dialog.column(1), (Lines{"ann young", "Annabel Arch", "Anne Zorn"}))
        << "but in the list's own order once it is sorted";
}

TEST_F(DialogSearch, PlacesNewRowsByTheColumnThatIsSorted) {
    struct Contact {
        TextView name, company;
    };
    for (const Contact& one : {Contact{u"Ann Ash", u"Zorn"}, Contact{u"Ann Birch", u"Arch"},
                               Contact{u"Ann Cole", u"\u00C4rmel"}, Contact{u"Ann Dale", u"Mill"}}) {
        add_contact(world(), {.full_name = Text(one.name), .company = Text(one.company)});
    }
    install(world(), {SearchTarget{}});
    NoteDialog& dialog = opened();
    dialog.search(u"People", u"Ann");
    dialog.click_column(2);
    const Lines sorted{"Ann Birch", "Ann Cole", "Ann Dale", "Ann Ash"};
    EXPECT_EQ(dialog.column(1), sorted);
    dialog.search(u"People", u"Ann");
    EXPECT_EQ(dialog.column(1), sorted);
}

// oddities of long standing

TEST_F(DialogSearch, ShowsTheSecondFieldAgainWhereTheThirdCantBeRead) {
    add_contact(world());
    SearchTarget target;
    target.fields[1] = named_field(u"Team");
    target.fields[2] = u"Unreadable";
    target.fields[3] = u"Unreadable";
    EXPECT_EQ(found(target), Lines{"Ann Lee|Sales|Sales||Sales|North|C-200"})
        << "the second field's id is left to the third, and to no other";
}

TEST_F(DialogSearch, LeavesNoIdToTheThirdFieldAfterATag) {
    add_contact(world());
    SearchTarget target;
    target.fields[0] = named_field(u"Team");
    target.fields[2] = u"Unreadable";
    EXPECT_EQ(found(target), Lines{"Sales|North Mill Ltd||Mia Hart|Sales|North|C-200"});
}

TEST_F(DialogSearch, GivesAnItemWhoseKeyCantBeReadTheKeyOfTheOneBefore) {
    World& same = world();
    for (const TextView key : {u"C-1", u"C-2", u"C-3"}) {
        add_contact(same, {.full_name = u"Ann " + Text(key), .properties = {{u"ContactID", Text(key)}}});
    }
    install(same, {SearchTarget{}});
    NoteDialog& dialog = opened();
    constexpr std::int32_t reads_of_an_item = 7;  // six fields and the key
    same.fail(u"PropertyAccessor.GetProperty", 2 * reads_of_an_item - 1);
    dialog.search(u"People", u"Ann");
    EXPECT_EQ(dialog.column(7), (Lines{"C-1", "C-1", "C-3"}));
    same.fail(u"PropertyAccessor.GetProperty", reads_of_an_item - 1);
    dialog.search(u"People", u"Ann");
    EXPECT_EQ(dialog.column(7), (Lines{"", "C-2", "C-3"})) << "the first one has none before it";
}

TEST_F(DialogSearch, ReadsTheLastFieldWhereTheKeyIsATag) {
    add_contact(world());
    SearchTarget target{.key_field = u"&H3A16001E"};
    target.fields[5] = u"&H3001001E";
    EXPECT_EQ(found(target), Lines{"Ann Lee|North Mill Ltd||Mia Hart|Sales|Ann Lee|Ann Lee"})
        << "it isn't the company that the key's own tag names";
}

TEST_F(DialogSearch, ReadsTheKeyByNumberAndUnformatted) {
    add_contact(world());
    EXPECT_EQ(found({.types = {u"Currency", u"Currency", u"Date", u"Percent", u"", u"Other"},
                     .key_field = u"{00062004-0000-0000-C000-000000000046},&H8083,&H1E"}),
              Lines{"Ann Lee|North Mill Ltd||Mia Hart|Sales|North|ann.lee@northmill.example"})
        << "and what is no number and no date is shown as it is";
}

// formats

TEST_F(DialogSearch, ShowsAmountsDatesAndSharesByTheirTypes) {
    World& same = world();
    add_contact(same, {.properties = {{u"ContactID", u"0.25"},
                                      {u"AccountID", u"1234.5"},
                                      {u"Team", u"2009-12-31 10:30:00"},
                                      {u"Alignment", u"0.25"},
                                      {u"Account Manager", u"1234.5"},
                                      {u"EmailSearchString", u""}}});
    SearchTarget target{.types = {u"String", u"Currency", u"Currency", u"currency", u"Date", u"Percent"}};
    target.fields = {u"&H3001001E",
                     named_field(u"AccountID"),
                     named_field(u"EmailSearchString"),
                     named_field(u"Account Manager"),
                     named_field(u"Team"),
                     named_field(u"Alignment")};
    EXPECT_EQ(found(target), Lines{"Ann Lee|$1,234.50||1234.5|12/31/2009|25.00%|0.25"});
}

TEST_F(DialogSearch, SortsAmountsByTheirTexts) {
    for (const TextView amount : {u"9", u"10", u"200"}) {
        add_contact(world(), {.full_name = u"Ann Lee", .properties = {{u"Team", Text(amount)}}});
    }
    SearchTarget target{.types = {u"Currency", u"String", u"String", u"String", u"String", u"String"}};
    target.fields[0] = named_field(u"Team");
    install(world(), {target});
    NoteDialog& dialog = opened();
    dialog.search(u"People", u"Ann");
    EXPECT_EQ(dialog.column(1), (Lines{"$9.00", "$10.00", "$200.00"}));
    dialog.click_column(2);
    dialog.click_column(1);
    EXPECT_EQ(dialog.column(1), (Lines{"$10.00", "$200.00", "$9.00"}));
}

TEST_F(DialogSearch, ShowsFieldsThatAreNoTextsByTheirTypes) {
    constexpr std::int32_t number = 3, date = 5, yes_or_no = 6;  // OlUserPropertyType
    const Item contact = add_contact(world());
    const auto add = [&](TextView name, std::int32_t type, const Value& value) {
        contact.UserProperties().Add(name, type, false).value(value);
    };
    add(u"Amount", number, -1234.5);
    add(u"Day", date, automation::to_date({2009, 12, 31, 22, 30, 0}));
    add(u"Share", number, 0.256);
    add(u"Known", yes_or_no, true);
    contact.Save();
    SearchTarget target{.types = {u"Currency", u"Date", u"Percent", u"String", u"", u"Other"}};
    target.fields = {named_field(u"Amount"), named_field(u"Day"), named_field(u"Share"),
                     named_field(u"Amount"), named_field(u"Day"), named_field(u"Known")};
    target.key_field = named_field(u"Share");
    EXPECT_EQ(found(target), Lines{"($1,234.50)|12/31/2009|25.60%|-1234.5|2009-12-31 22:30:00|True|0.256"});
}

// where it searches

TEST_F(DialogSearch, SearchesPostsAsWellAsContacts) {
    World& same = world();
    const Item account = add_account(
        same, {{u"AccountID", u"A-1"}, {u"Account Name", u"Annex Ltd"}, {u"AccountCity", u"York"}}, u"Annex");
    SearchTarget target{.folder = Text(accounts_path),
                        .key_field = named_field(u"AccountID"),
                        .filter = u"[Subject] >= '<<mString>>' AND [Subject] < '<<UpperLimit>>'"};
    target.fields = {u"&H0037001E", named_field(u"Account Name"), named_field(u"AccountCity"), u"", u"", u""};
    EXPECT_EQ(found(target), Lines{"Annex|Annex Ltd|York||||A-1"});
}

TEST_F(DialogSearch, SearchesTheAccountsWhereTheFolderIsMissing) {
    World& same = world();
    add_account(same, {{u"AccountID", u"A-1"}}, u"Annex");
    for (const TextView folder : {u"", u"\\\\Public Folders\\No such folder"}) {
        SCOPED_TRACE(shown(folder));
        SearchTarget target{.definition = folder.empty() ? Text(u"Nowhere") : Text(u"Elsewhere"),
                            .folder = Text(folder),
                            .filter = u"[Subject] >= '<<mString>>' AND [Subject] < '<<UpperLimit>>'"};
        target.name = target.definition;
        target.fields[0] = u"&H0037001E";
        install(same, {target});
        NoteDialog& dialog = opened();
        if (folder.empty()) {
            dialog.search(target.name, u"Ann");
            EXPECT_EQ(dialog.column(1), Lines{"Annex"});
        } else {
            expect_nothing(dialog, target.name, u"Ann");  // Nothing is an answer, too
        }
    }
}

// what is not found

TEST_F(DialogSearch, TellsWhenItFindsNothing) {
    World& same = world();
    add_contact(same);
    add_contact(same, u"Bo O'Hara", u"bo@ohara.example");
    install(same, {SearchTarget{}, {.name = u"Broken", .definition = u"Broken", .filter = u"[Nowhere = 'x"}});
    NoteDialog& dialog = opened();
    expect_nothing(dialog, u"People", u"Zoe");
    EXPECT_TRUE(dialog.header_becomes(u"Search Complete for Zoe"));
    EXPECT_EQ(dialog.width(8), 0);
    expect_nothing(dialog, u"People", u"Bo O'Hara");  // the apostrophe goes as another sign
    expect_nothing(dialog, u"Broken", u"Ann");
    dialog.search(u"People", u"Bo");
    EXPECT_EQ(dialog.column(1), Lines{"Bo O'Hara"});
}

TEST_F(DialogSearch, RefusesToSearchByEmailOnlyForWantOfADefinition) {
    add_contact(world());
    NoteDialog& dialog = opened();
    expect_nothing(dialog, u"Search by Email", u"Ann");
}

TEST_F(DialogSearch, OfAnItemThatCantBeWrappedMakesNoRow) {
    World& same = with({.without = {"TarnwellOMG.SafeContactItem"}});
    add_contact(same);
    install(same, {SearchTarget{}});
    NoteDialog& dialog = opened();
    dialog.search(u"People", u"Ann");
    EXPECT_EQ(dialog.rows(), Lines{});
    EXPECT_EQ(count_messages(same), 0);
}

TEST_F(DialogSearch, WrapsContactsInOneWayAndAllElseInAnother) {
    World& same = world();
    add_contact(same);
    add_account(same, {{u"AccountID", u"A-1"}}, u"Annex");
    SearchTarget accounts{.name = u"Accounts",
                          .definition = u"Accounts",
                          .folder = Text(accounts_path),
                          .filter = u"[Subject] >= '<<mString>>' AND [Subject] < '<<UpperLimit>>'"};
    accounts.fields[0] = u"&H0037001E";
    install(same, {SearchTarget{}, accounts});
    NoteDialog& dialog = opened();
    struct Case {
        TextView target, unreadable;
        const char* cell;
    };
    constexpr Case cases[] = {
        {u"People", u"SafeContactItem.Fields", ""},
        {u"People", u"SafePostItem.Fields", "Ann Lee"},
        {u"Accounts", u"SafeContactItem.Fields", "Annex"},
        {u"Accounts", u"SafePostItem.Fields", ""},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(shown(one.target) + ", " + shown(one.unreadable));
        dialog.choose(u"Combo2", one.target);
        dialog.type(u"SearchString", u"Ann");
        same.family(u"Fail", one.unreadable);
        dialog.click(u"cmdSearch");
        EXPECT_TRUE(dialog.header_becomes(u"Search Complete for Ann"));
        same.family(u"Fail", u"");
        EXPECT_EQ(dialog.column(1), Lines{one.cell});
    }
    EXPECT_EQ(count_messages(same), 0);
}

// a search inside a search

TEST_F(DialogSearch, StartedWithinAnotherFillsTheListUnderIt) {
    World& same = world();
    add_contact(same);
    const Item other = same.deliver(message({.from = "Bob Ray <bob@ray.example>"}));
    install(same, {SearchTarget{}});
    NoteDialog& dialog = opened();
    dialog.choose(u"Combo2", u"People");
    dialog.type(u"SearchString", u"Ann");
    for (int i = 0; i < 2; ++i) {
        same.desk().call(u"Meanwhile", {u"SelectionChange", Value(dialog.control(u"cmdSearch")), u"Click",
                                        automation::Missing{}});
    }
    same.desk().call(u"Select", {Value(other)});
    EXPECT_TRUE(dialog.header_becomes(u"Search Complete for Ann"));
    same.settle();
    EXPECT_EQ(dialog.column(1), Lines{"Ann Lee"}) << "the one that was overtaken clears the list again";
    EXPECT_TRUE(dialog.is_open());
}

// many

TEST_F(DialogSearch, ShowsEveryItemThatItFinds) {
    constexpr int many = 100;
    World& same = world();
    Lines names;
    for (int i = 0; i < many; ++i) {
        names.push_back("Ann " + std::to_string(many - i));
        add_contact(same, {.full_name = automation::from_utf8(names.back())});
    }
    install(same, {SearchTarget{}});
    NoteDialog& dialog = opened();
    dialog.search(u"People", u"Ann");
    EXPECT_EQ(dialog.column(1), names);
    EXPECT_EQ(dialog.selected(), 1);
}

}  // namespace
}  // namespace acceptance
