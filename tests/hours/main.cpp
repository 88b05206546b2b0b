// `hours month DAYS SEED PERCENT FOLDER`, as `./tarnwell hours` calls it.
#include <cstdlib>
#include <iostream>
#include <string_view>
#include <vector>

#include "tests/hours/hours.h"
#include "tests/wine/support/client.h"

namespace {

constexpr int wrong_call = 2;

int number(std::string_view text) { return std::stoi(std::string(text)); }

}  // namespace

int main(int count, char** given) try {
    const std::vector<std::string_view> arguments(given + 1, given + count);
    const auto seed = [&] { return static_cast<std::uint32_t>(number(arguments[2])); };
    bool well = false;
    wine::client();
    if (arguments.size() == 5 && arguments[0] == "month") {
        well = hours::month({.days = number(arguments[1]),
                             .seed = seed(),
                             .percent = number(arguments[3]),
                             .folder = std::string(arguments[4])});
    } else {
        std::cerr << "hours month DAYS SEED PERCENT FOLDER\n";
        return wrong_call;
    }
    return well ? EXIT_SUCCESS : EXIT_FAILURE;
} catch (const std::exception& failure) {
    std::cout << "WRONG: " << failure.what() << std::endl;
    return EXIT_FAILURE;
}
