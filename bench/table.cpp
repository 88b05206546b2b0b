#include "bench/table.h"

#include <algorithm>
#include <iomanip>
#include <sstream>

namespace bench {

void Table::print(std::ostream& out) const {
    std::vector<std::size_t> widths(rows_.front().size());
    for (const auto& cells : rows_) {
        for (std::size_t i = 0; i < cells.size(); ++i) widths[i] = std::max(widths[i], cells[i].size());
    }
    out << title_ << "\n";
    for (const auto& cells : rows_) {
        for (std::size_t i = 0; i < cells.size(); ++i) {
            out << "  " << (i == 0 ? std::left : std::right) << std::setw(static_cast<int>(widths[i]))
                << cells[i];
        }
        out << "\n";
    }
    out << std::endl;  // a reader of a long run sees it at once
}

std::string decimal(double number, int places) {
    std::ostringstream text;
    text << std::fixed << std::setprecision(places) << number;
    return text.str();
}

}  // namespace bench
