// The names by which other programs know the records.
#include <gtest/gtest.h>

#include "addin/records/names.h"

namespace addin_tests {
namespace {

using automation::TextView;

TEST(Names, StandAsTheRecordsBearThem) {
    namespace names = addin::records;
    struct Case {
        names::Name name;
        TextView literal;
    };
    constexpr Case cases[] = {
        {names::folder::account_profiles, u"Account Profiles"},
        {names::folder::account_contacts, u"Account Contacts"},
        {names::folder::leads, u"Leads"},
        {names::folder::email, u"Email"},
        {names::folder::notes, u"Notes"},
        {names::folder::opportunities, u"Opportunities"},
        {names::folder::customer_service, u"Customer Service"},
        {names::folder::actions, u"Actions"},
        {names::folder::drop_downs, u"Drop Downs"},
        {names::folder::system, u"System Folder"},
        {names::folder::global_calendar, u"Global Calendar"},
        {names::folder::global_tasks, u"Global Tasks"},
        {names::message_class::account_contact, u"IPM.Contact.Account Contact"},
        {names::message_class::lead, u"IPM.Contact.Lead"},
        {names::message_class::mailing, u"IPM.Contact.Mailing"},
        {names::message_class::account_profile, u"IPM.Post.Tarnwell_2000"},
        {names::message_class::note, u"IPM.Post.Note"},
        {names::message_class::opportunity, u"IPM.Post.Opportunity"},
        {names::message_class::inquiry, u"IPM.Post.CustomerService"},
        {names::message_class::action, u"IPM.Post.Action"},
        {names::message_class::drop_down, u"IPM.Post.Drop Down"},
        {names::message_class::folder_drop_down, u"IPM.Post.Folder Drop Down"},
        {names::message_class::list_definition, u"IPM.Post.ListDefinition"},
        {names::message_class::appointment, u"IPM.Appointment.TarnwellAppt"},
        {names::message_class::task, u"IPM.Task.TarnwellTask"},
        {names::message_class::mail, u"IPM.Note"},
        {names::message_class::personal_contact, u"IPM.Contact"},
        {names::message_class::sticky_note, u"IPM.StickyNote"},
        {names::message_class::conflict, u"IPM.Conflict.Message"},
        {names::property::account_id, u"AccountID"},
        {names::property::contact_id, u"ContactID"},
        {names::property::opportunity_id, u"OppID"},
        {names::property::opportunity_id_as_written, u"OPPID"},
        {names::property::inquiry_id, u"Inquiry ID"},
        {names::property::inquiry_type, u"Inquiry Type"},
        {names::property::note_id, u"NoteID"},
        {names::property::appointment_id, u"ApptID"},
        {names::property::task_id, u"TaskID"},
        {names::property::account_name, u"Account Name"},
        {names::property::contact_name, u"Contact Name"},
        {names::property::opportunity_name, u"Opportunity Name"},
        {names::property::name, u"Name"},
        {names::property::contact1, u"Contact1"},
        {names::property::account_manager, u"Account Manager"},
        {names::property::team, u"Team"},
        {names::property::alignment, u"Alignment"},
        {names::property::type, u"Type"},
        {names::property::activity_date, u"Activity Date"},
        {names::property::account_address, u"AccountAddress1"},
        {names::property::account_city, u"AccountCity"},
        {names::property::account_state, u"AccountState"},
        {names::property::account_zip, u"Accountzip"},
        {names::property::account_phone, u"AccountPhone"},
        {names::property::account_fax, u"Account Fax"},
        {names::property::account_fax_of_results, u"AccountFax"},
        {names::property::account_web, u"Account Web"},
        {names::property::account_location, u"Account LocationID"},
        {names::property::email_search_string, u"EmailSearchString"},
        {names::property::business_phone, u"BusinessPhone"},
        {names::property::business_fax, u"BusinessFax"},
        {names::property::record_type, u"RecordType"},
        {names::property::message_class, u"MessageClass"},
        {names::property::find_definition, u"FindDefinition"},
        {names::property::key_column_name, u"KeyColumnName"},
        {names::user_property_set, u"{00020329-0000-0000-C000-000000000046}"},
        {names::field::email1, u"Email1Address"},
        {names::field::email2, u"Email2Address"},
        {names::field::email3, u"Email3Address"},
        {names::field::full_name, u"FullName"},
        {names::field::subject, u"Subject"},
        {names::field::files_as, u"FilesAs"},
        {names::note_type::received, u"Email (Received)"},
        {names::note_type::sent, u"Email (Sent)"},
    };
    for (const Case& one : cases) EXPECT_EQ(one.name, one.literal) << automation::to_utf8(one.literal);
}

TEST(Names, MapAnAccountToItsContact) {
    struct Case {
        TextView account, contact;
        bool property;
    };
    constexpr Case cases[] = {
        {u"AccountAddress1", u"BusinessAddressStreet", false},
        {u"AccountCity", u"BusinessAddressCity", false},
        {u"Accountzip", u"BusinessAddressPostalCode", false},
        {u"AccountState", u"BusinessAddressState", false},
        {u"AccountPhone", u"BusinessTelephoneNumber", false},
        {u"Account Fax", u"BusinessFaxNumber", false},
        {u"Account Name", u"Account Name", true},
        {u"Account Name", u"CompanyName", false},
        {u"Account Manager", u"Account Manager", true},
        {u"Team", u"Team", true},
        {u"AccountID", u"AccountID", true},
        {u"Alignment", u"Alignment", true},
    };
    ASSERT_EQ(std::size(addin::records::account_to_contact), std::size(cases));
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        const auto& row = addin::records::account_to_contact[i];
        EXPECT_EQ(row.account_property, cases[i].account);
        EXPECT_EQ(row.contact_field, cases[i].contact);
        EXPECT_EQ(row.contact_field_is_property, cases[i].property);
    }
}

}  // namespace
}  // namespace addin_tests
