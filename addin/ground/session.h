// What the rooms of one load of the add-in have in common, handed on by reference.
#pragma once

#include <memory>

#include "addin/host/desktop.h"
#include "addin/host/outlook.h"
#include "forms/form.h"

namespace addin {

class SearchForm;
class StepObserver;

struct Session {
    Session(host::Desktop& platform, forms::Engine& form_engine, StepObserver* observer = nullptr);
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// Ends with the session. A long routine that gives way to events asks for it before it goes on: the host
    /// may have let go of the add-in meanwhile.
    const std::shared_ptr<const bool> life = std::make_shared<const bool>(true);

    /// What the session is a part of. Who gives way holds it: the host may let go of the add-in meanwhile.
    std::weak_ptr<void> owner;

    host::Desktop& desktop;
    forms::Engine& engine;  ///< makes the windows

    host::outlook::Application gOutlookApp;  ///< the application, for code outside of `Connect`
    automation::Text gProgId;                ///< the name under which the add-in was connected

    /// Is told of each step that was skipped and of each test, if there is one. Who sets it keeps it as long
    /// as the load lasts.
    StepObserver* step_observer;

    forms::WindowPlace<addin::SearchForm> SearchForm;  ///< the sign of progress of every long operation
};

}  // namespace addin
