// Lists of addresses as mailers should not write them.
#pragma once

#include <string>
#include <string_view>

namespace desk::mail {

/// What stands for the address of somebody who has none, since the parser reads no name without one.
inline constexpr std::string_view no_address = "address-that-was-not-written";

/// A field of addresses in which a name in front of an address, or without one, is told from it: of
/// "Ann Lee ann@one.example" the parser would read nothing. All else stays as it is.
std::string with_angle_brackets(std::string_view field);

}  // namespace desk::mail
