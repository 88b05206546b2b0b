#include "family/picker_rows.h"

#include <algorithm>
#include <iterator>

#include "addin/records/names.h"

namespace family {

using automation::Text;
using automation::TextView;
using host::outlook::Folder;
using host::outlook::Item;
using host::outlook::UserProperties;

namespace {

namespace names = addin::records;
namespace property = names::property;

/// Where a column's text comes from.
struct Source {
    TextView heading;
    TextView name;  ///< of a user property, or of a member of the item
    bool is_member = false;
};

struct Layout {
    TextView message_class;
    std::array<Source, picker_column::shown> columns;
    TextView record_id;  ///< the user property of the record's own id
};

constexpr Layout accounts{names::message_class::account_profile,
                          {{{u"Name", property::account_name},
                            {u"City", property::account_city},
                            {u"Phone", property::account_phone},
                            {u"Address", property::account_address},
                            {u"State", property::account_state},
                            {u"Zip", property::account_zip}}},
                          property::account_id};
constexpr std::array<Source, picker_column::shown> contact_columns{
    {{u"Name", u"FullName", true},
     {u"City", u"BusinessAddressCity", true},
     {u"Phone", u"BusinessTelephoneNumber", true},
     {u"Address", u"BusinessAddressStreet", true},
     {u"State", u"BusinessAddressState", true},
     {u"Company", u"CompanyName", true}}};
constexpr Layout contacts{names::message_class::account_contact, contact_columns, property::contact_id};
constexpr Layout leads{names::message_class::lead, contact_columns, property::contact_id};

/// For records of all other classes.
constexpr Layout others{{},
                        {{{u"Subject", u"Subject", true},
                          {u"Account", property::account_name},
                          {u"Contact", property::contact_name},
                          {u"Manager", property::account_manager},
                          {u"Team", property::team},
                          {u"Alignment", property::alignment}}},
                        property::account_id};

const Layout& layout_of(const Folder& folder) {
    static constexpr const Layout* layouts[] = {&accounts, &contacts, &leads};
    const Text message_class = folder.DefaultMessageClass();
    const auto found = std::ranges::find_if(layouts, [&](const Layout* layout) {
        return automation::same_ignoring_case(layout->message_class, message_class);
    });
    return found == std::end(layouts) ? others : **found;
}

/// A text of an item, empty if it can't be read.
template <class Question>
Text asked(Question question) {
    try {
        return question().to_text();
    } catch (const automation::Failure&) {
        return {};
    }
}

/// The user properties of an item, none if they can't be had.
UserProperties properties_of(const Item& item) {
    try {
        return item.UserProperties();
    } catch (const automation::Failure&) {
        return {};
    }
}

PickerRow row_of(const Item& item, const Layout& layout) {
    const UserProperties properties = properties_of(item);
    const auto property_of = [&](TextView name) {
        return properties ? asked([&] { return properties.Item(name).value(); }) : Text();
    };
    PickerRow row;
    for (std::size_t i = 0; i < layout.columns.size(); ++i) {
        const Source& source = layout.columns[i];
        row[i] = source.is_member ? asked([&] { return item.get(source.name); }) : property_of(source.name);
    }
    row[picker_column::record_id] = property_of(layout.record_id);
    row[picker_column::entry_id] = asked([&] { return automation::Value(item.EntryID()); });
    return row;
}

}  // namespace

PickerRows read_picker_rows(const Folder& folder) {
    const Layout& layout = layout_of(folder);
    PickerRows read;
    std::ranges::transform(layout.columns, read.headings.begin(), &Source::heading);
    const host::outlook::Items items = folder.Items();
    const std::int32_t count = items.Count();
    for (std::int32_t i = 1; i <= count; ++i) {
        PickerRow row = row_of(items.Item(i), layout);
        if (!row[picker_column::entry_id].empty()) read.rows.push_back(std::move(row));
    }
    return read;
}

bool holds(const PickerRow& row, TextView text) {
    const Text wanted = automation::upper(text);
    return std::any_of(row.begin(), row.begin() + picker_column::shown,
                       [&](const Text& cell) { return automation::upper(cell).find(wanted) != Text::npos; });
}

}  // namespace family
