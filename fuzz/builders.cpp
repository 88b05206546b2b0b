// Values of any text become filters, and the desk reads them: no value adds a term, but for the signs that
// the builder is known to let out.
#include "fuzz/added_terms.h"
#include "fuzz/input.h"
#include "fuzz/targets.h"

namespace {

std::string with_first_byte(std::size_t first, std::string_view text) {
    return static_cast<char>(first) + std::string(text);
}

}  // namespace

fuzz::Seeds fuzz::builder_seeds() {
    constexpr std::string_view values[] = {"John Smith",
                                           "O'Brien",
                                           "'Abc'",
                                           "Abc'",
                                           "z",
                                           "Plant 9",
                                           "a~",
                                           "a&",
                                           "<<mString>>",
                                           "It''s",
                                           "' Or [Size] > 0 Or [A] = '",
                                           "~ Or [Size] > 0 Or [A] <> ~",
                                           "%last7days(\"p\")%"};
    Seeds seeds;
    for (std::size_t i = 0; i < std::size(builders); ++i) {
        for (const std::string_view value : values) seeds.push_back(with_first_byte(i, value));
    }
    return seeds;
}

bool fuzz::try_builders(std::string_view bytes) {
    Input input(bytes);
    const Builder& builder = builders[input.choice(std::size(builders))];
    const Text value = automation::from_utf8(input.rest());
    if (value.find_first_of(builder.breaks_out) != Text::npos) return false;
    require(!adds_terms(builder, value), std::string("a value adds a term: ") + builder.name);
    return true;
}
