// How a sender's addresses lead to a contact record.
#include "addin/filing/address_resolution.h"
#include "tests/world/people.h"

namespace acceptance {
namespace {

using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Item;

class AddressResolution : public Filing {
  protected:
    /// Whether a mail found a contact: then there is one more note, which names it.
    static Text filed_under(World& world) {
        const host::outlook::Items notes = world.below(u"Email").Items();
        const std::int32_t count = notes.Count();
        return count == 0 ? Text() : World::property(notes.Item(count), u"Contact Name");
    }
};

TEST_F(AddressResolution, LooksAtAllThreeAddressesOfAContact) {
    for (const TextView field : {u"Email1Address", u"Email2Address", u"Email3Address"}) {
        SCOPED_TRACE(shown(field));
        World& world = emptied();
        ContactPlan plan;
        plan.fields = {{u"Email1Address", u"first@x.example"}, {u"Email2Address", u"second@x.example"}};
        if (field != TextView(u"Email3Address")) plan.fields.pop_back();
        if (field == TextView(u"Email1Address")) plan.fields.clear();
        plan.fields.emplace_back(field, u"ann.lee@northmill.example");
        add_contact(world, plan);
        read_mail(world);
        EXPECT_EQ(filed_under(world), u"Ann Lee");
    }
}

TEST_F(AddressResolution, LooksAtNothingElse) {
    struct Case {
        const char* name;
        Fields fields, properties;
    };
    const Case cases[] = {
        {"the free search text", {}, {{u"EmailSearchString", u"ann.lee@northmill.example"}}},
        {"the full name", {{u"FullName", u"ann.lee@northmill.example"}}, {}},
        {"the subject", {{u"Subject", u"ann.lee@northmill.example"}}, {}},
        {"the sender's name", {{u"FullName", u"Ann Lee"}}, {}},
        {"the beginning of an address", {{u"Email1Address", u"ann.lee@northmill.example.org"}}, {}},
        {"the end of an address", {{u"Email1Address", u"joann.lee@northmill.example"}}, {}},
        {"the display name", {{u"Email1DisplayName", u"ann.lee@northmill.example"}}, {}},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        World& world = emptied();
        add_contact(world, {.full_name = u"Somebody", .fields = one.fields, .properties = one.properties});
        const Item mail = read_mail(world);
        expect_left_alone(world, mail);
    }
}

TEST_F(AddressResolution, LooksAtAccountContactsOnly) {
    World& world = filing();
    const auto add_to = [](const host::outlook::Folder& folder, TextView message_class) {
        const Item contact = folder.Items().Add(message_class);
        contact.put(u"FullName", u"Ann Lee");
        contact.put(u"Email1Address", u"ann.lee@northmill.example");
        contact.Save();
    };
    constexpr std::int32_t own_contacts = 10;
    const host::outlook::Folder root(world.account_profiles().Parent());
    add_to(root.Folders().Item(u"Leads"), u"IPM.Contact.Lead");
    add_to(world.name_space().GetDefaultFolder(own_contacts), u"IPM.Contact");
    const Item mail = read_mail(world);
    expect_left_alone(world, mail);
}

TEST_F(AddressResolution, TakesTheFirstOfSeveralContacts) {
    World& world = filing();
    add_contact(world, u"First", u"shared@northmill.example");
    add_contact(world, u"Second", u"shared@northmill.example");
    read_mail(world, {.from = "shared@northmill.example"});
    EXPECT_EQ(count_in(world, u"Email"), 1);
    EXPECT_EQ(filed_under(world), u"First");
    EXPECT_EQ(world.desk().get(u"Messages").to_object().get(u"Count").to_integer(), 0);
}

TEST_F(AddressResolution, TakesTheFirstInTheFoldersOrderWhicheverFieldMatches) {
    World& world = filing();
    add_contact(world,
                {.full_name = u"By the third", .fields = {{u"Email3Address", u"shared@northmill.example"}}});
    add_contact(world, u"By the first", u"shared@northmill.example");
    read_mail(world, {.from = "shared@northmill.example"});
    EXPECT_EQ(filed_under(world), u"By the third");
}

TEST_F(AddressResolution, ComparesAsTheHostDoes) {
    World& world = filing();
    add_contact(world, u"Ann Lee", u"Ann.Lee@NorthMill.Example");
    read_mail(world, {.from = "ann.LEE@northmill.example"});
    EXPECT_EQ(filed_under(world), u"Ann Lee");
}

TEST_F(AddressResolution, FindsAddressesWithApostrophes) {
    struct Case {
        const char* sender;
        TextView contact;
        bool found;
    };
    constexpr Case cases[] = {
        {"o'brien@x.example", u"o'brien@x.example", true},  {"a'b'c@x.example", u"a'b'c@x.example", true},
        {"'quoted@x.example", u"quoted@x.example", true},    // a leading one is taken off
        {"'quoted@x.example", u"'quoted@x.example", false},  // so that this one is not found
        {"a~b@x.example", u"a'b@x.example", true},           // the sign that apostrophes travel under
        {"a~b@x.example", u"a~b@x.example", false},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(std::string(one.sender) + " and " + shown(one.contact));
        World& world = emptied();
        add_contact(world, u"The one", one.contact);
        read_mail(world,
                  {.from = "x@x.example", .more = std::string("X-Desk-Sender: SMTP ") + one.sender + "\n"});
        EXPECT_EQ(filed_under(world), one.found ? u"The one" : u"");
    }
}

TEST_F(AddressResolution, TakesABrokenFilterAsNoMatch) {
    World& world = filing();
    add_contact(world);
    const Item mail = read_mail(world, {.more = "X-Desk-Sender: SMTP a\"b@northmill.example\n"});
    expect_left_alone(world, mail);
    read_mail(world);
    EXPECT_EQ(count_in(world, u"Email"), 1) << "the next mail is not harmed";
}

struct SenderCase {
    const char* name;
    const char* header;
    const char* option;  ///< null: not set
    TextView contact_address;
    bool found;
};

TEST_F(AddressResolution, TellsInternetAddressesFromOthers) {
    constexpr TextView native = u"/o=Example/cn=ann", smtp = u"ann.lee@northmill.example";
    const char* const exchange = "X-Desk-Sender: EX /o=Example/cn=ann\n";
    const SenderCase cases[] = {
        {"Exchange, option not set", exchange, nullptr, smtp, false},
        {"Exchange, option off", exchange, "0", smtp, false},
        {"Exchange, option with a blank", exchange, " 1", smtp, false},
        {"Exchange by its Internet address", exchange, "1", smtp, true},
        {"Exchange by its native address", exchange, "1", native, true},
        {"Exchange by another address", exchange, "1", u"bob@x.example", false},
        {"Exchange, type in lower case", "X-Desk-Sender: ex /o=Example/cn=ann\n", "1", native, true},
        {"Internet, type in lower case", "X-Desk-Sender: smtp ann.lee@northmill.example\n", nullptr, smtp,
         true},
        {"Internet, option on", "", "1", smtp, true},
        {"Internet, option off", "", "0", smtp, true},
        {"a third type", "X-Desk-Sender: NOTES CN=Ann/O=Example\n", "1", smtp, false},
        {"a third type by its native address", "X-Desk-Sender: NOTES CN=Ann/O=Example\n", "1",
         u"CN=Ann/O=Example", false},
        {"a type that begins like Exchange", "X-Desk-Sender: EXT /o=Example/cn=ann\n", "1", smtp, false},
        {"no type", "X-Desk-Sender: - ann.lee@northmill.example\n", "1", smtp, false},
        {"no native address", "X-Desk-Sender: SMTP -\n", nullptr, smtp, false},
        {"Exchange without a native address", "X-Desk-Sender: EX -\n", "1", smtp, false},
    };
    for (const SenderCase& one : cases) {
        SCOPED_TRACE(one.name);
        World& world = emptied();
        if (one.option) world.option(u"SaveExchangeEmail", automation::from_utf8(one.option));
        add_contact(world, u"Ann Lee", one.contact_address);
        const Item mail = read_mail(world, {.more = one.header});
        if (one.found) {
            EXPECT_EQ(filed_under(world), u"Ann Lee");
            EXPECT_TRUE(is_marked(mail));
        } else {
            expect_left_alone(world, mail);
            EXPECT_EQ(world.desk().get(u"Messages").to_object().get(u"Count").to_integer(), 0);
        }
    }
}

TEST_F(AddressResolution, StopsBeforeItLooksAtTheTypeWhereThereIsNoAddress) {
    struct Case {
        const char* header;
        std::int32_t asked;  ///< how many properties of the mail
    };
    for (const auto& [header, asked] : {Case{"", 2}, Case{"X-Desk-Sender: SMTP -\n", 1},
                                        Case{"X-Desk-Sender: - -\n", 1}, Case{"X-Desk-Sender: EX -\n", 1}}) {
        SCOPED_TRACE(header);
        World& world = emptied();
        world.option(u"SaveExchangeEmail", u"1");
        add_contact(world);  // with two empty addresses, which an empty one would equal
        const Item mail = world.deliver(message({.more = header}));
        world.desk().call(u"ResetCalls");
        world.connect().call(u"AutomaticCreateNote", {Value(mail)});
        // the wrapper's member where that is seen, and else what the wrapper asks the host for
        EXPECT_EQ(calls_of(world, u"Fields") + calls_of(world, u"GetProperty"), asked);
        EXPECT_EQ(calls_of(world, u"Find"), asked - 1);
    }
}

TEST_F(AddressResolution, TakesTheExchangeOptionAsNumberToo) {
    for (const std::int32_t number : {1, 0, -1}) {
        SCOPED_TRACE(number);
        World& world = emptied();
        world.option(u"SaveExchangeEmail", number);
        add_contact(world);
        read_mail(world, {.more = "X-Desk-Sender: EX /o=Example/cn=ann\n"});
        EXPECT_EQ(filed_under(world), number == 1 ? u"Ann Lee" : u"");
    }
}

TEST_F(AddressResolution, PrefersNoAddressOfAnExchangeSender) {
    World& world = filing();
    world.option(u"SaveExchangeEmail", u"1");
    add_contact(world, u"By native address", u"/o=Example/cn=ann");
    add_contact(world, u"By Internet address", u"ann.lee@northmill.example");
    read_mail(world, {.more = "X-Desk-Sender: EX /o=Example/cn=ann\n"});
    EXPECT_EQ(filed_under(world), u"By native address")
        << "the folder's order decides, not that of the terms";
}

TEST_F(AddressResolution, NeedsAToLine) {
    struct Case {
        const char* name;
        std::string to, more;
        bool found;
    };
    const Case cases[] = {
        {"nobody", "", "", false},
        {"a copy only", "", "Cc: Tom Prior <tom.prior@tarnwell.example>\n", false},
        {"a To line", "tom.prior@tarnwell.example", "", true},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        World& world = emptied();
        add_contact(world);
        const Item mail = read_mail(world, {.to = one.to, .more = one.more});
        EXPECT_EQ(filed_under(world), one.found ? u"Ann Lee" : u"");
        EXPECT_EQ(is_marked(mail), one.found);
    }
}

TEST_F(AddressResolution, GoesOnByTheNativeAddressIfTheInternetAddressFails) {
    World& world = filing();
    world.option(u"SaveExchangeEmail", u"1");
    // each has all three addresses: an empty one would equal the Internet address that isn't known
    ContactPlan by_smtp{.full_name = u"By Internet address"};
    by_smtp.fields = {{u"Email1Address", u"ann.lee@northmill.example"},
                      {u"Email2Address", u"x@northmill.example"},
                      {u"Email3Address", u"y@northmill.example"}};
    add_contact(world, by_smtp);
    ContactPlan by_native = by_smtp;
    by_native.full_name = u"By native address";
    by_native.fields[0].second = u"/o=Example/cn=ann";
    add_contact(world, by_native);
    const MailPlan mail{.more = "X-Desk-Sender: EX /o=Example/cn=ann\n"};
    world.family(u"Fail", u"SafeAddressEntry.Fields");
    read_mail(world, mail);
    EXPECT_EQ(filed_under(world), u"By native address");
    world.family(u"Fail", u"");
    read_mail(world, mail);
    EXPECT_EQ(filed_under(world), u"By Internet address");
}

// the filters of every path, from the table

struct FilterCase {
    const char* name;
    const addin::filing::FilterTerms& terms;
    bool internet;
    TextView filter;
};

TEST(ContactFilter, IsMadeOfTheTermsOfItsVariant) {
    using addin::filing::Variant;
    constexpr TextView e3_native =
        u"[Email1Address] = \"n\" Or [Email2Address] = \"n\" Or [Email3Address] = \"n\"";
    constexpr TextView both =
        u"[Email1Address] = \"s\" Or [Email2Address] = \"s\" Or [Email3Address] = \"s\" Or "
        u"[Email1Address] = \"n\" Or [Email2Address] = \"n\" Or [Email3Address] = \"n\"";
    constexpr TextView launch =
        u"[Email1Address] = \"n\" Or [Email2Address] = \"n\" Or [Email3Address] = \"n\" Or "
        u"[FullName] = \"x\" Or [Subject] = \"x\" Or [EmailSearchString] = \"n\"";
    constexpr TextView launch_other =
        u"[Email1Address] = \"s\" Or [Email2Address] = \"s\" Or [Email3Address] = \"s\" Or [FullName] = "
        u"\"x\" Or "
        u"[Subject] = \"x\" Or [Email1Address] = \"n\" Or [Email2Address] = \"n\" Or [Email3Address] = \"n\" "
        u"Or "
        u"[Email3Address] = \"n\" Or [EmailSearchString] = \"n\"";
    constexpr TextView open =
        u"[Email1Address] >= \"n\" AND [Email1Address] < \"o\" Or [Email2Address] >= \"n\" AND "
        u"[Email2Address] < "
        u"\"o\" Or [Email3Address] >= \"n\" AND [Email3Address] < \"o\" Or [FullName] >= \"x\" AND "
        u"[FullName] < "
        u"\"y\" Or [Subject] >= \"x\" AND [Subject] < \"y\" Or [EmailSearchString] >= \"n\" AND "
        u"[EmailSearchString] < \"o\"";
    const auto of = [](Variant variant) -> const addin::filing::FilterTerms& {
        return addin::filing::variant_row(variant).terms;
    };
    const FilterCase cases[] = {
        {"received, Internet", of(Variant::received), true, e3_native},
        {"received, other", of(Variant::received), false, both},
        {"sent, Internet", of(Variant::sent), true, e3_native},
        {"sent, other", of(Variant::sent), false, both},
        {"Quick View, Internet", of(Variant::quick_view_launch), true, e3_native},
        {"Quick View, other", of(Variant::quick_view_launch), false, both},
        {"Tarnwell, Internet", of(Variant::tarnwell_launch), true, launch},
        {"Tarnwell, other", of(Variant::tarnwell_launch), false, launch_other},
        {"open contact, Internet", addin::filing::terms_of_open_contact(), true, open},
    };
    for (const FilterCase& one : cases) {
        SCOPED_TRACE(one.name);
        EXPECT_EQ(shown(addin::filing::contact_filter(one.terms, one.internet,
                                                      {.native = u"n", .smtp = u"s", .sender_name = u"x"})),
                  shown(one.filter));
    }
}

TEST(ContactFilter, LeavesOutAnEmptyNativeAddressWhereTheVariantSaysSo) {
    using addin::filing::Variant;
    const auto filter = [](Variant variant) {
        return addin::filing::contact_filter(addin::filing::variant_row(variant).terms, false,
                                             {.native = u"", .smtp = u"s"});
    };
    constexpr TextView smtp_only =
        u"[Email1Address] = \"s\" Or [Email2Address] = \"s\" Or [Email3Address] = \"s\"";
    EXPECT_EQ(filter(Variant::received), smtp_only);
    EXPECT_EQ(filter(Variant::sent), smtp_only);
    EXPECT_EQ(
        filter(Variant::quick_view_launch),
        Text(smtp_only) + u" Or [Email1Address] = \"\" Or [Email2Address] = \"\" Or [Email3Address] = \"\"");
}

}  // namespace
}  // namespace acceptance
