// The family asks a host's real object model here, not small fakes.
#include <gmock/gmock.h>

#include "desk/base/desk.h"
#include "desk/outlook/application.h"
#include "desk/outlook/item.h"
#include "desk/surface/surface.h"
#include "family/create.h"
#include "tests/support/idle_surroundings.h"
#include "tests/unit/support/family_fakes.h"
#include "tests/unit/support/store_support.h"

namespace {

using automation::Object;
using automation::Text;
using automation::TextView;
using automation::Value;
using family_test::failure_of;

/// Gives each object an id of its own, and knows no class.
struct QuietDesk : desk_tests::IdleSurroundings {
    std::string random_bytes(std::size_t count) override {
        std::string bytes(count, '\0');
        for (char& byte : bytes) byte = static_cast<char>(++last_);
        return bytes;
    }
    Object create_object(TextView prog_id) override {
        throw automation::Failure(automation::result::bad_prog_id, Text(prog_id));
    }

  private:
    unsigned char last_ = 0;
};

/// The family's context in a process that is the host.
struct BesideTheDesk : family_test::FakeContext {
    Object application() override { return host; }
    Object host;
};

struct FamilyOnDesk : testing::Test {
    store_tests::TemporaryFolder folder;
    QuietDesk quiet;
    std::unique_ptr<desk::Store> store = desk::Store::open(folder / "database");
    desk::RowId inbox = 0, accounts = 0, contacts = 0, drop_downs = 0;
    std::unique_ptr<desk::Desk> host;
    std::shared_ptr<BesideTheDesk> around = std::make_shared<BesideTheDesk>();

    desk::RowId add_store(const char16_t* name, const char16_t* uid) {
        desk::FolderRow row = store_tests::folder_named(name);
        row.store_uid = uid;
        return store->add_folder(row);
    }

    void SetUp() override {
        const desk::RowId mailbox = add_store(u"Mailbox", u"00000000000000000000000000000001");
        inbox = store->add_folder(store_tests::folder_named(u"Inbox", mailbox));
        const desk::RowId root = add_store(u"Tarnwell", u"00000000000000000000000000000002");
        accounts = store->add_folder(store_tests::folder_named(u"Account Profiles", root));
        contacts = store->add_folder(store_tests::folder_named(u"Account Contacts", accounts));
        drop_downs = store->add_folder(store_tests::folder_named(u"Drop Downs", accounts));
        store->add_folder(store_tests::folder_named(u"System Folder", root));
        fill();
        host = std::make_unique<desk::Desk>(quiet, std::move(store), desk::Options{});
        desk::offer_surface(*host);
        around->host = host->application()->self();
    }

    void fill() {
        for (const TextView subject : {u"Phone call", u"Meeting"}) {
            desk::ItemData record;
            record.message_class = u"IPM.Post.Drop Down";
            record.fields[u"Subject"] = subject;
            record.user_properties.push_back({u"RecordType", 1, Value(u"Note Type")});
            store->add_item(drop_downs, record);
        }
        desk::ItemData mail = store_tests::item_with_subject(u"Hello");
        mail.fields[u"Body"] = u"Dear Bob";
        mail.fields[u"SenderName"] = u"Ann Lee";
        mail.fields[u"SenderEmailAddress"] = u"/o=Example/cn=ann";
        mail.fields[u"SenderEmailType"] = u"EX";
        mail.fields[u"SenderSmtpAddress"] = u"ann@one.example";
        mail.fields[u"To"] = u"Bob";
        mail.recipients.push_back({u"Bob", u"bob@two.example", u"SMTP", u"bob@two.example", 1, true});
        mail.recipients.push_back({u"Cleo", u"/o=Example/cn=cleo", u"EX", u"cleo@one.example", 2, true});
        store->add_item(inbox, mail);
        desk::ItemData contact;
        contact.message_class = u"IPM.Contact.Account Contact";
        contact.fields[u"FullName"] = u"Bob Moss";
        contact.fields[u"Email1Address"] = u"bob@two.example";
        contact.user_properties.push_back({u"ContactID", 1, Value(u"C1")});
        contact.user_properties.push_back({u"Account Name", 1, Value(u"Moss & Sons")});
        store->add_item(contacts, contact);
    }

