// The index of fields answers what a walk over the items would.
#include <gtest/gtest.h>

#include <random>

#include "desk/store/field_index.h"
#include "tests/unit/support/store_support.h"

namespace {

using namespace store_tests;
using desk::ItemData;
using desk::RowId;
using desk::Store;

class StoreLookup : public testing::Test {
  protected:
    std::unique_ptr<Store> store_ = Store::open(":memory:");
    RowId folder_ = store_->add_folder(folder_named(u"Contacts"));

    std::vector<RowId> lookup(automation::TextView field, automation::TextView value) {
        return store_->lookup(folder_, field, value);
    }
};

TEST_F(StoreLookup, FindsTextWithoutRegardToCase) {
    const RowId item = store_->add_item(folder_, item_with_subject(u"O'Brien \u00C4rger"));
    EXPECT_EQ(lookup(u"Subject", u"o'brien \u00E4RGER"), std::vector{item});
    EXPECT_EQ(lookup(u"SUBJECT", u"O'Brien \u00C4rger"), std::vector{item});
    EXPECT_TRUE(lookup(u"Subject", u"O'Brien").empty());
    EXPECT_TRUE(lookup(u"FullName", u"O'Brien \u00C4rger").empty());
}

TEST_F(StoreLookup, FindsUserPropertiesAsWellAsFields) {
    ItemData item;
    item.user_properties = {{u"ContactID", 1, u"C-1"}, {u"account name", 1, u"Acme"}, {u"OppID", 3, 42.0}};
    const RowId id = store_->add_item(folder_, item);
    EXPECT_EQ(lookup(u"ContactID", u"c-1"), std::vector{id});
    EXPECT_EQ(lookup(u"Account Name", u"ACME"), std::vector{id});
    EXPECT_EQ(lookup(u"OppID", u"42"), std::vector{id});
}

TEST_F(StoreLookup, FindsAnItemThatBearsTheNameTwiceByEither) {
    ItemData item = item_with_subject(u"field");
    item.user_properties = {{u"Subject", 1, u"property"}};
    const RowId id = store_->add_item(folder_, item);
    EXPECT_EQ(lookup(u"Subject", u"field"), std::vector{id});
    EXPECT_EQ(lookup(u"Subject", u"property"), std::vector{id});
    EXPECT_TRUE(lookup(u"Subject", u"").empty());
    item.user_properties[0].value = u"";
    store_->update_item(id, item, false);
    EXPECT_EQ(lookup(u"Subject", u"field"), std::vector{id});
    EXPECT_EQ(lookup(u"Subject", u""), std::vector{id});
}

TEST_F(StoreLookup, AnEmptyValueFindsWhatIsEmptyOrUnset) {
    const RowId unset = store_->add_item(folder_, {});
    store_->add_item(folder_, item_with_subject(u"x"));
    const RowId blank = store_->add_item(folder_, item_with_subject(u""));
    ItemData null;
    null.fields[u"Subject"] = automation::Null{};
    const RowId nothing = store_->add_item(folder_, null);
    EXPECT_EQ(lookup(u"Subject", u""), (std::vector{unset, blank, nothing}));
    EXPECT_EQ(lookup(u"FullName", u"").size(), 4u);
}

TEST(IndexEntries, AreNoneForWhatIsEmpty) {
    ItemData item = item_with_subject(u"");
    item.user_properties = {{u"ContactID", 1, automation::Value()}, {u"NoteID", 1, u""}};
    EXPECT_TRUE(desk::index_entries(item).empty());
    item.fields[u"FullName"] = u"x";
    EXPECT_EQ(desk::index_entries(item).size(), 1u);
}

TEST_F(StoreLookup, LongValuesCountByTheirFirst255Characters) {
    const automation::Text start(255, u'x');
    const RowId longer = store_->add_item(folder_, item_with_subject(start + u"yes"));
    const RowId other = store_->add_item(folder_, item_with_subject(start + u"no"));
    store_->add_item(folder_, item_with_subject(start.substr(1)));
    EXPECT_EQ(lookup(u"Subject", start + u"YES"), (std::vector{longer, other}));
}

TEST_F(StoreLookup, OnlyIndexedFieldsAreFound) {
    ItemData item;
    item.fields[u"Body"] = u"text";
    store_->add_item(folder_, item);
    EXPECT_TRUE(lookup(u"Body", u"text").empty());
    EXPECT_FALSE(desk::is_indexed(u"Body"));
    for (const char16_t* field :
         {u"Email1Address", u"email2address", u"Email3Address", u"Fullname", u"Subject", u"EmailSearchString",
          u"AccountID", u"ContactID", u"OppID", u"Inquiry ID", u"ApptID", u"TaskID", u"NoteID", u"CustomerID",
          u"Account Name", u"CompanyName", u"Fileas", u"RecordType"}) {
        EXPECT_TRUE(desk::is_indexed(field)) << automation::to_utf8(field);
        ItemData bearer;
        bearer.fields[field] = u"value of " + automation::Text(field);
        const RowId id = store_->add_item(folder_, bearer);
        EXPECT_EQ(lookup(field, u"VALUE of " + automation::Text(field)), std::vector{id});
    }
}

TEST_F(StoreLookup, SeesWhatTheOpenTransactionDid) {
    Store::Transaction outer(*store_);
    const RowId first = store_->add_item(folder_, item_with_subject(u"a"));
    {
        Store::Transaction undone(*store_);
        store_->add_item(folder_, item_with_subject(u"a"));
        store_->update_item(first, item_with_subject(u"b"), false);
        EXPECT_EQ(lookup(u"Subject", u"b"), std::vector{first});
        EXPECT_EQ(lookup(u"Subject", u"a").size(), 1u);
        store_->add_item(folder_, item_with_subject(u"never asked for"));
    }
    EXPECT_EQ(lookup(u"Subject", u"a"), std::vector{first});
    EXPECT_TRUE(lookup(u"Subject", u"b").empty());
    EXPECT_TRUE(lookup(u"Subject", u"never asked for").empty());
    outer.keep();
    EXPECT_EQ(lookup(u"Subject", u"a"), std::vector{first});
}

TEST_F(StoreLookup, ManyItemsOfOneTransactionAreAllFound) {
    // So many that the index is written in several parts.
    constexpr int many = 60000;
    Store::Transaction transaction(*store_);
    ItemData item;
    for (int i = 0; i < many; ++i) {
        const automation::Text number = automation::to_text(i);
        for (const char16_t* field : {u"Subject", u"FullName", u"FileAs", u"Email1Address", u"CompanyName",
                                      u"Email2Address", u"Email3Address", u"AccountID", u"ContactID"}) {
            item.fields[field] = number;
        }
        store_->add_item(folder_, item);
    }
    transaction.keep();
    const std::vector<RowId> all = store_->items(folder_);
    ASSERT_EQ(all.size(), static_cast<std::size_t>(many));
    for (int i = 0; i < many; i += 997) {
        EXPECT_EQ(lookup(u"ContactID", automation::to_text(i)),
                  std::vector{all[static_cast<std::size_t>(i)]});
    }
}

/// What a walk over a folder finds.
std::vector<RowId> scan(Store& store, RowId folder, automation::TextView field, automation::TextView value) {
    std::vector<RowId> found;
    for (const RowId item : store.items(folder)) {
        const ItemData data = store.load(item)->data;
        const auto place = data.fields.find(field);
        const automation::Text text =
            place == data.fields.end() ? automation::Text() : place->second.to_text();
        if (automation::same_ignoring_case(text, value)) found.push_back(item);
    }
    return found;
}

TEST_F(StoreLookup, EqualsAScanAfterAnyChanges) {
    std::mt19937 random(7);
    auto one_of = [&](const auto& choices) { return choices[random() % std::size(choices)]; };
    constexpr const char16_t* fields[] = {u"Subject", u"FullName", u"Email1Address"};
    constexpr const char16_t* values[] = {u"", u"a", u"A", u"b", u"\u00E9", u"\u00C9", u"\u0416", u"ab"};
    const RowId folders[] = {folder_, store_->add_folder(folder_named(u"Second"))};
    std::vector<RowId> items;
    auto random_item = [&] {
        ItemData item;
        for (const char16_t* field : fields) {
            if (random() % 4) item.fields[field] = one_of(values);
        }
        return item;
    };
    for (int step = 0; step < 1500; ++step) {
        const std::size_t place = items.empty() ? 0 : random() % items.size();
        const auto action = random() % 6;
        if (items.empty() || action <= 2) {
            items.push_back(store_->add_item(one_of(folders), random_item()));
        } else if (action == 3) {
            store_->update_item(items[place], random_item(), false);
        } else if (action == 4) {
            store_->move_item(items[place], one_of(folders));
        } else {
            store_->remove_item(items[place]);
            items.erase(items.begin() + static_cast<std::ptrdiff_t>(place));
        }
        if (step % 50 != 0) continue;
        for (const RowId folder : folders) {
            for (const char16_t* field : fields) {
                for (const char16_t* value : values) {
                    ASSERT_EQ(store_->lookup(folder, field, value), scan(*store_, folder, field, value));
                }
            }
        }
    }
}

}  // namespace
