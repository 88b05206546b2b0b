// Quick View follows the selection while its option is on, as whatever and by whomever that was stored.
#include "addin/ground/settings.h"
#include "tests/world/quick_view.h"

namespace acceptance {
namespace {

using host::outlook::Item;

class QuickViewOption : public SideView {
  protected:
    /// Stores the option as another program would, byte by byte.
    void store(std::uint32_t kind, const std::string& bytes) {
        host::Registry& registry = world().registry();
        host::KeyHandle key = host::no_key;
        ASSERT_EQ(
            registry.create_key(host::current_user, automation::to_utf8(addin::Settings::key_name), key), 0);
        EXPECT_EQ(registry.set_value(key, "EnableQuickView", kind, bytes.data(),
                                     static_cast<std::uint32_t>(bytes.size())),
                  0);
        registry.close_key(key);
    }
};

TEST_F(QuickViewOption, IsOnWhereItIsExactlyOneAtASelection) {
    using namespace std::string_literals;
    namespace type = host::registry_type;
    struct Case {
        const char* name;
        std::uint32_t kind;
        std::string bytes;
        bool is_on;
    };
    constexpr std::uint32_t binary = 3;
    const Case cases[] = {
        {"the number 1", type::dword, "\1\0\0\0"s, true},
        {"the number 0", type::dword, "\0\0\0\0"s, false},
        {"a text", type::text, "1"s, true},
        {"a text with a terminator", type::text, "1\0"s, true},
        {"a text with a blank before the digit", type::text, " 1"s, false},
        {"another kind of value", binary, "1"s, false},
    };
    World& world = with({});
    add_contact(world);
    show_folder(world, world.inbox());
    const Item mail = world.deliver(message()), other = world.deliver(message());
    select(mail);
    EXPECT_FALSE(view().is_open()) << "it isn't stored";
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        store(one.kind, one.bytes);
        select(other);
        EXPECT_EQ(view().is_open(), one.is_on);
        if (one.is_on) view().close();
    }
    // what is open stays as it is when the option has gone
    store(type::text, "1");
    select(mail);
    EXPECT_TRUE(view().is_open());
    store(type::text, "");
    select(other);
    EXPECT_TRUE(view().is_open());
    EXPECT_EQ(view().text(u"EmailID"), shown(mail.EntryID()));
}

}  // namespace
}  // namespace acceptance
