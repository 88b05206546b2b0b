// Items as bytes: what is written is read again, and bytes that are broken are refused.
#include <gtest/gtest.h>

#include <random>

#include "automation/object.h"
#include "desk/store/bytes.h"
#include "desk/store/item_codec.h"
#include "tests/unit/support/store_support.h"

namespace {

using namespace store_tests;
using desk::ItemData;

TEST(ItemCodec, AnItemOfEverythingIsReadAsItWasWritten) {
    const ItemData item = rich_item();
    EXPECT_EQ(desk::read_item(desk::write_item(item)), item);
}

TEST(ItemCodec, EachValueIsReadAsItWasWritten) {
    for (const auto& [name, value] : rich_item().fields) {
        ItemData item;
        item.fields[name] = value;
        EXPECT_EQ(desk::read_item(desk::write_item(item)), item) << automation::to_utf8(name);
    }
}

TEST(ItemCodec, TheBareFormLeavesOutNothingButTheAttachments) {
    ItemData item = rich_item();
    const std::string bytes = desk::write_bare_item(item);
    item.attachments.clear();
    EXPECT_EQ(desk::read_item(bytes), item);
}

TEST(ItemCodec, AttachmentsAreReadAsTheyWereWritten) {
    for (const desk::AttachmentData& attachment : rich_item().attachments) {
        EXPECT_TRUE(desk::read_attachment(desk::write_attachment(attachment)) == attachment);
    }
}

TEST(ItemCodec, LatinTextTakesAByteForEachLetter) {
    const std::size_t empty = desk::write_item(item_with_subject(u"")).size();
    EXPECT_EQ(desk::write_item(item_with_subject(automation::Text(60, u'x'))).size(), empty + 60);
    EXPECT_EQ(desk::write_item(item_with_subject(automation::Text(60, u'\u00FF'))).size(), empty + 60);
    EXPECT_EQ(desk::write_item(item_with_subject(automation::Text(60, u'\u0100'))).size(), empty + 120);
}

/// An item in an item, and so on.
ItemData embedded(int levels) {
    ItemData item = item_with_subject(u"innermost");
    for (int level = 1; level < levels; ++level) {
        ItemData outer = item_with_subject(u"outer");
        outer.attachments.emplace_back().item = std::make_shared<const ItemData>(std::move(item));
        item = std::move(outer);
    }
    return item;
}

TEST(ItemCodec, ItemsAreEmbeddedUpToFiftyLevels) {
    const ItemData deepest = embedded(50);
    EXPECT_EQ(desk::read_item(desk::write_item(deepest)), deepest);
    EXPECT_THROW(desk::write_item(embedded(51)), automation::Failure);
    EXPECT_TRUE(desk::read_attachment(desk::write_attachment(deepest.attachments[0])) ==
                deepest.attachments[0]);
}

TEST(ItemCodec, WhatCannotBeStoredIsRefused) {
    ItemData item;
    item.fields[u"Object"] = automation::Value(automation::Object());
    EXPECT_THROW(desk::write_item(item), automation::Failure);
    automation::Value nested = automation::Array::of({});
    for (int i = 0; i < 60; ++i) nested = automation::Array::of({nested});
    item.fields[u"Object"] = nested;
    EXPECT_THROW(desk::write_item(item), automation::Failure);
}

TEST(ItemCodec, EveryBeginningOfAnItemIsRefused) {
    const std::string bytes = desk::write_item(rich_item());
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        EXPECT_THROW(desk::read_item(bytes.substr(0, size)), automation::Failure) << size;
    }
    EXPECT_THROW(desk::read_item(bytes + '\0'), automation::Failure);
}

TEST(ItemCodec, AnotherVersionIsRefused) {
    std::string bytes = desk::write_item(rich_item());
    ++bytes.front();
    EXPECT_THROW(desk::read_item(bytes), automation::Failure);
}

struct Broken {
    const char* what;
    std::string bytes;
};

TEST(ItemCodec, BytesThatClaimTooMuchAreRefused) {
    using namespace std::string_literals;
    const std::string head = "\x01\x00\x01\x00"s;  // version, no class, one field without a name
    const Broken all[] = {
        {"a text as long as memory", "\x01\xFE\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x01"s},
        {"a number of more than 64 bits", "\x01\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x7F"s},
        {"more fields than bytes", "\x01\x00\xFF\xFF\x7F"s},
        {"an unknown type of value", head + "\x0A\x00\x00\x00"s},
        {"an object", head + "\x08\x00\x00\x00"s},
        {"a boolean of 2", head + "\x03\x02\x00\x00\x00"s},
        {"an integer of more than 32 bits", head + "\x04\x80\x80\x80\x80\x80\x01\x00\x00\x00"s},
        {"an array of no dimension", head + "\x09\x00\x00\x00\x00"s},
        {"an array of three dimensions", head + "\x09\x03\x00\x00\x00\x00\x00\x00\x00\x00\x00"s},
        {"an array of two thousand million", head + "\x09\x01\x00\xFE\xFF\xFF\xFF\x0F\x00\x00\x00"s},
        {"an array that ends beyond all numbers", head + "\x09\x01\xFE\xFF\xFF\xFF\x0F\x02\x00\x00\x00\x00"s},
    };
    for (const Broken& broken : all)
        EXPECT_THROW(desk::read_item(broken.bytes), automation::Failure) << broken.what;
    EXPECT_EQ(desk::read_item(head + "\x03\x01\x00\x00\x00"s).fields.size(), 1u);  // the head itself is good
}

TEST(ItemCodec, NumbersEndAt64Bits) {
    const std::string nine(9, '\xFF');
    EXPECT_EQ(desk::ByteReader(nine + '\x01').natural(), std::numeric_limits<std::uint64_t>::max());
    EXPECT_THROW(desk::ByteReader(nine + '\x02').natural(), automation::Failure);
    EXPECT_THROW(desk::ByteReader(nine + nine).natural(), automation::Failure);
}

/// An item with a field that holds an array in an array and so on, as bytes: `write_item` would refuse to
/// write them.
std::string nested_arrays(int levels) {
    using namespace std::string_literals;
    std::string bytes = "\x01\x00\x01\x00"s;
    for (int level = 0; level < levels; ++level)
        bytes += "\x09\x01\x00\x02"s;  // one dimension, from 0, one element
    return bytes + "\x00\x00\x00\x00"s;
}

TEST(ItemCodec, BytesThatNestTooDeeplyAreRefused) {
    EXPECT_EQ(desk::read_item(nested_arrays(40)).fields.size(), 1u);
    EXPECT_THROW(desk::read_item(nested_arrays(60)), automation::Failure);
    EXPECT_THROW(desk::read_item(nested_arrays(1000000)), automation::Failure);
}

TEST(ItemCodec, ChangedBytesAreReadOrRefusedAndNothingElse) {
    const std::string good = desk::write_item(rich_item());
    std::mt19937 random(20260303);
    int refused = 0;
    for (int round = 0; round < 20000; ++round) {
        std::string bytes = good;
        for (int changes = 1 + static_cast<int>(random() % 3); changes > 0; --changes) {
            bytes[random() % bytes.size()] = static_cast<char>(random());
        }
        try {
            const ItemData item = desk::read_item(bytes);
            EXPECT_EQ(desk::write_item(desk::read_item(desk::write_item(item))), desk::write_item(item));
        } catch (const automation::Failure&) {
            ++refused;
        }
    }
    EXPECT_GT(refused, 1000);
    EXPECT_LT(refused, 20000);
}

}  // namespace
