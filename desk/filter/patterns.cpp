#include "desk/filter/patterns.h"

#include <algorithm>

namespace desk::filter {
namespace {

/// Beyond ASCII all is taken for a letter but the blocks of controls, signs and punctuation.
bool is_letter_or_digit(char16_t unit) {
    if (unit < 0x80) {
        return (unit >= u'0' && unit <= u'9') || (unit >= u'A' && unit <= u'Z') ||
               (unit >= u'a' && unit <= u'z');
    }
    constexpr char16_t ordinals_and_micro[] = {0x00AA, 0x00B5, 0x00BA};
    if (unit < 0x00C0) return std::ranges::find(ordinals_and_micro, unit) != std::end(ordinals_and_micro);
    const bool arithmetic = unit == 0x00D7 || unit == 0x00F7;
    const bool punctuation = (unit >= 0x2000 && unit <= 0x206F) || (unit >= 0x3000 && unit <= 0x3003);
    return !arithmetic && !punctuation;
}

}  // namespace

std::vector<automation::Text> pieces_of(automation::TextView pattern) {
    const automation::Text folded = automation::folded(pattern);
    std::vector<automation::Text> pieces;
    for (std::size_t from = 0;;) {
        const std::size_t end = folded.find(u'%', from);
        pieces.push_back(folded.substr(from, end - from));
        if (end == automation::Text::npos) return pieces;
        from = end + 1;
    }
}

bool is_like(automation::TextView text, const std::vector<automation::Text>& pieces) {
    const automation::Text folded = automation::folded(text);
    if (pieces.size() == 1) return folded == pieces.front();

    automation::TextView rest = folded;
    const automation::Text &first = pieces.front(), &last = pieces.back();
    if (rest.size() < first.size() + last.size()) return false;
    if (!rest.starts_with(first) || !rest.ends_with(last)) return false;
    rest.remove_prefix(first.size());
    rest.remove_suffix(last.size());
    // The leftmost place of each piece leaves the most room for those behind it.
    for (auto piece = pieces.begin() + 1; piece != pieces.end() - 1; ++piece) {
        const std::size_t found = rest.find(*piece);
        if (found == automation::TextView::npos) return false;
        rest.remove_prefix(found + piece->size());
    }
    return true;
}

std::vector<automation::Text> words_of(automation::TextView text) {
    const automation::Text folded = automation::folded(text);
    std::vector<automation::Text> words;
    for (auto begin = folded.begin();;) {
        begin = std::find_if(begin, folded.end(), is_letter_or_digit);
        if (begin == folded.end()) return words;
        const auto end = std::find_if_not(begin, folded.end(), is_letter_or_digit);
        words.emplace_back(begin, end);
        begin = end;
    }
}

bool has_phrase(automation::TextView text, const std::vector<automation::Text>& words) {
    const std::vector<automation::Text> here = words_of(text);
    return !words.empty() && std::search(here.begin(), here.end(), words.begin(), words.end()) != here.end();
}

bool has_starts(automation::TextView text, const std::vector<automation::Text>& words) {
    const std::vector<automation::Text> here = words_of(text);
    return !words.empty() && std::ranges::all_of(words, [&](const automation::Text& start) {
        return std::ranges::any_of(here,
                                   [&](const automation::Text& word) { return word.starts_with(start); });
    });
}

}  // namespace desk::filter
