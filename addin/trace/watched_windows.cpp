#include "addin/trace/watched_windows.h"

namespace addin::trace {

using automation::Text;
using automation::TextView;

/// Tells of each event before it hands it on. Of what is typed it tells nothing.
class WatchedEngine::HeardEvents final : public forms::Events {
  public:
    HeardEvents(std::shared_ptr<Teller> teller, TextView window, std::weak_ptr<forms::Events> events)
        : teller_(std::move(teller)), window_(automation::to_utf8(window)), events_(std::move(events)) {}

    bool gone() const { return events_.expired(); }

    void on_activate() override {
        tell("Activate", {}, [](Events& events) { events.on_activate(); });
    }
    void on_focus() override {
        tell("Focus", {}, [](Events& events) { events.on_focus(); });
    }
    void on_resize() override {
        tell("Resize", {}, [](Events& events) { events.on_resize(); });
    }
    void on_character(char16_t character) override {
        tell("Character", {}, [&](Events& events) { events.on_character(character); });
    }
    void on_close() override {
        tell("Close", {}, [](Events& events) { events.on_close(); });
    }
    void on_click(TextView control) override {
        tell("Click", control, [&](Events& events) { events.on_click(control); });
    }
    void on_double_click(TextView control) override {
        tell("DoubleClick", control, [&](Events& events) { events.on_double_click(control); });
    }
    void on_change(TextView control) override {
        tell("Change", control, [&](Events& events) { events.on_change(control); });
    }
    void on_key_press(TextView control, char16_t character) override {
        tell("KeyPress", control, [&](Events& events) { events.on_key_press(control, character); });
    }
    void on_column_click(TextView control, int column) override {
        tell("ColumnClick", control, [&](Events& events) { events.on_column_click(control, column); });
    }
    void on_drop(TextView control, int x, int y) override {
        tell("Drop", control, [&](Events& events) { events.on_drop(control, x, y); });
    }

  private:
    template <class Handle>
    void tell(std::string_view event, TextView control, Handle&& handle) {
        const std::shared_ptr<forms::Events> events = events_.lock();
        if (!events) return;
        const std::shared_ptr<Teller> teller = teller_;
        const std::string place = control.empty() ? window_ : window_ + "." + automation::to_utf8(control);
        const Entry entry(teller.get(), place + "." + std::string(event));
        handle(*events);
    }

    std::shared_ptr<Teller> teller_;
    std::string window_;
    std::weak_ptr<forms::Events> events_;
};

class WatchedEngine::WatchedView final : public forms::View {
  public:
    WatchedView(std::shared_ptr<Teller> teller, std::unique_ptr<forms::View> view)
        : teller_(std::move(teller)), view_(std::move(view)) {}

    forms::Control& control(TextView name) override { return view_->control(name); }
    Text caption() const override { return view_->caption(); }
    void caption(TextView text) override { view_->caption(text); }
    bool visible() const override { return view_->visible(); }
    void show() override { view_->show(); }
    void show_modal() override {
        const std::shared_ptr<Teller> teller = teller_;  // the window may end meanwhile
        teller->turns(Turn::waiting);
        const TurnsBack back{*teller};
        view_->show_modal();
    }
    void hide() override { view_->hide(); }
    void topmost() override { view_->topmost(); }
    forms::Size size() const override { return view_->size(); }
    bool minimized() const override { return view_->minimized(); }
    int dots_per_inch() const override { return view_->dots_per_inch(); }
    std::intptr_t system_handle() const override { return view_->system_handle(); }
    void pointer(forms::Pointer pointer) override { view_->pointer(pointer); }

  private:
    std::shared_ptr<Teller> teller_;
    std::unique_ptr<forms::View> view_;
};

std::unique_ptr<forms::View> WatchedEngine::make(const forms::FormTable& table,
                                                 std::weak_ptr<forms::Events> events) {
    std::erase_if(heard_, [](const auto& heard) { return heard->gone(); });
    heard_.push_back(std::make_shared<HeardEvents>(teller_, table.name, std::move(events)));
    return std::make_unique<WatchedView>(teller_, engine_.make(table, heard_.back()));
}

}  // namespace addin::trace
