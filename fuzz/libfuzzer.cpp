// Runs a harness under clang's fuzzer. An exception that comes out of the harness ends it as a crash would.
#include <cstddef>
#include <cstdint>

#include "fuzz/harness.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::try_input({reinterpret_cast<const char*>(data), size});
    return 0;
}
