// Small stand-ins for the host, so that the family can be asked without one.
#pragma once

#include <functional>
#include <map>
#include <set>
#include <vector>

#include <gtest/gtest.h>

#include "automation/automated.h"
#include "family/context.h"
#include "tests/native/memory_forms.h"

namespace family_test {

using automation::Access;
using automation::Failure;
using automation::Object;
using automation::Request;
using automation::Text;
using automation::TextView;
using automation::Value;

/// An object whose members are properties and functions that a test puts in. It counts what it is asked.
class Fake : public automation::Invocable {
  public:
    using Code = std::function<Value(std::vector<Value>&)>;

    std::map<Text, Value> properties;
    std::map<Text, Code> functions;
    std::vector<Text> asked;                 ///< members, in order, as "name" or "name=" for a put
    const automation::Kind* kind = nullptr;  ///< that the last request named

    Value invoke(Request& request) override {
        const Text member = request.member.empty()
                                ? names_.at(static_cast<std::size_t>(request.id - first_id))
                                : Text(request.member);
        kind = request.kind;
        asked.push_back(request.access == Access::put ? member + u"=" : member);
        if (request.access == Access::put) {
            properties[member] = request.arguments.back();
            return {};
        }
        if (const auto function = functions.find(member); function != functions.end()) {
            return function->second(request.arguments);
        }
        if (const auto property = properties.find(member); property != properties.end())
            return property->second;
        throw Failure(automation::result::unknown_name, member);
    }

    std::optional<automation::MemberIds> identify(TextView member, std::span<const Text>) override {
        const Text name(member);
        if (!functions.contains(name) && !properties.contains(name)) return std::nullopt;
        names_.push_back(name);
        return automation::MemberIds{.id = first_id + static_cast<std::int32_t>(names_.size()) - 1};
    }

  private:
    static constexpr std::int32_t first_id =
        0x60000;  // where the ids of classes without a platform's ids begin

    std::vector<Text> names_;
};

inline std::shared_ptr<Fake> fake(std::map<Text, Value> properties = {}) {
    auto made = std::make_shared<Fake>();
    made->properties = std::move(properties);
    return made;
}

/// A collection, counted from 1; every condition holds for all of it.
inline std::shared_ptr<Fake> collection(const std::vector<Object>& elements) {
    auto made = fake({{u"Count", static_cast<std::int32_t>(elements.size())}});
    made->functions[u"Item"] = [elements](std::vector<Value>& arguments) -> Value {
        const std::int32_t index = arguments.at(0).to_integer();
        if (index < 1 || index > static_cast<std::int32_t>(elements.size()))
            throw Failure(automation::result::bad_index);
        return elements[static_cast<std::size_t>(index) - 1];
    };
    made->functions[u"Restrict"] = [elements](std::vector<Value>&) -> Value {
        return Object(collection(elements));
    };
    return made;
}

/// Offers MAPI properties by their schema addresses, under `PropertyAccessor`.
inline void offer_fields(Fake& owner, const std::map<Text, Value>& values) {
    auto accessor = fake();
    Fake* raw = accessor.get();
    raw->functions[u"GetProperty"] = [values](std::vector<Value>& arguments) -> Value {
        const auto found = values.find(arguments.at(0).to_text());
        if (found == values.end()) throw Failure(automation::result::not_found, u"The property is unknown");
        return found->second;
    };
    raw->functions[u"SetProperty"] = [raw](std::vector<Value>& arguments) -> Value {
        raw->properties[arguments.at(0).to_text()] = arguments.at(1);
        return {};
    };
    owner.properties[u"PropertyAccessor"] = Object(accessor);
}

/// A profile: message stores with their trees of folders.
class Profile {
  public:
    struct Node {
        Text name;
        std::vector<Node> children{};
        std::vector<Object> items{};
        Text id{};  ///< entry id; made of the path if empty
        Text message_class{};
    };

    explicit Profile(std::vector<Node> stores) : stores_(std::move(stores)) {}

