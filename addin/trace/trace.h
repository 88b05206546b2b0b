// The trace that a user can switch on, to see what the add-in did at each event and why it left a mail alone.
#pragma once

#include <memory>

#include "addin/ground/step_observer.h"
#include "addin/host/desktop.h"
#include "forms/view.h"

namespace addin::trace {

/// A load whose session has this observer, desktop and engine in the place of those below is traced.
class Trace {
  public:
    virtual ~Trace() = default;
    Trace() = default;
    Trace(const Trace&) = delete;
    Trace& operator=(const Trace&) = delete;

    /// As the registry says. Null if it is off, or if its file can't be written.
    static std::unique_ptr<Trace> switched_on(host::Desktop& desktop, forms::Engine& engine);

    virtual StepObserver& observer() = 0;
    virtual host::Desktop& desktop() = 0;
    virtual forms::Engine& engine() = 0;
};

}  // namespace addin::trace
