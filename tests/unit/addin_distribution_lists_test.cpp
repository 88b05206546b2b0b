// A distribution list lies among the contacts, bears a name as they do, and is none: each search of the
// add-in that walks contacts meets one, before the contact of that name.
#include "tests/native/native_world.h"
#include "tests/world/note_dialog.h"
#include "tests/world/quick_view.h"
#include "tests/world/search_panel.h"

namespace addin_tests {
namespace {

using acceptance::add_contact;
using acceptance::count_in;
using acceptance::Lines;
using automation::Object;
using automation::Value;
using host::outlook::Folder;
using host::outlook::Item;
using native::NativeWorld;

/// A list "Ann Lee" with Ann as its member, and with the keys of a contact's records where it is to have
/// them.
Item add_list_of_ann(NativeWorld& world, const Folder& folder, const acceptance::Fields& properties = {}) {
    const Item list = folder.Items().Add(u"IPM.DistList");
    list.put(u"DLName", u"Ann Lee");
    const Object ann =
        world.name_space().call(u"CreateRecipient", {u"ann.lee@northmill.example"}).to_object();
    ann.call(u"Resolve");
    list.call(u"AddMember", {Value(ann)});
    constexpr std::int32_t text_type = 1;
    for (const auto& [name, value] : properties)
        list.UserProperties().Add(name, text_type, false).value(value);
    list.Save();
    return list;
}

Folder contacts_of(NativeWorld& world) { return world.below(u"Account Contacts"); }

TEST(DistributionLists, AreNotFiledUnder) {
    for (const bool with_contact : {false, true}) {
        SCOPED_TRACE(with_contact);
        NativeWorld world{acceptance::WorldSetup{}};
        world.family(u"EmailAutoFile", u"1");
        world.option(u"AutoFileSentEmails", u"1");
        add_list_of_ann(world, contacts_of(world));
        if (with_contact) add_contact(world);
        acceptance::read_mail(world);
        EXPECT_EQ(count_in(world, u"Email"), with_contact ? 1 : 0);

        constexpr std::int32_t mail_item = 0;
        const Item mail(world.application().call(u"CreateItem", {mail_item}).to_object());
        mail.put(u"To", u"ann.lee@northmill.example");
        mail.call(u"Send");
        EXPECT_EQ(count_in(world, u"Email"), with_contact ? 2 : 0);
    }
}

/// A mail to a list goes out, and no note is made of it: a list has no address that a contact could have.
TEST(DistributionLists, ThatAMailGoesToAreLeftAlone) {
    NativeWorld world{acceptance::WorldSetup{}};
    world.option(u"AutoFileSentEmails", u"1");
    constexpr std::int32_t contacts = 10, sent = 5, mail_item = 0;
    add_list_of_ann(world, world.name_space().GetDefaultFolder(contacts));
    add_contact(world);
    const Item mail(world.application().call(u"CreateItem", {mail_item}).to_object());
    mail.put(u"To", u"Ann Lee");
    mail.call(u"Send");
    EXPECT_EQ(count_in(world, u"Email"), 0);
    EXPECT_EQ(world.name_space().GetDefaultFolder(sent).Items().Count(), 1);
}

/// The dialog searches by name, shows what it has found, and makes a note of it.
TEST(DistributionLists, AreRowsOfTheDialogLikeAllElse) {
    NativeWorld world{acceptance::WorldSetup{}};
    acceptance::install(world, {acceptance::SearchTarget{}});
    add_list_of_ann(world, contacts_of(world));
    add_contact(world);
    acceptance::OpenedItem mail(world.deliver(acceptance::message()));
    mail.show();
    acceptance::NoteDialog dialog(world);
    ASSERT_TRUE(dialog.open(mail));
    dialog.search(u"People", u"Ann");
    EXPECT_EQ(dialog.column(1), (Lines{"Ann Lee", "Ann Lee"}));
    EXPECT_EQ(dialog.column(2), (Lines{"", "North Mill Ltd"}));
}

TEST(DistributionLists, ThatArriveAmongTheContactsStayWhatTheyAre) {
    NativeWorld world{acceptance::WorldSetup{}};
    world.family(u"UserName", u"Tom Prior");
    world.option(u"PDAContactSync", u"1");
    constexpr std::int32_t contacts = 10;
    const Item own = add_list_of_ann(world, world.name_space().GetDefaultFolder(contacts));
    world.desk().call(u"Select", {Value(own)});
    const Item list = add_list_of_ann(world, contacts_of(world));
    EXPECT_TRUE(world.wait_for_handlers());
    EXPECT_EQ(list.MessageClass(), u"IPM.DistList");
    EXPECT_EQ(list.UserProperties().Count(), 0);
    EXPECT_TRUE(list.Saved());
    EXPECT_EQ(own.UserProperties().Count(), 0);
}

const acceptance::Fields keys_of_list{
    {u"AccountID", u"A-100"}, {u"ContactID", u"C-200"}, {u"Account Name", u"North Mill Ltd"}};

TEST(DistributionLists, ThatBearAKeyAreFoundByThePanel) {
    NativeWorld world{acceptance::WorldSetup{}};
    acceptance::install_panel(world);
    const Item contact = acceptance::add_full_contact(world);
    add_list_of_ann(world, contacts_of(world), keys_of_list);
    const acceptance::SearchPanel panel(world);
    panel.open_new(contact);
    EXPECT_EQ(panel.column(2), (Lines{"Ann Lee", "Ann Lee"}));
}

class ListsBesideQuickView : public acceptance::SideView {};

TEST_F(ListsBesideQuickView, AreNotShownForTheirMember) {
    auto& world = dynamic_cast<NativeWorld&>(viewing());
    add_list_of_ann(world, contacts_of(world));
    add_list_of_ann(world, Folder(world.account_profiles().Parent()).Folders().Item(u"Leads"));
    const std::int32_t displayed_before = world.displayed();
    show_ann(full_contact());
    EXPECT_EQ(view().text(u"Contactname"), "Ann Lee");
    EXPECT_EQ(view().text(u"ContactID"), "C-200") << "of the contact behind the list";
    EXPECT_EQ(world.displayed(), displayed_before) << "a lead would have been opened";
    EXPECT_EQ(count_messages(world), 0);
}

}  // namespace
}  // namespace addin_tests
