// An input that is taken apart into the choices, numbers and texts of which a case is made.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "automation/text.h"

namespace fuzz {

/// Reads from the front. What is read beyond the end is 0, or empty.
class Input {
  public:
    explicit Input(std::string_view bytes) : rest_(bytes) {}

    bool is_empty() const { return rest_.empty(); }

    std::uint8_t byte() {
        if (rest_.empty()) return 0;
        const char first = rest_.front();
        rest_.remove_prefix(1);
        return static_cast<std::uint8_t>(first);
    }

    /// One of so many.
    std::size_t choice(std::size_t count) { return byte() % count; }

    std::uint32_t number() {
        std::uint32_t all = 0;
        for (std::size_t i = 0; i < sizeof all; ++i) all = all << 8 | byte();
        return all;
    }

    /// What comes before the next end of a line.
    std::string_view line() {
        const std::size_t end = rest_.find('\n');
        const std::string_view taken = rest_.substr(0, end);
        rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
        return taken;
    }
    automation::Text text() { return automation::from_utf8(line()); }

    std::string_view rest() const { return rest_; }

  private:
    std::string_view rest_;
};

}  // namespace fuzz
