#include "bench/wine/server_work.h"

#include <fstream>
#include <string>

namespace bench {

std::optional<std::uint64_t> server_answers() {
    // Wine's server opens files for all others, so that "self" is the server itself.
    std::ifstream file("Z:\\proc\\self\\io");
    std::uint64_t number = 0;
    for (std::string name; file >> name >> number;) {
        if (name == "syscw:") return number;
    }
    return {};
}

}  // namespace bench
