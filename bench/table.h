// Tables of measurements as plain text.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace bench {

class Table {
  public:
    /// `title` is printed above the table, `heads` above its columns.
    Table(std::string title, std::vector<std::string> heads)
        : title_(std::move(title)), rows_{std::move(heads)} {}

    /// A row has a cell for each head.
    void add_row(std::vector<std::string> cells) { rows_.push_back(std::move(cells)); }

    /// The first column stands to the left, numbers in the others to the right; an empty line follows.
    void print(std::ostream& out) const;

  private:
    std::string title_;
    std::vector<std::vector<std::string>> rows_;
};

/// A number with so many decimals.
std::string decimal(double number, int places);

}  // namespace bench
