// The account that the user chooses for a new contact, on both ways that make one: from the Create Note
// dialog, and from the button that opens a contact.
#include "tests/world/account_picker.h"
#include "tests/world/button_lines.h"
#include "tests/world/host_numbers.h"
#include "tests/world/note_dialog.h"

namespace acceptance {
namespace {

using automation::Object;
using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Item;

class ChosenAccount : public Filing {
  protected:
    World& furnished() {
        TearDown();
        World& world = with({});
        world.family(u"UserName", u"Tom Prior");
        world.family(u"Alignment", u"South");
        show_folder(world, world.inbox());
        // its fax bears the name that only the Search Panel reads
        add_account(world,
                    {{u"AccountID", u"A-1"}, {u"Account Name", u"Cooper & Sons"}, {u"AccountFax", u"333"}},
                    u"Cooper");
        add_mill(world, u"Mia Hart", u"North");
        return world;
    }

    void TearDown() override {
        dialog_.reset();
        window_.reset();
    }

    enum class Way { dialog, button };

    /// Goes one of the two ways until the picker is shown.
    void open_picker(Way way, const Item& mail) {
        TearDown();
        for (const TextView question : {u"Would you like to Create an Account/Contact",
                                        u"Would you like to search for an Account Name? "}) {
            world().desk().call(u"Answer", {u"Tarnwell", Value(question), yes});
        }
        window_ = std::make_unique<OpenedItem>(mail);
        prepare_bar(window_->window, BarState::empty);
        window_->show();
        if (way == Way::dialog) {
            dialog_ = std::make_unique<NoteDialog>(world());
            ASSERT_TRUE(dialog_->open(*window_));
            dialog_->click(u"cmdSend");
        } else {
            const Object button = find_control(window_->window, u"TarnwellCreateNote", u"OpenContactButton");
            ASSERT_TRUE(button);
            world().desk().call(u"Press", {Value(button)});
        }
        ASSERT_TRUE(picker().opens());
        EXPECT_FALSE(dialog_ && dialog_->is_open());
        EXPECT_EQ(count_in(world(), u"Account Contacts"), 0) << "the contact comes after the choice";
    }

    AccountPicker picker() { return AccountPicker(world()); }
    void expect_end_of_picker() {
        EXPECT_TRUE(world().wait_until([&] { return count_in(world(), u"Email") == 1; }));
        EXPECT_FALSE(picker().is_open());
        world().settle();
    }
    void choose(TextView account) {
        picker().choose(account);
        expect_end_of_picker();
    }
    void cancel() {
        picker().cancel();
        expect_end_of_picker();
    }

    /// The contact that was made: fields of its own, and those of its form.
    void expect_contact(const Fields& fields, const Fields& properties) {
        const Item contact = only_item(world(), u"Account Contacts");
        ASSERT_TRUE(contact);
        for (const auto& [name, value] : fields) {
            EXPECT_EQ(shown(contact.get(name).to_text()), shown(value)) << shown(name);
        }
        for (const auto& [name, value] : properties) {
            EXPECT_EQ(shown(World::property(contact, name)), shown(value)) << shown(name);
        }
    }
    std::string contact_id() {
        return shown(World::property(only_item(world(), u"Account Contacts"), u"ContactID"));
    }

