// Folders and items in a database: what was put in is found again, in its order, after the file was opened
// anew too.
#include <gtest/gtest.h>

#include "tests/unit/support/store_support.h"

namespace {

using namespace store_tests;
using desk::FolderRow;
using desk::ItemData;
using desk::RowId;
using desk::Store;

class StoreItems : public testing::Test {
  protected:
    TemporaryFolder files_;
    std::unique_ptr<Store> store_ = Store::open(files_ / "desk.db");
    RowId inbox_ = store_->add_folder(folder_named(u"Inbox"));
    RowId other_ = store_->add_folder(folder_named(u"Other"));

    void reopen() {
        store_.reset();
        store_ = Store::open(files_ / "desk.db");
    }

    RowId add(automation::TextView subject) { return store_->add_item(inbox_, item_with_subject(subject)); }
};

void expect_same(const FolderRow& left, const FolderRow& right) {
    EXPECT_EQ(left.parent, right.parent);
    EXPECT_EQ(left.name, right.name);
    EXPECT_EQ(left.item_type, right.item_type);
    EXPECT_EQ(left.default_number, right.default_number);
    EXPECT_EQ(left.default_class, right.default_class);
    EXPECT_EQ(left.description, right.description);
    EXPECT_EQ(left.store_uid, right.store_uid);
    EXPECT_EQ(left.fields, right.fields);
}

TEST_F(StoreItems, AFolderIsThereWithAllItsParts) {
    FolderRow folder{.parent = inbox_,
                     .name = u"\xFEFF caf\u00E9 \u0416",
                     .item_type = 2,
                     .default_number = 10,
                     .default_class = u"IPM.Contact",
                     .description = u"People",
                     .store_uid = u"0123456789ABCDEF0123456789ABCDEF",
                     .fields = {{u"Account Name", 1}, {u"Amount", 3}}};
    folder.id = store_->add_folder(folder);
    reopen();
    ASSERT_EQ(store_->folders().size(), 3u);
    EXPECT_EQ(store_->folders()[2].id, folder.id);
    expect_same(store_->folders()[2], folder);

    folder.parent = other_;
    folder.name = u"Renamed";
    folder.fields.pop_back();
    store_->update_folder(folder);
    reopen();
    expect_same(store_->folders()[2], folder);
}

TEST_F(StoreItems, AnItemIsThereWithAllItsParts) {
    ItemData item = rich_item();
    const RowId id = store_->add_item(inbox_, item);
    reopen();
    const auto attachments = store_->attachments(id);
    EXPECT_TRUE(attachments == item.attachments);
    const auto loaded = store_->load(id);
    ASSERT_TRUE(loaded);
    item.attachments.clear();
    EXPECT_EQ(loaded->data, item);
    EXPECT_EQ(loaded->id, id);
    EXPECT_EQ(loaded->folder, inbox_);
}

TEST_F(StoreItems, TheSizeCountsTheAttachments) {
    ItemData item = item_with_subject(u"x");
    const RowId id = store_->add_item(inbox_, item);
    const std::int64_t bare = store_->load(id)->size;
    EXPECT_GT(bare, 0);
    item.attachments = {file_attachment(std::string(100000, 'a')), file_attachment(std::string(50000, 'b'))};
    store_->update_item(id, item, true);
    const std::int64_t full = store_->load(id)->size;
    EXPECT_GT(full, bare + 150000);
    EXPECT_LT(full, bare + 150200);
    EXPECT_EQ(store_->load(store_->add_item(inbox_, item))->size, full);
    item.attachments.clear();
    item.fields[u"Subject"] = u"xyz";
    store_->update_item(id, item, false);
    EXPECT_EQ(store_->load(id)->size, full + 2);
    store_->update_item(id, item, true);
    EXPECT_EQ(store_->load(id)->size, bare + 2);
}

TEST_F(StoreItems, AnUpdateTouchesTheAttachmentsOnlyIfTheyAreMeant) {
    ItemData item = item_with_subject(u"before");
    item.attachments = {file_attachment("kept")};
    const RowId id = store_->add_item(inbox_, item);
    store_->update_item(id, item_with_subject(u"after"), false);
    EXPECT_EQ(store_->load(id)->data, item_with_subject(u"after"));
    EXPECT_TRUE(store_->attachments(id) == item.attachments);
    store_->update_item(id, item_with_subject(u"after"), true);
    EXPECT_TRUE(store_->attachments(id).empty());
}

TEST_F(StoreItems, ItemsStandInTheOrderOfTheirArrival) {
    const RowId first = add(u"first"), second = add(u"second"), third = add(u"third");
    EXPECT_EQ(store_->items(inbox_), (std::vector{first, second, third}));
    store_->move_item(first, other_);
    EXPECT_EQ(store_->items(inbox_), (std::vector{second, third}));
    EXPECT_EQ(store_->items(other_), (std::vector{first}));
    store_->move_item(first, inbox_);
    EXPECT_EQ(store_->items(inbox_), (std::vector{second, third, first}));
    store_->move_item(second, inbox_);
    reopen();
    EXPECT_EQ(store_->items(inbox_), (std::vector{third, first, second}));
    EXPECT_EQ(store_->load(second)->folder, inbox_);
}

TEST_F(StoreItems, IdentitiesAreNeverGivenAgain) {
    const RowId first = add(u"first");
    store_->remove_item(first);
    EXPECT_NE(add(u"second"), first);
    store_->remove_folder(other_);
    reopen();
    EXPECT_GT(store_->add_folder(folder_named(u"New")), other_);
}

TEST_F(StoreItems, CountsFollowEveryChange) {
    ItemData unread = item_with_subject(u"news");
    unread.fields[u"unread"] = true;
    ItemData read = item_with_subject(u"old");
    read.fields[u"UnRead"] = false;
    auto counts = [&] {
        return std::vector{store_->count(inbox_), store_->unread(inbox_), store_->count(other_),
                           store_->unread(other_)};
    };
    const RowId first = store_->add_item(inbox_, unread);
    store_->add_item(inbox_, read);
    EXPECT_EQ(counts(), (std::vector<std::int64_t>{2, 1, 0, 0}));
    store_->move_item(first, other_);
    EXPECT_EQ(counts(), (std::vector<std::int64_t>{1, 0, 1, 1}));
    store_->update_item(first, read, false);
    EXPECT_EQ(counts(), (std::vector<std::int64_t>{1, 0, 1, 0}));
    store_->update_item(first, unread, false);
    reopen();
    EXPECT_EQ(counts(), (std::vector<std::int64_t>{1, 0, 1, 1}));
    store_->remove_item(first);
    EXPECT_EQ(counts(), (std::vector<std::int64_t>{1, 0, 0, 0}));
}

TEST_F(StoreItems, AFolderGoesWithEverythingBelowIt) {
    const RowId below = store_->add_folder(folder_named(u"Below", inbox_));
    const RowId deeper = store_->add_folder(folder_named(u"Deeper", below));
    ItemData item = item_with_subject(u"gone");
    item.attachments = {file_attachment("gone too")};
    const RowId gone = store_->add_item(deeper, item);
    const RowId stays = store_->add_item(other_, item);
    store_->remove_folder(inbox_);
    ASSERT_EQ(store_->folders().size(), 1u);
    EXPECT_EQ(store_->folders()[0].id, other_);
    EXPECT_FALSE(store_->load(gone));
    EXPECT_TRUE(store_->attachments(gone).empty());
    EXPECT_TRUE(store_->items(deeper).empty());
    EXPECT_TRUE(store_->lookup(deeper, u"Subject", u"gone").empty());
    EXPECT_EQ(store_->lookup(other_, u"Subject", u"gone"), std::vector{stays});
    EXPECT_EQ(store_->attachments(stays).size(), 1u);
    EXPECT_EQ(store_->count(other_), 1);
}

template <typename Call>
std::int32_t failure_number(Call call) {
    try {
        call();
    } catch (const automation::Failure& failure) {
        return failure.number();
    }
    return 0;
}

TEST_F(StoreItems, WhatIsNotThereIsNotFoundAndCannotBeChanged) {
    const RowId item = add(u"x");
    constexpr RowId nowhere = 4711;
    EXPECT_FALSE(store_->load(nowhere));
    EXPECT_TRUE(store_->items(nowhere).empty());
    EXPECT_TRUE(store_->attachments(nowhere).empty());
    EXPECT_EQ(store_->count(nowhere), 0);
    EXPECT_EQ(store_->unread(nowhere), 0);
    const auto not_found = automation::result::not_found;
    EXPECT_EQ(failure_number([&] { store_->add_item(nowhere, {}); }), not_found);
    EXPECT_EQ(failure_number([&] { store_->update_item(nowhere, {}, true); }), not_found);
    EXPECT_EQ(failure_number([&] { store_->move_item(nowhere, inbox_); }), not_found);
    EXPECT_EQ(failure_number([&] { store_->move_item(item, nowhere); }), not_found);
    EXPECT_EQ(failure_number([&] { store_->remove_item(nowhere); }), not_found);
    EXPECT_EQ(failure_number([&] { store_->add_folder(folder_named(u"x", nowhere)); }), not_found);
    EXPECT_EQ(failure_number([&] { store_->update_folder({.id = nowhere}); }), not_found);
    EXPECT_EQ(failure_number([&] { store_->update_folder({.id = inbox_, .parent = nowhere}); }), not_found);
    EXPECT_EQ(failure_number([&] { store_->remove_folder(nowhere); }), not_found);
    EXPECT_EQ(store_->items(inbox_), std::vector{item});
    EXPECT_EQ(store_->lookup(inbox_, u"Subject", u"x"), std::vector{item});
}

TEST_F(StoreItems, WhatWasNotKeptIsUndone) {
    const RowId before = add(u"before");
    {
        Store::Transaction transaction(*store_);
        add(u"lost");
        store_->update_item(before, item_with_subject(u"changed"), false);
        store_->add_folder(folder_named(u"lost"));
        EXPECT_EQ(store_->count(inbox_), 2);
    }
    EXPECT_EQ(store_->items(inbox_), std::vector{before});
    EXPECT_EQ(store_->count(inbox_), 1);
    EXPECT_EQ(store_->folders().size(), 2u);
    EXPECT_EQ(store_->load(before)->data, item_with_subject(u"before"));
    EXPECT_EQ(store_->lookup(inbox_, u"Subject", u"before"), std::vector{before});
    EXPECT_TRUE(store_->lookup(inbox_, u"Subject", u"changed").empty());
    EXPECT_TRUE(store_->lookup(inbox_, u"Subject", u"lost").empty());
}

TEST_F(StoreItems, AnInnerTransactionIsUndoneAloneAndKeptWithTheOuterOne) {
    {
        Store::Transaction outer(*store_);
        add(u"outer");
        {
            Store::Transaction lost(*store_);
            add(u"lost");
            Store::Transaction innermost(*store_);
            add(u"lost with the one around it");
            innermost.keep();
        }
        {
            Store::Transaction kept(*store_);
            add(u"kept");
            kept.keep();
        }
        outer.keep();
    }
    {
        Store::Transaction outer(*store_);
        Store::Transaction inner(*store_);
        add(u"lost");
        inner.keep();
    }
    reopen();
    EXPECT_EQ(store_->count(inbox_), 2);
    EXPECT_EQ(store_->lookup(inbox_, u"Subject", u"outer").size(), 1u);
    EXPECT_EQ(store_->lookup(inbox_, u"Subject", u"kept").size(), 1u);
}

TEST_F(StoreItems, ACallThatFailsChangesNothingAndLeavesTheTransactionGoing) {
    ItemData unstorable = item_with_subject(u"bad");
    unstorable.fields[u"Object"] = automation::Value(std::shared_ptr<automation::Invocable>());
    const RowId item = add(u"x");
    Store::Transaction transaction(*store_);
    EXPECT_THROW(store_->add_item(inbox_, unstorable), automation::Failure);
    EXPECT_THROW(store_->update_item(item, unstorable, true), automation::Failure);
    EXPECT_THROW(store_->move_item(item, 4711), automation::Failure);
    add(u"y");
    transaction.keep();
    EXPECT_EQ(store_->count(inbox_), 2);
    EXPECT_EQ(store_->lookup(inbox_, u"Subject", u"x"), std::vector{item});
}

}  // namespace
