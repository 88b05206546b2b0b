// The system's windows as the add-in sees them in a native test.
#pragma once

#include "tests/native/boundary.h"
#include "tests/native/memory_forms.h"

namespace native {

/// Makes windows whose calls that the system may refuse pass the boundary.
class EngineAcross final : public forms::Engine {
  public:
    EngineAcross(Boundary& boundary, MemoryEngine& engine) : boundary_(boundary), engine_(engine) {}

    std::unique_ptr<forms::View> make(const forms::FormTable& table,
                                      std::weak_ptr<forms::Events> events) override {
        boundary_.pass("make_window");
        return engine_.make(table, std::move(events), [this](const char* call) { boundary_.pass(call); });
    }

  private:
    Boundary& boundary_;
    MemoryEngine& engine_;
};

}  // namespace native
