// The bytes in which texts, numbers and values are stored: written one behind the other and read with every
// step checked.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "automation/value.h"

namespace desk {

/// How deep arrays stand in arrays and items in items.
inline constexpr int most_nested = 50;

class ByteWriter {
  public:
    void byte(std::uint8_t value) { bytes_.push_back(static_cast<char>(value)); }
    void natural(std::uint64_t value);  ///< seven bits in each byte, the lowest first
    void whole(std::int64_t value);     ///< small ones, negative too, are short
    void number(double value);          ///< eight bytes
    void block(std::string_view bytes);
    void text(automation::TextView text);        ///< a byte for each unit if all are below 256, else two
    void value(const automation::Value& value);  ///< throws `automation::Failure` for an object
    const std::string& bytes() const { return bytes_; }
    std::string take() { return std::move(bytes_); }

  private:
    std::string bytes_;
    int level_ = 0;
};

/// Reads what `ByteWriter` wrote. Throws `automation::Failure` at the first thing that can't be: the end of
/// the bytes, a number out of its range, an unknown mark, nesting beyond the limit.
class ByteReader {
  public:
    explicit ByteReader(std::string_view bytes) : rest_(bytes) {}

    std::uint8_t byte();
    bool flag();
    std::uint64_t natural();
    std::int64_t whole();
    std::int32_t integer();  ///< a whole number of 32 bits
    double number();
    std::string_view block();
    automation::Text text();
    automation::Value value();
    std::size_t count();  ///< of things that follow and take a byte at least
    void end() const;     ///< throws unless all was read

    /// One level down; throws beyond the limit. `leave` goes up again.
    void enter();
    void leave() { --level_; }

  private:
    std::string_view take(std::uint64_t count);
    automation::Value array();

    std::string_view rest_;
    int level_ = 0;
};

/// The failure of bytes that are not what they should be.
[[noreturn]] void fail_as_damaged();

}  // namespace desk
