// The tables by which the paths differ, row for row against what is meant.
#include <gtest/gtest.h>

#include <algorithm>

#include "addin/filing/address_resolution.h"
#include "addin/records/stamp.h"

namespace addin_tests {
namespace {

using addin::filing::Gate;
using addin::filing::NoToLine;
using addin::filing::TermKind;
using addin::filing::Variant;
using addin::filing::VariantRow;
using addin::records::Ends;
using addin::records::From;
using addin::records::Key;
using addin::records::Marks;
using addin::records::Path;
using addin::records::PathRow;
using addin::records::Place;
using automation::TextView;

using Keys = std::vector<std::pair<TextView, From>>;

Keys keys_of(const PathRow& row) {
    Keys keys;
    for (const Key& key : row.keys) keys.emplace_back(key.property, key.from);
    return keys;
}

/// AccountID, ContactID, an id of the kind if there is one, manager, team and alignment.
Keys five(From account, From contact, From rest) {
    return {{u"AccountID", account},
            {u"ContactID", contact},
            {u"Account Manager", rest},
            {u"Team", rest},
            {u"Alignment", rest}};
}

constexpr TextView two_line_breaks = u"\r\n\r\n";

TEST(StampTable, HasEveryPathAtItsPlace) {
    const auto rows = addin::records::paths();
    ASSERT_EQ(rows.size(), 13U);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(static_cast<std::size_t>(rows[i].path), i);
        EXPECT_EQ(&addin::records::row(static_cast<Path>(i)), &rows[i]);
    }
}

TEST(StampTable, SaysWhereEachNoteLiesAndWhatItIs) {
    for (const PathRow& row : addin::records::paths()) {
        SCOPED_TRACE(static_cast<int>(row.path));
        const bool action = row.path == Path::quick_view_inquiry || row.path == Path::drop_on_inquiry;
        EXPECT_EQ(row.message_class, action ? u"IPM.Post.Action" : u"IPM.Post.Note");
        Place expected = Place::mail_folder;
        if (action) expected = Place::actions;
        if (row.path == Path::quick_view_opportunity || row.path == Path::drop_on_opportunity)
            expected = Place::notes_unless_named;
        if (row.path == Path::create_contact_level || row.path == Path::create_account_level ||
            row.path == Path::create_new_contact)
            expected = Place::mail_folder_twice;
        EXPECT_EQ(row.place, expected);
    }
}

TEST(StampTable, SaysWhereEachKeyComesFrom) {
    using enum From;
    struct Case {
        Path path;
        Keys keys;
    };
    const Keys with_new_opportunity = {{u"AccountID", quick_view}, {u"ContactID", quick_view},
                                       {u"OppID", new_id},         {u"Account Manager", quick_view},
                                       {u"Team", quick_view},      {u"Alignment", quick_view}};
    const Keys with_new_inquiry = {{u"AccountID", quick_view},
                                   {u"ContactID", quick_view},
                                   {u"Inquiry ID", new_id},
                                   {u"Account Manager", quick_view},
                                   {u"Team", quick_view}};  // no alignment
    const Keys on_opportunity = {{u"AccountID", quick_view}, {u"ContactID", quick_view},
                                 {u"OppID", target},         {u"Account Manager", target},
                                 {u"Team", target},          {u"Alignment", target}};
    Keys on_inquiry = on_opportunity;
    on_inquiry[2].first = u"Inquiry ID";
    const Case cases[] = {
        {Path::automatic_received, five(contact, contact, contact)},
        {Path::automatic_sent, five(contact, contact, contact)},
        {Path::quick_view_new_contact, five(chosen_account, new_id, chosen_account)},
        {Path::open_contact_new_contact, five(chosen_account, new_id, chosen_account)},
        {Path::create_contact_level, five(contact, contact, contact)},
        {Path::create_account_level,
         {{u"AccountID", account},
          {u"Account Manager", account},
          {u"Team", account},
          {u"Alignment", account}}},
        {Path::create_new_contact, five(contact, contact, contact)},
        {Path::create_from_record,
         {{u"AccountID", record},
          {u"ContactID", record},
          {u"OppID", record},
          {u"Inquiry ID", record},
          {u"Account Manager", record},
          {u"Team", record},
          {u"Alignment", record},
          {u"NoteID", record},
          {u"ApptID", record},
          {u"TaskID", record}}},
        {Path::quick_view_note, five(quick_view, quick_view, quick_view)},
        {Path::quick_view_opportunity, with_new_opportunity},
        {Path::quick_view_inquiry, with_new_inquiry},
        {Path::drop_on_opportunity, on_opportunity},
        {Path::drop_on_inquiry, on_inquiry},
    };
    ASSERT_EQ(std::size(cases), addin::records::paths().size());
    for (const Case& one : cases) {
        EXPECT_EQ(keys_of(addin::records::row(one.path)), one.keys) << static_cast<int>(one.path);
    }
}

TEST(StampTable, SaysWhatEachNoteTells) {
    using enum From;
    struct Case {
        Path path;
        From account_name, contact_name, type, subject;
        TextView body_start;
        bool date;
    };
    constexpr Case cases[] = {
        {Path::automatic_received, contact, contact, received, mail, two_line_breaks, true},
        {Path::automatic_sent, contact, contact, sent, mail, two_line_breaks, true},
        {Path::quick_view_new_contact, chosen_account, sender, received, mail, two_line_breaks, false},
        {Path::open_contact_new_contact, chosen_account, sender, received, mail, two_line_breaks, false},
        {Path::create_contact_level, contact, contact, dialog, dialog, two_line_breaks, true},
        {Path::create_account_level, account_name, none, dialog, dialog, two_line_breaks, false},
        {Path::create_new_contact, contact, contact, dialog, dialog, two_line_breaks, false},
        {Path::create_from_record, record, record, dialog, dialog, two_line_breaks, true},
        {Path::quick_view_note, quick_view, quick_view, received, mail, u"\r", false},
        {Path::quick_view_opportunity, quick_view, quick_view, received, mail, two_line_breaks, false},
        {Path::quick_view_inquiry, quick_view, quick_view, received, mail, two_line_breaks, false},
        {Path::drop_on_opportunity, quick_view, quick_view, received, mail, two_line_breaks, false},
        {Path::drop_on_inquiry, quick_view, quick_view, received, mail, two_line_breaks, false},
    };
    ASSERT_EQ(std::size(cases), addin::records::paths().size());
    for (const Case& one : cases) {
        SCOPED_TRACE(static_cast<int>(one.path));
        const PathRow& row = addin::records::row(one.path);
        EXPECT_EQ(row.account_name, one.account_name);
        EXPECT_EQ(row.contact_name, one.contact_name);
        EXPECT_EQ(row.type, one.type);
        EXPECT_EQ(row.subject, one.subject);
        EXPECT_EQ(row.body_start, one.body_start);
        EXPECT_EQ(row.activity_date, one.date);
    }
}

TEST(StampTable, SaysHowEachPathEndsAndMarksTheMail) {
    constexpr TextView user = u"TW User Filed";
    struct Case {
        Path path;
        Ends ends;
        Marks marks;
        TextView flag;
        bool billing;
    };
    constexpr Case cases[] = {
        {Path::automatic_received, Ends::post, Marks::the_mail, u"TW-Received eMail Auto Filed", true},
        {Path::automatic_sent, Ends::post, Marks::the_mail, u"TW-Sent Email Auto Filed", false},
        {Path::quick_view_new_contact, Ends::post, Marks::nothing, u"", false},
        {Path::open_contact_new_contact, Ends::post, Marks::nothing, u"", false},
        {Path::create_contact_level, Ends::post, Marks::inspector_and_selection, user, true},
        {Path::create_account_level, Ends::post, Marks::inspector_and_selection, user, true},
        {Path::create_new_contact, Ends::post, Marks::nothing, u"", false},
        {Path::create_from_record, Ends::post, Marks::inspector_and_selection, user, true},
        {Path::quick_view_note, Ends::display, Marks::the_wrapper, user, true},
        {Path::quick_view_opportunity, Ends::display_then_post, Marks::the_wrapper, user, true},
        {Path::quick_view_inquiry, Ends::post, Marks::the_wrapper, user, true},
        {Path::drop_on_opportunity, Ends::post, Marks::the_wrapper, user, true},
        {Path::drop_on_inquiry, Ends::post, Marks::the_wrapper, user, true},
    };
    ASSERT_EQ(std::size(cases), addin::records::paths().size());
    for (const Case& one : cases) {
        SCOPED_TRACE(static_cast<int>(one.path));
        const PathRow& row = addin::records::row(one.path);
        EXPECT_EQ(row.ends, one.ends);
        EXPECT_EQ(row.marks, one.marks);
        EXPECT_EQ(row.flag_request, one.flag);
        EXPECT_EQ(row.billing_information, one.billing);
    }
    EXPECT_EQ(addin::records::auto_filed, u"TW Auto Filed");
}

TEST(VariantTable, HasEveryVariantAtItsPlace) {
    const auto rows = addin::filing::variants();
    ASSERT_EQ(rows.size(), 6U);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(static_cast<std::size_t>(rows[i].variant), i);
        EXPECT_EQ(&addin::filing::row(static_cast<Variant>(i)), &rows[i]);
    }
}

