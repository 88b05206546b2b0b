// Runs a target over changed seeds: NAME [ROUNDS [FIRST]]. Each round makes its input from its own number, so
// that a round that went wrong is run again alone by giving its number as the first of one.
#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include <random>

#include "fuzz/targets.h"

namespace {

constexpr std::size_t most_bytes = 4096;

std::string mutated(const fuzz::Seeds& seeds, unsigned long round) {
    std::mt19937_64 random(round);
    auto below = [&](std::size_t limit) {
        return limit == 0 ? 0 : static_cast<std::size_t>(random() % limit);
    };
    std::string input = seeds[below(seeds.size())];
    for (std::size_t changes = below(5); changes > 0; --changes) {
        const std::string& other = seeds[below(seeds.size())];
        const std::size_t place = below(input.size() + 1), length = below(input.size() - place + 1) % 32;
        switch (below(6)) {
            case 0:
                input.insert(place, 1, static_cast<char>(random()));
                break;
            case 1:
                input.erase(place, 1 + below(4));
                break;
            case 2:
                input.insert(place, input.substr(place, length));
                break;
            case 3:
                input = input.substr(0, place) + other.substr(below(other.size() + 1));
                break;
            case 4:
                input.insert(place, other.substr(below(other.size() + 1), 1 + below(16)));
                break;
            default:
                if (place < input.size()) input[place] = static_cast<char>(input[place] ^ (1 << below(8)));
        }
        input.resize(std::min(input.size(), most_bytes));
    }
    return input;
}

void print(const std::string& input) {
    for (const char byte : input) std::fprintf(stderr, "%02x", static_cast<unsigned char>(byte));
    std::fprintf(stderr, "\n");
}

}  // namespace

int main(int count, char** arguments) {
    const fuzz::Target* const target = fuzz::target_of(count > 1 ? arguments[1] : "");
    if (!target) {
        std::fprintf(stderr, "there is no target of that name\n");
        return EXIT_FAILURE;
    }
    const unsigned long rounds = count > 2 ? std::strtoul(arguments[2], nullptr, 10) : target->rounds;
    const unsigned long first = count > 3 ? std::strtoul(arguments[3], nullptr, 10) : 0;
    const fuzz::Seeds seeds = target->seeds();
    unsigned long taken = 0;
    for (unsigned long round = first; round < first + rounds; ++round) {
        const std::string input = mutated(seeds, round);
        try {
            if (target->try_input(input)) ++taken;
        } catch (const std::exception& wrong) {
            std::fprintf(stderr, "round %lu: %s\n", round, wrong.what());
            print(input);
            return EXIT_FAILURE;
        }
    }
    std::printf("%lu rounds, %lu inputs taken, %lu refused\n", rounds, taken, rounds - taken);
    return EXIT_SUCCESS;
}
