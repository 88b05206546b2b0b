#include "desk/windows/desk_windows.h"

#include <algorithm>
#include <vector>

#include "desk/outlook/explorers.h"
#include "desk/outlook/inspectors.h"
#include "desk/windows/explorer_window.h"
#include "desk/windows/inspector_window.h"

namespace desk {
namespace {

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

DeskWindows::DeskWindows(Desk& desk, windows::Module& module) : context_{desk, module, {}, {}, {}} {}

DeskWindows::~DeskWindows() = default;

void DeskWindows::follow() {
    if (context_.following) return;
    const Following following(context_);
    Desk& desk = context_.desk;
    follow_list(explorers_, desk.explorers()->open, [this](const auto& explorer) {
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
