// What can't be written changes nothing, and what has gone fails with the host's number.
#include "desk/base/host_event_tables.h"
#include "tests/unit/support/full_disk.h"
#include "tests/unit/support/model_support.h"

namespace model_tests {
namespace {

class Losses : public ModelTest {
  protected:
    Folder add_folder(TextView name) const {
        return Folder(inbox().Folders().call(u"Add", {Value(name)}).to_object());
    }
};

TEST_F(Losses, AnItemThatCouldNotBeWrittenHasNoPlaceYet) {
    const Item mail = inbox().Items().Add(u"IPM.Note");
    mail.Subject(u"Lost?");
    const Object loose = create(item_type::contact);
    {
        const FullDisk disk;
        EXPECT_EQ(failure_of([&] { mail.Save(); }), result::fail);
        EXPECT_EQ(failure_of([&] { loose.call(u"Save"); }), result::fail);
    }
    for (const Object& item : {Object(mail), loose}) {
        EXPECT_EQ(text(item, u"EntryID"), u"");
        EXPECT_FALSE(item.get(u"Saved").to_boolean());
    }
    EXPECT_EQ(inbox().Items().Count(), 0);
    mail.Save();
    EXPECT_EQ(subjects(inbox().Items()), std::vector<Text>{u"Lost?"});
}

TEST_F(Losses, AMailThatCouldNotBeStoredWhenItWasSentStaysOpenAndUnsent) {
    const Item fresh = create(item_type::mail), draft = create(item_type::mail);
    for (const Item& mail : {fresh, draft}) {
        mail.Subject(u"Lost?");
        mail.put(u"To", u"ann@north.example");
    }
    draft.Save();
    const auto expect_unsent = [&](const Item& mail, TextView why) {
        SCOPED_TRACE(shown(why));
        EXPECT_FALSE(mail.get(u"Sent").to_boolean());
        EXPECT_EQ(mail.Subject(), u"Lost?");
        EXPECT_EQ(world.application().get(u"Inspectors").to_object().get(u"Count"), Value(1));
        EXPECT_EQ(default_folder(folder_number::sent).Items().Count(), 0);
    };
    for (const Item& mail : {fresh, draft}) {
        mail.call(u"Display");
        {
            const FullDisk disk;
            EXPECT_EQ(failure_of([&] { mail.call(u"Send"); }), result::fail);
        }
        expect_unsent(mail, u"the disk is full");
        {
            automation::Sink refusing;
            refusing.connect(desk::events::item_10, mail,
                             {{u"Write", [](std::span<Value> arguments) { arguments[0] = true; }}});
            mail.call(u"Send");
            expect_unsent(mail, u"somebody does not want it stored");
        }
        constexpr std::int32_t discard = 1;
        mail.call(u"Close", {discard});
    }
    EXPECT_EQ(subjects(default_folder(folder_number::drafts).Items()), std::vector<Text>{u"Lost?"});
    for (const Item& mail : {fresh, draft}) mail.call(u"Send");
    EXPECT_EQ(subjects(default_folder(folder_number::sent).Items()), (std::vector<Text>{u"Lost?", u"Lost?"}));
}

TEST_F(Losses, AMailThatCouldNotBeStoredWhenItWasSentIsKeptAmongTheDrafts) {
    const Item mail = create(item_type::mail);
    mail.Subject(u"Lost?");
    mail.put(u"To", u"ann@north.example");
    {
        const FullDisk disk;
        EXPECT_EQ(failure_of([&] { mail.call(u"Send"); }), result::fail);
    }
    mail.Save();
    EXPECT_EQ(subjects(default_folder(folder_number::drafts).Items()), std::vector<Text>{u"Lost?"});
    EXPECT_EQ(default_folder(folder_number::sent).Items().Count(), 0);
}

TEST_F(Losses, ADraftThatIsSentIsMarkedAndMovedByOneWrite) {
    const Item draft = create(item_type::mail);
    draft.Subject(u"Sent once");
    draft.put(u"To", u"ann@north.example");
    draft.Save();
    draft.call(u"Display");
    std::optional<FullDisk> disk;
    automation::Sink last_words;
    last_words.connect(desk::events::inspector_10, draft.get(u"GetInspector").to_object(),
                       {{u"Close", [&](std::span<Value>) { disk.emplace(); }}});
    draft.call(u"Send");
    EXPECT_TRUE(disk.has_value()) << "the window was not closed";
    disk.reset();
    EXPECT_EQ(subjects(default_folder(folder_number::sent).Items()), std::vector<Text>{u"Sent once"});
    EXPECT_EQ(default_folder(folder_number::drafts).Items().Count(), 0);
}

TEST_F(Losses, AFolderThatCouldNotBeWrittenIsAsItWas) {
    const Folder folder = add_folder(u"Old");
    const Folder target = add_folder(u"Target");
    const Item item = folder.Items().Add(u"IPM.Note");
    item.Save();
    const std::pair<const char*, std::function<void()>> changes[] = {
        {"name", [&] { folder.put(u"Name", u"New"); }},
        {"description", [&] { folder.put(u"Description", u"New"); }},
        {"place", [&] { folder.call(u"MoveTo", {Value(target)}); }},
        {"fields",
         [&] {
             item.get(u"UserProperties").to_object().call(u"Add", {u"New field", 1, true});
         }},
    };
    for (const auto& [what, change] : changes) {
        const FullDisk disk;
        EXPECT_EQ(failure_of(change), result::fail) << what;
    }
    EXPECT_EQ(folder.Name(), u"Old");
    EXPECT_EQ(text(folder, u"Description"), u"");
    EXPECT_EQ(Folder(folder.get(u"Parent").to_object()).Name(), inbox().Name());
    EXPECT_NE(failure_of([&] { restricted(folder.Items(), u"[New field] = \"x\""); }), 0);
}

TEST_F(Losses, WhatWasInADeletedFolderIsGone) {
    const Folder folder = add_folder(u"Gone"), other = add_folder(u"Other");
    const Items items = folder.Items();
    const Item item = items.Add(u"IPM.Note");
    item.Save();
    const Object properties = item.get(u"UserProperties").to_object();
    folder.call(u"Delete");  // to Deleted Items
    folder.call(u"Delete");
    const std::pair<const char*, std::function<void()>> uses[] = {
        {"its path", [&] { text(folder, u"FolderPath"); }},
        {"its name", [&] { folder.put(u"Name", u"New"); }},
        {"its place", [&] { folder.call(u"MoveTo", {Value(other)}); }},
        {"a folder moved there", [&] { other.call(u"MoveTo", {Value(folder)}); }},
        {"a folder copied there", [&] { other.call(u"CopyTo", {Value(folder)}); }},
        {"its end", [&] { folder.call(u"Delete"); }},
        {"its items' order", [&] { items.call(u"Sort", {u"[Subject]"}); }},
        {"an item", [&] { item.Subject(); }},
        {"a new property",
         [&] {
             properties.call(u"Add", {u"New field", 1, true});
         }},
    };
    for (const auto& [what, use] : uses) EXPECT_EQ(failure_of(use), result::object_deleted) << what;
}

}  // namespace
}  // namespace model_tests
