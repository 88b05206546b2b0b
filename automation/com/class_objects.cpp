#include "automation/com/class_objects.h"

#include "automation/com/failure.h"

namespace windows {

CLSID class_id_of(automation::TextView prog_id) {
    CLSID id{};
    if (FAILED(CLSIDFromProgID(wide(automation::Text(prog_id)), &id))) {
        throw automation::Failure(automation::result::bad_prog_id, automation::Text(prog_id));
    }
    return id;
}

ComPtr<IDispatch> make_object(const CLSID& class_id) {
    ComPtr<IDispatch> object;
    check(CoCreateInstance(class_id, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER, IID_IDispatch,
                           object.put_void()));
    return object;
}

ComPtr<IDispatch> ClassObjects::make(automation::TextView prog_id) {
    auto known = kept_.find(prog_id);
    if (known == kept_.end()) {
        const CLSID id = class_id_of(prog_id);
        ComPtr<IClassFactory> found;
        if (FAILED(
                CoGetClassObject(id, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory, found.put_void()))) {
            return make_object(id);  // a server in another process may end and come again
        }
        known = kept_.emplace(prog_id, std::move(found)).first;
    }
    const ComPtr<IClassFactory> class_object = known->second;  // the making may let all of them go
    ComPtr<IDispatch> object;
    check(class_object->CreateInstance(nullptr, IID_IDispatch, object.put_void()));
    return object;
}

}  // namespace windows
