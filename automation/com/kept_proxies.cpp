#include "automation/com/kept_proxies.h"

namespace windows {
namespace {

struct Proxy {
    GUID interface_id, class_id;
};

/// Of what asks objects by name, and of the calls that count references from afar (`IRemUnknown`).
constexpr Proxy proxies[] = {
    {{0x00020400, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}}, {0x00020420, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}}},
    {{0x00000131, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}}, {0x00000320, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}}},
};

}  // namespace

KeptProxies::KeptProxies() {
    static_assert(std::size(proxies) == class_count);
    for (std::size_t i = 0; i < class_count; ++i) {
        ComPtr<IPSFactoryBuffer> class_object;
        if (FAILED(CoGetClassObject(proxies[i].class_id, CLSCTX_INPROC_SERVER, nullptr, IID_IPSFactoryBuffer,
                                    class_object.put_void())) ||
            FAILED(CoRegisterPSClsid(proxies[i].interface_id, proxies[i].class_id))) {
            continue;
        }
        DWORD cookie = 0;
        if (SUCCEEDED(CoRegisterClassObject(proxies[i].class_id, class_object.get(), CLSCTX_INPROC_SERVER,
                                            REGCLS_MULTIPLEUSE, &cookie))) {
            cookies_[i] = cookie;
        }
    }
}

KeptProxies::~KeptProxies() {
    for (const DWORD cookie : cookies_) {
        if (cookie != 0) CoRevokeClassObject(cookie);
    }
}

}  // namespace windows