TEST(VariantTable, SaysHowEachVariantSearches) {
    using addin::filing::Folders;
    struct Case {
        Variant variant;
        TermKind terms;
        Gate gate;
        bool empty_stops, trimmed;
        NoToLine no_to_line;
        Folders folders;
    };
    constexpr Case cases[] = {
        {Variant::received, TermKind::equality, Gate::sender_is_exchange, true, false, NoToLine::stop,
         Folders::account_contacts},
        {Variant::sent, TermKind::equality, Gate::sender_or_recipient_is_exchange, true, false,
         NoToLine::leave_the_loop, Folders::account_contacts},
        {Variant::quick_view_launch, TermKind::equality, Gate::none, false, false,
         NoToLine::stop_if_no_native_address_either, Folders::leads_then_account_contacts},
        {Variant::tarnwell_launch, TermKind::equality, Gate::none, false, false, NoToLine::stop,
         Folders::account_contacts},
        {Variant::open_contact, TermKind::prefix_range, Gate::none, false, true, NoToLine::stop,
         Folders::account_contacts},
        {Variant::create_note, TermKind::from_dialog, Gate::none, false, false, NoToLine::message,
         Folders::by_dialog_level},
    };
    ASSERT_EQ(std::size(cases), addin::filing::variants().size());
    for (const Case& one : cases) {
        SCOPED_TRACE(static_cast<int>(one.variant));
        const VariantRow& row = addin::filing::row(one.variant);
        EXPECT_EQ(row.terms, one.terms);
        EXPECT_EQ(row.gate, one.gate);
        EXPECT_EQ(row.empty_native_address_stops, one.empty_stops);
        EXPECT_EQ(row.native_is_trimmed, one.trimmed);
        EXPECT_EQ(row.no_to_line, one.no_to_line);
        EXPECT_EQ(row.folders, one.folders);
    }
}

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
