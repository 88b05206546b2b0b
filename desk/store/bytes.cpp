#include "desk/store/bytes.h"

#include <algorithm>
#include <bit>
#include <limits>

namespace desk {
namespace {

using automation::Array;
using automation::Value;

constexpr int most_natural_bytes = 10;  // of seven bits, for 64

/// The elements of one dimension; a negative count stands for none.
std::int64_t elements(const Array::Bounds& bounds) { return std::max<std::int64_t>(bounds.count, 0); }

/// Calls `visit` with every element of an array, the last index running fastest.
template <typename AnyArray, typename Visit>
void for_each_element(AnyArray& array, Visit visit) {
    const Array::Bounds first = array.dimensions().front();
    for (std::int64_t i = 0; i < elements(first); ++i) {
        const auto row = static_cast<std::int32_t>(first.lower + i);
        if (array.dimensions().size() == 1) {
            visit(array.at(row));
            continue;
        }
        const Array::Bounds second = array.dimensions().back();
        for (std::int64_t k = 0; k < elements(second); ++k) {
            visit(array.at(row, static_cast<std::int32_t>(second.lower + k)));
        }
    }
}

}  // namespace

void fail_as_damaged() { throw automation::Failure(automation::result::fail, u"What is stored is damaged."); }

void ByteWriter::natural(std::uint64_t value) {
    for (; value >= 0x80; value >>= 7) byte(static_cast<std::uint8_t>(value | 0x80));
    byte(static_cast<std::uint8_t>(value));
}

void ByteWriter::whole(std::int64_t value) {
    const auto bits = static_cast<std::uint64_t>(value);
    natural((bits << 1) ^ (value < 0 ? ~std::uint64_t{0} : 0));
}

void ByteWriter::number(double value) {
    auto bits = std::bit_cast<std::uint64_t>(value);
    for (int i = 0; i < 8; ++i, bits >>= 8) byte(static_cast<std::uint8_t>(bits));
}

void ByteWriter::block(std::string_view bytes) {
    natural(bytes.size());
    bytes_.append(bytes);
}

void ByteWriter::text(automation::TextView text) {
    const bool wide = std::ranges::any_of(text, [](char16_t unit) { return unit > 0xFF; });
    natural((std::uint64_t{text.size()} << 1) | (wide ? 1 : 0));
    for (const char16_t unit : text) {
        byte(static_cast<std::uint8_t>(unit));
        if (wide) byte(static_cast<std::uint8_t>(unit >> 8));
    }
}

void ByteWriter::value(const Value& value) {
    byte(static_cast<std::uint8_t>(value.type()));
    switch (value.type()) {
        case Value::Type::empty:
        case Value::Type::null:
        case Value::Type::missing:
            break;
        case Value::Type::boolean:
            byte(value.to_boolean() ? 1 : 0);
            break;
        case Value::Type::integer:
            whole(value.to_integer());
            break;
        case Value::Type::number:
            number(value.to_number());
            break;
        case Value::Type::date:
            number(value.to_date().days);
            break;
        case Value::Type::text:
            text(value.to_text());
            break;
        case Value::Type::object:
            throw automation::Failure(automation::result::type_mismatch, u"An object can't be stored.");
        case Value::Type::array: {
            if (++level_ > most_nested)
                throw automation::Failure(automation::result::fail, u"Arrays are nested too deeply.");
            const Array& array = value.to_array();
            natural(array.dimensions().size());
            for (const Array::Bounds& bounds : array.dimensions()) {
                whole(bounds.lower);
                whole(bounds.count);
            }
            for_each_element(array, [this](const Value& element) { this->value(element); });
            --level_;
            break;
        }
    }
}

std::string_view ByteReader::take(std::uint64_t count) {
    if (count > rest_.size()) fail_as_damaged();
    const std::string_view taken = rest_.substr(0, static_cast<std::size_t>(count));
    rest_.remove_prefix(taken.size());
    return taken;
}

std::uint8_t ByteReader::byte() { return static_cast<std::uint8_t>(take(1).front()); }

bool ByteReader::flag() {
    const std::uint8_t value = byte();
    if (value > 1) fail_as_damaged();
    return value == 1;
}

std::uint64_t ByteReader::natural() {
    std::uint64_t value = 0;
    for (int i = 0; i < most_natural_bytes; ++i) {
        const std::uint64_t next = byte();
        const std::uint64_t bits = next & 0x7F;
        const int shift = 7 * i;
        if (i == most_natural_bytes - 1 && bits > 1) fail_as_damaged();
        value |= bits << shift;
        if (next < 0x80) return value;
    }
    fail_as_damaged();
}

std::int64_t ByteReader::whole() {
    const std::uint64_t bits = natural();
    return static_cast<std::int64_t>((bits >> 1) ^ (bits & 1 ? ~std::uint64_t{0} : 0));
}

std::int32_t ByteReader::integer() {
    const std::int64_t value = whole();
    if (value < std::numeric_limits<std::int32_t>::min() ||
        value > std::numeric_limits<std::int32_t>::max()) {
        fail_as_damaged();
    }
    return static_cast<std::int32_t>(value);
}

double ByteReader::number() {
    std::uint64_t bits = 0;
    int shift = 0;
    for (const char part : take(8)) {
        bits |= std::uint64_t{static_cast<std::uint8_t>(part)} << shift;
        shift += 8;
    }
    return std::bit_cast<double>(bits);
}

std::string_view ByteReader::block() { return take(natural()); }

automation::Text ByteReader::text() {
    const std::uint64_t head = natural();
    const std::uint64_t units = head >> 1;
    if (units > rest_.size()) fail_as_damaged();  // so that twice the number can't overflow
    const bool wide = head & 1;
    const std::string_view bytes = take(wide ? 2 * units : units);
    automation::Text text(static_cast<std::size_t>(units), u'\0');
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto low = static_cast<std::uint8_t>(bytes[wide ? 2 * i : i]);
        const auto high = static_cast<std::uint8_t>(wide ? bytes[2 * i + 1] : 0);
        text[i] = static_cast<char16_t>(low | (high << 8));
    }
    return text;
}

