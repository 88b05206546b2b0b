// One load of the add-in: what its rooms have in common, and what each of them keeps.
#pragma once

#include <memory>

#include "addin/commands/state.h"
#include "addin/createnote/state.h"
#include "addin/ground/session.h"
#include "addin/quickview/state.h"
#include "addin/replicas/state.h"
#include "addin/searchpanel/state.h"
#include "addin/trace/trace.h"

namespace addin {

/// Each stands on those above it, which go after it. All add-in objects of a load share them.
struct Rooms {
    Rooms(host::Desktop& desktop, forms::Engine& engine);
    ~Rooms();
    Rooms(const Rooms&) = delete;
    Rooms& operator=(const Rooms&) = delete;

    const std::unique_ptr<addin::trace::Trace> trace;  ///< null unless the user has switched it on
    Session session;
    addin::replicas::State replicas;
    addin::createnote::State createnote;
    addin::searchpanel::State searchpanel;
    addin::quickview::State quickview;
    addin::commands::State commands;
};

}  // namespace addin
