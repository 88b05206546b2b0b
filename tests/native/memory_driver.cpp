#include "tests/native/memory_driver.h"

#include <algorithm>

#include "automation/failure.h"

namespace native {
namespace {

using automation::Failure;
using automation::Text;
using automation::TextView;
using forms::ControlKind;
namespace result = automation::result;

/// A window that may have gone meanwhile.
class Watched {
  public:
    Watched(MemoryWindow& window, Post post)
        : window_(&window), life_(window.life()), post_(std::move(post)) {}

    bool is_there() const { return !life_.expired(); }
    MemoryWindow& window() const {
        if (!is_there()) throw Failure(result::object_deleted, u"The window has been closed.");
        return *window_;
    }
    /// Has a deed done to the window if it is still there by then.
    void post(std::function<void(MemoryWindow&)> deed) const {
        window();
        post_([self = *this, deed = std::move(deed)] {
            if (self.is_there()) deed(*self.window_);
        });
    }

  private:
    MemoryWindow* window_;
    std::weak_ptr<const bool> life_;
    Post post_;
};

desk::ControlDriver::Kind kind_of(const MemoryControl& control) {
    switch (control.table_row().kind) {
        case ControlKind::check_box:
        case ControlKind::option_button:
            return desk::ControlDriver::Kind::toggle;
        case ControlKind::combo_box:
        case ControlKind::drop_down_list:
            return desk::ControlDriver::Kind::combo;
        case ControlKind::report_list:
            return desk::ControlDriver::Kind::list;
        default:
            return desk::ControlDriver::Kind::plain;
    }
}

class MemoryControlDriver final : public desk::ControlDriver {
  public:
    MemoryControlDriver(Watched watched, MemoryControl& control)
        : watched_(std::move(watched)), control_(control) {}

    Kind kind() const override { return kind_of(control()); }
    Text text() const override { return control().text(); }
    void type(TextView text) override {
        if (!control().type(text)) throw Failure(result::fail, u"Nothing can be typed there.");
    }
    bool visible() const override { return control().shown(); }
    bool enabled() const override { return control().enabled(); }
    Text tool_tip() const override { return Text(control().table_row().tool_tip); }
    void click() override {
        post([](MemoryControl& control) { control.click(); });
    }
    void double_click() override {
        post([](MemoryControl& control) {
            if (kind_of(control) == Kind::list) control.double_click(control.memory_list().selected());
        });
    }
    void key(int code) override {
        post([code](MemoryControl& control) { control.key(code); });
    }
    bool is_checked() const override { return control().selected(); }

    int count() const override { return is_list() ? list().count() : choice().count(); }
    Text item(int row, int column) const override {
        return is_list() ? list().text(row, column) : choice().entry(row);
    }
    int selected() const override { return is_list() ? list().selected() : choice().chosen(); }
    void select(int row) override {
        const bool done = is_list() ? control().select(row) : control().choose(row);
        if (!done) throw Failure(result::fail, u"The entry can't be reached.");
    }

    int columns() const override { return list().columns(); }
    desk::ShownColumn column(int index) const override {
        return {list().heading(index), list().pixel_width(index), list().mark(index)};
    }
    void column_click(int index) override {
        post([index](MemoryControl& control) { control.column_click(index); });
    }
    void drop(int row, int column) override {
        if (!list().takes_drops()) throw Failure(result::fail, u"The list takes no drops.");
        post([row, column](MemoryControl& control) { control.drop(row, column); });
    }

  private:
    MemoryControl& control() const {
        watched_.window();
        return control_;
    }
    bool is_list() const { return kind() == Kind::list; }
    MemoryList& list() const { return control().memory_list(); }
    MemoryChoice& choice() const { return control().memory_choice(); }
    void post(std::function<void(MemoryControl&)> deed) const {
        watched_.post([control = &control_, deed = std::move(deed)](MemoryWindow&) { deed(*control); });
    }

    Watched watched_;
    MemoryControl& control_;
};

class MemoryWindowDriver final : public desk::WindowDriver {
  public:
    explicit MemoryWindowDriver(Watched watched) : watched_(std::move(watched)) {}

    Text caption() const override { return watched_.window().caption(); }
    bool visible() const override { return watched_.window().visible(); }
    bool topmost() const override { return watched_.window().is_topmost(); }
    desk::WindowPlace place() const override {
        const MemoryWindow& window = watched_.window();
        return {0, 0, window.pixel_width(), window.pixel_height()};
    }
    bool busy() const override { return watched_.window().busy(); }
    void close() override {
        watched_.post([](MemoryWindow& window) { window.close(); });
    }
    void resize(int width, int height) override {
        if (!watched_.window().resize(width, height)) {
            throw Failure(result::fail, u"The window's size can't be changed.");
        }
    }
    void key(int code) override {
        watched_.post([code](MemoryWindow& window) { window.key(code); });
    }
    std::unique_ptr<desk::ControlDriver> control(TextView name) override {
        const auto& all = watched_.window().controls();
        const auto found = std::ranges::find_if(all, [&](const auto& control) {
            return automation::same_ignoring_case(control->table_row().name, name);
        });
        if (found == all.end()) return nullptr;
        return std::make_unique<MemoryControlDriver>(watched_, **found);
    }

  private:
    Watched watched_;
};

}  // namespace

std::unique_ptr<desk::WindowDriver> drive_window(const MemoryEngine& engine, TextView caption, Post post) {
    MemoryWindow* const window = engine.find(caption);
    if (!window) return nullptr;
    return std::make_unique<MemoryWindowDriver>(Watched(*window, std::move(post)));
}

}  // namespace native
