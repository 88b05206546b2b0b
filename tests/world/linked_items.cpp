#include "tests/world/linked_items.h"

#include "addin/ground/settings.h"

namespace acceptance {

using automation::Object;
using automation::TextView;
using automation::Value;
using host::outlook::Folder;
using host::outlook::Item;
using host::outlook::Items;
using host::outlook::UserProperties;

Folder Replicas::own(World& world, const LinkedKind& kind) {
    return world.name_space().GetDefaultFolder(kind.own_folder);
}

Folder Replicas::shared(World& world, const LinkedKind& kind) { return shared(world, kind.shared_folder); }

Folder Replicas::shared(World& world, TextView name) {
    return Folder(world.account_profiles().Parent()).Folders().Item(name);
}

Item Replicas::add(World& world, const LinkedKind& kind, const LinkedPlan& plan) {
    const Item item = new_item(world, kind.own_folder,
                               plan.message_class.empty() ? kind.message_class : plan.message_class);
    item.Subject(plan.subject);
    item.Body(u"With the plans of last week.\r\nAnd \"quotes\".");
    item.put(u"Categories", u"Blue");
    const UserProperties properties = item.UserProperties();
    const auto set = [&](TextView name, TextView value) {
        if (const auto property = properties.Find(name)) property.value(Value(value));
    };
    set(kind.key, plan.key);
    set(u"AccountID", plan.account_id);
    set(u"ContactID", plan.contact_id);
    set(u"Account Name", u"North Mill Ltd");
    set(u"Contact Name", u"Ann Lee");
    set(u"Team", u"Sales");
    item.Save();
    world.wait_for_handlers();
    if (plan.opened) open(item);
    return item;
}

void Replicas::open(const Item& item) {
    opened_.push_back(std::make_unique<OpenedItem>(item));
    opened_.back()->show();
}

void Replicas::change(World& world, const Item& item, TextView subject) {
    item.Subject(subject);
    item.Save();
    world.wait_for_handlers();
}

World& Replicas::emptied(const LinkedKind& kind) {
    World& same = world();
    close_forms();
    for (const TextView option : {kind.enabled, kind.folder_option}) {
        if (!addin::Settings(same.desktop()).option(option).empty()) same.option(option, u"");
    }
    guard(same, kind, false);
    empty_folder(own(same, kind));
    empty_folder(shared(same, kind));
    same.wait_for_handlers();
    return same;
}

bool Replicas::guard(World& world, const LinkedKind& kind) {
    return world.connect().get(kind.guard).to_boolean();
}

void Replicas::guard(World& world, const LinkedKind& kind, bool value) {
    world.connect().put(kind.guard, value);
}

std::string Replicas::described(World& world, const Item& item) {
    return shown(world.desk().call(u"Describe", {Value(item)}).to_text());
}

std::vector<std::string> Replicas::described(World& world, const Folder& folder) {
    const Items items = folder.Items();
    const std::int32_t count = items.Count();
    std::vector<std::string> all;
    for (std::int32_t i = 1; i <= count; ++i) all.push_back(described(world, items.Item(i)));
    return all;
}

std::vector<std::string> Replicas::subjects(const Folder& folder) {
    const Items items = folder.Items();
    const std::int32_t count = items.Count();
    std::vector<std::string> all;
    for (std::int32_t i = 1; i <= count; ++i) all.push_back(shown(items.Item(i).Subject()));
    return all;
}

void Replicas::expect_one_replica(World& world, const LinkedKind& kind, const Item& item) {
    const std::vector<std::string> alone{described(world, item)};
    EXPECT_EQ(described(world, own(world, kind)), alone) << "in the user's own folder";
    EXPECT_EQ(described(world, shared(world, kind)), alone) << "in the shared folder";
}

Item Replicas::add_twin(const LinkedKind& kind, const Folder& folder, TextView subject, TextView key) {
    const Item twin = folder.Items().Add(kind.message_class);
    twin.Subject(subject);
    twin.UserProperties().Item(kind.key).value(Value(key));
    twin.Save();
    return twin;
}

void Replicas::meanwhile(World& world, TextView moment, const Object& object, TextView member,
                         const Value& value) {
    world.desk().call(u"Meanwhile", {Value(moment), Value(object), Value(member), value});
}

}  // namespace acceptance