Value ByteReader::value() {
    switch (static_cast<Value::Type>(byte())) {
        case Value::Type::empty:
            return {};
        case Value::Type::null:
            return automation::Null{};
        case Value::Type::missing:
            return automation::Missing{};
        case Value::Type::boolean:
            return flag();
        case Value::Type::integer:
            return integer();
        case Value::Type::number:
            return number();
        case Value::Type::date:
            return automation::Date{number()};
        case Value::Type::text:
            return text();
        case Value::Type::array:
            return array();
        default:
            fail_as_damaged();
    }
}

Value ByteReader::array() {
    enter();
    const std::uint64_t dimensions = natural();
    if (dimensions < 1 || dimensions > 2) fail_as_damaged();
    auto bounds = [this] {
        const std::int32_t lower = integer();
        const Array::Bounds read{lower, integer()};
        if (read.lower + elements(read) > std::numeric_limits<std::int32_t>::max()) fail_as_damaged();
        return read;
    };
    const Array::Bounds first = bounds();
    const Array::Bounds second = dimensions == 2 ? bounds() : Array::Bounds{0, 1};
    // Each element takes a byte at least: so no array is made larger than what is there to fill it.
    if (elements(first) * elements(second) > static_cast<std::int64_t>(rest_.size())) fail_as_damaged();
    Array array = dimensions == 2 ? Array(first, second) : Array(first);
    for_each_element(array, [this](Value& element) { element = value(); });
    leave();
    return array;
}

std::size_t ByteReader::count() {
    const std::uint64_t value = natural();
    if (value > rest_.size()) fail_as_damaged();
    return static_cast<std::size_t>(value);
}

void ByteReader::end() const {
    if (!rest_.empty()) fail_as_damaged();
}

void ByteReader::enter() {
    if (++level_ > most_nested) fail_as_damaged();
}

}  // namespace desk
