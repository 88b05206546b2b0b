// The outside, watched: an object, and all that comes from it, behind one that tells of each call and each
// event.
#pragma once

#include <map>
#include <memory>

#include "automation/object.h"

namespace automation {

/// Is told of what passes, in its order: an event or another call may come while a call is under way.
class Watcher {
  public:
    virtual ~Watcher() = default;
    Watcher() = default;
    Watcher(const Watcher&) = delete;
    Watcher& operator=(const Watcher&) = delete;

    /// A call goes out, and is over: with its answer, or with its failure, or with neither if it ended in a
    /// mistake of the program.
    virtual void asks(const Request& request) noexcept = 0;
    virtual void asked(const Request& request, const Value* answer, const Failure* failure) noexcept = 0;

    /// An event of an interface comes in, and has been handled.
    virtual void tells(const Guid& interface_id, const Request& event) noexcept = 0;
    virtual void told() noexcept = 0;
};

/// Puts watched objects in the place of those of the outside. What goes back there goes as it came.
class Watch : public std::enable_shared_from_this<Watch> {
  public:
    static std::shared_ptr<Watch> create(std::shared_ptr<Watcher> watcher);

    /// An object of the outside, watched: the same one each time, as long as it is held.
    Object watched(const Object& outside);
    Value watched(const Value& outside);

    /// What was watched as it came; anything else as it is.
    static Value bare(const Value& value);

  private:
    class Watched;
    class Ear;

    explicit Watch(std::shared_ptr<Watcher> watcher) : watcher_(std::move(watcher)) {}

    std::shared_ptr<Watcher> watcher_;
    std::map<const Invocable*, std::weak_ptr<Watched>> held_;
};

}  // namespace automation
