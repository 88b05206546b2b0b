#include "fuzz/targets.h"

#include <algorithm>

namespace fuzz {

namespace {

// clang-format off
constexpr Target all[] = {
    {"settings",  "values of the registry: what each query answers, by type, size and status",  20000, setting_seeds, try_settings},
    {"addresses", "addresses of a mail's people: contact filters and the cutting of domains",   20000, address_seeds, try_address},
    {"builders",  "values that become filters, which the desk reads",                           20000, builder_seeds, try_builders},
    {"brackets",  "filters of bracketed fields",                                                20000, bracket_seeds, try_brackets},
    {"schema",    "filters of schema names, which begin with @SQL=",                            20000, schema_seeds,  try_schema},
    {"mails",     "mail files",                                                                 20000, mail_seeds,    try_mail},
    {"items",     "items as the desk's store keeps them",                                       20000, item_seeds,    try_item},
};
// clang-format on

}  // namespace

std::span<const Target> targets() { return all; }

const Target* target_of(std::string_view name) {
    const auto found = std::ranges::find(all, name, &Target::name);
    return found == std::end(all) ? nullptr : found;
}

}  // namespace fuzz
