#include "automation/com/class_factory.h"
#include "automation/com/variant.h"
#include "tests/windows/support/com_sample.h"

namespace windows::testing {
namespace {

using Lifetime = Border;

TEST_F(Lifetime, AnObjectHasOneBridgeWhileItLives) {
    auto sample = std::make_shared<Sample>();
    const auto first = inside->bridge(sample);
    const auto second = inside->bridge(sample);
    EXPECT_EQ(first.get(), second.get());
    EXPECT_EQ(module.objects(), 1);
    EXPECT_NE(first.get(), inside->bridge(std::make_shared<Sample>()).get());
}

TEST_F(Lifetime, WhatComesBackIsWhatWentOut) {
    auto sample = std::make_shared<Sample>();
    const auto bridge = inside->bridge(sample);
    EXPECT_EQ(inside->adapt(bridge.get()), sample) << "our own object";
    const auto adapter = outside->adapt(bridge.get());
    EXPECT_NE(adapter, sample);
    EXPECT_EQ(outside->bridge(adapter).get(), bridge.get()) << "an object of COM";
    EXPECT_EQ(outside->adapt(bridge.get()), adapter) << "one adapter while it lives";
}

TEST_F(Lifetime, AnAddressThatIsUsedAgainIsAnotherObject) {
    IDispatch* const gone = inside->bridge(std::make_shared<Sample>()).get();
    const auto other = std::make_shared<Sample>();
    std::vector<ComPtr<IDispatch>> bridges;
    for (int i = 0; i < 50 && (bridges.empty() || bridges.back().get() != gone); ++i) {
        auto apartment = Apartment::create(module, u"Another");
        bridges.push_back(apartment->bridge(other));
        EXPECT_NE(inside->adapt(bridges.back().get()), other) << "a stranger's object is adapted";
        EXPECT_EQ(Object(inside->adapt(bridges.back().get())).call(u"Double", {i}), Value(2 * i));
    }
    EXPECT_EQ(bridges.back().get(), gone) << "the address did not come up again: the test showed nothing";
}

TEST_F(Lifetime, AnUnknownIsTheObjectThatItIs) {
    auto sample = std::make_shared<Sample>();
    Variant variant;
    variant.punkVal = inside->bridge(sample).as<IUnknown>(IID_IUnknown).detach();
    variant.vt = VT_UNKNOWN;
    EXPECT_EQ(to_value(variant, *inside).to_object().target(), sample);
}

TEST_F(Lifetime, AnswersThatAreTheSameObjectAreEqual) {
    const Object sample = seen(std::make_shared<Sample>());
    EXPECT_EQ(sample.get(u"Me").to_object(), sample);
    EXPECT_EQ(sample.call(u"Echo", {Value(sample)}).to_object(), sample);
}

TEST_F(Lifetime, ReferencesAreReleased) {
    auto sample = std::make_shared<Sample>();
    std::weak_ptr<Sample> watch = sample;
    {
        const Object object = seen(std::exchange(sample, nullptr));
        EXPECT_EQ(counter->live().at("Sample"), 1U);
        object.put(u"Value", u"kept");
        const Object again = object.get(u"Me").to_object();
        EXPECT_EQ(counter->live_in_all(), 1U);
        EXPECT_FALSE(watch.expired());
        EXPECT_FALSE(module.idle());
    }
    EXPECT_TRUE(watch.expired());
    EXPECT_TRUE(counter->live().empty());
    EXPECT_TRUE(module.idle());
}

TEST_F(Lifetime, FailedCallsAndEventsLeaveNothingBehind) {
    {
        auto source = std::make_shared<Sample>();
        const Object object = seen(source);
        for (int i = 0; i < 3; ++i) {
            EXPECT_NE(failure_number([&] { object.call(u"Fail", {automation::result::fail}); }), 0);
            EXPECT_NE(failure_number([&] { object.call(u"Double", {Value(object)}); }), 0);
        }
        automation::Sink sink;
        sink.connect(sample_interface, object,
                     {{u"Opened", [](std::span<Value>) { throw Failure(automation::result::fail); }}});
        std::vector<Value> arguments{Value(source)};
        EXPECT_NE(failure_number([&] { source->raise(1, arguments); }), 0);
    }
    EXPECT_TRUE(module.idle());
    EXPECT_EQ(counter->live_in_all(), 0U);
}

TEST_F(Lifetime, FactoriesMakeObjectsAndLockTheModule) {
    auto sample = std::make_shared<Sample>();
    auto factory =
        ClassFactory::create(module, [&] { return inside->bridge(sample).as<IUnknown>(IID_IUnknown); });
    ComPtr<IDispatch> made;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IDispatch, made.put_void()), S_OK);
    EXPECT_EQ(inside->adapt(made.get()), sample);
    ComPtr<IUnknown> other;
    EXPECT_EQ(factory->CreateInstance(made.get(), IID_IUnknown, other.put_void()), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IPersist, other.put_void()), E_NOINTERFACE);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
    made.reset();
    factory->LockServer(TRUE);
    factory.reset();
    EXPECT_FALSE(module.idle()) << "a lock holds the module without any object";
    EXPECT_EQ(module.objects(), 0);
    factory = ClassFactory::create(module, [] { return ComPtr<IUnknown>(); });
    factory->LockServer(FALSE);
    factory.reset();
    EXPECT_TRUE(module.idle());
}

TEST_F(Lifetime, HoldsKeepTheModuleWithoutAnyObject) {
    {
        const ModuleHold hold(module);
        const auto second = std::make_unique<ModuleHold>(hold);
        EXPECT_FALSE(module.may_unload());
    }
    EXPECT_EQ(module.objects(), 0);
    EXPECT_TRUE(module.may_unload());
    EXPECT_TRUE(module.may_unload()) << "asked again, it is the same";
}

TEST_F(Lifetime, AFactoryWhoseMakerFailsReportsIt) {
    const auto factory = ClassFactory::create(
        module, []() -> ComPtr<IUnknown> { throw Failure(automation::result::access_denied); });
    ComPtr<IUnknown> made;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, made.put_void()), E_ACCESSDENIED);
    EXPECT_FALSE(made);
}

}  // namespace
}  // namespace windows::testing
