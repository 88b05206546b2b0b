#include "desk/filter/lexer.h"

#include <algorithm>

#include "automation/failure.h"

namespace desk::filter {
namespace {

constexpr automation::TextView blanks = u" \t\r\n";
constexpr automation::TextView signs = u"=<>";

bool is_digit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

bool is_word_part(char16_t unit) {
    return is_digit(unit) || (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z') || unit == u'_';
}

/// The offset behind a number such as 5, -2.5 or 1e3 that begins at `begin`; `begin` if none does.
std::size_t after_number(automation::TextView text, std::size_t begin) {
    std::size_t at = begin;
    auto digits = [&] {
        const std::size_t first = at;
        while (at < text.size() && is_digit(text[at])) ++at;
        return at > first;
    };
    if (text[at] == u'-' || text[at] == u'+') ++at;
    bool any = digits();
    if (at < text.size() && text[at] == u'.') {
        ++at;
        any = digits() || any;
    }
    if (!any) return begin;
    if (at < text.size() && (text[at] == u'e' || text[at] == u'E')) {
        const std::size_t mantissa = at++;
        if (at < text.size() && (text[at] == u'-' || text[at] == u'+')) ++at;
        if (!digits()) at = mantissa;
    }
    return at;
}

}  // namespace

void refuse(std::size_t position, automation::TextView what) {
    automation::Text text = u"Condition is not valid. ";
    text += what;
    text += u" (character " + automation::to_text(static_cast<long long>(position)) + u")";
    throw automation::Failure(automation::result::invalid_argument, std::move(text));
}

Token Lexer::next() {
    at_ = std::min(text_.find_first_not_of(blanks, at_), text_.size());
    if (at_ == text_.size()) return make(Token::Kind::end, at_, at_);

    const std::size_t begin = at_;
    const char16_t unit = text_[begin];
    if (unit == u'[') return field();
    if (unit == u'\'' || unit == u'"') return quoted();
    if (unit == u'(') return make(Token::Kind::open, begin, begin + 1);
    if (unit == u')') return make(Token::Kind::close, begin, begin + 1);
    if (unit == u'%') return make(Token::Kind::percent, begin, begin + 1);
    if (signs.find(unit) != automation::TextView::npos) return sign();
    if (const std::size_t end = after_number(text_, begin); end != begin) {
        if (end < text_.size() && is_word_part(text_[end])) refuse(begin + 1, u"A number is malformed.");
        return make(Token::Kind::number, begin, end);
    }
    std::size_t end = begin;
    while (end < text_.size() && is_word_part(text_[end])) ++end;
    if (end == begin) refuse(begin + 1, u"Unexpected character \"" + automation::Text(1, unit) + u"\".");
    return make(Token::Kind::word, begin, end);
}

Token Lexer::make(Token::Kind kind, std::size_t begin, std::size_t end) {
    at_ = end;
    return {kind, automation::Text(text_.substr(begin, end - begin)), 0, begin + 1};
}

Token Lexer::field() {
    const std::size_t begin = at_;
    const std::size_t end = text_.find(u']', begin);
    if (end == automation::TextView::npos) refuse(begin + 1, u"The bracket of a field name is not closed.");
    Token token = make(Token::Kind::field, begin + 1, end);
    token.text = automation::trimmed(token.text);
    token.position = begin + 1;
    if (token.text.empty()) refuse(begin + 1, u"A field name is empty.");
    at_ = end + 1;
    return token;
}

Token Lexer::quoted() {
    Token token{Token::Kind::quoted, {}, text_[at_], at_ + 1};
    for (std::size_t from = at_ + 1;;) {
        const std::size_t end = text_.find(token.delimiter, from);
        if (end == automation::TextView::npos) refuse(token.position, u"The quote of a text is not closed.");
        token.text += text_.substr(from, end - from);
        at_ = end + 1;
        if (at_ == text_.size() || text_[at_] != token.delimiter) return token;
        token.text += token.delimiter;
        from = at_ + 1;
    }
}

Token Lexer::sign() {
    const automation::TextView two = text_.substr(at_, 2);
    const bool is_double = two == u"<>" || two == u"<=" || two == u">=";
    return make(Token::Kind::sign, at_, at_ + (is_double ? 2 : 1));
}

}  // namespace desk::filter
