#include "tests/native/word_order.h"

#include <algorithm>
#include <compare>
#include <vector>

namespace native {

using automation::TextView;

namespace {

/// The letters below the accents, from U+00C0 on; a blank for what is a letter of its own or none.
constexpr TextView plain_letters =
    u"AAAAAA CEEEEIIII NOOOOO OUUUUY  aaaaaa ceeeeiiii nooooo ouuuuy y"
    u"AaAaAaCcCcCcCcDdDdEeEeEeEeEeGgGgGgGgHhHhIiIiIiIiIi  JjKk LlLlLlLlLlNnNnNn   OoOoOo  RrRrRrSsSsSsSs"
    u"TtTtTtUuUuUuUuUuUuWwYyYZzZzZzs";
constexpr char16_t first_accented = 0x00C0;

char16_t without_accent(char16_t unit) {
    if (unit < first_accented || unit - first_accented >= static_cast<int>(plain_letters.size())) return unit;
    const char16_t plain = plain_letters[unit - first_accented];
    return plain == u' ' ? unit : plain;
}

bool is_within_words(char16_t unit) { return unit == u'\'' || unit == u'-'; }

/// What a unit is compared by at first.
struct Weight {
    enum class Group { mark, digit, letter } group;
    char16_t unit;
    auto operator<=>(const Weight&) const = default;
};

Weight weight_of(char16_t unit) {
    const char16_t plain = automation::lower(without_accent(unit));
    if (plain >= u'0' && plain <= u'9') return {Weight::Group::digit, plain};
    const bool letter = (plain >= u'a' && plain <= u'z') || plain >= first_accented;
    return {letter ? Weight::Group::letter : Weight::Group::mark, plain};
}

/// Compared member by member.
struct Key {
    std::vector<Weight> weights;
    std::vector<char16_t> accents;          ///< 0 for a unit without
    std::vector<std::size_t> within_words;  ///< where there are apostrophes and hyphens
    auto operator<=>(const Key&) const = default;
};

Key key_of(TextView text) {
    Key key;
    for (const char16_t unit : text) {
        if (is_within_words(unit)) {
            key.within_words.push_back(key.weights.size());
            continue;
        }
        key.weights.push_back(weight_of(unit));
        key.accents.push_back(without_accent(unit) == unit ? u'\0' : automation::lower(unit));
    }
    return key;
}

}  // namespace

int compare_words(TextView left, TextView right) {
    const std::strong_ordering order = key_of(left) <=> key_of(right);
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

}  // namespace native
