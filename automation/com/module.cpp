#include "automation/com/module.h"

#include "automation/com/platform.h"

namespace windows {
namespace {

/// The DLL or program that this code is a part of, counted or not.
HMODULE this_module(DWORD counted) noexcept {
    HMODULE module = nullptr;
    GetModuleHandleExW(counted | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                       reinterpret_cast<const wchar_t*>(&this_module), &module);
    return module;
}

}  // namespace

void Module::hold() noexcept {
    ++holds_;
    // A host that frees the library without a question takes nothing away from below our feet.
    if (!holds_itself_.exchange(true)) this_module(0);
}

bool Module::may_unload() noexcept {
    if (!idle()) return false;
    // Only here: who asks has a reference, so this can't be the last one while its code still runs.
    if (holds_itself_.exchange(false)) FreeLibrary(this_module(GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT));
    return true;
}

}  // namespace windows
