// Giving way to the host's events, and who is still there afterwards.
#pragma once

#include <memory>

#include "addin/ground/session.h"
#include "addin/ground/steps.h"

namespace addin {

/// A load of the add-in, and of a window the one that is loaded now. A routine makes it before it gives way:
/// meanwhile the host may let go of the add-in, which is held here, and the user may close the window, and
/// even open it again, which then is another one.
class Presence {
  public:
    explicit Presence(Session& session);
    Presence(Session& session, forms::Form& window);

    /// Lets the host's events run until none waits. Whether all this is still there.
    bool give_way(const SourcePlace& place = SourcePlace::current()) const {
        steps_.run([&] { yield(); }, place);
        return lasts();
    }
    /// The same; a failure travels to the caller.
    bool give_way_or_fail() const {
        yield();
        return lasts();
    }

    [[nodiscard]] bool lasts() const;
    [[nodiscard]] bool session_lasts() const { return !session_.expired(); }

  private:
    void yield() const;

    std::shared_ptr<const void> load_;  ///< goes last, since the others are parts of it
    std::shared_ptr<const forms::Form> window_;
    int loading_ = 0;
    std::weak_ptr<const bool> session_;
    host::Desktop& desktop_;
    Steps steps_;
};

}  // namespace addin
