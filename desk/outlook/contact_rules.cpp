#include "desk/outlook/contact_rules.h"

#include <algorithm>
#include <span>

#include "desk/outlook/contact_addresses.h"

namespace desk {

using automation::Text;
using automation::TextView;

namespace {

bool is_field(TextView field, TextView name) { return automation::same_ignoring_case(field, name); }

Text name_part(const ItemData& item, TextView field) {
    const auto found = item.fields.find(field);
    return found == item.fields.end() ? Text() : found->second.to_text();
}

constexpr TextView titles[] = {u"Dr", u"Miss", u"Mr", u"Mrs", u"Ms", u"Prof"};
constexpr TextView suffixes[] = {u"I", u"II", u"III", u"Jr", u"Sr", u"Ph.D", u"PhD"};

/// Whether a word of a name is one of these, with a full stop or without.
bool is_one_of(std::span<const TextView> words, TextView word) {
    if (word.ends_with(u'.')) word.remove_suffix(1);
    return std::ranges::any_of(words, [&](TextView each) { return is_field(word, each); });
}

constexpr TextView parts_of_full_name[] = {u"Title", u"FirstName", u"MiddleName", u"LastName", u"Suffix"};

Text joined(const ItemData& contact, std::span<const TextView> fields) {
    Text all;
    for (const TextView field : fields) {
        const Text part = name_part(contact, field);
        if (!part.empty() && !all.empty()) all += u' ';
        all += part;
    }
    return all;
}

/// "Dr. Ann van Lee Jr." or "Lee, Ann": title, first name, middle names, last name, suffix. A title or suffix
/// alone is a name.
void split_full_name(ItemData& contact) {
    Text name = automation::trimmed(name_part(contact, u"FullName"));
    Text title, suffix, last_name;
    if (const std::size_t end = name.find(u' ');
        end != Text::npos && is_one_of(titles, name.substr(0, end))) {
        title = name.substr(0, end);
        name = automation::trimmed(name.substr(end));
    }
    if (const std::size_t start = name.rfind(u' ');
        start != Text::npos && is_one_of(suffixes, name.substr(start + 1))) {
        suffix = name.substr(start + 1);
        name = automation::trimmed(name.substr(0, start));
        if (name.ends_with(u',')) name.pop_back();
    }
    const std::size_t comma = name.find(u',');
    const bool last_name_first = comma != Text::npos && comma > 0;
    if (last_name_first) {
        last_name = automation::trimmed(name.substr(0, comma));
        name = automation::trimmed(name.substr(comma + 1));
    } else if (const std::size_t last = name.rfind(u' '); last != Text::npos) {
        last_name = name.substr(last + 1);
        name = automation::trimmed(name.substr(0, last));
    }
    const std::size_t first = name.find(u' ');
    contact.fields[u"Title"] = title;
    contact.fields[u"FirstName"] = name.substr(0, first);
    contact.fields[u"MiddleName"] =
        first == Text::npos ? Text() : automation::trimmed(TextView(name).substr(first));
    contact.fields[u"LastName"] = last_name;
    contact.fields[u"Suffix"] = suffix;
    if (last_name_first) contact.fields[u"FullName"] = joined(contact, parts_of_full_name);
}

void follow_mail_address(ItemData& contact, TextView changed) {
    for (const char16_t number : {u'1', u'2', u'3'}) {
        const Text stem = Text(u"Email") + number;
        if (!is_field(changed, stem + u"Address")) continue;
        const Text address = name_part(contact, changed);
        if (name_part(contact, stem + u"AddressType").empty()) {
            contact.fields[stem + u"AddressType"] = address.starts_with(u"/") ? u"EX" : u"SMTP";
        }
        if (name_part(contact, stem + u"DisplayName").empty()) {
            const Text full = name_part(contact, u"FullName");
            contact.fields[stem + u"DisplayName"] = full.empty() ? address : full + u" (" + address + u")";
        }
    }
}

/// How a name is put together of the last name and the others: what stands between them, what comes behind.
struct Composed {
    TextView field, after_last_name;
    enum class Company { none, before, behind } company;
    bool with_suffix;
    bool of_wide_letters;  ///< there only where a part has letters of two bytes, as of Chinese or Japanese
};
constexpr Composed composed_names[] = {
    {u"LastNameAndFirstName", u", ", Composed::Company::none, false, false},
    {u"CompanyAndFullName", u", ", Composed::Company::before, false, false},
    {u"FullNameAndCompany", u", ", Composed::Company::behind, false, false},
    {u"LastFirstNoSpace", u"", Composed::Company::none, false, true},
    {u"LastFirstSpaceOnly", u" ", Composed::Company::none, false, true},
    {u"CompanyLastFirstNoSpace", u"", Composed::Company::before, false, true},
    {u"CompanyLastFirstSpaceOnly", u" ", Composed::Company::before, false, true},
    {u"LastFirstNoSpaceCompany", u"", Composed::Company::behind, false, true},
    {u"LastFirstSpaceOnlyCompany", u" ", Composed::Company::behind, false, true},
    {u"LastFirstAndSuffix", u" ", Composed::Company::none, true, true},
    {u"LastFirstNoSpaceAndSuffix", u"", Composed::Company::none, true, true},
};

constexpr TextView name_fields[] = {u"FirstName", u"MiddleName", u"LastName", u"Suffix", u"CompanyName"};

bool has_wide_letters(const ItemData& contact) {
    constexpr char16_t first_wide = 0x1100, surrogates = 0xD800, last_surrogate = 0xDFFF;
    return std::ranges::any_of(name_fields, [&](TextView field) {
        return std::ranges::any_of(name_part(contact, field), [](char16_t c) {
            return c >= first_wide && !(c >= surrogates && c <= last_surrogate);
        });
    });
}

/// The two, with something between them where both are there.
Text with_between(const Text& one, TextView between, const Text& other) {
    return one.empty() || other.empty() ? one + other : one + Text(between) + other;
}

Text composed(const ItemData& contact, const Composed& row) {
    constexpr TextView given_names[] = {u"FirstName", u"MiddleName"};
    Text full =
        with_between(name_part(contact, u"LastName"), row.after_last_name, joined(contact, given_names));
    if (row.with_suffix) full = with_between(full, u" ", name_part(contact, u"Suffix"));
    const Text company = name_part(contact, u"CompanyName");
    if (row.company == Composed::Company::before) return with_between(company, u"\r\n", full);
    if (row.company == Composed::Company::behind) return with_between(full, u"\r\n", company);
    return full;
}

/// "A.v.L." of Ann van Lee.
Text initials(const ItemData& contact) {
    Text letters;
    for (const TextView field : {u"FirstName", u"MiddleName", u"LastName"}) {
        const Text part = name_part(contact, field);
        constexpr char16_t surrogates = 0xD800, last_first = 0xDBFF;
        const bool is_pair = !part.empty() && part.front() >= surrogates && part.front() <= last_first;
        if (!part.empty()) letters += part.substr(0, is_pair ? 2 : 1) + u".";
    }
    return letters;
}

}  // namespace

Text filed_as(const ItemData& contact) {
    const Text name = composed(contact, composed_names[0]);
    return name.empty() ? name_part(contact, u"CompanyName") : name;
}

std::optional<Text> composed_name(const ItemData& contact, TextView field) {
    if (is_field(field, u"Initials")) return initials(contact);
    const auto row = std::ranges::find_if(composed_names,
                                          [&](const Composed& each) { return is_field(each.field, field); });
    if (row == std::end(composed_names)) return std::nullopt;
    return row->of_wide_letters && !has_wide_letters(contact) ? Text() : composed(contact, *row);
}

void follow_contact(ItemData& contact, TextView changed, TextView filed_as_before) {
    const Text former_file_as = name_part(contact, u"FileAs");
    if (is_field(changed, u"FullName")) split_full_name(contact);
    if (std::ranges::any_of(parts_of_full_name, [&](TextView part) { return is_field(changed, part); }))
        contact.fields[u"FullName"] = joined(contact, parts_of_full_name);
    if (former_file_as.empty() || former_file_as == filed_as_before)
        contact.fields[u"FileAs"] = filed_as(contact);
    follow_mail_address(contact, changed);
    follow_address(contact, changed);
}

}  // namespace desk
