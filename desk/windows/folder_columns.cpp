#include "desk/windows/folder_columns.h"

#include "desk/outlook/item_kinds.h"
#include "desk/windows/shown_value.h"

namespace desk {

using automation::TextView;

namespace {

constexpr Column received_columns[] = {{u"From", u"SenderName", 170},
                                       {u"Subject", u"Subject", 300},
                                       {u"Received", u"ReceivedTime", 130, true},
                                       {u"Flag", u"FlagRequest", 215}};
constexpr Column sent_columns[] = {{u"To", u"To", 170},
                                   {u"Subject", u"Subject", 300},
                                   {u"Sent", u"SentOn", 130, true},
                                   {u"Flag", u"FlagRequest", 215}};
constexpr Column unsent_columns[] = {
    {u"To", u"To", 170}, {u"Subject", u"Subject", 300}, {u"Flag", u"FlagRequest", 215}};
constexpr Column contact_columns[] = {{u"Name", u"FullName", 160},
                                      {u"Company", u"CompanyName", 180},
                                      {u"E-mail", u"Email1Address", 210},
                                      {u"Telephone", u"BusinessTelephoneNumber", 120}};
constexpr Column contact_record_columns[] = {{u"Name", u"FullName", 160},
                                             {u"Company", u"CompanyName", 180},
                                             {u"E-mail", u"Email1Address", 210},
                                             {u"Telephone", u"BusinessTelephoneNumber", 120},
                                             {u"Contact ID", u"ContactID", 130}};
constexpr Column appointment_columns[] = {{u"Subject", u"Subject", 280},
                                          {u"Start", u"Start", 120},
                                          {u"End", u"End", 120},
                                          {u"Where", u"Location", 140},
                                          {u"Contact", u"Contact Name", 140}};
constexpr Column task_columns[] = {{u"Subject", u"Subject", 300},
                                   {u"Due", u"DueDate", 120},
                                   {u"Done", u"Complete", 60},
                                   {u"Contact", u"Contact Name", 150}};
constexpr Column account_columns[] = {{u"Account", u"Account Name", 220},
                                      {u"City", u"AccountCity", 140},
                                      {u"Telephone", u"AccountPhone", 120},
                                      {u"Manager", u"Account Manager", 140},
                                      {u"Account ID", u"AccountID", 140}};
constexpr Column note_columns[] = {{u"Subject", u"Subject", 280},
                                   {u"Account", u"Account Name", 170},
                                   {u"Contact", u"Contact Name", 140},
                                   {u"Type", u"Type", 100},
                                   {u"Of", u"Activity Date", 120}};
constexpr Column opportunity_columns[] = {{u"Subject", u"Subject", 280},
                                          {u"Account", u"Account Name", 170},
                                          {u"Contact", u"Contact Name", 140},
                                          {u"Opportunity ID", u"OppID", 140}};
constexpr Column inquiry_columns[] = {{u"Subject", u"Subject", 280},
                                      {u"Account", u"Account Name", 170},
                                      {u"Contact", u"Contact Name", 140},
                                      {u"Inquiry ID", u"Inquiry ID", 140}};
constexpr Column post_columns[] = {{u"Subject", u"Subject", 320},
                                   {u"Account", u"Account Name", 190},
                                   {u"Contact", u"Contact Name", 160},
                                   {u"Type", u"Type", 110}};

/// The columns of folders whose new items are of a class, or, where the class is empty, that hold items of a
/// kind. The first row that fits counts.
struct View {
    TextView message_class;
    std::int32_t item_type;
    std::span<const Column> columns;
};
constexpr std::int32_t appointments = 1, contacts = 2, tasks = 3;
constexpr View views[] = {{u"IPM.Contact.Account Contact", 0, contact_record_columns},
                          {u"IPM.Contact.Lead", 0, contact_record_columns},
                          {u"IPM.Post.Tarnwell_2000", 0, account_columns},
                          {u"IPM.Post.Note", 0, note_columns},
                          {u"IPM.Post.Opportunity", 0, opportunity_columns},
                          {u"IPM.Post.CustomerService", 0, inquiry_columns},
                          {u"IPM.Post.Action", 0, inquiry_columns},
                          {u"IPM.Note", 0, received_columns},
                          {u"", appointments, appointment_columns},
                          {u"", contacts, contact_columns},
                          {u"", tasks, task_columns}};

/// The default folders whose mails are told apart by whom they go to, by their numbers.
struct Outgoing {
    std::int32_t default_number;
    std::span<const Column> columns;
};
constexpr std::int32_t outbox = 4, sent_items = 5, drafts = 16;
constexpr Outgoing outgoing[] = {
    {outbox, unsent_columns}, {sent_items, sent_columns}, {drafts, unsent_columns}};

}  // namespace

std::span<const Column> columns_of(const FolderRow& folder) {
    for (const Outgoing& row : outgoing) {
        if (folder.default_number == row.default_number) return row.columns;
    }
    for (const View& view : views) {
        const bool fits = view.message_class.empty()
                              ? folder.item_type == view.item_type
                              : automation::same_ignoring_case(folder.default_class, view.message_class);
        if (fits) return view.columns;
    }
    return post_columns;
}

automation::Text fields_of(std::span<const Column> columns) {
    automation::Text fields;
    for (const Column& column : columns)
        fields += (fields.empty() ? u"" : u"|") + automation::Text(column.field);
    return fields;
}

automation::Text cell_text(const ItemData& item, const Column& column) {
    const std::optional<automation::Value> value = field_value(item, column.field);
    if (value && value->is(automation::Value::Type::boolean)) return value->to_boolean() ? u"Yes" : u"";
    return shown_value(item, column.field);
}

}  // namespace desk
