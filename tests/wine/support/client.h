// This test program as an automation client of the desk.
#pragma once

#include "addin/server/desktop/windows_desktop.h"
#include "automation/com/apartment.h"
#include "automation/com/fault_watch.h"
#include "automation/com/kept_proxies.h"

namespace wine {

/// COM for this thread, as long as the program runs.
class Com {
  public:
    Com() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
    ~Com() { CoUninitialize(); }
    Com(const Com&) = delete;
    Com& operator=(const Com&) = delete;
};

struct Client {
    windows::FaultWatch faults;
    windows::Module module;
    Com com;
    windows::KeptProxies proxies;
    std::shared_ptr<windows::Apartment> apartment = windows::Apartment::create(module, u"Acceptance tests");
    windows::WindowsDesktop desktop{apartment};
};

Client& client();

}  // namespace wine
