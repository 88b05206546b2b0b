#include "family/named_properties.h"

#include <gmock/gmock.h>

#include "tests/unit/support/family_fakes.h"

namespace {

using namespace family_test;
using family::NamedProperties;
using family::read_named_property;
using family::read_tag;

constexpr TextView contact_set = u"{00062004-0000-0000-C000-000000000046}";
constexpr TextView string_set = u"{00020329-0000-0000-C000-000000000046}";

struct TagCase {
    Value form;
    family::Tag tag;
};

TEST(Tag, IsReadFromNumbersAndTexts) {
    const TagCase cases[] = {
        {0x0C1F001E, 0x0C1F001E},      {static_cast<std::int32_t>(0x8001001E), 0x8001001E},
        {-2147418082, 0x8001001E},     {2147549214.0, 0x8001001E},
        {-2147418082.0, 0x8001001E},   {u"0x0C1F001E", 0x0C1F001E},
        {u"0X0c1f001e", 0x0C1F001E},   {u"&H3001001E", 0x3001001E},
        {u"&h3001001e&", 0x3001001E},  {u"&H8001001E", 0x8001001E},
        {u" 0x39FE001E ", 0x39FE001E}, {u"203358238", 0x0C1F001E},
        {u"-2147418082", 0x8001001E},  {u"2147549214", 0x8001001E},
    };
    for (const TagCase& example : cases) {
        EXPECT_EQ(read_tag(example.form), example.tag) << readable(example.form);
    }
}

TEST(Tag, IsRefusedWhereItIsNone) {
    const Value cases[] = {
        Value(),
        Value(automation::Null{}),
        Value(true),
        Value(u""),
        Value(u"0x"),
        Value(u"&H"),
        Value(u"Subject"),
        Value(u"0x0C1F001G"),
        Value(u"0x-1"),
        Value(u"0x10C1F001E"),
        Value(u"12 3"),
        Value(1e12),
        Value(u"&H30&01001E"),
        Value(u"-2147483649"),
        Value(u"0x1E&"),
    };
    for (const Value& example : cases) {
        EXPECT_EQ(failure_of([&] { read_tag(example); }), automation::result::invalid_argument)
            << static_cast<int>(example.type());
    }
}

TEST(Tag, HasTheAddressOfItsProperty) {
    EXPECT_EQ(readable(NamedProperties().address(0x0C1F001E)),
              "http://schemas.microsoft.com/mapi/proptag/0x0C1F001E");
    EXPECT_EQ(readable(NamedProperties().address(0x001A001E)),
              "http://schemas.microsoft.com/mapi/proptag/0x001A001E");
}

TEST(NamedProperties, GiveATagWithoutATypeForEachName) {
    NamedProperties named;
    const family::Tag by_number = named.tag(read_named_property(contact_set, 0x8083));
    const family::Tag by_name = named.tag(read_named_property(string_set, u"ContactID"));
    EXPECT_EQ(by_number & 0xFFFF, 0u);
    EXPECT_GE(by_number, 0x80000000u);
    EXPECT_GE(by_name, 0x80000000u);
    EXPECT_NE(by_number, by_name);
    EXPECT_EQ(named.tag(read_named_property(u" {00062004-0000-0000-c000-000000000046}", 0x8083)), by_number);
    EXPECT_NE(named.tag(read_named_property(string_set, 0x8083)), by_number);
}

TEST(NamedProperties, KeepTheirAddressesWhenOneIsAskedForAgain) {
    NamedProperties named;
    const family::Tag first = named.tag(read_named_property(string_set, u"First"));
    EXPECT_EQ(named.tag(read_named_property(string_set, u"First")), first);
    const family::Tag second = named.tag(read_named_property(string_set, u"Second"));
    EXPECT_TRUE(named.address(first).ends_with(u"/First"));
    EXPECT_TRUE(named.address(second).ends_with(u"/Second"));
}

TEST(NamedProperties, HaveAddressesByNumberAndByName) {
    NamedProperties named;
    const family::Tag by_number = named.tag(read_named_property(contact_set, 0x8083));
    const family::Tag by_name = named.tag(read_named_property(string_set, u"Account Name"));
    EXPECT_EQ(readable(named.address(by_number | 0x1E)),
              "http://schemas.microsoft.com/mapi/id/{00062004-0000-0000-C000-000000000046}/8083001E");
    EXPECT_EQ(readable(named.address(by_number | 0x40)),
              "http://schemas.microsoft.com/mapi/id/{00062004-0000-0000-C000-000000000046}/80830040");
    EXPECT_EQ(readable(named.address(by_number)),
              "http://schemas.microsoft.com/mapi/id/{00062004-0000-0000-C000-000000000046}/8083001E");
    for (const family::Tag type : {0x0u, 0x1Eu}) {
        EXPECT_EQ(
            readable(named.address(by_name | type)),
            "http://schemas.microsoft.com/mapi/string/{00020329-0000-0000-C000-000000000046}/Account%20Name");
    }
}

TEST(NamedProperties, TakeANumberOfSixteenBitsWithItsSign) {
    NamedProperties named;
    EXPECT_EQ(named.tag(read_named_property(contact_set, 0x8083 - 0x10000)),
              named.tag(read_named_property(contact_set, 0x8083)));
    EXPECT_NE(named.tag(read_named_property(contact_set, u"0x8083")),
              named.tag(read_named_property(contact_set, 0x8083)));
}

TEST(NamedProperties, RefuseWhatIsNoSetAndNoName) {
    for (const TextView set :
         {u"", u"00062004-0000-0000-C000-000000000046", u"{00062004-0000-0000-C000-00000000004G}",
          u"{00062004-0000-0000-C000-000000000046}}"}) {
        EXPECT_EQ(failure_of([&] { read_named_property(set, 1); }), automation::result::invalid_argument);
    }
    EXPECT_EQ(failure_of([&] { read_named_property(contact_set, Value()); }),
              automation::result::invalid_argument);
    EXPECT_EQ(failure_of([&] { read_named_property(contact_set, u""); }),
              automation::result::invalid_argument);
}

TEST(NamedProperties, KnowNoTagThatTheyDidNotGive) {
    NamedProperties named;
    const family::Tag given = named.tag(read_named_property(contact_set, 0x8083));
    for (const family::Tag tag : {0x8000001Eu, given + 0x10000, 0xFFFF001Eu}) {
        EXPECT_EQ(failure_of([&] { named.address(tag); }), automation::result::not_found);
    }
}

TEST(NamedProperties, EndWhenAllAreGivenOut) {
    NamedProperties named;
    const auto fill = [&] {
        for (std::int32_t id = 0; id < 0x8000; ++id) named.tag(read_named_property(contact_set, id));
    };
    EXPECT_EQ(failure_of(fill), automation::result::fail);
}

TEST(NamedProperties, EscapeWhatWouldEndTheAddress) {
    NamedProperties named;
    EXPECT_EQ(readable(named.address(named.tag(read_named_property(string_set, u"50% of \"A/B\"")))),
              "http://schemas.microsoft.com/mapi/string/{00020329-0000-0000-C000-000000000046}/"
              "50%25%20of%20%22A%2FB%22");
}

}  // namespace
