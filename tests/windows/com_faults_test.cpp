#include <stdexcept>

#include "automation/com/failure.h"
#include "automation/com/fault_watch.h"
#include "tests/windows/support/com_sample.h"
#include "tests/windows/support/fault_check.h"

namespace windows::testing {
namespace {

using Faults = Border;

[[noreturn]] void go_wrong() { throw std::logic_error("our own mistake"); }
[[noreturn]] void fail() { throw Failure(automation::result::fail, u"the host's failure"); }

TEST_F(Faults, AreCountedWhereverTheyEnd) {
    const Object sample = seen(std::make_shared<Sample>());
    automation::Sink sink;
    auto source = std::make_shared<Sample>();
    sink.connect(sample_interface, seen(source), {{u"Opened", [](std::span<Value>) { go_wrong(); }}});
    const std::pair<const char*, std::function<void()>> places[] = {
        {"a call", [&] { failure_number([&] { sample.call(u"Break", {u"anything"}); }); }},
        {"a call that needs memory", [&] { failure_number([&] { sample.call(u"Break", {u"memory"}); }); }},
        {"an event",
         [&] {
             std::vector<Value> arguments{u"mail"};
             failure_number([&] { source->raise(1, arguments); });
         }},
        {"an operation", [] { EXPECT_EQ(guarded([]() -> HRESULT { go_wrong(); }), E_UNEXPECTED); }},
        {"a callback", [] { contained(go_wrong); }},
    };
    std::uint32_t faults = 0;
    for (const auto& [where, act] : places) {
        const std::uint32_t before = FaultWatch::count();
        act();
        EXPECT_EQ(FaultWatch::count(), before + 1) << where;
        ++faults;
    }
    expect_faults(faults);
}

TEST_F(Faults, AreToldWithTheirPlace) {
    const unsigned next_line = __LINE__ + 1;
    contained([] { throw std::logic_error("a mistake to be told"); });
    const std::string told = automation::to_utf8(FaultWatch::told());
    const std::string place = std::string(__func__) + ", line " + std::to_string(next_line);
    EXPECT_NE(told.find(place + ": a mistake to be told"), std::string::npos) << told;
    expect_faults(1);
}

TEST_F(Faults, AreNotWhatTheHostFailsWith) {
    const Object sample = seen(std::make_shared<Sample>());
    EXPECT_EQ(failure_number([&] { sample.call(u"Fail", {automation::result::fail}); }),
              automation::result::fail);
    EXPECT_EQ(guarded([]() -> HRESULT { fail(); }), automation::result::fail);
    contained(fail);
    OutputDebugStringA("Some other program's fault in a line\n");
    expect_faults(0);
}

}  // namespace
}  // namespace windows::testing
