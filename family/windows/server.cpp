#include "family/windows/server.h"

#include <algorithm>

#include "automation/com/class_factory.h"
#include "family/windows/windows_context.h"

namespace family {

HRESULT Server::class_object(REFCLSID id, REFIID iid, void** answer) {
    const auto known = classes();
    const auto entry = std::ranges::find(known, windows::from_guid(id), &ClassEntry::id);
    if (entry == known.end()) return CLASS_E_CLASSNOTAVAILABLE;
    return windows::ClassFactory::create(module_, [this, made = *entry] { return make(made); })
        ->QueryInterface(iid, answer);
}

bool Server::may_unload() {
    const std::lock_guard lock(mutex_);
    const bool shows_windows =
        std::ranges::any_of(rooms_, [](const auto& entry) { return entry.second.context->shows_windows(); });
    return !shows_windows && module_.may_unload();
}

Server::Room Server::room_of_this_thread() {
    const std::lock_guard lock(mutex_);
    Room& room = rooms_[GetCurrentThreadId()];
    if (!room.apartment) {
        room.apartment = windows::Apartment::create(module_, u"TarnwellFamily");
        room.context = std::make_shared<WindowsContext>(room.apartment);
    }
    return room;
}

windows::ComPtr<IUnknown> Server::make(const ClassEntry& entry) {
    const Room room = room_of_this_thread();
    return room.apartment->bridge(entry.make(room.context).target()).as<IUnknown>(IID_IUnknown);
}

}  // namespace family
