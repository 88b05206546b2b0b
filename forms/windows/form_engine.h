// The engine of the add-in's windows on Windows: real top-level windows with the system's own controls.
#pragma once

#include "automation/com/module.h"
#include "forms/view.h"
#include "forms/windows/screen_pointer.h"

namespace windows {

struct EngineParts;
struct ScreenChoices;

/// Belongs to one thread, whose windows it makes. The windows end before it does.
class FormEngine final : public forms::Engine {
  public:
    /// `dots_per_inch` is asked for each window that is made. The module counts what the system holds of
    /// ours.
    FormEngine(Module& module, std::function<int()> dots_per_inch,
               std::shared_ptr<const ScreenPointer> pointer = std::make_shared<ScreenPointer>());
    ~FormEngine() override;

    /// Another source than the system of what the user has chosen for the screens.
    void ask(ScreenChoices screens);

    /// What an event of a window keeps alive while it runs. If it is let go of meanwhile, its end comes with
    /// a message of its own.
    void keep_during_events(std::weak_ptr<void> owner);

    std::unique_ptr<forms::View> make(const forms::FormTable& table,
                                      std::weak_ptr<forms::Events> events) override;

  private:
    std::shared_ptr<EngineParts> parts_;
};

}  // namespace windows
