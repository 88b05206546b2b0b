// The system for pieces that ask little of it: a registry of the fuzzer's own, and 8-bit texts in UTF-8.
#pragma once

#include "addin/host/desktop.h"

namespace fuzz {

class QuietDesktop : public host::Desktop {
  public:
    explicit QuietDesktop(host::Registry& registry) : registry_(registry) {}

    host::Registry& registry() override { return registry_; }
    automation::Object create(automation::TextView) override { return refuse(); }
    automation::Object application() override { return refuse(); }
    int message_box(automation::TextView, automation::TextView, std::uint32_t) override { return 0; }
    void sleep(std::uint32_t) override {}
    void pointer(forms::Pointer) override {}
    int dots_per_inch() override { return 96; }
    automation::Text find_file(automation::TextView) override { return {}; }
    void delete_file(automation::TextView) override { refuse(); }
    std::intptr_t shell_execute(const host::ShellRequest&) override { return 0; }
    automation::Text section_names(automation::TextView, std::uint32_t) override { return {}; }
    automation::Text profile_text(automation::TextView, automation::TextView, automation::TextView,
                                  std::uint32_t) override {
        return {};
    }
    void beep() override {}
    automation::Text own_folder() override { return {}; }
    automation::Text text_of(const automation::Value& value) override { return value.to_text(); }
    automation::Date date_of(automation::TextView) override { return refuse(), automation::Date(); }
    automation::Text format(automation::TextView, automation::TextView) override {
        return refuse(), automation::Text();
    }
    std::string narrow(automation::TextView text) override { return automation::to_utf8(text); }
    automation::Text widen(const std::string& bytes) override { return automation::from_utf8(bytes); }

  private:
    void yield() override {}
    static automation::Object refuse() { throw automation::Failure(automation::result::not_implemented); }

    host::Registry& registry_;
};

}  // namespace fuzz
