// The system's windows as the add-in sees them in a native test.
#pragma once

#include <algorithm>
#include <string_view>

#include "tests/native/boundary.h"
#include "tests/native/memory_forms.h"

namespace native {

/// Whether a call is one of a window: the system lets nothing come between while it carries it out.
inline bool is_of_window(std::string_view call) {
    constexpr std::string_view calls[] = {"make_window", "list_add", "list_text", "takes_drops",
                                          "choice_add"};
    return std::ranges::find(calls, call) != std::end(calls);
}

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
