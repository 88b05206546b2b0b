// One load of the add-in's DLL.
#pragma once

#include "addin/connect/load.h"
#include "addin/server/desktop/windows_desktop.h"
#include "automation/com/apartment.h"
#include "automation/com/class_factory.h"
#include "forms/windows/form_engine.h"

namespace windows {

/// What all add-in objects of a load share.
struct Load {
    explicit Load(Module& module);

    ModuleHold hold;  // until all else has ended
    std::shared_ptr<Apartment> apartment;
    WindowsDesktop desktop;
    FormEngine engine;  // outlives the rooms, whose windows it has made
    addin::Rooms rooms;
};

/// The server behind the DLL's entry points.
class Server {
  public:
    /// CLASS_E_CLASSNOTAVAILABLE for any class but the add-in's.
    HRESULT class_object(REFCLSID class_id, REFIID iid, void** answer) noexcept;

    bool may_unload() noexcept { return module_.may_unload(); }

  private:
    ComPtr<IUnknown> make_connect();

    Module module_;
    addin::CurrentLoad<Load> load_;
};

}  // namespace windows
