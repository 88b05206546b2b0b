// Turning a mail's people into a contact record: the way is one, what differs between the paths is a table.
#pragma once

#include <functional>
#include <initializer_list>
#include <optional>
#include <span>

#include "addin/ground/session.h"
#include "addin/ground/steps.h"
#include "addin/host/family.h"
#include "addin/host/outlook.h"
#include "addin/records/names.h"

namespace addin::filing {

/// The types of addresses that are told apart, in upper case.
inline constexpr automation::TextView type_smtp = u"SMTP", type_exchange = u"EX";

/// What a term of the contact filter is compared with.
enum class Address { native, smtp, sender_name };

struct Term {
    records::Name field;
    Address value;
    bool only_if_any = false;  ///< left out when the value is empty
};

enum class TermKind { equality, prefix_range };

/// What a contact is searched by.
struct FilterTerms {
    TermKind kind;
    std::span<const Term> for_smtp;   ///< for an Internet address
    std::span<const Term> for_other;  ///< for any other type of address
};

/// The paths that read a mail's people one by one.
enum class Variant { received, sent, quick_view_launch, tarnwell_launch };

struct VariantRow {
    Variant variant;
    FilterTerms terms;
    bool gated;  ///< the option "SaveExchangeEmail" decides on addresses that are no Internet addresses
    bool empty_address_stops;  ///< of an Internet address
    bool
        native_serves_without_to_line;  ///< a mail without a To line is gone on with, if the address is there
};

const VariantRow& variant_row(Variant variant);

/// What the dialog searches by when it opens a mail's contact.
const FilterTerms& terms_of_open_contact();

/// The addresses of one person.
struct Addresses {
    automation::Text native{};
    automation::Text smtp{};
    automation::Text sender_name{};
};

/// The contact filter for an Internet address, or for another one: the terms joined by " Or ".
automation::Text contact_filter(const FilterTerms& terms, bool internet, Addresses addresses);

/// Whom a mail is from, as a path reads it.
struct ReadSender {
    Addresses addresses;
    automation::Text
        address;  ///< the one that a new contact gets: the Internet address of a directory's entry, too
    automation::Text filter;
};

/// Why addresses of these types are not to be looked up: the option is off, or none is of the directory. None
/// if they are.
Reason why_shut(const Session& session, const VariantRow& row, std::initializer_list<automation::Text> types);

/// Reads the sender of a wrapped mail and builds the filter; nothing if the path stops on the way.
/// `between_reads` runs after each read of an address.
std::optional<ReadSender> read_sender(
    const Session& session, const VariantRow& row, const host::family::SafeMailItem& mail,
    const std::function<void()>& between_reads = [] {});

/// The test of the To line.
bool stops_without_to_line(const Session& session, const VariantRow& row,
                           const host::family::SafeMailItem& mail, const Addresses& addresses);

/// A sender who can be searched for.
struct Sender {
    host::family::SafeMailItem mail;  ///< the one that the addresses were read through
    automation::Text address;
    automation::Text filter;
};

/// Works out whom to search for, up to and including the test of the To line; nothing if the path stops on
/// the way.
std::optional<Sender> resolve_sender(Session& session, const VariantRow& row,
                                     const host::outlook::Item& mail);

/// The contact records' items, or Nothing.
host::outlook::Items contact_items(const Session& session, const host::outlook::Folder& account_profiles);

/// The first contact that matches, or Nothing. Several matches are no failure: the host's order decides.
host::outlook::Item find_contact(Session& session, const host::outlook::Folder& account_profiles,
                                 automation::TextView filter);

}  // namespace addin::filing
