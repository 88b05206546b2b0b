// The words of a filter, in their order. Both languages share them: they differ in what the parser allows
// where.
#pragma once

#include <cstddef>

#include "automation/text.h"

namespace desk::filter {

struct Token {
    enum class Kind { field, quoted, number, word, sign, open, close, percent, end };

    Kind kind = Kind::end;
    automation::Text text;     ///< without brackets or quotes, doubled delimiters made single
    char16_t delimiter = 0;    ///< of a quoted one: ' or "
    std::size_t position = 0;  ///< where it begins, counted from 1 in the whole filter
};

/// Throws `automation::Failure` with `result::invalid_argument` for a condition that can't be understood.
/// `position` counts the filter's characters from 1.
[[noreturn]] void refuse(std::size_t position, automation::TextView what);

class Lexer {
  public:
    /// Reads `text` from an offset on.
    explicit Lexer(automation::TextView text, std::size_t offset = 0) : text_(text), at_(offset) {}

    /// The next token; `end` again and again after the last one. Refuses an unbalanced quote or bracket and
    /// characters that belong to neither language.
    Token next();

  private:
    Token make(Token::Kind kind, std::size_t begin, std::size_t end);
    Token field();
    Token quoted();
    Token sign();

    automation::TextView text_;
    std::size_t at_;
};

}  // namespace desk::filter
