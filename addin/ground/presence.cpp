#include "addin/ground/presence.h"

namespace addin {

Presence::Presence(Session& session)
    : load_(session.owner.lock()), session_(session.life), desktop_(session.desktop), steps_(session) {}

Presence::Presence(Session& session, forms::Form& window) : Presence(session) {
    window_ = window.shared_from_this();
    loading_ = window.loading();
}

bool Presence::lasts() const {
    if (!session_lasts()) return false;
    return !window_ || (window_->loaded() && window_->loading() == loading_);
}

void Presence::yield() const { desktop_.yield(); }

}  // namespace addin
