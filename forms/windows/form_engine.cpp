#include "forms/windows/form_engine.h"

#include "forms/windows/form_window.h"

namespace windows {
namespace {

void load_controls() {
    INITCOMMONCONTROLSEX wanted{};
    wanted.dwSize = sizeof wanted;
    wanted.dwICC = ICC_LISTVIEW_CLASSES | ICC_WIN95_CLASSES;
    InitCommonControlsEx(&wanted);
}

}  // namespace

FormEngine::FormEngine(Module& module, std::function<int()> dots_per_inch,
                       std::shared_ptr<const ScreenPointer> pointer)
    : parts_(new EngineParts{.module = module,
                             .dots_per_inch = std::move(dots_per_inch),
                             .pointer = std::move(pointer),
                             .window_class = FormClass(&FormWindow::procedure),
                             .hook = {},
                             .owner = {}}) {
    load_controls();
}

FormEngine::~FormEngine() = default;

void FormEngine::keep_during_events(std::weak_ptr<void> owner) { parts_->owner = std::move(owner); }

void FormEngine::ask(ScreenChoices screens) { parts_->screens = std::move(screens); }

std::unique_ptr<forms::View> FormEngine::make(const forms::FormTable& table,
                                              std::weak_ptr<forms::Events> events) {
    return std::make_unique<FormWindow>(parts_, table, std::move(events));
}

}  // namespace windows
