// Turning a mail's people into a contact record: the way is one, what differs between the paths is a table.
#pragma once

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

enum class TermKind { equality, prefix_range, from_dialog };

/// Whether addresses that are not Internet addresses are looked up only with the option "SaveExchangeEmail"
/// on.
enum class Gate { none, sender_is_exchange, sender_or_recipient_is_exchange };

enum class NoToLine { stop, stop_if_no_native_address_either, leave_the_loop, message };

enum class Folders { account_contacts, leads_then_account_contacts, by_dialog_level };

enum class Variant { received, sent, quick_view_launch, tarnwell_launch, open_contact, create_note };

struct VariantRow {
    Variant variant;
    TermKind terms;
    std::span<const Term> for_smtp;   ///< the filter for an Internet address
    std::span<const Term> for_other;  ///< the filter for any other type of address
    Gate gate;
    bool empty_native_address_stops;
    bool native_is_trimmed;  ///< of an Internet address, too
    bool gives_way;          ///< waiting events come after each read of an address
    NoToLine no_to_line;
    Folders folders;
};

std::span<const VariantRow> variants();
const VariantRow& row(Variant variant);

/// The addresses of one person.
struct Addresses {
    automation::Text native{};
    automation::Text smtp{};
    automation::Text sender_name{};
};

/// The contact filter: the terms joined by " Or ".
automation::Text contact_filter(TermKind kind, std::span<const Term> terms, Addresses addresses);

/// Whom a mail is from, as a path reads it.
struct ReadSender {
    Addresses addresses;
    automation::Text
        address;  ///< the one that a new contact gets: the Internet address of a directory's entry, too
    automation::Text filter;
};

/// Reads the sender of a wrapped mail and builds the filter; nothing if the path stops on the way.
std::optional<ReadSender> read_sender(Session& session, const VariantRow& row,
                                      const host::family::SafeMailItem& mail);

/// The test of the To line.
bool stops_without_to_line(const Session& session, const VariantRow& row,
                           const host::family::SafeMailItem& mail, const Addresses& addresses);

/// A sender who can be searched for.
struct Sender {
    host::family::SafeMailItem mail;  ///< the wrapper that the addresses were read through
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
