#include "addin/quickview/quick_view.h"

#include <algorithm>
#include <stdexcept>

#include "addin/ground/keyed.h"
#include "addin/quickview/sticky_notes.h"
#include "addin/records/database.h"
#include "addin/records/names.h"
#include "addin/records/property_filters.h"
#include "addin/searchpanel/panels.h"

namespace addin::quickview {

using automation::Text;
using automation::TextView;
namespace property = records::property;

namespace {

/// A database of no more folders is one from before the inquiries.
constexpr std::int32_t folders_of_old = 11;

constexpr std::uint32_t track_select = 8;  // LVS_EX_TRACKSELECT
constexpr int rising = 0, falling = 1;

/// As many characters of a cell as are read for a comparison: the buffer's 32 with the one that ends them.
constexpr std::size_t compared_characters = 31;

/// Which control shows a property of the record, in the order in which a new record gets them.
struct ShownValue {
    records::Name property;
    ControlName control;
};
constexpr ShownValue shown_values[] = {{property::account_name, u"CompanyName"},
                                       {property::contact_name, u"Contactname"},
                                       {property::account_manager, u"AccountManager"},
                                       {property::team, u"Team"},
                                       {property::account_id, u"AccountID"},
                                       {property::contact_id, u"ContactID"},
                                       {property::alignment, u"Alignment"}};
static_assert(is_keyed(shown_values, &ShownValue::property));

}  // namespace

State::State(createnote::State& dialogs, searchpanel::State& panels)
    : session(panels.session), createnote(dialogs), searchpanel(panels) {
    QuickView.made_by([this] { return std::make_shared<quickview::QuickView>(*this); });
}

void QuickView::on_load() {
    const Steps steps(session_);
    steps.run([&] { view().topmost(); });
    steps.run([&] { list().extended_style(track_select, track_select); });
    state_.SortAscending = true;
    const records::Database database = records::open_database(session_);
    host::outlook::Folders folders;
    steps.set(folders, [&] { return database.account_profiles.Folders(); });
    if (steps.certainly([&] { return folders.Count() <= folders_of_old; })) return;
    steps.run([&] { choice(u"cmbFolders").add(records::folder::customer_service); });
    host::outlook::Folder email;
    steps.set(email, [&] { return folders.Item(records::folder::email); });
    if (email) steps.run([&] { choice(u"cmbFolders").add(records::folder::email); });
}

void QuickView::on_unload() { close_sticky_notes(session_, shown(u"AccountID")); }

void QuickView::on_click(TextView name) {
    struct Row {
        ControlName control;
        void (QuickView::*run)();
    };
    static constexpr Row rows[] = {{u"cmbFolders", &QuickView::cmbFolders_Click},
                                   {u"cmdAdd", &QuickView::cmdAdd_Click},
                                   {u"cmdSearchpanel", &QuickView::cmdSearchpanel_Click},
                                   {u"CompanyName", &QuickView::CompanyName_Click},
                                   {u"Contactname", &QuickView::Contactname_Click}};
    const auto row = std::ranges::find_if(rows, [&](const Row& one) { return one.control == name; });
    if (row != std::end(rows)) (this->*row->run)();
}

void QuickView::on_double_click(TextView name) {
    if (ControlName(u"lstItems") == name) lstItems_DblClick();
}

void QuickView::on_drop(TextView name, int x, int y) {
    if (ControlName(u"lstItems") == name) lstItems_OLEDragDrop(x, y);
}

void QuickView::on_column_click(TextView, int clicked) {
    const Steps steps(session_);
    state_.SortAscending = !state_.SortAscending;
    steps.run([&] { list().sort_key(clicked); });
    if (clicked == column::subject) {
        steps.run([&] { list().sort_key(column::subject); });
        steps.run([&] { list().sort_order(state_.SortAscending ? falling : rising); });
        steps.run([&] { list().sorted(true); });
    } else if (clicked == column::modified) {
        steps.run([&] { list().sorted(false); });
        steps.run([&] {
            list().sort_rows(
                [this](std::intptr_t first, std::intptr_t second) { return CompareDates(first, second); });
        });
    }
}

int QuickView::CompareDates(std::intptr_t lngParam1, std::intptr_t lngParam2) {
    const Steps steps(session_);
    automation::Date first, second;
    const auto read = [&](std::intptr_t parameter) {
        const Text cell = list().text(list().find(parameter), column::modified);
        return session_.desktop.date_of(cell.substr(0, compared_characters));
    };
    steps.set(first, [&] { return read(lngParam1); });
    steps.set(second, [&] { return read(lngParam2); });
    constexpr int before = 0, equal = 1, later = 2;
    if (first.days < second.days) return state_.SortAscending ? before : later;
    if (first.days > second.days) return state_.SortAscending ? later : before;
    return equal;
}

void QuickView::cmdSearchpanel_Click() {
    searchpanel::State& panels = state_.searchpanel;
    panels.gSelectedEntryID = shown(u"EntryID");
    panels.gSelectedStoreID = shown(u"StoreID");
    panels.gSelectedClass = shown(u"MessageClass");
    searchpanel::open_new_panel(panels);
}

void QuickView::CompanyName_Click() {
    const Steps steps(session_);
    const records::Database database = records::open_database(session_);
    host::outlook::Item record;
    steps.set(record, [&] {
        return database.account_profiles.Items().Find(
            records::equality(records::property::account_id, shown(u"AccountID")));
    });
    steps.run([&] { record.Display(); });
}

void QuickView::Contactname_Click() {
    const Steps steps(session_);
    const records::Database database = records::open_database(session_);
    host::outlook::Item record;
    steps.set(record, [&] {
        return database.account_profiles.Folders()
            .Item(records::folder::account_contacts)
            .Items()
            .Find(records::equality(records::property::contact_id, shown(u"ContactID")));
    });
    steps.run([&] { record.Display(); });
}

void QuickView::lstItems_DblClick() {
    const Steps steps(session_);
    host::outlook::Item item;
    steps.set(item,
              [&] { return name_space().GetItemFromID(list().text(list().selected(), column::entry_id)); });
    steps.run([&] { item.Display(); });
}

host::outlook::NameSpace QuickView::name_space() const {
    return host::outlook::Application(session_.desktop.application()).GetNamespace(u"MAPI");
}

Text QuickView::shown_value(records::Name name) {
    const auto value = std::ranges::find(shown_values, name, &ShownValue::property);
    if (value == std::end(shown_values))
        throw std::logic_error("no control shows " + automation::to_utf8(name));
    return shown(value->control);
}

void QuickView::write_shown_values(const host::outlook::Item& record) {
    for (const ShownValue& value : shown_values) {
        records::write_property(session_, record, value.property,
                                [&] { return automation::Value(shown(value.control)); });
    }
}

void QuickView::caption(TextView text) {
    if (loaded()) view().caption(text);
}

}  // namespace addin::quickview
