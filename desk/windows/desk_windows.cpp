#include "desk/windows/desk_windows.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "desk/outlook/explorers.h"
#include "desk/outlook/inspectors.h"
#include "desk/windows/explorer_window.h"
#include "desk/windows/inspector_window.h"

namespace desk {
namespace {

constexpr int least_width = 400, least_height = 300;  // pixels, of a main window

/// Has a map of windows follow a list of open objects.
template <class Windows, class Objects, class Make>
void follow_list(Windows& windows, const Objects& open, Make make) {
    std::erase_if(windows, [&](const auto& entry) { return !entry.first->is_open(); });
    const std::vector now(open.begin(), open.end());  // a window that opens may open another
    for (const auto& object : now) {
        auto& window = windows[object];
        if (!window) window = make(object);
        window->refresh();
    }
}

/// While it lives, the windows are brought in line with the model.
class Following {
  public:
    explicit Following(FrameContext& context) : context_(context) { context_.following = true; }
    ~Following() { context_.following = false; }
    Following(const Following&) = delete;
    Following& operator=(const Following&) = delete;

  private:
    FrameContext& context_;
};

}  // namespace

DeskWindows::DeskWindows(Desk& desk, windows::Module& module) : context_{.desk = desk, .module = module} {}

DeskWindows::~DeskWindows() = default;

void DeskWindows::arrange(automation::TextView layout) {
    context_.layout = layout_of_text(layout);
    is_arranged_ = context_.layout.width > 0 && context_.layout.height > 0;
}

automation::Text DeskWindows::arrangement() const { return layout_text(context_.layout); }

/// The first main window comes up where the last one was, as far as the screen still has that place.
void DeskWindows::place(Explorer& explorer) {
    if (!std::exchange(is_arranged_, false)) return;
    const ExplorerLayout& layout = context_.layout;
    RECT screen{};
    if (!SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0)) return;
    const int screen_width = static_cast<int>(screen.right - screen.left);
    const int screen_height = static_cast<int>(screen.bottom - screen.top);
    explorer.width = std::clamp(layout.width, std::min(least_width, screen_width), screen_width);
    explorer.height = std::clamp(layout.height, std::min(least_height, screen_height), screen_height);
    const int left = static_cast<int>(screen.left), top = static_cast<int>(screen.top);
    explorer.left = std::clamp(layout.left, left, left + screen_width - explorer.width);
    explorer.top = std::clamp(layout.top, top, top + screen_height - explorer.height);
    if (layout.maximized) explorer.window_state = HostWindow::maximized;
}

void DeskWindows::follow() {
    if (context_.following) return;
    const Following following(context_);
    Desk& desk = context_.desk;
    follow_list(explorers_, desk.explorers()->open, [this](const auto& explorer) {
        place(*explorer);
        return std::make_unique<ExplorerWindow>(context_, explorer);
    });
    follow_list(inspectors_, desk.inspectors()->open, [this](const auto& inspector) {
        return std::make_unique<InspectorWindow>(context_, inspector);
    });
}

void DeskWindows::close_all() {
    context_.following = true;
    inspectors_.clear();
    explorers_.clear();
}

}  // namespace desk
