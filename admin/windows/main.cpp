// TarnwellAdmin.exe.
#include <iostream>

#include "admin/command_line.h"
#include "admin/windows/windows_machine.h"
#include "automation/com/kept_proxies.h"

#include <shellapi.h>

namespace {

/// COM for this thread, as long as the program runs.
class Com {
  public:
    Com() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
    ~Com() { CoUninitialize(); }
    Com(const Com&) = delete;
    Com& operator=(const Com&) = delete;
};

/// The call's words but for the program's own name. Those of `main` have lost what the code page lacks.
std::vector<std::string> words() {
    std::vector<std::string> all;
    int count = 0;
    wchar_t** const list = CommandLineToArgvW(GetCommandLineW(), &count);
    for (int i = 1; list && i < count; ++i)
        all.push_back(automation::to_utf8(windows::from_wide(list[i], wcslen(list[i]))));
    LocalFree(list);
    return all;
}

}  // namespace

int main() {
    SetConsoleOutputCP(CP_UTF8);
    windows::Module module;
    const Com com;
    const windows::KeptProxies proxies;
    windows::WindowsMachine machine(windows::Apartment::create(module, u"TarnwellAdmin"));
    return admin::run(words(), machine, std::cout, std::cerr);
}
