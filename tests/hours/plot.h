// Measures over days as a picture.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace hours {

struct Curve {
    std::string name;            ///< with its unit
    std::vector<double> values;  ///< one for each day
};

/// Writes the curves into an SVG file, one below the other; each begins at zero. Throws `std::runtime_error`
/// if the file can't be written.
void write_plot(const std::filesystem::path& file, const std::string& title,
                const std::vector<Curve>& curves);

}  // namespace hours
