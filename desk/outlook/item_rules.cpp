// Built-in fields that follow each other.
#include <cmath>

#include "desk/outlook/contact_rules.h"
#include "desk/outlook/item.h"
#include "desk/outlook/item_texts.h"

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

void follow_change(ItemData& item, TextView changed, TextView filed_as_before, Surroundings& surroundings) {
    const ItemKind& kind = kind_of(item.message_class);
    if (kind.number == object_class::contact) follow_contact(item, changed, filed_as_before);
    if (kind.number == object_class::dist_list && is(changed, u"DLName")) {
        for (const TextView name : {u"Subject", u"FullName", u"FileAs"})
            put(item, name, text_of(item, changed));
    }
    if (kind.number == object_class::appointment) follow_appointment(item, changed);
    if (kind.number == object_class::task) follow_task(item, changed, surroundings.now());
    follow_body(item, changed, surroundings);
    if (is(changed, u"Categories"))
        put(item, changed, normalized_categories(text_of(item, changed), surroundings.list_separator()));
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
