#include "tests/native/memory_forms.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "automation/failure.h"

namespace native {

using automation::Failure;
using automation::TextView;
using forms::Events;
using forms::FormTable;
using forms::to_pixels;
using forms::to_twips;
namespace result = automation::result;

namespace {

/// What the frame adds to the client area, as on a plain desktop of today: 16 and 39 pixels at 96.
constexpr int frame_width = 240, frame_height = 585;  // twips

/// Virtual keys that do more than to make a character.
namespace virtual_key {
constexpr int backspace = 8, tab = 9, enter = 13, escape = 27, space = 32;
}

/// The character that a virtual key makes without the shift key, or 0.
char16_t character_of(int code) {
    constexpr int to_lower_case = 'a' - 'A';
    if (code >= 'A' && code <= 'Z') return static_cast<char16_t>(code + to_lower_case);
    if (code >= '0' && code <= '9') return static_cast<char16_t>(code);
    switch (code) {
        case virtual_key::backspace:
        case virtual_key::enter:
        case virtual_key::escape:
        case virtual_key::space:
            return static_cast<char16_t>(code);
        default:
            return 0;
    }
}

}  // namespace

// The engine

std::unique_ptr<forms::View> MemoryEngine::make(const FormTable& table, std::weak_ptr<Events> events,
                                                BeforeCall before_call) {
    return std::make_unique<MemoryWindow>(*this, table, std::move(events), std::move(before_call));
}

MemoryWindow* MemoryEngine::find(TextView caption) const {
    MemoryWindow* found = nullptr;
    for (MemoryWindow* window : windows_) {
        if (window->caption() != caption) continue;
        const auto rank = [](const MemoryWindow& one) {
            return std::pair(one.visible_, one.brought_to_front_);
        };
        if (!found || rank(*window) > rank(*found)) found = window;
    }
    return found;
}

// What the logic sees of a window

MemoryWindow::MemoryWindow(MemoryEngine& engine, const FormTable& table, std::weak_ptr<Events> events,
                           BeforeCall before_call)
    : engine_(engine),
      table_(table),
      events_(std::move(events)),
      before_call_(std::move(before_call)),
      caption_(table.caption),
      dots_per_inch_(engine.dots_per_inch),
      width_(to_pixels(table.width + frame_width, dots_per_inch_)),
      height_(to_pixels(table.height + frame_height, dots_per_inch_)),
      number_(++engine.made_) {
    for (const forms::ControlRow& row : table.controls) {
        controls_.push_back(std::make_unique<MemoryControl>(*this, row));
    }
    engine_.windows_.push_back(this);
}

MemoryWindow::~MemoryWindow() {
    if (engine_.active_ == this) engine_.active_ = nullptr;
    std::erase(engine_.windows_, this);
}

MemoryControl* MemoryWindow::find(TextView name) {
    const auto found = std::ranges::find_if(
        controls_, [&](const auto& control) { return control->table_row().name == name; });
    return found == controls_.end() ? nullptr : found->get();
}

MemoryControl& MemoryWindow::control(TextView name) {
    if (MemoryControl* const found = find(name)) return *found;
    throw std::logic_error("There is no control " + automation::to_utf8(name) + ".");
}

void MemoryWindow::show() {
    const bool came_up = !std::exchange(visible_, true);
    minimized_ = false;
    if (table_.takes_keyboard) {
        become_active();
    } else {
        brought_to_front_ = ++engine_.shows_;
    }
    if (came_up) engine_.on_show(*this);
}

void MemoryWindow::show_modal() {
    if (!engine_.strands_.running()) throw NotInAStrand();
    MemoryEngine& engine = engine_;
    const int number = ++engine.modal_shows_;
    for (MemoryWindow* other : engine.windows_) {
        if (other != this && other->visible_ && !other->blocked()) other->blocked_by_ = number;
    }
    const std::weak_ptr<bool> alive = alive_;
    show();
    engine.strands_.park([this, alive] { return alive.expired() || !visible_; },
                         [this, alive] {
                             if (!alive.expired()) hide();
                         });
    for (MemoryWindow* other : engine.windows_) {
        if (other->blocked_by_ == number) other->blocked_by_ = 0;
    }
}

void MemoryWindow::hide() {
    visible_ = false;
    if (active()) engine_.active_ = nullptr;
}

forms::Size MemoryWindow::size() const {
    return {to_twips(width_, dots_per_inch_), to_twips(height_, dots_per_inch_)};
}

// Events

bool MemoryWindow::raise(const Deed& event) {
    const std::weak_ptr<bool> alive = alive_;
    MemoryEngine& engine = engine_;
    {
        const std::shared_ptr<void> owner = engine.owner_.lock();
        if (const std::shared_ptr<Events> events = events_.lock()) {
            try {
                event(*events);
            } catch (const NotInAStrand&) {
                throw;  // the test's own mistake
            } catch (const Failure& failure) {
                engine.failures.emplace_back(failure.what());
            } catch (const std::exception& exception) {
                engine.faults.emplace_back(exception.what());
            }
        }
    }
    return !alive.expired();
}

bool MemoryWindow::act(const std::function<void()>& deed) {
    Strands& strands = engine_.strands_;
    strands.run(deed);
    strands.resume_parked();
    return true;
}

// The focus

bool MemoryWindow::busy() const {
    return pointer_ == forms::Pointer::hourglass || engine_.screen_pointer() == forms::Pointer::hourglass;
}

bool MemoryWindow::active() const { return engine_.active_ == this; }

void MemoryWindow::become_active() {
    brought_to_front_ = ++engine_.shows_;
    if (active()) return;
    engine_.active_ = this;
    if (!raise([](Events& events) { events.on_activate(); })) return;
    if (!active()) return;
    if (focused_ && focused_->usable()) return;
    focused_ = nullptr;
    if (!raise([](Events& events) { events.on_focus(); })) return;
    if (!focused_) focus_on_default();
}

void MemoryWindow::focus(MemoryControl& control) { focused_ = &control; }

void MemoryWindow::check_focus() {
    if (!active() || !focused_ || focused_->usable()) return;
    focused_ = nullptr;
    focus_on_default();
}

void MemoryWindow::focus_on_default() {
    MemoryControl* const wanted = find(table_.first_focus);
    if (wanted && wanted->takes_focus() && wanted->usable()) {
        focused_ = wanted;
        return;
    }
    for (const auto& control : controls_) {
        if (control->takes_focus() && control->usable()) {
            focused_ = control.get();
            return;
        }
    }
}

void MemoryWindow::move_focus_on() {
    std::vector<MemoryControl*> stops;
    for (const auto& control : controls_) {
        if (control.get() == focused_ || (control->takes_focus() && control->usable())) {
            stops.push_back(control.get());
        }
    }
    if (stops.empty()) return;
    const auto here = std::ranges::find(stops, focused_);
    const bool wraps = here == stops.end() || here + 1 == stops.end();
    focused_ = wraps ? stops.front() : *(here + 1);
}

void MemoryWindow::select_option(const MemoryControl& option) {
    for (const auto& control : controls_) {
        if (control->table_row().kind == option.table_row().kind &&
            control->table_row().frame == option.table_row().frame) {
            control->let_go();
        }
    }
}

// What a person does

bool MemoryWindow::press(TextView button) {
    MemoryControl* const pressed = find(button);
    if (!pressed || !pressed->is_button() || !pressed->usable()) return false;
    pressed->press();
    return true;
}

void MemoryWindow::press_key(int code) {
    MemoryControl* const at = focused_ && focused_->usable() ? focused_ : nullptr;
    if (code == virtual_key::tab) {
        move_focus_on();
    } else if (code == virtual_key::enter && at && at->is_pressed_by(code)) {
        at->press();
    } else if ((code == virtual_key::enter && press(table_.default_button)) ||
               (code == virtual_key::escape && press(table_.cancel_button))) {
        return;
    } else if (const char16_t character = character_of(code); character != 0) {
        if (!raise([character](Events& events) { events.on_character(character); })) return;
        if (!at || !at->usable()) return;
        if (at->is_pressed_by(code)) {
            at->press();
        } else if (at->is_text_box()) {
            put_character(*at, character);
        }
    }
}

void MemoryWindow::put_character(MemoryControl& box, char16_t character) {
    const TextView name = box.table_row().name;
    if (!raise([&](Events& events) { events.on_key_press(name, character); })) return;
    if (box.put_character(character)) raise([&](Events& events) { events.on_change(name); });
}

bool MemoryWindow::key(int code) {
    if (!reachable()) return false;
    const std::weak_ptr<bool> alive = alive_;
    return act([this, alive, code] {
        become_active();  // keys come to no other
        if (!alive.expired() && reachable()) press_key(code);
    });
}

bool MemoryWindow::resize(int width, int height) {
    if (!reachable() || !table_.sizable || minimized_) return false;
    if (width == width_ && height == height_) return true;
    width_ = width;
    height_ = height;
    return act([this] { raise([](Events& events) { events.on_resize(); }); });
}

bool MemoryWindow::minimize() {
    if (!reachable() || !table_.can_minimize) return false;
    minimized_ = !minimized_;
    return act([this] { raise([](Events& events) { events.on_resize(); }); });
}

bool MemoryWindow::close() {
    if (!reachable()) return false;
    return act([this] { raise([](Events& events) { events.on_close(); }); });
}

bool MemoryWindow::activate() {
    if (!reachable()) return false;
    if (active()) engine_.active_ = nullptr;
    return act([this] { become_active(); });
}

}  // namespace native
