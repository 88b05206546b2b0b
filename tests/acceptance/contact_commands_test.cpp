// Which buttons the window of a contact gets, by its class, by what ties it to an account, and by the option
// that takes the templates away.
#include "tests/world/button_lines.h"
#include "tests/world/host_numbers.h"
#include "tests/world/people.h"

namespace acceptance {
namespace {

using automation::TextView;
using host::outlook::Folder;
using host::outlook::Item;

class ContactCommands : public Acceptance {};

constexpr TextView personal = u"IPM.Contact", account_contact = u"IPM.Contact.Account Contact",
                   lead = u"IPM.Contact.Lead", mailing = u"IPM.Contact.Mailing", other = u"IPM.Contact.Other";

Item contact(World& world, TextView message_class, TextView account = {}, TextView customer_id = {}) {
    const Item item = new_item(world, contacts, message_class);
    item.put(u"FullName", u"Ann Lee");
    if (!account.empty()) item.put(u"Account", account);
    if (!customer_id.empty()) item.put(u"CustomerID", customer_id);
    return item;
}

/// The bar as the host makes it, and as it stays if nothing is put on it.
const Lines untouched_bar{"TarnwellCreateNote, row 0, hidden, enabled"};

struct ContactCase {
    TextView message_class;
    bool account, customer_id;
    Lines with_templates;     ///< the bar "TarnwellCreateNote" that wasn't there before
    Lines without_templates;  ///< the same with the option against them
};

const ContactCase contact_cases[] = {
    {personal, false, false, shown_bar({convert_contact, convert_lead_shown, email_templates}),
     shown_bar({convert_contact, convert_lead_shown})},
    {personal, true, false, shown_bar({open_tarnwell_contact, email_templates}),
     shown_bar({open_tarnwell_contact})},
    {personal, false, true, shown_bar({open_tarnwell_contact, email_templates}),
     shown_bar({open_tarnwell_contact})},
    {personal, true, true, shown_bar({open_tarnwell_contact, email_templates}),
     shown_bar({open_tarnwell_contact})},

    {other, false, false, shown_bar({convert_contact, convert_lead_hidden, email_templates}),
     shown_bar({convert_contact, convert_lead_hidden})},
    {other, true, false, shown_bar({open_tarnwell_contact, email_templates}),
     shown_bar({open_tarnwell_contact})},
    {other, false, true, shown_bar({open_tarnwell_contact, email_templates}),
     shown_bar({open_tarnwell_contact})},
    {other, true, true, shown_bar({open_tarnwell_contact, email_templates}),
     shown_bar({open_tarnwell_contact})},

    {account_contact, false, false, shown_bar({email_templates, document_templates, excel_templates}),
     untouched_bar},
    {account_contact, true, false, shown_bar({email_templates, document_templates, excel_templates}),
     untouched_bar},
    {account_contact, false, true, shown_bar({email_templates, document_templates, excel_templates}),
     untouched_bar},
    {account_contact, true, true, shown_bar({email_templates, document_templates, excel_templates}),
     untouched_bar},

    {lead, false, false, shown_bar({email_templates}), untouched_bar},
    {lead, true, false, shown_bar({email_templates}), untouched_bar},
    {lead, false, true, shown_bar({email_templates}), untouched_bar},
    {lead, true, true, shown_bar({email_templates}), untouched_bar},

    {mailing, false, false, shown_bar({email_templates}), untouched_bar},
    {mailing, true, false, shown_bar({email_templates}), untouched_bar},
    {mailing, false, true, shown_bar({email_templates}), untouched_bar},
    {mailing, true, true, shown_bar({email_templates}), untouched_bar},
};

Item made(World& world, const ContactCase& one) {
    return contact(world, one.message_class, one.account ? u"North Mill Ltd" : u"",
                   one.customer_id ? u"C-200" : u"");
}

std::string name_of(const ContactCase& one) {
    return shown(one.message_class) + (one.account ? ", account" : "") +
           (one.customer_id ? ", customer id" : "");
}

TEST_F(ContactCommands, StandOnABarOfTheirOwn) {
    World& world = with({});
    for (const ContactCase& one : contact_cases) {
        SCOPED_TRACE(name_of(one));
        OpenedItem window(made(world, one));
        window.show();
        EXPECT_EQ(bars_of(window.window), joined({menu_bar(""), one.with_templates}));
    }
}

TEST_F(ContactCommands, LeaveTheTemplatesOutIfTheOptionSaysSo) {
    World& world = with({});
    world.option(u"NoContactButtons", u"1");
    for (const ContactCase& one : contact_cases) {
        SCOPED_TRACE(name_of(one));
        OpenedItem window(made(world, one));
        window.show();
        EXPECT_EQ(bars_of(window.window), joined({menu_bar(""), one.without_templates}));
    }
}

/// The window of each contact on a bar that was there in a state, with the option against the templates or
/// not.
void expect_on_a_bar(World& world, BarState state, bool against,
                     const std::function<Lines(bool is_account_contact)>& bar) {
    world.option(u"NoContactButtons", against ? u"1" : u"0");
    for (const ContactCase& one : contact_cases) {
        SCOPED_TRACE(name_of(one) + ", bar " + told(state));
        OpenedItem window(made(world, one));
        prepare_bar(window.window, state);
        window.show();
        EXPECT_EQ(bars_of(window.window), joined({menu_bar(""), bar(one.message_class == account_contact)}));
    }
}

TEST_F(ContactCommands, OnAnEmptyBarAreTheTemplatesOnly) {
    expect_on_a_bar(with({}), BarState::empty, false, [](bool is_account_contact) {
        return is_account_contact ? shown_bar({email_templates, document_templates, excel_templates})
                                  : shown_bar({email_templates});
    });
}

TEST_F(ContactCommands, OnABarThatHasThemAreShown) {
    expect_on_a_bar(with({}), BarState::filled, false, [](bool is_account_contact) {
        const std::string by_class = is_account_contact ? "shown" : "hidden";
        return shown_bar(left_controls({.email = "shown", .document = by_class, .excel = by_class}));
    });
}

TEST_F(ContactCommands, WithoutTemplatesHideABarThatIsThere) {
    World& world = with({});
    expect_on_a_bar(world, BarState::empty, true, [](bool) { return hidden_bar({}); });
}

TEST_F(ContactCommands, WithoutTemplatesHideABarThatHasThem) {
    World& world = with({});
    expect_on_a_bar(world, BarState::filled, true, [](bool) { return hidden_bar(left_controls()); });
}

TEST_F(ContactCommands, AreTheSameOfOneThatWasSaved) {
    World& world = with({});
    for (const std::size_t index : {std::size_t{0}, std::size_t{1}, std::size_t{8}, std::size_t{12}}) {
        const ContactCase& one = contact_cases[index];
        SCOPED_TRACE(name_of(one));
        const Item item = made(world, one);
        item.Save();
        OpenedItem window(item);
        window.show();
        EXPECT_EQ(bars_of(window.window), joined({menu_bar("its id"), one.with_templates}));
    }
}

TEST_F(ContactCommands, LeaveTheTemplatesOutForExactlyOne) {
    World& world = with({});
    for (const TextView value : {u"", u"0", u" 1", u"1 ", u"01", u"True", u"-1"}) {
        SCOPED_TRACE(shown(value));
        world.option(u"NoContactButtons", value);
        OpenedItem window(contact(world, lead));
        window.show();
        EXPECT_EQ(bars_of(window.window), joined({menu_bar(""), shown_bar({email_templates})}));
    }
    world.option(u"NoContactButtons", 1);
    OpenedItem window(contact(world, lead));
    window.show();
    EXPECT_EQ(bars_of(window.window), joined({menu_bar(""), untouched_bar})) << "a number will do";
}

TEST_F(ContactCommands, OfferLeadsWhereTheDatabaseHasAFolderForThem) {
    World& world = with({});
    const Folder root(world.account_profiles().Parent());
    const Folder leads = root.Folders().Item(u"Leads");
    struct Case {
        const char* name;
        TextView leads_are_called;
        Lines bar;
    };
    const Case cases[] = {
        {"the folder", u"Leads", shown_bar({convert_contact, convert_lead_shown, email_templates})},
        {"a folder in other case", u"LEADS", shown_bar({convert_contact, email_templates})},
        // the name of a folder that isn't there can't be read, and a test that fails counts as passed
        {"no such folder", u"Prospects", shown_bar({convert_contact, convert_lead_shown, email_templates})},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        leads.put(u"Name", one.leads_are_called);
        OpenedItem window(contact(world, personal));
        window.show();
        EXPECT_EQ(bars_of(window.window), joined({menu_bar(""), one.bar}));
    }
}

TEST_F(ContactCommands, StandOnASecondBarIfTheFirstCannotBeMade) {
    World& world = with({});
    struct Case {
        TextView message_class;
        Lines bar;
    };
    const Case cases[] = {
        {account_contact,
         {"Contact Templates, row -1, shown, enabled", email_templates, document_templates, excel_templates}},
        {lead, {"Contact Templates, row -1, shown, enabled", email_templates}},
        {personal, {"Contact Templates, row -1, shown, enabled", email_templates}},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(shown(one.message_class));
        OpenedItem window(contact(world, one.message_class));
        world.fail(u"CommandBars.Add");
        window.show();
        EXPECT_EQ(bars_of(window.window), joined({menu_bar(""), one.bar}));
    }
}

}  // namespace
}  // namespace acceptance
