#include "desk/windows/item_form.h"

#include <algorithm>

namespace desk {
namespace {

constexpr FormLine head_lines[] = {{u"From", u"SenderName"},
                                   {u"To", u"To"},
                                   {u"Cc", u"CC"},
                                   {u"Sent", u"SentOn"},
                                   {u"Account", u"Account Name"},
                                   {u"Contact", u"Contact Name"},
                                   {u"Type", u"Type"}};

constexpr FormLine mail_form[] = {
    {u"To:", u"To", 1}, {u"Cc:", u"CC", 2}, {u"Bcc:", u"BCC", 3}, {u"Subject:", u"Subject"}};
constexpr FormLine contact_form[] = {
    {u"Full name:", u"FullName"},     {u"Company:", u"CompanyName"},
    {u"E-mail:", u"Email1Address"},   {u"Telephone:", u"BusinessTelephoneNumber"},
    {u"Customer ID:", u"CustomerID"}, {u"File as:", u"FileAs"}};
constexpr FormLine appointment_form[] = {
    {u"Subject:", u"Subject"}, {u"Location:", u"Location"}, {u"Start:", u"Start"}, {u"End:", u"End"}};
constexpr FormLine task_form[] = {
    {u"Subject:", u"Subject"}, {u"Start:", u"StartDate"}, {u"Due:", u"DueDate"}, {u"Complete:", u"Complete"}};

constexpr ItemForm item_forms[] = {{object_class::mail, mail_form, false},
                                   {object_class::contact, contact_form, true},
                                   {object_class::appointment, appointment_form, true},
                                   {object_class::task, task_form, true}};

}  // namespace

const ItemForm* form_for(const Item& item) {
    const std::int32_t number = item.kind().number;
    if (number == object_class::mail && item.field(u"Sent").to_boolean()) return nullptr;
    const auto* const found = std::ranges::find(item_forms, number, &ItemForm::number);
    return found == std::end(item_forms) ? nullptr : found;
}

std::span<const FormLine> read_lines() { return head_lines; }

}  // namespace desk
