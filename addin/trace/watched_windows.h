// The windows of a traced load: each of their events is a story, and the time in which a modal one is open is
// that of the user.
#pragma once

#include <memory>
#include <vector>

#include "addin/trace/story.h"
#include "forms/view.h"

namespace addin::trace {

class WatchedEngine final : public forms::Engine {
  public:
    WatchedEngine(forms::Engine& engine, std::shared_ptr<Teller> teller)
        : engine_(engine), teller_(std::move(teller)) {}

    std::unique_ptr<forms::View> make(const forms::FormTable& table,
                                      std::weak_ptr<forms::Events> events) override;

  private:
    class HeardEvents;
    class WatchedView;

    forms::Engine& engine_;
    std::shared_ptr<Teller> teller_;
    std::vector<std::shared_ptr<HeardEvents>> heard_;  ///< the engine itself holds none
};

}  // namespace addin::trace
