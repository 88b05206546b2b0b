// Runs a target under clang's fuzzer, which takes what brings it to new places of the code for the next
// inputs. The environment's TARNWELL_FUZZ names the target. With `--seeds FOLDER` the program writes the
// target's good inputs into a folder. An exception that comes out of a target ends it as a crash would.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "fuzz/targets.h"

namespace {

void write_seeds(const fuzz::Target& target, const std::filesystem::path& folder) {
    std::filesystem::create_directories(folder);
    std::size_t number = 0;
    for (const std::string& seed : target.seeds()) {
        std::ofstream file(folder / ("seed-" + std::to_string(++number)), std::ios::binary);
        file.write(seed.data(), static_cast<std::streamsize>(seed.size()));
    }
}

const fuzz::Target* chosen() {
    const char* const name = std::getenv("TARNWELL_FUZZ");
    return fuzz::target_of(name ? name : "");
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments) {
    const fuzz::Target* const target = chosen();
    if (!target) {
        std::fprintf(stderr, "TARNWELL_FUZZ names no target\n");
        std::exit(EXIT_FAILURE);
    }
    if (*count > 2 && std::string_view((*arguments)[1]) == "--seeds") {
        write_seeds(*target, (*arguments)[2]);
        std::exit(EXIT_SUCCESS);
    }
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::Target* const target = chosen();
    target->try_input({reinterpret_cast<const char*>(data), size});
    return 0;
}
