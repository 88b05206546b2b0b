// What is fuzzed: a row for each piece that reads what it did not write.
#pragma once

#include <span>

#include "fuzz/harness.h"

namespace fuzz {

struct Target {
    std::string_view name;
    std::string_view reads;  ///< what its inputs are, for one who asks what there is
    unsigned long rounds;    ///< of changed seeds, in each run of the native tests
    Seeds (*seeds)();

    /// Gives an input to the piece. Throws `Wrong` if the piece does what it never may; ends badly if it is
    /// broken worse. Answers whether the piece took the input for good.
    bool (*try_input)(std::string_view input);
};

std::span<const Target> targets();

/// Null if there is none of that name.
const Target* target_of(std::string_view name);

Seeds bracket_seeds(), schema_seeds(), builder_seeds(), address_seeds(), setting_seeds(), mail_seeds(),
    item_seeds();
bool try_brackets(std::string_view input);
bool try_schema(std::string_view input);
bool try_builders(std::string_view input);
bool try_address(std::string_view input);
bool try_settings(std::string_view input);
bool try_mail(std::string_view input);
bool try_item(std::string_view input);

}  // namespace fuzz
