#include "addin/createnote/record_names.h"

#include "addin/ground/keyed.h"
#include "addin/ground/steps.h"
#include "addin/records/stamp.h"

namespace addin::createnote {

namespace message_class = records::message_class;
namespace property = records::property;

namespace {

constexpr NamesRow rows[] = {
    {message_class::inquiry, property::account_name, property::contact_name, u""},
    {message_class::opportunity, property::account_name, property::contact1, property::name},
    {message_class::account_profile, property::account_name, u"", u""},
    {u"", property::account_name, property::contact_name, u""},
};
static_assert(is_keyed(rows, &NamesRow::message_class));

}  // namespace

void RecordNames::look() {
    if (std::exchange(is_known_, true)) return;
    const Steps steps(session_);
    if (steps.possibly([&] { return record_.Class() == host::outlook::object_class::contact; })) return;
    for (const NamesRow& row : rows) {
        if (!row.message_class.empty() &&
            steps.certainly([&] { return record_.MessageClass() != row.message_class; })) {
            continue;
        }
        row_ = &row;
        return;
    }
}

std::optional<automation::Value> RecordNames::read(records::Name name) {
    look();
    if (!row_) {
        if (name == property::account_name) return record_.CompanyName();
        if (name == property::contact_name) return record_.FullName();
        return std::nullopt;
    }
    records::Name from = row_->opportunity_name;
    if (name == property::account_name) from = row_->account_name;
    if (name == property::contact_name) from = row_->contact_name;
    if (from.empty()) return std::nullopt;
    return records::copied(record_, from);
}

}  // namespace addin::createnote
