// The system as a traced load sees it: what it hands out is watched, and its own time is counted.
#pragma once

#include <memory>

#include "addin/host/desktop.h"
#include "addin/trace/story.h"
#include "automation/watched.h"

namespace addin::trace {

class WatchedDesktop final : public host::Desktop {
    template <class Work>
    auto in_turn(Turn turn, Work&& work) {
        teller_->turns(turn);
        const TurnsBack back{*teller_};
        return work();
    }

  public:
    WatchedDesktop(host::Desktop& desktop, const std::shared_ptr<Teller>& teller)
        : desktop_(desktop), teller_(teller), watch_(automation::Watch::create(teller)) {}

    host::Registry& registry() override { return desktop_.registry(); }
    automation::Object create(automation::TextView prog_id) override {
        return in_turn(Turn::host, [&] { return watch_->watched(desktop_.create(prog_id)); });
    }
    automation::Object application() override {
        return in_turn(Turn::host, [&] { return watch_->watched(desktop_.application()); });
    }
    int message_box(automation::TextView text, automation::TextView title, std::uint32_t style) override {
        return in_turn(Turn::waiting, [&] { return desktop_.message_box(text, title, style); });
    }
    void sleep(std::uint32_t milliseconds) override {
        in_turn(Turn::waiting, [&] { desktop_.sleep(milliseconds); });
    }
    void pointer(forms::Pointer pointer) override { desktop_.pointer(pointer); }
    int dots_per_inch() override { return desktop_.dots_per_inch(); }
    automation::Text find_file(automation::TextView path) override { return desktop_.find_file(path); }
    void delete_file(automation::TextView path) override { desktop_.delete_file(path); }
    std::intptr_t shell_execute(const host::ShellRequest& request) override {
        return in_turn(Turn::waiting, [&] { return desktop_.shell_execute(request); });
    }
    automation::Text section_names(automation::TextView path, std::uint32_t size) override {
        return desktop_.section_names(path, size);
    }
    automation::Text profile_text(automation::TextView path, automation::TextView section,
                                  automation::TextView key, std::uint32_t size) override {
        return desktop_.profile_text(path, section, key, size);
    }
    void beep() override { desktop_.beep(); }
    automation::Text own_folder() override { return desktop_.own_folder(); }
    automation::Text text_of(const automation::Value& value) override {
        return desktop_.text_of(automation::Watch::bare(value));
    }
    automation::Date date_of(automation::TextView text) override { return desktop_.date_of(text); }
    automation::Text format(automation::TextView value, automation::TextView named_format) override {
        return desktop_.format(value, named_format);
    }
    std::string narrow(automation::TextView text) override { return desktop_.narrow(text); }
    automation::Text widen(const std::string& bytes) override { return desktop_.widen(bytes); }

  private:
    void yield() override {
        in_turn(Turn::host, [&] { desktop_.yield(); });
    }

    host::Desktop& desktop_;
    std::shared_ptr<Teller> teller_;
    std::shared_ptr<automation::Watch> watch_;
};

}  // namespace addin::trace
