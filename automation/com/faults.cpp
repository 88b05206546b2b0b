#include "automation/com/faults.h"

#include <array>
#include <cstdio>
#include <exception>
#include <new>

namespace windows {
namespace {

void tell(CodePlace where, const char* what) noexcept {
    std::array<char, 1024> line{};
    std::snprintf(line.data(), line.size(), "%s%s, line %u: %s\n", fault_beginning.data(), where.function,
                  where.line, what);
    OutputDebugStringA(line.data());
}

}  // namespace

HRESULT take_fault(CodePlace where) noexcept {
    try {
        throw;
    } catch (const std::bad_alloc& exception) {  // a size that went wrong, far more often than a full memory
        tell(where, exception.what());
        return E_OUTOFMEMORY;
    } catch (const std::exception& exception) {
        tell(where, exception.what());
    } catch (...) {
        tell(where, "something that is no exception");
    }
    return E_UNEXPECTED;
}

}  // namespace windows
