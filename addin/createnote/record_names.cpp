// The names that a note takes from a record, by the record's kind.
#include "addin/createnote/dlg_send.h"
#include "addin/ground/keyed.h"
#include "addin/records/names.h"
#include "addin/records/stamp.h"

namespace addin::createnote {

using host::outlook::Item;
namespace message_class = records::message_class;
namespace property = records::property;

namespace {

/// Which of a post's properties are the note's names; an empty one stays unset.
struct NamesRow {
    records::Name message_class;  ///< empty: any other
    records::Name account_name, contact_name, opportunity_name;
};
constexpr NamesRow rows[] = {
    {message_class::inquiry, property::account_name, property::contact_name, u""},
    {message_class::opportunity, property::account_name, property::contact1, property::name},
    {message_class::account_profile, property::account_name, u"", u""},
    {u"", property::account_name, property::contact_name, u""},
};
static_assert(is_keyed(rows, &NamesRow::message_class));

}  // namespace

void dlgSend::write_names(const Item& record, const Item& note) {
    const Steps steps(session_);
    if (steps.possibly([&] { return record.Class() == host::outlook::object_class::contact; })) {
        records::write_property(session_, note, property::account_name,
                                [&] { return automation::Value(record.CompanyName()); });
        records::write_property(session_, note, property::contact_name,
                                [&] { return automation::Value(record.FullName()); });
        return;
    }
    const auto copy = [&](records::Name from, records::Name to) {
        if (from.empty()) return;
        records::write_property(session_, note, to,
                                [&] { return record.UserProperties().Item(from).value(); });
    };
    for (const NamesRow& row : rows) {
        if (!row.message_class.empty() &&
            steps.certainly([&] { return record.MessageClass() != row.message_class; })) {
            continue;
        }
        copy(row.account_name, property::account_name);
        copy(row.contact_name, property::contact_name);
        copy(row.opportunity_name, property::opportunity_name);
        return;
    }
}

}  // namespace addin::createnote
