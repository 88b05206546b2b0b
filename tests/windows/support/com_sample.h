// A small class of our own and two apartments: what one of them bridges, the other adapts, as two programs
// would.
#pragma once

#include <gtest/gtest.h>

#include <map>

#include "automation/automated.h"
#include "automation/com/apartment.h"
#include "automation/com/named.h"
#include "automation/events.h"

namespace windows::testing {

using automation::Access;
using automation::Failure;
using automation::Object;
using automation::Request;
using automation::Text;
using automation::TextView;
using automation::Value;

inline constexpr automation::Event sample_events[] = {{u"Opened", 1}, {u"Sending", 2, 0b10}, {u"Closed", 3}};
inline constexpr automation::EventInterface sample_interface{
    "SampleEvents", automation::guid("{8A4C1E52-6F0B-4D7A-9E35-1B2C3D4E5F60}"), sample_events};

/// Knows a value, answers calls of every shape and raises events.
class Sample : public automation::Automated<Sample>, public Named {
  public:
    static const automation::Members<Sample>& members();
    [[nodiscard]] std::string_view class_name() const override { return "Sample"; }
    bool has_events(const automation::Guid& interface_id) override;
    std::int32_t subscribe(const automation::Guid& interface_id, const Object& sink) override;
    void unsubscribe(const automation::Guid& interface_id, std::int32_t cookie) override;

    /// Raises an event to every sink; the arguments come back as the sinks have changed them.
    void raise(std::int32_t id, std::vector<Value>& arguments, std::uint32_t by_reference = 0);

    static constexpr TextView broken = u"broken";  ///< an item that can't be handed out

    Value value;
    std::vector<Value> items;
    std::map<std::int32_t, Object> sinks;

  private:
    std::int32_t last_cookie_ = 0;
};

/// The same members under ids of their own, as an object of another version would have.
class LaterSample : public automation::Automated<LaterSample> {
  public:
    static const automation::Members<LaterSample>& members();
};

/// COM, and the two sides of the border.
class Border : public ::testing::Test {
  protected:
    Border() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
    ~Border() override { CoUninitialize(); }

    /// An object as the other side sees it.
    Object seen(const std::shared_ptr<automation::Invocable>& object) {
        return Object(outside->adapt(inside->bridge(object).get()));
    }

    Module module;
    std::shared_ptr<BridgeCounter> counter = std::make_shared<BridgeCounter>();
    std::shared_ptr<Apartment> inside = Apartment::create(module, u"Sample program", counter);
    std::shared_ptr<Apartment> outside = Apartment::create(module, u"Client");
};

/// The number of the failure that an action throws; 0 if it throws none.
template <class Action>
std::int32_t failure_number(Action&& action) {
    try {
        action();
    } catch (const Failure& failure) {
        return failure.number();
    }
    return 0;
}

}  // namespace windows::testing
