// The border between our own objects and those of COM, as one apartment sees it.
#pragma once

#include <memory>
#include <unordered_map>

#include "automation/com/bridge_counter.h"
#include "automation/com/com_ptr.h"
#include "automation/com/dispatch_ids.h"
#include "automation/com/module.h"
#include "automation/object.h"

namespace windows {

class Adapter;
class Bridge;

/// Knows what has crossed the border, so that an object has one identity on each side: what comes back is
/// what went out. Belongs to the thread of its single-threaded apartment. Adapters and bridges keep it alive.
class Apartment : public std::enable_shared_from_this<Apartment> {
  public:
    /// `source` names the server in the failures that it reports. The module outlives the apartment.
    static std::shared_ptr<Apartment> create(Module& module, automation::Text source,
                                             std::shared_ptr<BridgeCounter> counter = nullptr);
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;

    /// An object of COM as one to be asked by name; null for null. A bridge of this apartment becomes the
    /// object that it was made for, any other object the same adapter as long as one lives.
    std::shared_ptr<automation::Invocable> adapt(IDispatch* dispatch);

    /// A sink that a client handed in. It is always adapted anew: one client object may be several sinks.
    std::shared_ptr<automation::Invocable> adapt_sink(IDispatch* dispatch);

    /// One of our objects for COM; null for null. The same bridge as long as it lives; what came from COM
    /// goes back as it came.
    ComPtr<IDispatch> bridge(const std::shared_ptr<automation::Invocable>& object);

    Module& module() const { return module_; }
    const automation::Text& source() const { return source_; }
    BridgeCounter* counter() const { return counter_.get(); }
    DispatchIds& dispatch_ids() { return ids_; }

  private:
    friend class Adapter;
    friend class Bridge;

    Apartment(Module& module, automation::Text source, std::shared_ptr<BridgeCounter> counter)
        : module_(module), source_(std::move(source)), counter_(std::move(counter)) {}

    void add(Bridge& bridge);
    void remove(Bridge& bridge);
    void remove(Adapter& adapter);

    Module& module_;
    automation::Text source_;
    std::shared_ptr<BridgeCounter> counter_;
    DispatchIds ids_;
    std::unordered_map<const automation::Invocable*, Bridge*> bridges_;
    std::unordered_map<IUnknown*, Bridge*> identities_;
    std::unordered_map<IDispatch*, std::weak_ptr<automation::Invocable>> adapters_;
};

}  // namespace windows
