#include "desk/windows/item_form.h"

#include <algorithm>
#include <cmath>

#include "desk/base/desk.h"
#include "desk/outlook/user_properties.h"

namespace desk {

using automation::Date;
using automation::Failure;
using automation::TextView;
using automation::Value;

namespace {

constexpr FormLine head_lines[] = {{u"From", u"SenderName"},
                                   {u"To", u"To"},
                                   {u"Cc", u"CC"},
                                   {u"Sent", u"SentOn"},
                                   {u"Account", u"Account Name"},
                                   {u"Contact", u"Contact Name"},
                                   {u"Type", u"Type"}};

constexpr FormLine mail_form[] = {{.title = u"To", .field = u"To", .people = 1},
                                  {.title = u"Cc", .field = u"CC", .people = 2},
                                  {.title = u"Bcc", .field = u"BCC", .people = 3},
                                  {.title = u"Subject", .field = u"Subject"}};

constexpr FormLine contact_form[] = {{u"Full name", u"FullName"},
                                     {u"Company", u"CompanyName"},
                                     {u"Job title", u"JobTitle"},
                                     {u"File as", u"FileAs"},
                                     {u"E-mail", u"Email1Address"},
                                     {u"E-mail 2", u"Email2Address"},
                                     {u"Telephone", u"BusinessTelephoneNumber"},
                                     {u"Mobile", u"MobileTelephoneNumber"},
                                     {u"Street", u"BusinessAddressStreet"},
                                     {u"City", u"BusinessAddressCity"},
                                     {u"Postal code", u"BusinessAddressPostalCode"},
                                     {u"State", u"BusinessAddressState"},
                                     {u"Customer ID", u"CustomerID"},
                                     {u"Account", u"Account"}};

constexpr FormLine appointment_form[] = {{.title = u"Subject", .field = u"Subject", .is_wide = true},
                                         {.title = u"Location", .field = u"Location", .is_wide = true},
                                         {u"Start", u"Start", FieldLook::moment},
                                         {u"End", u"End", FieldLook::moment},
                                         {u"All day event", u"AllDayEvent", FieldLook::flag, true}};

constexpr TextView task_states[] = {u"Not started", u"In progress", u"Completed", u"Waiting on someone else",
                                    u"Deferred"};
constexpr FormLine task_form[] = {
    {.title = u"Subject", .field = u"Subject", .is_wide = true},
    {u"Start", u"StartDate", FieldLook::day},
    {u"Due", u"DueDate", FieldLook::day},
    {.title = u"Status", .field = u"Status", .look = FieldLook::choice, .words = task_states},
    {u"Complete", u"Complete", FieldLook::flag}};

constexpr FormLine subject_form[] = {{.title = u"Subject", .field = u"Subject", .is_wide = true}};

constexpr TextView keys_of_records[] = {u"Account Name", u"Contact Name", u"AccountID", u"ContactID",
                                        u"Type"};

constexpr ItemForm item_forms[] = {{object_class::mail, mail_form, false},
                                   {object_class::contact, contact_form, true},
                                   {object_class::appointment, appointment_form, true},
                                   {object_class::task, task_form, true},
                                   {object_class::post, subject_form, true},
                                   {object_class::journal, subject_form, true},
                                   {object_class::note, {}, false}};

void set(Item& item, TextView field, const Value& value) {
    item.set_field(*find_field(item.kind(), field), value);
}

/// An appointment that lasts all day goes from midnight to midnight.
void fill_days(Item& item) {
    const bool has_start = item.field(u"Start") != Value(no_date);
    const Date from = has_start ? item.field(u"Start").to_date() : item.desk().surroundings().now();
    const double start = std::floor(from.days);
    const double until = has_start ? std::ceil(item.field(u"End").to_date().days) : start;
    const double end = std::max(until, start + 1);
    set(item, u"Start", Date{start});
    set(item, u"End", Date{end});
}

/// Its times can be moved, but neither taken away nor put in the wrong order.
void enter_appointment(Item& item, TextView field, const Value& entered) {
    const bool is_start = field == u"Start", is_end = field == u"End";
    if ((is_start || is_end) && entered == Value(no_date)) return;
    const Date start = item.field(u"Start").to_date();
    if (is_end && start != no_date && entered.to_date().days < start.days) {
        throw Failure(automation::result::invalid_argument,
                      u"The end can't be taken: the appointment would be over before it starts.");
    }
    set(item, field, entered);
    if (is_start || is_end || field == u"AllDayEvent") {
        if (item.field(u"AllDayEvent").to_boolean()) fill_days(item);
    }
}

}  // namespace

const ItemForm* form_for(const Item& item) {
    const std::int32_t number = item.kind().number;
    if (number == object_class::mail && item.field(u"Sent").to_boolean()) return nullptr;
    const auto* const found = std::ranges::find(item_forms, number, &ItemForm::number);
    return found == std::end(item_forms) ? nullptr : found;
}

std::span<const FormLine> read_lines() { return head_lines; }
std::span<const TextView> record_keys() { return keys_of_records; }

void enter_field(Item& item, TextView field, const Value& entered) {
    if (item.kind().number == object_class::appointment) return enter_appointment(item, field, entered);
    set(item, field, entered);
}

void enter_property(Item& item, TextView property, const Value& entered) {
    std::make_shared<UserProperties>(item.desk(), item.shared_from_this())
        ->at(Value(property))
        .put(u"Value", entered);
}

}  // namespace desk
