// The making of a load and of the add-in objects that share it, the same in the DLL and in a native world.
#pragma once

#include <memory>
#include <utility>

#include "addin/connect/connect.h"

namespace addin {

/// The load of a program, if there is one: it begins with the first add-in object and ends when the last has
/// gone. A `Load` owns or names what its `rooms` stand on, and has the `engine` that makes their windows.
template <class Load>
class CurrentLoad {
  public:
    /// The load that is there, or a new one of these arguments.
    template <class... Arguments>
    std::shared_ptr<Load> get(Arguments&&... arguments) {
        std::shared_ptr<Load> load = load_.lock();
        if (load) return load;
        load = std::make_shared<Load>(std::forward<Arguments>(arguments)...);
        load->rooms.session.owner = load;
        load->engine.keep_during_events(load);
        load_ = load;
        return load;
    }

  private:
    std::weak_ptr<Load> load_;
};

/// A Connect that keeps its load: its end may still need the rooms.
template <class Load>
std::shared_ptr<Connect> make_connect(std::shared_ptr<Load> load) {
    Rooms& rooms = load->rooms;
    return {new Connect(rooms), [load = std::move(load)](Connect* connect) { delete connect; }};
}

}  // namespace addin
