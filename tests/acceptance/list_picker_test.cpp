// The family's picker of accounts, as a person has it before himself who files a mail of somebody unknown.
#include "tests/world/bars.h"
#include "tests/world/host_numbers.h"
#include "tests/world/people.h"

namespace acceptance {
namespace {

using automation::Object;
using automation::TextView;
using automation::Value;
using host::outlook::Item;

constexpr TextView picker_caption = u"Account List", dialog_caption = u"Tarnwell Create Note";

class ListPickerWindow : public Acceptance {
  protected:
    void SetUp() override {
        add_account(u"Cooper & Sons", u"Arden", u"A-1");
        add_account(u"Arden Mills", u"Marlow", u"A-2");
        add_account(u"Baker Ltd", u"Dover", u"A-3");
        mail_ = std::make_unique<OpenedItem>(world().deliver(message({.from = "Eve <eve@stone.example>"})));
        mail_->show();
    }
    void TearDown() override {
        for (const TextView caption : {picker_caption, dialog_caption}) {
            if (is_open(caption)) window_of(world(), caption).call(u"Close");
            EXPECT_TRUE(world().wait_until([&] { return !is_open(caption); })) << shown(caption);
        }
        mail_.reset();
    }

    void add_account(TextView name, TextView city, TextView id) {
        constexpr std::int32_t text = 1;  // OlUserPropertyType
        const Item account = world().account_profiles().Items().Add(u"IPM.Post.Tarnwell_2000");
        account.Subject(name);
        for (const auto& [property, value] : {std::pair<TextView, TextView>{u"Account Name", name},
                                              {u"AccountCity", city},
                                              {u"AccountID", id}}) {
            account.UserProperties().Add(property, text, false).value(Value(value));
        }
        account.Save();
    }

    bool is_open(TextView caption) { return is_shown(window_of(world(), caption)); }
    Object control(TextView caption, TextView name) {
        return window_of(world(), caption).call(u"Control", {Value(name)}).to_object();
    }
    Object picker(TextView name) { return control(picker_caption, name); }
    Object items() { return picker(u"lstItems"); }

    /// Creates a note from the dialog's first row, whom nobody knows, up to the choice of the account.
    void open_picker() {
        for (const TextView question : {TextView(u" NOT FOUND!"), TextView(u"search for an Account Name")}) {
            world().desk().call(u"Answer", {u"Tarnwell", Value(question), yes});
        }
        const Object button = find_control(mail_->window, u"TarnwellCreateNote", u"CreateNoteButton");
        ASSERT_TRUE(button);
        world().desk().call(u"Press", {Value(button)});
        ASSERT_TRUE(world().wait_until([&] { return is_open(dialog_caption); }));
        world().settle();
        control(dialog_caption, u"cmdSend").call(u"Click");
        ASSERT_TRUE(world().wait_until([&] { return is_open(picker_caption); }));
        world().settle();
    }

    Lines names() {
        const Object list = items();
        const std::int32_t count = list.get(u"Count").to_integer();
        Lines all;
        for (std::int32_t row = 1; row <= count; ++row) {
            all.push_back(shown(list.call(u"Item", {row}).to_object().get(u"Text").to_text()));
        }
        return all;
    }

    /// The account id of the contact that is made when the picker has gone.
    std::string account_of_contact() {
        if (!world().wait_until([&] { return count_in(world(), u"Email") == 1; })) return "no note";
        EXPECT_FALSE(is_open(picker_caption));
        const Item contact = only_item(world(), u"Account Contacts");
        const std::string id = shown(World::property(contact, u"AccountID"));
        contact.Close(1);
        return id;
    }

