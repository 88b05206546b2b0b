// Ownership of a handle of the system's.
#pragma once

#include <memory>
#include <type_traits>

#include "automation/com/platform.h"

namespace wine {

struct CloseHandleOf {
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using windows_handle = std::unique_ptr<std::remove_pointer_t<HANDLE>, CloseHandleOf>;

}  // namespace wine
