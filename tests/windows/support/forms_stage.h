// Real windows, and a person who uses them by the system's own messages.
#pragma once

#include "forms/windows/common_controls.h"
#include "forms/windows/form_engine.h"
#include "tests/forms/support/stage.h"

namespace forms_test {

/// The window of a caption, hidden or not; null if there is none.
HWND find_window(automation::TextView caption);

/// The name by which the program knows a window, by the system's published question for it.
automation::Text name_of(HWND window);

/// A control by its name, or null.
HWND find_control(HWND window, automation::TextView name);

/// Runs what stands in the thread's queue.
void pump();

/// Waits until something holds, and runs the queue meanwhile; false if it takes too long.
bool wait_until(const std::function<bool()>& holds);

class WindowsStage final : public Stage {
  public:
    WindowsStage();
    ~WindowsStage() override;

    forms::Engine& engine() override { return *engine_; }
    void dots_per_inch(int dots) override { dots_ = dots; }
    windows::ScreenPointer& pointer() { return *pointer_; }
    windows::Module& module() { return module_; }
    void end_engine() { engine_.reset(); }
    void high_contrast(bool is_on) { high_contrast_ = is_on; }

    bool click(Spot spot) override;
    bool type(Spot spot, automation::TextView text) override;
    bool key(Spot spot, int code) override;
    bool choose(Spot spot, int entry) override;
    bool select(Spot spot, int row) override;
    bool double_click(Spot spot, int row) override;
    bool column_click(Spot spot, int column) override;
    bool drop(Spot spot, int row) override;
    bool resize(automation::TextView window, int width, int height) override;
    bool minimize(automation::TextView window) override;
    bool close(automation::TextView window) override;
    void activate_host() override;
    bool activate(automation::TextView window) override;

    bool there(automation::TextView window) override { return find_window(window) != nullptr; }
    automation::Text focused(automation::TextView window) override;
    bool topmost(automation::TextView window) override;
    int mark(Spot list, int column) override;
    void modal(const std::function<void()>& action, const std::vector<std::function<void()>>& steps) override;

  private:
    windows::Module module_;
    std::shared_ptr<windows::ScreenPointer> pointer_ = std::make_shared<windows::ScreenPointer>();
    int dots_ = 96;
    bool high_contrast_ = false;
    HWND host_;
    std::unique_ptr<windows::FormEngine> engine_;
};

}  // namespace forms_test
