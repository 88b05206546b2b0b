// The desk's model as an automation client meets it, on an empty database and without the add-in.
#pragma once

#include <gtest/gtest.h>

#include "addin/host/host_events.h"
#include "tests/native/native_world.h"
#include "tests/world/people.h"

namespace model_tests {

using acceptance::failure_of;
using automation::Object;
using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Folder;
using host::outlook::Item;
using host::outlook::Items;
namespace result = automation::result;

/// Numbers of the default folders and of the types of items.
namespace folder_number {
inline constexpr std::int32_t deleted = 3, outbox = 4, sent = 5, inbox = 6, calendar = 9, contacts = 10,
                              journal = 11, notes = 12, tasks = 13, drafts = 16;
}
namespace item_type {
inline constexpr std::int32_t mail = 0, appointment = 1, contact = 2, task = 3, note = 5, post = 6;
}

class ModelTest : public ::testing::Test {
  protected:
    explicit ModelTest(const acceptance::WorldSetup& setup = {.add_in = false}) : world(setup) {}

    native::NativeWorld world;
    host::outlook::Application application = world.application();
    host::outlook::NameSpace name_space = world.name_space();
    Object desk = world.desk();

    Folder default_folder(std::int32_t number) const { return name_space.GetDefaultFolder(number); }
    Folder inbox() const { return default_folder(folder_number::inbox); }
    Item create(std::int32_t type) const { return Item(application.call(u"CreateItem", {type}).to_object()); }

    /// A mail of the Inbox with that subject, saved.
    Item add_mail(TextView subject) const {
        const Item mail = inbox().Items().Add(u"IPM.Note");
        mail.Subject(subject);
        mail.Save();
        return mail;
    }

    static Text text(const Object& object, TextView member) { return object.get(member).to_text(); }
    static std::int32_t integer(const Object& object, TextView member) {
        return object.get(member).to_integer();
    }

    /// The subjects of a collection, in its order.
    static std::vector<Text> subjects(const Items& items) {
        std::vector<Text> all;
        const std::int32_t count = items.Count();
        for (std::int32_t i = 1; i <= count; ++i) all.push_back(items.Item(i).Subject());
        return all;
    }
    static Items restricted(const Items& items, TextView filter) {
        return Items(items.call(u"Restrict", {Value(filter)}).to_object());
    }
    static std::string shown(TextView text) { return automation::to_utf8(text); }
};

/// Notes the events of a source, as "ItemAdd Subject".
class Listener {
  public:
    Listener(const automation::EventInterface& interface, const Object& source,
             const std::vector<TextView>& events) {
        std::vector<automation::Handler> handlers;
        for (const TextView event : events) {
            handlers.push_back({event, [this, event](std::span<Value> arguments) {
                                    std::string line = automation::to_utf8(event);
                                    if (!arguments.empty() && arguments[0].is(Value::Type::object)) {
                                        const Object item = arguments[0].to_object();
                                        try {
                                            line += " " + automation::to_utf8(item.get(u"Subject").to_text());
                                        } catch (const automation::Failure&) {
                                            line += " ?";
                                        }
                                    }
                                    told.push_back(line);
                                }});
        }
        sink_.connect(interface, source, std::move(handlers));
    }

    std::vector<std::string> told;
    void leave() { sink_.clear(); }

  private:
    automation::Sink sink_;
};

using Told = std::vector<std::string>;

}  // namespace model_tests
