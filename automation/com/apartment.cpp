#include "automation/com/apartment.h"

#include "automation/com/bridge.h"
#include "automation/com/dispatch.h"

namespace windows {

std::shared_ptr<Apartment> Apartment::create(Module& module, automation::Text source,
                                             std::shared_ptr<BridgeCounter> counter) {
    return std::shared_ptr<Apartment>(new Apartment(module, std::move(source), std::move(counter)));
}

std::shared_ptr<automation::Invocable> Apartment::adapt(IDispatch* dispatch) {
    if (!dispatch) return nullptr;
    if (!identities_.empty()) {
        const auto identity = ComPtr<IDispatch>(dispatch).as<IUnknown>(IID_IUnknown);
        const auto own = identities_.find(identity.get());
        if (own != identities_.end()) return own->second->object();
    }
    // The key is the interface, not the identity: the interfaces of one object may differ in their members.
    std::weak_ptr<automation::Invocable>& known = adapters_[dispatch];
    if (std::shared_ptr<automation::Invocable> adapter = known.lock()) return adapter;
    auto adapter = std::make_shared<Adapter>(shared_from_this(), ComPtr<IDispatch>(dispatch));
    known = adapter;
    return adapter;
}

std::shared_ptr<automation::Invocable> Apartment::adapt_sink(IDispatch* dispatch) {
    if (!dispatch) return nullptr;
    return std::make_shared<Adapter>(shared_from_this(), ComPtr<IDispatch>(dispatch));
}

ComPtr<IDispatch> Apartment::bridge(const std::shared_ptr<automation::Invocable>& object) {
    if (!object) return {};
    if (const auto* adapter = dynamic_cast<const Adapter*>(object.get())) return adapter->dispatch();
    const auto known = bridges_.find(object.get());
    if (known != bridges_.end()) return ComPtr<IDispatch>(known->second);
    return ComPtr<IDispatch>::attach(new Bridge(shared_from_this(), object));
}

void Apartment::add(Bridge& bridge) {
    bridges_[bridge.object().get()] = &bridge;
    identities_[bridge.identity()] = &bridge;
}

void Apartment::remove(Bridge& bridge) {
    const auto known = bridges_.find(bridge.object().get());
    if (known != bridges_.end() && known->second == &bridge) bridges_.erase(known);
    identities_.erase(bridge.identity());
}

void Apartment::remove(Adapter& adapter) {
    const auto known = adapters_.find(adapter.dispatch().get());
    if (known != adapters_.end() && known->second.expired()) adapters_.erase(known);
}

}  // namespace windows
