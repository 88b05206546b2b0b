// The stage of the windows in memory.
#include "tests/forms/support/stage.h"
#include "tests/native/memory_forms.h"

namespace forms_test {
namespace {

using automation::Text;
using automation::TextView;
using native::MemoryControl;
using native::MemoryWindow;

class MemoryStage final : public Stage {
  public:
    forms::Engine& engine() override { return engine_; }
    void dots_per_inch(int dots) override { engine_.dots_per_inch = dots; }

    bool click(Spot spot) override { return at(spot).click(); }
    bool type(Spot spot, TextView text) override { return at(spot).type(text); }
    bool key(Spot spot, int code) override {
        return spot.control.empty() ? window(spot.window).key(code) : at(spot).key(code);
    }
    bool choose(Spot spot, int entry) override { return at(spot).choose(entry); }
    bool select(Spot spot, int row) override { return at(spot).select(row); }
    bool double_click(Spot spot, int row) override { return at(spot).double_click(row); }
    bool column_click(Spot spot, int column) override { return at(spot).column_click(column); }
    bool drop(Spot spot, int row) override { return at(spot).drop(row); }
    bool resize(TextView name, int width, int height) override { return window(name).resize(width, height); }
    bool minimize(TextView name) override { return window(name).minimize(); }
    bool close(TextView name) override { return window(name).close(); }
    void activate_host() override { engine_.activate_host(); }
    bool activate(TextView name) override { return window(name).activate(); }

    bool there(TextView name) override { return engine_.find(name) != nullptr; }
    Text focused(TextView name) override {
        const MemoryControl* const focused = window(name).focused();
        return focused ? Text(focused->table_row().name) : Text();
    }
    bool topmost(TextView name) override { return window(name).is_topmost(); }
    int mark(Spot list, int column) override { return at(list).memory_list().mark(column); }

    void modal(const std::function<void()>& action,
               const std::vector<std::function<void()>>& steps) override {
        strands_.run(action);
        for (const auto& step : steps) step();
        strands_.finish();
    }

  private:
    MemoryWindow& window(TextView caption) const {
        MemoryWindow* const found = engine_.find(caption);
        if (!found) throw std::runtime_error("there is no such window");
        return *found;
    }
    MemoryControl& at(Spot spot) const { return window(spot.window).control(spot.control); }

    native::Strands strands_;
    native::MemoryEngine engine_{strands_};
};

}  // namespace

std::unique_ptr<Stage> make_stage() { return std::make_unique<MemoryStage>(); }

}  // namespace forms_test
