// What records are called: message classes, folders and user properties. The names are compared as they stand
// here, odd spellings included; nothing else in the add-in spells one.
#pragma once

#include "automation/text.h"

namespace addin::records {

using Name = automation::TextView;

namespace folder {
inline constexpr Name account_profiles =
    u"Account Profiles";  ///< the anchor; its parent is the database's root
inline constexpr Name account_contacts = u"Account Contacts";  ///< below the anchor
inline constexpr Name leads = u"Leads";                        ///< beside the anchor
inline constexpr Name email = u"Email";                        ///< below the anchor
inline constexpr Name notes = u"Notes";                        ///< below the anchor
inline constexpr Name opportunities = u"Opportunities";        ///< below the anchor
inline constexpr Name customer_service = u"Customer Service";  ///< below the anchor
inline constexpr Name actions = u"Actions";                    ///< below `customer_service`
inline constexpr Name drop_downs = u"Drop Downs";              ///< below the anchor
inline constexpr Name system = u"System Folder";               ///< beside the anchor
inline constexpr Name global_calendar =
    u"Global Calendar";                                ///< beside the anchor, unless an option names another
inline constexpr Name global_tasks = u"Global Tasks";  ///< beside the anchor, unless an option names another
}  // namespace folder

namespace message_class {
inline constexpr Name account_contact = u"IPM.Contact.Account Contact";
inline constexpr Name lead = u"IPM.Contact.Lead";
inline constexpr Name mailing = u"IPM.Contact.Mailing";
inline constexpr Name account_profile = u"IPM.Post.Tarnwell_2000";
inline constexpr Name note = u"IPM.Post.Note";
inline constexpr Name opportunity = u"IPM.Post.Opportunity";
inline constexpr Name inquiry = u"IPM.Post.CustomerService";
inline constexpr Name action = u"IPM.Post.Action";
inline constexpr Name drop_down = u"IPM.Post.Drop Down";
inline constexpr Name folder_drop_down = u"IPM.Post.Folder Drop Down";
inline constexpr Name list_definition = u"IPM.Post.ListDefinition";
inline constexpr Name appointment = u"IPM.Appointment.TarnwellAppt";
inline constexpr Name task = u"IPM.Task.TarnwellTask";
// the host's own, which are tested for
inline constexpr Name mail = u"IPM.Note";
inline constexpr Name personal_contact = u"IPM.Contact";
inline constexpr Name sticky_note = u"IPM.StickyNote";
inline constexpr Name conflict = u"IPM.Conflict.Message";

/// Whether a class is a contact's: one of the host's or one made of it, by its first characters.
constexpr bool is_contact(Name name) { return name.starts_with(personal_contact); }
}  // namespace message_class

/// The root of the host's schema of properties, as its documentation publishes it.
inline constexpr Name schema_root = u"http://schemas.microsoft.com/";

/// The set of the user properties, in the addresses of the schema and for the safe items' `GetIDsFromNames`.
inline constexpr Name user_property_set = u"{00020329-0000-0000-C000-000000000046}";

namespace property {
inline constexpr Name account_id = u"AccountID";
inline constexpr Name contact_id = u"ContactID";
inline constexpr Name opportunity_id = u"OppID";
inline constexpr Name opportunity_id_as_written =
    u"OPPID";  ///< the spelling that Quick View's new record writes
inline constexpr Name inquiry_id = u"Inquiry ID";
inline constexpr Name inquiry_type = u"Inquiry Type";
inline constexpr Name note_id = u"NoteID";
inline constexpr Name appointment_id = u"ApptID";
inline constexpr Name task_id = u"TaskID";
inline constexpr Name account_name = u"Account Name";
inline constexpr Name contact_name = u"Contact Name";
inline constexpr Name opportunity_name = u"Opportunity Name";
inline constexpr Name name = u"Name";          ///< of an opportunity
inline constexpr Name contact1 = u"Contact1";  ///< of an opportunity
inline constexpr Name account_manager = u"Account Manager";
inline constexpr Name team = u"Team";
inline constexpr Name alignment = u"Alignment";
inline constexpr Name type = u"Type";
inline constexpr Name activity_date = u"Activity Date";  ///< the only one that holds a date
inline constexpr Name account_address = u"AccountAddress1";
inline constexpr Name account_city = u"AccountCity";
inline constexpr Name account_state = u"AccountState";
inline constexpr Name account_zip = u"Accountzip";
inline constexpr Name account_phone = u"AccountPhone";
inline constexpr Name account_fax = u"Account Fax";            ///< with a blank, as most places read it
inline constexpr Name account_fax_of_results = u"AccountFax";  ///< without, as the panel's results read it
inline constexpr Name account_web = u"Account Web";
inline constexpr Name account_location = u"Account LocationID";
inline constexpr Name email_search_string = u"EmailSearchString";
inline constexpr Name business_phone = u"BusinessPhone";
inline constexpr Name business_fax = u"BusinessFax";
inline constexpr Name record_type = u"RecordType";
inline constexpr Name message_class = u"MessageClass";      ///< of a drop-down's entry: what it stands for
inline constexpr Name find_definition = u"FindDefinition";  ///< of a drop-down's entry
inline constexpr Name key_column_name = u"KeyColumnName";   ///< of a list definition
}  // namespace property

/// Built-in fields of items that serve as record fields, as filters spell them.
namespace field {
inline constexpr Name email1 = u"Email1Address";
inline constexpr Name email2 = u"Email2Address";
inline constexpr Name email3 = u"Email3Address";
inline constexpr Name full_name = u"FullName";
inline constexpr Name subject = u"Subject";
inline constexpr Name files_as =
    u"FilesAs";  ///< no field of the host bears this name; Create note asks for it so
}  // namespace field

/// Texts of a note's `Type`.
namespace note_type {
inline constexpr Name received = u"Email (Received)";
inline constexpr Name sent = u"Email (Sent)";
}  // namespace note_type

/// Texts of a drop-down record's `RecordType`.
namespace record_type {
inline constexpr Name email_template = u"Email Blast";
}  // namespace record_type

/// How a new contact's fields come from its account: each pair is copied when a contact is made under an
/// account.
struct AccountToContact {
    Name account_property;
    Name contact_field;
    bool contact_field_is_property;  ///< a user property of the contact, or else a built-in field
};
inline constexpr AccountToContact account_to_contact[] = {
    {property::account_address, u"BusinessAddressStreet", false},
    {property::account_city, u"BusinessAddressCity", false},
    {property::account_zip, u"BusinessAddressPostalCode", false},
    {property::account_state, u"BusinessAddressState", false},
    {property::account_phone, u"BusinessTelephoneNumber", false},
    {property::account_fax, u"BusinessFaxNumber", false},
    {property::account_name, property::account_name, true},
    {property::account_name, u"CompanyName", false},
    {property::account_manager, property::account_manager, true},
    {property::team, property::team, true},
    {property::account_id, property::account_id, true},
    {property::alignment, property::alignment, true},
};

}  // namespace addin::records
