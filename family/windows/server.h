// The in-process server of the family's classes.
#pragma once

#include <map>
#include <mutex>

#include "automation/com/apartment.h"
#include "family/create.h"

namespace family {

/// What the server holds while it is loaded: for each thread that uses it, its side of the border to COM and
/// the context of the objects there.
class Server {
  public:
    /// The class object of a class; CLASS_E_CLASSNOTAVAILABLE for one that is not the family's.
    HRESULT class_object(REFCLSID id, REFIID iid, void** answer);

    bool may_unload();

  private:
    struct Room {
        std::shared_ptr<windows::Apartment> apartment;
        std::shared_ptr<Context> context;
    };
    Room room_of_this_thread();
    windows::ComPtr<IUnknown> make(const ClassEntry& entry);

    windows::Module module_;
    std::mutex mutex_;
    std::map<DWORD, Room> rooms_;  ///< by thread id
};

}  // namespace family
