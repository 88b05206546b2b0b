#include "automation/com/event_sink.h"
#include "tests/windows/support/com_sample.h"
#include "tests/windows/support/fault_check.h"

namespace windows::testing {
namespace {

using Events = Border;

/// Stands for the inside of a sink.
class Listener : public automation::Invocable {
  public:
    Value invoke(Request&) override { return {}; }
};

TEST_F(Events, ArriveWithTheirArgumentsInOrder) {
    auto source = std::make_shared<Sample>();
    std::vector<Value> heard;
    automation::Sink sink;
    sink.connect(
        sample_interface, seen(source),
        {{u"Opened", [&](std::span<Value> arguments) { heard.assign(arguments.begin(), arguments.end()); }}});
    std::vector<Value> arguments{u"first", 2};
    source->raise(1, arguments);
    EXPECT_EQ(heard, arguments);
    source->raise(3, arguments);  // no handler: nothing happens
}

TEST_F(Events, AHandlerMayCancelByReference) {
    auto source = std::make_shared<Sample>();
    automation::Sink sink;
    bool was = true;
    sink.connect(sample_interface, seen(source), {{u"Sending", [&](std::span<Value> arguments) {
                                                       was = arguments[1].to_boolean();
                                                       arguments[1] = true;
                                                   }}});
    std::vector<Value> arguments{u"mail", false};
    source->raise(2, arguments, sample_events[1].outs);
    EXPECT_FALSE(was);
    EXPECT_EQ(arguments[1], Value(true));
}

TEST_F(Events, EndWithTheSubscription) {
    auto source = std::make_shared<Sample>();
    int count = 0;
    std::vector<Value> none;
    {
        automation::Sink sink;
        sink.connect(sample_interface, seen(source), {{u"Opened", [&](std::span<Value>) { ++count; }}});
        source->raise(1, none);
        EXPECT_EQ(source->sinks.size(), 1U);
    }
    EXPECT_TRUE(source->sinks.empty());
    source->raise(1, none);
    EXPECT_EQ(count, 1);
}

TEST_F(Events, EachSubscriptionEndsByItself) {
    auto source = std::make_shared<Sample>();
    std::string heard;
    automation::Sink first, second;
    first.connect(sample_interface, seen(source),
                  {{u"Opened", [&](std::span<Value>) { heard += "first "; }}});
    second.connect(sample_interface, seen(source),
                   {{u"Opened", [&](std::span<Value>) { heard += "second "; }}});
    std::vector<Value> none;
    source->raise(1, none);
    second.clear();
    source->raise(1, none);
    EXPECT_EQ(heard, "first second first ");
}

TEST_F(Events, AHandlerMayEndItsOwnSubscription) {
    auto source = std::make_shared<Sample>();
    automation::Sink sink;
    int count = 0;
    sink.connect(sample_interface, seen(source), {{u"Opened", [&](std::span<Value>) {
                                                       ++count;
                                                       sink.clear();
                                                   }}});
    std::vector<Value> none;
    source->raise(1, none);
    source->raise(1, none);
    EXPECT_EQ(count, 1);
    EXPECT_TRUE(source->sinks.empty());
}

TEST_F(Events, AHandlersFailureStaysAFailureOfTheCall) {
    auto source = std::make_shared<Sample>();
    automation::Sink sink;
    sink.connect(
        sample_interface, seen(source),
        {{u"Opened", [](std::span<Value>) { throw Failure(automation::result::access_denied, u"No"); }},
         {u"Closed", [](std::span<Value>) { throw 1; }}});
    std::vector<Value> none;
    EXPECT_EQ(failure_number([&] { source->raise(1, none); }), automation::result::access_denied);
    EXPECT_EQ(failure_number([&] { source->raise(3, none); }), E_UNEXPECTED);
    expect_faults(1);
}

TEST_F(Events, AHandlersOwnMissingMemberIsNoUnknownEvent) {
    auto source = std::make_shared<Sample>();
    automation::Sink sink;
    sink.connect(sample_interface, seen(source),
                 {{u"Opened",
                   [](std::span<Value>) { throw Failure(automation::result::member_not_found, u"Gone"); }}});
    std::vector<Value> none;
    EXPECT_EQ(failure_number([&] { source->raise(1, none); }), automation::result::member_not_found);
    EXPECT_EQ(failure_number([&] { source->raise(99, none); }), 0) << "an event of later days";
}

TEST_F(Events, ASourceWithoutThemRefuses) {
    static constexpr automation::EventInterface other{
        "Other", automation::guid("{00000000-0000-0000-0000-000000000001}"), {}};
    automation::Sink sink;
    EXPECT_EQ(failure_number([&] { sink.connect(other, seen(std::make_shared<Sample>()), {}); }),
              automation::result::no_connection);
    EXPECT_EQ(
        failure_number([&] { sink.connect(sample_interface, seen(std::make_shared<LaterSample>()), {}); }),
        automation::result::no_connection);
}

TEST_F(Events, ConnectionPointsAreFoundByTheirInterface) {
    const auto bridge = inside->bridge(std::make_shared<Sample>());
    const auto container = bridge.as<IConnectionPointContainer>(IID_IConnectionPointContainer);
    ASSERT_TRUE(container);
    ComPtr<IConnectionPoint> point;
    const IID events = to_guid(sample_interface.id);
    EXPECT_EQ(container->FindConnectionPoint(events, nullptr), E_POINTER);
    EXPECT_EQ(container->FindConnectionPoint(IID_IDispatch, point.put()), CONNECT_E_NOCONNECTION);
    ASSERT_EQ(container->FindConnectionPoint(events, point.put()), S_OK);

    IID iid{};
    EXPECT_EQ(point->GetConnectionInterface(&iid), S_OK);
    EXPECT_EQ(iid, events);
    ComPtr<IConnectionPointContainer> back;
    EXPECT_EQ(point->GetConnectionPointContainer(back.put()), S_OK);
    EXPECT_EQ(back.as<IUnknown>(IID_IUnknown).get(), bridge.as<IUnknown>(IID_IUnknown).get());

    DWORD cookie = 0;
    EXPECT_EQ(point->Advise(nullptr, &cookie), E_POINTER);
    EXPECT_EQ(point->Advise(bridge.get(), &cookie), CONNECT_E_CANNOTCONNECT) << "no sink of these events";
    EXPECT_EQ(point->Unadvise(77), CONNECT_E_NOCONNECTION);
}

TEST_F(Events, ASinkAnswersForItsInterfaceOnly) {
    const auto sink = EventSink::create(outside, std::make_shared<Listener>(), sample_interface.id);
    const IID events = to_guid(sample_interface.id);
    EXPECT_TRUE(sink.as<IUnknown>(IID_IUnknown));
    EXPECT_TRUE(sink.as<IDispatch>(IID_IDispatch));
    EXPECT_TRUE(sink.as<IDispatch>(events));
    EXPECT_FALSE(sink.as<IDispatch>(IID_IConnectionPointContainer));
    DISPPARAMS none{};
    EXPECT_EQ(sink->Invoke(1, IID_IDispatch, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
              DISP_E_UNKNOWNINTERFACE);
    EXPECT_EQ(sink->Invoke(1, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr), E_POINTER);
}

}  // namespace
}  // namespace windows::testing
