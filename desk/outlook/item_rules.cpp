// Built-in fields that follow each other.
#include <algorithm>
#include <cmath>
#include <span>

#include "desk/outlook/item.h"

namespace desk {

using automation::Date;
using automation::Text;
using automation::TextView;
using automation::Value;

namespace {

constexpr double minutes_per_day = 1440;

Text text_of(const ItemData& item, TextView field) {
    const auto found = item.fields.find(field);
    return found == item.fields.end() ? Text() : found->second.to_text();
}

void put(ItemData& item, TextView field, Value value) { item.fields[Text(field)] = std::move(value); }

bool is(TextView field, TextView name) { return automation::same_ignoring_case(field, name); }

constexpr TextView titles[] = {u"Dr", u"Miss", u"Mr", u"Mrs", u"Ms", u"Prof"};
constexpr TextView suffixes[] = {u"I", u"II", u"III", u"Jr", u"Sr"};

/// Whether a word of a name is one of these, with a full stop or without.
bool is_one_of(std::span<const TextView> words, TextView word) {
    if (word.ends_with(u'.')) word.remove_suffix(1);
    return std::ranges::any_of(words, [&](TextView each) { return is(word, each); });
}

/// "Dr. Ann van Lee Jr.": title, first name, middle names, last name, suffix. A title or suffix alone is a
/// name.
void split_full_name(ItemData& item) {
    Text name = automation::trimmed(text_of(item, u"FullName"));
    Text title, suffix;
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
    const std::size_t first = name.find(u' ');
    const std::size_t last = name.rfind(u' ');
    put(item, u"Title", title);
    put(item, u"FirstName", name.substr(0, first));
    put(item, u"LastName", first == Text::npos ? Text() : name.substr(last + 1));
    put(item, u"MiddleName", first == last ? Text() : automation::trimmed(name.substr(first, last - first)));
    put(item, u"Suffix", suffix);
}

constexpr TextView parts_of_full_name[] = {u"Title", u"FirstName", u"MiddleName", u"LastName", u"Suffix"};

void join_full_name(ItemData& item) {
    Text full;
    for (const TextView part : parts_of_full_name) {
        const Text name = text_of(item, part);
        if (!name.empty() && !full.empty()) full += u' ';
        full += name;
    }
    put(item, u"FullName", full);
}

void follow_contact(ItemData& item, TextView changed, TextView filed_as_before) {
    const Text former_file_as = text_of(item, u"FileAs");
    if (is(changed, u"FullName")) split_full_name(item);
    if (std::ranges::any_of(parts_of_full_name, [&](TextView part) { return is(changed, part); }))
        join_full_name(item);
    if (former_file_as.empty() || former_file_as == filed_as_before) put(item, u"FileAs", filed_as(item));
    for (const char16_t number : {u'1', u'2', u'3'}) {
        const Text stem = Text(u"Email") + number;
        if (!is(changed, stem + u"Address")) continue;
        const Text address = text_of(item, changed);
        if (text_of(item, stem + u"AddressType").empty()) {
            put(item, stem + u"AddressType", address.starts_with(u"/") ? u"EX" : u"SMTP");
        }
        if (text_of(item, stem + u"DisplayName").empty()) {
            const Text full = text_of(item, u"FullName");
            put(item, stem + u"DisplayName", full.empty() ? address : full + u" (" + address + u")");
        }
    }
}

double days_of(const ItemData& item, TextView field, double otherwise) {
    const auto found = item.fields.find(field);
    return found == item.fields.end() ? otherwise : found->second.to_date().days;
}

std::int32_t number_of(const ItemData& item, TextView field, std::int32_t otherwise) {
    const auto found = item.fields.find(field);
    return found == item.fields.end() ? otherwise : found->second.to_integer();
}

void follow_appointment(ItemData& item, TextView changed) {
    constexpr std::int32_t usual_duration = 30;
    const double start = days_of(item, u"Start", 0);
    const std::int32_t duration = number_of(item, u"Duration", usual_duration);
    if (is(changed, u"Start") || is(changed, u"Duration")) {
        put(item, u"Duration", duration);
        put(item, u"End", Date{start + duration / minutes_per_day});
    } else if (is(changed, u"End")) {
        const double minutes = (days_of(item, u"End", start) - start) * minutes_per_day;
        put(item, u"Duration", static_cast<std::int32_t>(std::lround(minutes)));
    }
}

void follow_task(ItemData& item, TextView changed, Date now) {
    constexpr std::int32_t not_started = 0, in_progress = 1, complete = 2, whole = 100;
    bool done = number_of(item, u"Status", not_started) == complete;
    if (is(changed, u"Complete")) done = item.fields[u"Complete"].to_boolean();
    if (is(changed, u"PercentComplete")) done = number_of(item, u"PercentComplete", 0) >= whole;
    if (!is(changed, u"Complete") && !is(changed, u"PercentComplete") && !is(changed, u"Status")) return;
    if (done) {
        put(item, u"Status", complete);
        put(item, u"PercentComplete", whole);
        if (!item.fields.contains(u"DateCompleted")) put(item, u"DateCompleted", Date{std::floor(now.days)});
    } else {
        std::int32_t percent = number_of(item, u"PercentComplete", 0);
        if (percent >= whole) percent = 0;
        put(item, u"PercentComplete", percent);
        if (!is(changed, u"Status")) put(item, u"Status", percent > 0 ? in_progress : not_started);
        item.fields.erase(u"DateCompleted");
    }
    put(item, u"Complete", done);
}

}  // namespace

Text filed_as(const ItemData& item) {
    const Text last = text_of(item, u"LastName");
    Text first = text_of(item, u"FirstName");
    const Text middle = text_of(item, u"MiddleName");
    if (!middle.empty()) first += u" " + middle;
    if (last.empty()) return first.empty() ? text_of(item, u"CompanyName") : first;
    return first.empty() ? last : last + u", " + first;
}

void follow_change(ItemData& item, TextView changed, TextView filed_as_before, Date now) {
    const ItemKind& kind = kind_of(item.message_class);
    if (kind.number == object_class::contact) follow_contact(item, changed, filed_as_before);
    if (kind.number == object_class::appointment) follow_appointment(item, changed);
    if (kind.number == object_class::task) follow_task(item, changed, now);
    if (kind.is_note && is(changed, u"Body")) {
        const Text body = text_of(item, u"Body");
        put(item, u"Subject", body.substr(0, body.find_first_of(u"\r\n")));
    }
    if (is(changed, u"Subject") && kind.number == object_class::mail) {
        put(item, u"ConversationTopic", text_of(item, u"Subject"));
    }
}

void complete_for_saving(ItemData& item) {
    if (kind_of(item.message_class).number != object_class::contact) return;
    if (text_of(item, u"FileAs").empty()) put(item, u"FileAs", filed_as(item));
    if (text_of(item, u"Subject").empty()) put(item, u"Subject", text_of(item, u"FullName"));
}

}  // namespace desk