  private:
    std::unique_ptr<OpenedItem> mail_;
};

TEST_F(ListPickerWindow, ListsTheAccountsAndSearchesAsOneTypes) {
    open_picker();
    EXPECT_EQ(names(), (Lines{"Cooper & Sons", "Arden Mills", "Baker Ltd"}));
    const Object city = items().call(u"Columns", {2}).to_object();
    EXPECT_EQ(city.get(u"Text"), Value(u"City"));
    EXPECT_EQ(items().call(u"Columns", {8}).to_object().get(u"Width"), Value(0)) << "the entry id is hidden";
    picker(u"txtSearch").put(u"Text", u"arden");
    EXPECT_EQ(names(), (Lines{"Cooper & Sons", "Arden Mills"}));
    picker(u"txtSearch").put(u"Text", u"dov");
    EXPECT_EQ(names(), Lines{"Baker Ltd"});
    picker(u"cmdOK").call(u"Click");
    EXPECT_EQ(account_of_contact(), "A-3");
}

TEST_F(ListPickerWindow, SortsByAColumnAndTakesADoubleClick) {
    open_picker();
    items().call(u"ColumnClick", {1});
    world().settle();
    EXPECT_EQ(names(), (Lines{"Arden Mills", "Baker Ltd", "Cooper & Sons"}));
    EXPECT_EQ(items().call(u"Columns", {1}).to_object().get(u"Image"), Value(1));
    items().call(u"ColumnClick", {1});
    world().settle();
    EXPECT_EQ(names(), (Lines{"Cooper & Sons", "Baker Ltd", "Arden Mills"}));
    EXPECT_EQ(items().call(u"Columns", {1}).to_object().get(u"Image"), Value(0));
    items().call(u"Select", {3});
    items().call(u"DoubleClick");
    EXPECT_EQ(account_of_contact(), "A-2");
}

TEST_F(ListPickerWindow, TakesTheHighlightedRowWithEnter) {
    constexpr std::int32_t enter = 13;
    open_picker();
    items().call(u"Select", {2});
    picker(u"txtSearch").call(u"Key", {enter});
    EXPECT_EQ(account_of_contact(), "A-2");
}

TEST_F(ListPickerWindow, TakesSeveralWhereTheCallerAllowsIt) {
    const Object picker_object =
        world().application().call(u"CreateObject", {u"ContactList.List"}).to_object();
    const Item other = world().deliver(message());
    world().desk().call(u"Meanwhile",
                        {u"SelectionChange", Value(picker_object), u"searchany",
                         Value(automation::Array::of({u"Account", Value(picker_caption), false}))});
    world().desk().call(u"Select", {Value(other)});
    ASSERT_TRUE(world().wait_until([&] { return is_open(picker_caption); }));
    world().settle();
    const auto add = [&](std::int32_t row) {
        items().call(u"Select", {row});
        picker(u"cmdAdd").call(u"Click");
        world().settle();
    };
    for (const std::int32_t row : {3, 1, 2, 3}) add(row);
    picker(u"lstChosen").call(u"Select", {2});
    picker(u"cmdRemove").call(u"Click");
    world().settle();
    const Object chosen_rows = picker(u"lstChosen");
    ASSERT_EQ(chosen_rows.get(u"Count").to_integer(), 2);
    for (const auto& [row, name] : {std::pair(1, u"Baker Ltd"), std::pair(2, u"Arden Mills")}) {
        EXPECT_EQ(chosen_rows.call(u"Item", {row}).to_object().get(u"Text"), Value(name));
    }
    picker(u"cmdOK").call(u"Click");
    ASSERT_TRUE(world().wait_until([&] { return !is_open(picker_caption); }));
    ASSERT_TRUE(world().wait_for_handlers());
    const Value answer = picker_object.get(u"slist");
    const automation::Array& table = answer.to_array();
    ASSERT_EQ(table.dimensions().size(), 2U);
    EXPECT_EQ(table.dimensions()[0].count, 3) << "its upper bound is the number of rows";
    const host::outlook::Items accounts = world().account_profiles().Items();
    EXPECT_EQ(table.at(0, 7), Value(accounts.Item(3).EntryID()));
    EXPECT_EQ(table.at(1, 7), Value(accounts.Item(2).EntryID()));
    EXPECT_FALSE(picker_object.get(u"dialogcancel").to_boolean());
}

TEST_F(ListPickerWindow, ListsThousandsAndFindsOneAmongThem) {
    constexpr std::int32_t many = 3000;
    const Item first = world().account_profiles().Items().Item(1);
    world().desk().call(u"Copies", {Value(first), many, u"Account Name"});
    open_picker();
    EXPECT_EQ(items().get(u"Count").to_integer(), many + 3);
    for (const std::int32_t row : {1, 1000, many}) {
        const std::string number = std::to_string(row);
        EXPECT_EQ(shown(items().call(u"Item", {row + 3}).to_object().get(u"Text").to_text()),
                  "Cooper & Sons " + std::string(4 - number.size(), '0') + number);
    }
    picker(u"txtSearch").put(u"Text", u"sons 2999");
    EXPECT_EQ(names(), Lines{"Cooper & Sons 2999"});
    picker(u"cmdOK").call(u"Click");
    EXPECT_EQ(account_of_contact(), "A-1");
}

TEST_F(ListPickerWindow, IsCancelledByEscape) {
    constexpr std::int32_t escape = 27;
    open_picker();
    window_of(world(), picker_caption).call(u"Key", {escape});
    EXPECT_EQ(account_of_contact(), "");
}

TEST_F(ListPickerWindow, IsCancelledByItsCloseBox) {
    open_picker();
    window_of(world(), picker_caption).call(u"Close");
    EXPECT_EQ(account_of_contact(), "");
}

}  // namespace
}  // namespace acceptance