  private:
    std::unique_ptr<OpenedItem> window_;
    std::unique_ptr<NoteDialog> dialog_;
};

const Fields fields_of_the_mill = {{u"FullName", u"Ann Lee"},
                                   {u"CompanyName", u"North Mill Ltd"},
                                   {u"WebPage", u"www.northmill.example"},
                                   {u"Email1Address", u"ann.lee@northmill.example"},
                                   {u"BusinessAddressStreet", u"1 Mill Lane"},
                                   {u"BusinessAddressCity", u"York"},
                                   {u"BusinessAddressPostalCode", u"YO1"},
                                   {u"BusinessAddressState", u"Yorkshire"},
                                   {u"BusinessTelephoneNumber", u"111"},
                                   {u"BusinessFaxNumber", u"222"}};
const Fields properties_of_the_mill = {{u"AccountID", u"A-7"},
                                       {u"Account Name", u"North Mill Ltd"},
                                       {u"Account Manager", u"Mia Hart"},
                                       {u"Team", u"Sales"},
                                       {u"Alignment", u"North"}};

TEST_F(ChosenAccount, LendsItsFieldsToTheContactOnBothWays) {
    for (const Way way : {Way::dialog, Way::button}) {
        SCOPED_TRACE(way == Way::dialog ? "dialog" : "button");
        World& world = furnished();
        const Item mail = world.deliver(message());
        open_picker(way, mail);
        choose(u"North Mill Ltd");
        expect_contact(fields_of_the_mill, properties_of_the_mill);
        expect_note(world, only_item(world), mail,
                    {"Subject: Delivery dates", "AccountID: A-7", "ContactID: " + contact_id(),
                     "Account Name: North Mill Ltd", "Contact Name: Ann Lee", "Account Manager: Mia Hart",
                     "Team: Sales", "Alignment: North", "Type: Email (Received)"});
        EXPECT_EQ(mail.BillingInformation(), u"");
        EXPECT_EQ(count_messages(world), 2);
    }
}

TEST_F(ChosenAccount, IsLookedForAmongTheAccountsOfTheDatabase) {
    World& world = furnished();
    open_picker(Way::dialog, world.deliver(message()));
    EXPECT_EQ(picker().count(), 2);
    cancel();
    const std::vector<Text> calls = world.family_calls();
    const Text id = world.account_profiles().EntryID();
    Lines told;
    for (const Text& call : calls) {
        if (call.starts_with(u"ListPicker.")) told.push_back(shown(call));
    }
    EXPECT_EQ(told, (Lines{"ListPicker.StoreID = " + shown(world.account_profiles().StoreID()),
                           "ListPicker.FolderId = " + shown(id), "ListPicker.accountfolderid = " + shown(id),
                           "ListPicker.loaddialog", "ListPicker.refreshaccounts", "ListPicker.showdialog"}));
}

TEST_F(ChosenAccount, ThatIsNoneLeavesTheDomainsName) {
    for (const Way way : {Way::dialog, Way::button}) {
        SCOPED_TRACE(way == Way::dialog ? "dialog" : "button");
        World& world = furnished();
        open_picker(way, world.deliver(message()));
        cancel();
        expect_contact({{u"CompanyName", u"northmill.example"}, {u"BusinessAddressCity", u""}},
                       {{u"AccountID", u""},
                        {u"Account Name", u"northmill.example"},
                        {u"Account Manager", u"Tom Prior"},
                        {u"Team", u"Tom Prior"},
                        {u"Alignment", u"South"}});
        const Lines keys = way == Way::dialog
                               ? Lines{"Account Manager: Tom Prior", "Team: Tom Prior", "Alignment: South"}
                               : Lines{};
        EXPECT_EQ(told_note(only_item(world)),
                  joined({{"Subject: Delivery dates", "ContactID: " + contact_id(),
                           "Account Name: northmill.example", "Contact Name: Ann Lee"},
                          keys,
                          {"Type: Email (Received)"}}));
    }
}

TEST_F(ChosenAccount, ThatHasLittleGivesLittle) {
    for (const Way way : {Way::dialog, Way::button}) {
        SCOPED_TRACE(way == Way::dialog ? "dialog" : "button");
        World& world = furnished();
        open_picker(way, world.deliver(message()));
        choose(u"Cooper & Sons");
        expect_contact({{u"CompanyName", u"Cooper & Sons"},
                        {u"BusinessAddressCity", u""},
                        {u"BusinessFaxNumber", u""},
                        {u"WebPage", u"www.northmill.example"}},
                       {{u"AccountID", u"A-1"},
                        {u"Account Name", u"Cooper & Sons"},
                        {u"Account Manager", u""},
                        {u"Team", u""},
                        {u"Alignment", u""}});
        EXPECT_EQ(told_note(only_item(world)),
                  (Lines{"Subject: Delivery dates", "AccountID: A-1", "ContactID: " + contact_id(),
                         "Account Name: Cooper & Sons", "Contact Name: Ann Lee", "Type: Email (Received)"}));
    }
}

TEST_F(ChosenAccount, IsNoneWithoutThePicker) {
    World& world = with({.without = {"ContactList.List"}});
    show_folder(world, world.inbox());
    for (const TextView question : {u"Would you like to Create an Account/Contact",
                                    u"Would you like to search for an Account Name? "}) {
        world.desk().call(u"Answer", {u"Tarnwell", Value(question), yes});
    }
    OpenedItem mail(world.deliver(message()));
    mail.show();
    NoteDialog dialog(world);
    ASSERT_TRUE(dialog.open(mail));
    dialog.click(u"cmdSend");
    EXPECT_TRUE(world.wait_until([&] { return count_in(world, u"Email") == 1; }));
    expect_contact({{u"CompanyName", u"northmill.example"}}, {{u"AccountID", u""}});
}

}  // namespace
}  // namespace acceptance