    Object family(TextView prog_id) const { return family::create(prog_id, around); }
    Object first_item(desk::RowId in) const { return host->open_item(host->contents(in).front())->self(); }
    Object name_space() const { return around->host.call(u"GetNamespace", {u"MAPI"}).to_object(); }
    Object wrapped(TextView prog_id, desk::RowId in) const {
        const Object safe = family(prog_id);
        safe.put(u"Item", first_item(in));
        return safe;
    }
};

TEST_F(FamilyOnDesk, TheIdsOfMainAddInOpenTheFolder) {
    const Object main = family(u"Tarnwell.connect");
    for (const TextView name : {u"Account Profiles", u"System Folder", u"Account Profiles"}) {
        const Object opened = name_space()
                                  .call(u"GetFolderFromID",
                                        {main.call(u"GetFolderId", {Value(name)}), main.call(u"GetStoreId")})
                                  .to_object();
        EXPECT_EQ(opened.get(u"Name"), Value(name));
    }
}

TEST_F(FamilyOnDesk, FollowsThePathsOfTheHost) {
    const Object main = family(u"Tarnwell.connect");
    const Object found =
        main.call(u"ReturnFolderFromPath", {u"\\\\Tarnwell\\Account Profiles\\Account Contacts\\"})
            .to_object();
    ASSERT_TRUE(found);
    EXPECT_EQ(found.get(u"Items").to_object().get(u"Count"), Value(1));
    EXPECT_EQ(main.call(u"ReturnFolderFromPath", {u"\\\\Tarnwell\\Nowhere"}), Value(Object()));
}

TEST_F(FamilyOnDesk, ListsTheDropDowns) {
    const Value rows = family(u"Tarnwell.connect").call(u"GetDropDownsCache", {u"Note Type"});
    ASSERT_EQ(rows.to_array().dimensions().front().count, 2);
    EXPECT_EQ(rows.to_array().at(0), Value(u"Phone call"));
    EXPECT_EQ(rows.to_array().at(1), Value(u"Meeting"));
}

TEST_F(FamilyOnDesk, ReadsAMailsPeople) {
    const Object safe = wrapped(u"TarnwellOMG.SafeMailItem", inbox);
    EXPECT_EQ(safe.get(u"Fields", {0x0C1F001E}), Value(u"/o=Example/cn=ann"));
    EXPECT_EQ(safe.get(u"Fields", {0x0C1E001E}), Value(u"EX"));
    EXPECT_EQ(safe.get(u"sender").to_object().get(u"Fields", {0x39FE001E}), Value(u"ann@one.example"));
    EXPECT_EQ(safe.get(u"SenderName"), Value(u"Ann Lee"));
    EXPECT_EQ(safe.get(u"Body"), Value(u"Dear Bob"));
    EXPECT_EQ(safe.get(u"Recipients").to_object().get(u"Count"), Value(2));
    const Object cleo = safe.get(u"Recipients", {2}).to_object();
    EXPECT_EQ(cleo.get(u"name"), Value(u"Cleo"));
    const Object entry = cleo.get(u"AddressEntry").to_object();
    EXPECT_EQ(entry.get(u"Fields", {0x3002001E}), Value(u"EX"));
    EXPECT_EQ(entry.get(u"Fields", {0x3003001E}), Value(u"/o=Example/cn=cleo"));
    EXPECT_EQ(entry.get(u"Fields", {0x39FE001E}), Value(u"cleo@one.example"));
    EXPECT_EQ(safe.call(u"ResolveAll"), Value(true));
    EXPECT_EQ(safe.get(u"Fields", {0x0042001E}), Value());
}

TEST_F(FamilyOnDesk, MarksAMailThroughItsWrapper) {
    const Object safe = wrapped(u"TarnwellOMG.SafeMailItem", inbox);
    safe.put(u"FlagStatus", 1);
    safe.put(u"FlagRequest", u"TW-Note");
    safe.put(u"BillingInformation", u"TW Auto Filed");
    safe.call(u"Save");
    const Object mail = first_item(inbox);
    EXPECT_EQ(mail.get(u"FlagStatus"), Value(1));
    EXPECT_EQ(mail.get(u"FlagRequest"), Value(u"TW-Note"));
    EXPECT_EQ(mail.get(u"BillingInformation"), Value(u"TW Auto Filed"));
    EXPECT_EQ(mail.get(u"Saved"), Value(true));
}

TEST_F(FamilyOnDesk, ReadsAContactsNamedProperties) {
    const Object safe = wrapped(u"TarnwellOMG.SafeContactItem", contacts);
    const auto field = [&](TextView set, const Value& id, std::int32_t type) {
        const std::int32_t tag = safe.call(u"GetIDsFromNames", {Value(set), id}).to_integer();
        return safe.get(u"Fields", {tag | type});
    };
    constexpr TextView of_contacts = u"{00062004-0000-0000-C000-000000000046}";
    constexpr TextView of_strings = u"{00020329-0000-0000-C000-000000000046}";
    EXPECT_EQ(field(of_contacts, 0x8083, 0x1E), Value(u"bob@two.example"));
    EXPECT_EQ(field(of_contacts, 0x8093, 0x1E), Value());
    EXPECT_EQ(field(of_strings, u"ContactID", 0), Value(u"C1"));
    EXPECT_EQ(field(of_strings, u"Account Name", 0x1E), Value(u"Moss & Sons"));
    EXPECT_EQ(field(of_strings, u"NoteID", 0), Value());
    EXPECT_EQ(safe.get(u"FullName"), Value(u"Bob Moss"));
    safe.put(u"WebPage", u"www.two.example");
    EXPECT_EQ(first_item(contacts).get(u"WebPage"), Value(u"www.two.example"));
    EXPECT_NE(failure_of([&] { safe.get(u"sender"); }), 0);  // a contact has none
}

TEST_F(FamilyOnDesk, DisplaysTheWrappedItem) {
    const Object safe = wrapped(u"TarnwellOMG.SafeContactItem", contacts);
    safe.call(u"Display");
    const Object shown = around->host.get(u"Desk").to_object().get(u"Displayed").to_object();
    ASSERT_EQ(shown.get(u"Count"), Value(1));
    EXPECT_EQ(shown.call(u"Item", {1}).to_object().get(u"FullName"), Value(u"Bob Moss"));
}

TEST_F(FamilyOnDesk, AttachesTheWrappedItem) {
    const Object note = first_item(drop_downs), attachments = note.get(u"Attachments").to_object();
    const Object safe = wrapped(u"TarnwellOMG.SafeMailItem", inbox);
    attachments.call(u"Add", {Value(safe), automation::Missing{}, 1, automation::Missing{}});
    EXPECT_EQ(attachments.get(u"Count"), Value(1));
    const Object nothing = family(u"TarnwellOMG.SafeMailItem");
    EXPECT_NE(failure_of([&] {
                  attachments.call(u"Add", {Value(nothing), automation::Missing{}, 1, automation::Missing{}});
              }),
              0);
    EXPECT_EQ(attachments.get(u"Count"), Value(1));
}

}  // namespace
