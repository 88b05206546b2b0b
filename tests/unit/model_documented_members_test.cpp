// docs/host-members.md lists the members of the host that the desk lacks: each of them is unknown, as it
// says.
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>

#include "tests/unit/support/model_support.h"

namespace model_tests {
namespace {

constexpr std::int32_t dist_list_item = 7;  // OlItemType

class DocumentedMembers : public ModelTest {
  protected:
    Object first_recipient() const {
        return name_space.call(u"CreateRecipient", {u"ann@n.example"}).to_object();
    }
    Object window() const {
        const Object inspector = create(item_type::mail).get(u"GetInspector").to_object();
        inspector.call(u"Display");
        return inspector;
    }
    Object attachment() const {
        return create(item_type::mail).Attachments().call(u"Add", {Value(add_mail(u"One"))}).to_object();
    }
    Object user_property() const {
        constexpr std::int32_t text_type = 1;
        return create(item_type::mail).UserProperties().Add(u"Team", text_type, false);
    }
    Object item_properties() const { return create(item_type::mail).get(u"ItemProperties").to_object(); }
    Object explorer() const { return application.ActiveExplorer(); }
    Object bars() const { return explorer().get(u"CommandBars").to_object(); }
    Object bar() const { return bars().call(u"Add").to_object(); }

