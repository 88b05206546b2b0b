// What a desk in a test's own process needs from its surroundings and nobody watches: a clock that stands
// still, and nothing else. A test overrides what it is about.
#pragma once

#include "automation/value.h"
#include "desk/base/surroundings.h"

namespace desk_tests {

class IdleSurroundings : public desk::Surroundings {
  public:
    automation::Date now() override { return automation::to_date({2026, 3, 3, 9, 15, 0}); }
    automation::Date to_utc(automation::Date local) override { return local; }
    std::string random_bytes(std::size_t count) override { return std::string(count, 'r'); }
    desk::ItemData read_mail(automation::TextView) override { return {}; }
    automation::Text page_text(automation::TextView html) override { return automation::Text(html); }
    void wake() override {}
    void post(std::function<void()>) override {}
    void pump(std::int32_t) override {}
    std::unique_ptr<desk::WindowDriver> window(automation::TextView) override { return nullptr; }
    int ask(automation::TextView, automation::TextView, std::uint32_t) override { return 0; }
    automation::Object create_object(automation::TextView) override { return {}; }
    bool has_class(automation::TextView) override { return false; }
    std::vector<desk::IndexedFile> indexed_files() override { return {}; }
    std::vector<desk::StartedProgram> programs() override { return {}; }
    std::vector<automation::Text> opened() override { return {}; }
    std::vector<desk::LiveCount> live() override { return {}; }
    std::vector<desk::CallCount> calls() override { return {}; }
    void reset_calls() override {}
    void snapshot(automation::TextView) override {}
    void connect_add_in(automation::TextView, bool) override {}
    void quit() override {}
    void changed() override {}
    void remember_option(automation::TextView, automation::TextView) override {}
};

}  // namespace desk_tests
