#include "addin/server/server.h"

#include "addin/server/class_id.h"
#include "addin/server/connect_object.h"
#include "automation/com/failure.h"

namespace windows {
namespace {

constexpr automation::TextView source_name = u"CreateNote";  // of the failures that the add-in reports

}  // namespace

Load::Load(Module& module)
    : hold(module),
      apartment(Apartment::create(module, automation::Text(source_name))),
      desktop(apartment),
      engine(
          module, [this] { return desktop.dots_per_inch(); }, desktop.screen_pointer()),
      rooms(desktop, engine) {}

ComPtr<IUnknown> Server::make_connect() {
    const std::shared_ptr<Load> load = load_.get(module_);
    return ConnectObject::create(load, addin::make_connect(load));
}

HRESULT Server::class_object(REFCLSID class_id, REFIID iid, void** answer) noexcept {
    if (!answer) return E_POINTER;
    *answer = nullptr;
    if (class_id != to_guid(connect_class)) return CLASS_E_CLASSNOTAVAILABLE;
    return guarded([&] {
        const auto factory = ClassFactory::create(module_, [this] { return make_connect(); });
        return factory->QueryInterface(iid, answer);
    });
}

}  // namespace windows
