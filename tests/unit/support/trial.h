// One run of an entry while something fails or comes between, and what it has done to the user and his host.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <random>

#include "tests/unit/support/entries.h"

namespace addin_tests {

/// What happens meanwhile. Calls and yields count from 1.
struct Trial {
    std::function<void(int number)> at_call = [](int) {};  ///< what it throws is what the call fails with
    int yield = 0;                                         ///< at this one something comes
    std::function<void(Scene& scene)> comes = [](Scene&) {};
    bool restores = true;  ///< what the add-in has switched off it can switch on again
};

struct Outcome {
    std::vector<std::string> calls;  ///< by their members, in order
    int yields = 0;
    std::vector<std::string> faults;  ///< what was hurt or left
};

Outcome run_trial(const Entry& entry, const Trial& trial);

/// An entry's run that went wrong, for whoever reads of it.
std::string told(const Entry& entry, const std::string& trial, const Outcome& outcome);

/// Leaves so many of the points, the same ones in each run; all of them if the environment asks for it.
template <class Point>
void draw(std::vector<Point>& points, std::size_t most, std::mt19937& random) {
    std::ranges::shuffle(points, random);
    if (points.size() > most && !std::getenv("TARNWELL_ALL_POINTS")) points.resize(most);
}

}  // namespace addin_tests
