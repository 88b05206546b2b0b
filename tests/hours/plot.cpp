#include "tests/hours/plot.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace hours {
namespace {

// all in pixels
constexpr double width = 640, height = 110, left = 70, gap = 34, head = 30;

/// A curve in a field of its own, with its name above and its least and greatest value.
void draw(std::ostream& out, const Curve& curve, double top) {
    const auto [least, greatest] = std::ranges::minmax(curve.values);
    const double highest = std::max(greatest, 1.0) * 1.1;
    const auto last = static_cast<double>(std::max<std::size_t>(curve.values.size() - 1, 1));
    out << "<text x='" << left << "' y='" << top - 6 << "'>" << curve.name << ": " << least << " to "
        << greatest << "</text>\n<rect x='" << left << "' y='" << top << "' width='" << width << "' height='"
        << height << "' fill='none' stroke='#bbb'/>\n<text x='" << left - 6 << "' y='" << top + height
        << "' text-anchor='end'>0</text>\n<polyline fill='none' stroke='#1565c0' stroke-width='2' points='";
    for (std::size_t i = 0; i < curve.values.size(); ++i) {
        out << left + width * static_cast<double>(i) / last << ','
            << top + height * (1 - curve.values[i] / highest) << ' ';
    }
    out << "'/>\n";
}

}  // namespace

void write_plot(const std::filesystem::path& file, const std::string& title,
                const std::vector<Curve>& curves) {
    const double all = head + (height + gap) * static_cast<double>(curves.size()) + gap;
    std::ofstream out(file, std::ios::binary);
    out << "<svg xmlns='http://www.w3.org/2000/svg' width='" << left + width + gap << "' height='" << all
        << "' font-family='sans-serif' font-size='12'>\n<rect width='100%' height='100%' "
           "fill='white'/>\n<text x='"
        << left << "' y='20' font-size='14'>" << title << "</text>\n";
    double top = head + gap / 2 + 6;
    for (const Curve& curve : curves) {
        draw(out, curve, top);
        top += height + gap;
    }
    out << "</svg>\n";
    if (!out.flush()) throw std::runtime_error("the plot " + file.string() + " can't be written");
}

}  // namespace hours
