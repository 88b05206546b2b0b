// The first page: a window that tells a newcomer what to try, with a mark at what was done.
#pragma once

#include <functional>

#include "desk/outlook/first_steps.h"
#include "forms/form.h"
#include "forms/windows/form_engine.h"

namespace desk {

const forms::FormTable& first_page_table();

/// What outlives the window, and the desk.
struct FirstPageMemory {
    std::function<void(automation::Text)> keep_done;
    std::function<void(bool)> keep_closed;  ///< whether it stays away at the next start
};

class FirstPage final : public forms::Form {
  public:
    FirstPage(forms::Engine& engine, FirstStepsDone& steps, FirstPageMemory memory, bool stays_away);

    /// Looks, while it is shown, what has been done, and marks it; not with each call.
    void look(std::uint64_t milliseconds);

  private:
    void on_load() override;
    void on_click(automation::TextView control) override;
    void mark();

    FirstStepsDone& steps_;
    FirstPageMemory memory_;
    bool stays_away_;
    std::uint64_t looked_at_ = 0;
};

}  // namespace desk