    const std::map<std::string, std::function<Object()>> objects{
        {"Application", [&] { return Object(application); }},
        {"NameSpace", [&] { return Object(name_space); }},
        {"MAPIFolder", [&] { return Object(inbox()); }},
        {"Folders", [&] { return Object(inbox().Folders()); }},
        {"Items", [&] { return Object(inbox().Items()); }},
        {"Explorer", [&] { return explorer(); }},
        {"Selection", [&] { return explorer().get(u"Selection").to_object(); }},
        {"Inspector", [&] { return window(); }},
        {"MailItem", [&] { return Object(create(item_type::mail)); }},
        {"ContactItem", [&] { return Object(create(item_type::contact)); }},
        {"PostItem", [&] { return Object(create(item_type::post)); }},
        {"AppointmentItem", [&] { return Object(create(item_type::appointment)); }},
        {"TaskItem", [&] { return Object(create(item_type::task)); }},
        {"NoteItem", [&] { return Object(create(item_type::note)); }},
        {"DistListItem", [&] { return Object(create(dist_list_item)); }},
        {"UserProperty", [&] { return user_property(); }},
        {"Recipient", [&] { return first_recipient(); }},
        {"AddressEntry", [&] { return first_recipient().get(u"AddressEntry").to_object(); }},
        {"Attachment", [&] { return attachment(); }},
        {"ItemProperties", [&] { return item_properties(); }},
        {"ItemProperty", [&] { return item_properties().call(u"Item", {0}).to_object(); }},
        {"CommandBars", [&] { return bars(); }},
        {"CommandBar", [&] { return bar(); }},
        {"CommandBarButton", [&] { return bar().get(u"Controls").to_object().call(u"Add").to_object(); }},
    };
};

TEST_F(DocumentedMembers, AreWhereTheListSaysThatTheyAreNot) {
    std::ifstream file(std::filesystem::path(TARNWELL_DATA_FOLDER) / "../docs/host-members.md");
    std::size_t rows = 0;
    for (std::string line; std::getline(file, line);) {
        const std::size_t bar_at = line.find(" | `");
        if (!line.starts_with("| ") || bar_at == std::string::npos) continue;
        ++rows;
        const std::string kind = line.substr(2, bar_at - 2);
        SCOPED_TRACE(kind);
        ASSERT_TRUE(objects.contains(kind));
        const Object asked = objects.at(kind)();
        for (std::size_t quote = line.find('`'); quote != std::string::npos;) {
            const std::size_t end = line.find('`', quote + 1);
            const std::string member = line.substr(quote + 1, end - quote - 1);
            EXPECT_FALSE(asked.target()->identify(automation::from_utf8(member), {})) << member;
            quote = line.find('`', end + 1);
        }
    }
    EXPECT_EQ(rows, objects.size());
}

// False and olApptNotRecurring for what is no series. A collection that can't include occurrences doesn't
// take the wish for them: learn.microsoft.com/office/vba/api/outlook.items.includerecurrences
TEST_F(DocumentedMembers, SayThatNothingRecurs) {
    const Object appointment = create(item_type::appointment);
    EXPECT_FALSE(appointment.get(u"IsRecurring").to_boolean());
    EXPECT_EQ(integer(appointment, u"RecurrenceState"), 0);
    EXPECT_FALSE(create(item_type::task).get(u"IsRecurring").to_boolean());
    const Object items = inbox().Items();
    EXPECT_EQ(failure_of([&] { items.put(u"IncludeRecurrences", true); }), result::unknown_name);
    EXPECT_EQ(failure_of([&] { items.get(u"IncludeRecurrences"); }), result::unknown_name);
}

// CurrentUser is a Recipient: learn.microsoft.com/office/vba/api/outlook.namespace.currentuser
TEST_F(DocumentedMembers, TellWhoTheUserIs) {
    const Object user = name_space.get(u"CurrentUser").to_object();
    EXPECT_EQ(integer(user, u"Class"), 4);
    EXPECT_TRUE(user.get(u"Resolved").to_boolean());
    const Object entry = user.get(u"AddressEntry").to_object();
    EXPECT_EQ(text(entry, u"Name"), text(user, u"Name"));
    EXPECT_EQ(text(entry, u"Address"), u"user@tarnwell.example");
    EXPECT_EQ(text(entry, u"Type"), u"SMTP");
}

// A recipient is made of a name, and known once it is resolved:
// learn.microsoft.com/office/vba/api/outlook.namespace.createrecipient
TEST_F(DocumentedMembers, MakeARecipientOfAName) {
    const Item contact = create(item_type::contact);
    contact.put(u"FullName", u"Ann Lee");
    contact.put(u"Email1Address", u"ann@n.example");
    contact.Save();
    struct Case {
        TextView name, address;
        bool is_known;
    };
    constexpr Case cases[] = {{u"Ann Lee", u"ann@n.example", true},
                              {u"bob@r.example", u"bob@r.example", true},
                              {u"Nobody Known", u"", false}};
    for (const Case& one : cases) {
        SCOPED_TRACE(shown(one.name));
        const Object person = name_space.call(u"CreateRecipient", {Value(one.name)}).to_object();
        EXPECT_EQ(text(person, u"Name"), one.name);
        EXPECT_FALSE(person.get(u"Resolved").to_boolean());
        EXPECT_EQ(person.call(u"Resolve").to_boolean(), one.is_known);
        EXPECT_EQ(person.get(u"Resolved").to_boolean(), one.is_known);
        EXPECT_EQ(text(person, u"Address"), one.address);
        EXPECT_EQ(person.get(u"Parent").to_object(), Object(name_space));
    }
    EXPECT_EQ(failure_of([&] { name_space.call(u"CreateRecipient", {u" "}); }), result::invalid_argument);
}

// The members of a list, each a Recipient, from 1 on:
// learn.microsoft.com/office/vba/api/outlook.distlistitem.getmember, outlook.distlistitem.addmember,
// outlook.distlistitem.addmembers and outlook.distlistitem.membercount
TEST_F(DocumentedMembers, HoldThePeopleOfAList) {
    const Item list = create(dist_list_item);
    EXPECT_EQ(list.MessageClass(), u"IPM.DistList");
    EXPECT_EQ(list.Class(), 69);
    list.put(u"DLName", u"All Millers");
    EXPECT_EQ(integer(list, u"MemberCount"), 0);
    const Object ann = name_space.call(u"CreateRecipient", {u"ann@n.example"}).to_object();
    EXPECT_EQ(failure_of([&] { list.call(u"AddMember", {Value(ann)}); }), result::fail) << "not resolved";
    ann.call(u"Resolve");
    list.call(u"AddMember", {Value(ann)});
    const Item mail = create(item_type::mail);
    mail.put(u"To", u"bob@r.example; cid@f.example");
    list.call(u"AddMembers", {mail.get(u"Recipients")});
    list.Save();
    EXPECT_EQ(Folder(list.Parent()).Name(), u"Contacts");
    const Item same = default_folder(folder_number::contacts).Items().Item(1);
    EXPECT_EQ(integer(same, u"MemberCount"), 3);
    EXPECT_EQ(text(same.call(u"GetMember", {2}).to_object(), u"Address"), u"bob@r.example");
    EXPECT_EQ(failure_of([&] { same.call(u"GetMember", {4}); }), result::bad_index);
    same.call(u"RemoveMember", {Value(ann)});
    EXPECT_EQ(text(same.call(u"GetMember", {1}).to_object(), u"Name"), u"bob@r.example");
    EXPECT_EQ(failure_of([&] { same.get(u"FullName"); }), result::unknown_name);
    EXPECT_EQ(failure_of([&] { same.get(u"Recipients"); }), result::member_not_found);
    EXPECT_EQ(failure_of([&] { create(item_type::contact).get(u"MemberCount"); }), result::unknown_name);

    const Item to_all = create(item_type::mail);
    to_all.put(u"To", u"All Millers");
    const Object all = to_all.get(u"Recipients").to_object().call(u"Item", {1}).to_object();
    EXPECT_TRUE(all.get(u"Resolved").to_boolean());
    EXPECT_EQ(text(all.get(u"AddressEntry").to_object(), u"Type"), u"MAPIPDL");
    EXPECT_EQ(integer(all, u"DisplayType"), 5);
}

// "If no controls fit, returns Nothing": learn.microsoft.com/office/vba/api/office.commandbars.findcontrols
TEST_F(DocumentedMembers, FindAllControlsThatFit) {
    const Object own = bar(), other = bars().call(u"Add", {u"Other"}).to_object();
    const auto add = [](const Object& to, TextView caption, TextView tag) {
        const Object control = to.get(u"Controls").to_object().call(u"Add").to_object();
        control.put(u"Caption", Value(caption));
        control.put(u"Tag", Value(tag));
    };
    add(own, u"One", u"mine");
    add(own, u"Two", u"yours");
    add(other, u"Three", u"mine");
    automation::Request request{.member = u"FindControls", .named = {{u"Tag", Value(u"mine")}}};
    const Object found = bars().invoke(request).to_object();
    ASSERT_TRUE(found);
    EXPECT_EQ(integer(found, u"Count"), 2);
    EXPECT_EQ(text(found.get(u"Item", {1}).to_object(), u"Caption"), u"One");
    EXPECT_EQ(text(found.get(u"Item", {2}).to_object(), u"Caption"), u"Three");
    automation::Request none{.member = u"FindControls", .named = {{u"Tag", Value(u"nobody's")}}};
    EXPECT_FALSE(bars().invoke(none).to_object());
}

}  // namespace
}  // namespace model_tests
