// What the replications of one load have in common.
#pragma once

#include <list>

#include "addin/ground/session.h"

namespace addin::replicas {

/// The copy that a replication has made in the item's own folder, as long as it works on it.
struct ReplicaCopy {
    host::outlook::Item source{}, copy{};
    bool in_the_making = true;    ///< the copy isn't at hand yet
    automation::Text entry_id{};  ///< of the copy; empty as long as the host gives it none
};

struct State {
    explicit State(Session& of_load) : session(of_load) {}
    State(const State&) = delete;
    State& operator=(const State&) = delete;

    Session& session;
    std::list<ReplicaCopy> copies_under_way;
};

}  // namespace addin::replicas
