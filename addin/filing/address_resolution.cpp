#include "addin/filing/address_resolution.h"

#include <algorithm>

#include "addin/ground/keyed.h"
#include "addin/ground/presence.h"
#include "addin/ground/settings.h"
#include "addin/records/database.h"
#include "addin/records/filters.h"

namespace addin::filing {

using automation::Text;
using automation::TextView;
namespace field = records::field;
namespace property = records::property;
namespace tag = host::family::tag;

namespace {

constexpr Term native_addresses[] = {
    {field::email1, Address::native}, {field::email2, Address::native}, {field::email3, Address::native}};
constexpr Term smtp_then_native_if_any[] = {
    {field::email1, Address::smtp},         {field::email2, Address::smtp},
    {field::email3, Address::smtp},         {field::email1, Address::native, true},
    {field::email2, Address::native, true}, {field::email3, Address::native, true}};
constexpr Term smtp_then_native[] = {{field::email1, Address::smtp},   {field::email2, Address::smtp},
                                     {field::email3, Address::smtp},   {field::email1, Address::native},
                                     {field::email2, Address::native}, {field::email3, Address::native}};
constexpr Term native_then_names[] = {
    {field::email1, Address::native},       {field::email2, Address::native},
    {field::email3, Address::native},       {field::full_name, Address::sender_name},
    {field::subject, Address::sender_name}, {property::email_search_string, Address::native}};
/// The third address stands twice.
constexpr Term smtp_then_names[] = {
    {field::email1, Address::smtp},         {field::email2, Address::smtp},
    {field::email3, Address::smtp},         {field::full_name, Address::sender_name},
    {field::subject, Address::sender_name}, {field::email1, Address::native},
    {field::email2, Address::native},       {field::email3, Address::native},
    {field::email3, Address::native},       {property::email_search_string, Address::native}};

constexpr FilterTerms open_contact_terms{TermKind::prefix_range, native_then_names, smtp_then_names};

// clang-format off
constexpr VariantRow variant_rows[] = {
    // variant                    kind of terms       for an Internet address  for any other type         gated  empty stops  native serves
    {Variant::received,          {TermKind::equality, native_addresses,        smtp_then_native_if_any},  true,  true,        false},
    {Variant::sent,              {TermKind::equality, native_addresses,        smtp_then_native_if_any},  true,  true,        false},
    {Variant::quick_view_launch, {TermKind::equality, native_addresses,        smtp_then_native},         false, false,       true},
    {Variant::tarnwell_launch,   {TermKind::equality, native_then_names,       smtp_then_names},          false, false,       false},
};
// clang-format on
static_assert(is_in_order(variant_rows, &VariantRow::variant, Variant::tarnwell_launch));

std::span<const Term> terms_for(const FilterTerms& terms, bool internet) {
    return internet ? terms.for_smtp : terms.for_other;
}

Text& value_of(Addresses& addresses, Address which) {
    switch (which) {
        case Address::smtp:
            return addresses.smtp;
        case Address::sender_name:
            return addresses.sender_name;
        case Address::native:
            break;
    }
    return addresses.native;
}

}  // namespace

const VariantRow& variant_row(Variant variant) { return variant_rows[static_cast<std::size_t>(variant)]; }

const FilterTerms& terms_of_open_contact() { return open_contact_terms; }

Text contact_filter(const FilterTerms& terms, bool internet, Addresses addresses) {
    Text filter;
    for (const Term& term : terms_for(terms, internet)) {
        Text& value = value_of(addresses, term.value);
        if (term.only_if_any && value.empty()) continue;
        if (!filter.empty()) filter += records::or_between_terms;
        filter += terms.kind == TermKind::prefix_range ? records::RangeTerm(value, term.field)
                                                       : records::EqualTerm(value, term.field);
    }
    return filter;
}

Reason why_shut(const Session& session, const VariantRow& row, std::initializer_list<Text> types) {
    if (!row.gated) return Reason::none;
    const bool on = Settings(session).option(setting::save_exchange_email) == option_on;
    // what no option would let pass is told first
    if (std::ranges::find(types, type_exchange) == types.end()) return Reason::other_address_type;
    return on ? Reason::none : Reason::directory_filing_off;
}

std::optional<ReadSender> read_sender(const Session& session, const VariantRow& row,
                                      const host::family::SafeMailItem& mail,
                                      const std::function<void()>& between_reads) {
    const Steps steps(session);
    ReadSender read;
    Addresses& addresses = read.addresses;
    steps.set(addresses.native, [&] { return mail.Fields(tag::sender_address); });
    between_reads();
    if (steps.certainly(Reason::no_sender_address,
                        [&] { return row.empty_address_stops && addresses.native.empty(); })) {
        return std::nullopt;
    }
    Text type;
    steps.set(type, [&] { return automation::upper(mail.Fields(tag::sender_address_type)); });
    const bool internet = type == type_smtp;
    if (!internet) {
        if (steps.certainly({Reason::none, addresses.native}, [&] { return why_shut(session, row, {type}); }))
            return std::nullopt;
        host::family::SafeAddressEntry entry;
        steps.set(entry, [&] { return mail.sender(); });
        steps.set(addresses.smtp, [&] { return automation::trimmed(entry.Fields(tag::smtp_address)); });
        between_reads();
        steps.set(addresses.native, [&] { return automation::trimmed(mail.Fields(tag::sender_address)); });
        between_reads();
    }
    const std::span<const Term> terms = terms_for(row.terms, internet);
    if (std::ranges::find(terms, Address::sender_name, &Term::value) != terms.end()) {
        steps.set(addresses.sender_name, [&] { return mail.SenderName(); });
    }
    read.address = internet ? addresses.native : addresses.smtp;
    read.filter = contact_filter(row.terms, internet, addresses);
    return read;
}

bool stops_without_to_line(const Session& session, const VariantRow& row,
                           const host::family::SafeMailItem& mail, const Addresses& addresses) {
    const Steps steps(session);
    return steps.possibly(Reason::no_to_line, [&] {
        return mail.To().empty() &&
               (!row.native_serves_without_to_line || automation::trimmed(addresses.native).empty());
    });
}

std::optional<Sender> resolve_sender(Session& session, const VariantRow& row,
                                     const host::outlook::Item& mail) {
    const Steps steps(session);
    Sender sender;
    steps.set(sender.mail, [&] { return records::make_safe_mail(session.desktop); });
    steps.run([&] { sender.mail.Item(mail); });
    const std::optional<ReadSender> read = read_sender(session, row, sender.mail);
    if (!read || stops_without_to_line(session, row, sender.mail, read->addresses)) return std::nullopt;
    sender.address = read->address;
    sender.filter = read->filter;
    return sender;
}

host::outlook::Items contact_items(const Session& session, const host::outlook::Folder& account_profiles) {
    const Steps steps(session);
    host::outlook::Items contacts;
    steps.set(contacts,
              [&] { return account_profiles.Folders().Item(records::folder::account_contacts).Items(); });
    return contacts;
}

host::outlook::Item find_contact(Session& session, const host::outlook::Folder& account_profiles,
                                 TextView filter) {
    const Steps steps(session);
    const Presence here(session);
    const host::outlook::Items contacts = contact_items(session, account_profiles);
    here.give_way();
    host::outlook::Item contact;
    steps.set(contact, [&] { return contacts.Find(filter); });
    here.give_way();
    return contact;
}

}  // namespace addin::filing
