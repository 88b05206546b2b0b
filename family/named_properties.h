// Property tags and schema addresses.
#pragma once

#include <compare>
#include <cstdint>
#include <map>
#include <variant>
#include <vector>

#include "automation/value.h"

namespace family {

/// A property tag: the property's id in the upper 16 bits, its type in the lower ones.
using Tag = std::uint32_t;

/// Ids of properties from here on are named properties.
inline constexpr std::uint32_t first_named_id = 0x8000;

/// A tag from a number of any sign or from a text: "0x0C1F001E", "&H0C1F001E" or decimal digits. Throws
/// `Failure(result::invalid_argument)` for anything else.
Tag read_tag(const automation::Value& value);

/// A named property: its set and its number or name there.
struct NamedProperty {
    automation::Text set;  ///< "{00062004-0000-0000-C000-000000000046}", in upper case
    std::variant<std::uint32_t, automation::Text> id;
    friend auto operator<=>(const NamedProperty&, const NamedProperty&) = default;
};

/// A named property by a set and a number or a text; a number of 16 bits may come with its sign. Throws
/// `Failure(result::invalid_argument)` if the set is no such id or the name is empty.
NamedProperty read_named_property(automation::TextView set, const automation::Value& id_or_name);

/// The tags given out for named properties.
class NamedProperties {
  public:
    /// The tag, with an empty type, of a named property: always the same one. Throws `Failure` when all are
    /// given out.
    Tag tag(const NamedProperty& property);

    /// The schema address of a tag. Throws `Failure(result::not_found)` for a named property that was not
    /// given out.
    automation::Text address(Tag tag) const;

  private:
    std::vector<NamedProperty> given_;             ///< the place of each tells its tag
    std::map<NamedProperty, std::size_t> places_;  ///< in `given_`
};

}  // namespace family