    /// The application object of this profile as it is now.
    Object application() {
        folders_.clear();
        std::vector<Object> roots;
        for (std::size_t i = 0; i < stores_.size(); ++i) {
            roots.push_back(make(stores_[i], u"STORE" + automation::to_text(static_cast<long long>(i) + 1),
                                 Text(), Object()));
        }
        auto name_space = fake({{u"Folders", Object(collection(roots))}});
        name_space->functions[u"GetFolderFromID"] = [this](std::vector<Value>& arguments) -> Value {
            ++opened;
            const auto found = folders_.find({arguments.at(0).to_text(), arguments.at(1).to_text()});
            if (found == folders_.end()) throw Failure(automation::result::not_found);
            return found->second;
        };
        auto application = fake();
        application->functions[u"GetNamespace"] = [name_space](std::vector<Value>& arguments) -> Value {
            EXPECT_EQ(arguments.at(0), Value(u"MAPI"));
            return Object(name_space);
        };
        return Object(application);
    }

    std::vector<Node>& stores() { return stores_; }

    int opened = 0;            ///< how often a folder was opened by its id
    int listed = 0;            ///< how often a folder's subfolders were read
    std::set<Text> offline{};  ///< folders whose subfolders can't be read

  private:
    Object make(const Node& node, const Text& store, const Text& above, const Object& parent) {
        const Text path = above + u"/" + node.name;
        const Text id = node.id.empty() ? u"ID:" + path : node.id;
        auto folder = fake({{u"Name", node.name}, {u"EntryID", id}, {u"StoreID", store}});
        folder->functions[u"Parent"] = [above_it =
                                            std::weak_ptr(parent.target())](std::vector<Value>&) -> Value {
            const auto target = above_it.lock();
            if (!target) throw Failure(automation::result::fail, u"Nothing is above a store");
            return Object(target);
        };
        std::vector<Object> children;
        for (const Node& child : node.children) children.push_back(make(child, store, path, Object(folder)));
        folder->functions[u"Folders"] = [this, children, name = node.name](std::vector<Value>&) -> Value {
            ++listed;
            if (offline.contains(name)) throw Failure(automation::result::fail, u"The store is offline");
            return Object(collection(children));
        };
        folder->properties[u"DefaultMessageClass"] = node.message_class;
        folder->properties[u"Items"] = Object(collection(node.items));
        folders_[{id, store}] = Object(folder);
        return Object(folder);
    }

    std::vector<Node> stores_;
    std::map<std::pair<Text, Text>, Object> folders_;
};

/// Settings in a map, calls in a list, a profile and windows in memory.
class FakeContext : public family::Context {
  public:
    explicit FakeContext(std::vector<Profile::Node> stores = {}) : profile(std::move(stores)) {}
    ~FakeContext() override { close_windows(); }

    std::optional<Text> read_setting(TextView name) override {
        const auto found = settings.find(Text(name));
        return found == settings.end() ? std::nullopt : std::optional(found->second);
    }
    Object application() override {
        if (!with_application) throw Failure(automation::result::bad_prog_id, u"No host");
        return profile.application();
    }
    std::shared_ptr<forms::Engine> engine() override { return {std::shared_ptr<void>(), &windows}; }
    Text number_text(double number) override {
        return automation::replaced(Value(number).to_text(), u".", TextView(&decimal_sign, 1));
    }
    void tell(TextView text) override { ADD_FAILURE() << automation::to_utf8(text); }
    void record(Text call) override { calls.push_back(std::move(call)); }

    std::map<Text, Text> settings;
    std::vector<Text> calls;
    native::Strands strands;
    native::MemoryEngine windows{strands};
    Profile profile;
    bool with_application = true;
    char16_t decimal_sign = u'.';
};

/// The number of the failure that an action ends with; 0 if it does not fail.
template <class Action>
std::int32_t failure_of(Action action) {
    try {
        action();
        return 0;
    } catch (const Failure& failure) {
        return failure.number();
    }
}

/// Texts of a failed comparison, readable.
inline std::vector<std::string> readable(const std::vector<Text>& texts) {
    std::vector<std::string> all;
    for (const Text& text : texts) all.push_back(automation::to_utf8(text));
    return all;
}
inline std::string readable(const Value& value) { return automation::to_utf8(value.to_text()); }

}  // namespace family_test
