#include "tests/world/item_state.h"

#include <algorithm>
#include <sstream>

#include "tests/world/people.h"

namespace acceptance {

using automation::Object;
using automation::TextView;
using automation::Value;

ItemState state_of(const host::outlook::Item& item) {
    // the desk tells all at once: to ask for each of the hundreds of fields takes its time
    const Object desk = item.get(u"Application").to_object().get(u"Desk").to_object();
    std::istringstream lines(shown(desk.call(u"Describe", {Value(item)}).to_text()));
    ItemState state;
    for (std::string line; std::getline(lines, line);) {
        const std::size_t end = line.find(": ");
        std::string& value = state[line.substr(0, end)];  // of several recipients there is one entry
        value += (value.empty() ? "" : "; ") + line.substr(std::min(end + 2, line.size()));
    }
    return state;
}

Lines changes(const ItemState& before, const ItemState& after) {
    Lines lines;
    const auto value = [](const ItemState& state, const std::string& name) {
        const auto found = state.find(name);
        return found == state.end() ? std::string() : found->second;
    };
    ItemState all = before;
    all.insert(after.begin(), after.end());
    for (const auto& [name, unused] : all) {
        const std::string was = value(before, name), is = value(after, name);
        if (was != is) lines.push_back(name + ": " + is + " instead of " + was);
    }
    return lines;
}

void empty_folder(const host::outlook::Folder& folder) {
    const host::outlook::Items items = folder.Items();
    for (std::int32_t i = items.Count(); i >= 1; --i) items.call(u"Remove", {i});
}

Lines boxes(World& world, std::int32_t from) {
    const Object messages = world.desk().get(u"Messages").to_object();
    const std::int32_t count = messages.get(u"Count").to_integer();
    Lines lines;
    for (std::int32_t i = from + 1; i <= count; ++i) {
        const Object box = messages.call(u"Item", {i}).to_object();
        lines.push_back(shown(box.get(u"Title").to_text()) + ", " +
                        std::to_string(box.get(u"Style").to_integer()) + ": " +
                        shown(box.get(u"Text").to_text()));
    }
    return lines;
}

void press(World& world, const Object& window, TextView bar, TextView tag, bool waits) {
    const Object button = find_control(window, bar, tag);
    ASSERT_TRUE(button) << shown(tag);
    world.desk().call(u"Press", {Value(button)});
    if (waits) {
        EXPECT_TRUE(world.wait_for_handlers());
    }
}

void answer(World& world, TextView text, std::int32_t button) {
    world.desk().call(u"Answer", {u"Tarnwell", Value(text), button});
}

}  // namespace acceptance
