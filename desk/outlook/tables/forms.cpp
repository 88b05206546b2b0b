// The forms of the database's record classes: which user properties an item of a class bears.
#include <algorithm>

#include "desk/outlook/item_kinds.h"

namespace desk {
namespace {

constexpr std::int32_t text = 1, date = 5, percent = 12, currency = 14;  // OlUserPropertyType

constexpr FormProperty account_profile[] = {{u"AccountID", text},         {u"Account Name", text},
                                            {u"Account Manager", text},   {u"Team", text},
                                            {u"Alignment", text},         {u"AccountAddress1", text},
                                            {u"AccountCity", text},       {u"AccountState", text},
                                            {u"Accountzip", text},        {u"AccountPhone", text},
                                            {u"Account Fax", text},       {u"Account Web", text},
                                            {u"Account LocationID", text}};
constexpr FormProperty contact[] = {
    {u"AccountID", text}, {u"ContactID", text}, {u"Account Name", text},     {u"Account Manager", text},
    {u"Team", text},      {u"Alignment", text}, {u"EmailSearchString", text}};
constexpr FormProperty lead[] = {{u"ContactID", text}, {u"Account Manager", text}, {u"Team", text}};
constexpr FormProperty note[] = {{u"AccountID", text},       {u"ContactID", text},
                                 {u"OppID", text},           {u"Inquiry ID", text},
                                 {u"NoteID", text},          {u"ApptID", text},
                                 {u"TaskID", text},          {u"Account Name", text},
                                 {u"Contact Name", text},    {u"Opportunity Name", text},
                                 {u"Account Manager", text}, {u"Team", text},
                                 {u"Alignment", text},       {u"Type", text},
                                 {u"Activity Date", date}};
constexpr FormProperty opportunity[] = {
    {u"AccountID", text},    {u"ContactID", text},      {u"OppID", text},           {u"Account Name", text},
    {u"Contact Name", text}, {u"Name", text},           {u"Contact1", text},        {u"Amount", currency},
    {u"Close Date", date},   {u"Probability", percent}, {u"Account Manager", text}, {u"Team", text},
    {u"Alignment", text}};
constexpr FormProperty inquiry[] = {
    {u"AccountID", text},     {u"ContactID", text},       {u"Inquiry ID", text}, {u"Account Name", text},
    {u"Contact Name", text},  {u"Account Manager", text}, {u"Team", text},       {u"Alignment", text},
    {u"BusinessPhone", text}, {u"BusinessFax", text}};
constexpr FormProperty action[] = {
    {u"AccountID", text},    {u"ContactID", text},    {u"Inquiry ID", text},
    {u"Account Name", text}, {u"Contact Name", text}, {u"Account Manager", text},
    {u"Team", text},         {u"Alignment", text},    {u"Type", text}};
constexpr FormProperty appointment[] = {
    {u"AccountID", text},    {u"ContactID", text},       {u"ApptID", text}, {u"Account Name", text},
    {u"Contact Name", text}, {u"Account Manager", text}, {u"Team", text},   {u"Alignment", text}};
constexpr FormProperty task[] = {
    {u"AccountID", text},    {u"ContactID", text},        {u"OppID", text},           {u"Inquiry ID", text},
    {u"Inquiry Type", text}, {u"NoteID", text},           {u"TaskID", text},          {u"Account Name", text},
    {u"Contact Name", text}, {u"Opportunity Name", text}, {u"Account Manager", text}, {u"Team", text},
    {u"Alignment", text}};
constexpr FormProperty drop_down[] = {{u"RecordType", text}};
constexpr FormProperty folder_drop_down[] = {
    {u"RecordType", text}, {u"MessageClass", text}, {u"FindDefinition", text}};
constexpr FormProperty list_definition[] = {
    {u"RecordType", text},    {u"MessageClass", text}, {u"ColumnName1", text}, {u"ColumnName2", text},
    {u"ColumnName3", text},   {u"ColumnName4", text},  {u"ColumnName5", text}, {u"ColumnName6", text},
    {u"KeyColumnName", text}, {u"FieldName1", text},   {u"FieldName2", text},  {u"FieldName3", text},
    {u"FieldName4", text},    {u"FieldName5", text},   {u"FieldName6", text},  {u"KeyFieldName", text},
    {u"FieldType1", text},    {u"FieldType2", text},   {u"FieldType3", text},  {u"FieldType4", text},
    {u"FieldType5", text},    {u"FieldType6", text},   {u"SearchFolder", text}};

struct Form {
    automation::TextView message_class;
    std::span<const FormProperty> properties;
};
constexpr Form forms[] = {
    {u"IPM.Post.Tarnwell_2000", account_profile},
    {u"IPM.Contact.Account Contact", contact},
    {u"IPM.Contact.Lead", lead},
    {u"IPM.Post.Note", note},
    {u"IPM.Post.Opportunity", opportunity},
    {u"IPM.Post.CustomerService", inquiry},
    {u"IPM.Post.Action", action},
    {u"IPM.Appointment.TarnwellAppt", appointment},
    {u"IPM.Task.TarnwellTask", task},
    {u"IPM.Post.Drop Down", drop_down},
    {u"IPM.Post.Folder Drop Down", folder_drop_down},
    {u"IPM.Post.ListDefinition", list_definition},
};

}  // namespace

std::span<const FormProperty> form_of(automation::TextView message_class) {
    const auto found = std::ranges::find_if(forms, [&](const Form& form) {
        return automation::same_ignoring_case(form.message_class, message_class);
    });
    return found == std::end(forms) ? std::span<const FormProperty>() : found->properties;
}

}  // namespace desk
