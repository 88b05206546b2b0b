// The items of a folder that belong to the contact that is shown.
#include <array>

#include "addin/ground/keyed.h"
#include "addin/quickview/quick_view.h"
#include "addin/records/database.h"
#include "addin/records/filters.h"
#include "addin/records/names.h"
#include "addin/records/property_filters.h"

namespace addin::quickview {

using automation::Text;
using automation::TextView;
using host::outlook::Items;

namespace {

/// What is shown of the folders of one kind.
struct FolderRow {
    TextView chosen;
    std::int32_t default_folder;  ///< of the user's own folders; 0 for one of the database
    bool takes_drops;
};
constexpr FolderRow folder_rows[] = {
    {my_calendar, host::outlook::default_folder::calendar, false},
    {my_tasks, host::outlook::default_folder::tasks, false},
    {records::folder::notes, 0, false},
    {records::folder::email, 0, false},
};
static_assert(is_keyed(folder_rows, &FolderRow::chosen));
constexpr FolderRow any_other{u"", 0, true};

const FolderRow& row_of(const Text& chosen) {
    for (const FolderRow& row : folder_rows) {
        if (row.chosen == chosen) return row;
    }
    return any_other;
}

}  // namespace

void QuickView::cmbFolders_Click() {
    const Steps steps(session_);
    const Text chosen = shown(u"cmbFolders");
    const Presence here(session_, *this);  // a store may let events run while it answers
    const Items found = related_items(here, chosen);
    if (!here.lasts()) return;
    steps.run([&] { list().clear(); });
    std::int32_t count = 0;
    steps.set(count, [&] { return found.Count(); });
    for (std::int32_t i = 1; i <= count && here.lasts(); ++i) {
        host::outlook::Item item;
        steps.set(item, [&] { return found.Item(i); });
        add_row(item, chosen == records::folder::opportunities);
    }
}

Items QuickView::related_items(const Presence& here, const Text& chosen) {
    const Steps steps(session_);
    const host::outlook::Folder profiles = records::open_database(session_).account_profiles;
    // which form the store takes is found out by trying
    const auto of_contact = [&](records::FilterForm form) {
        return records::key_filter(form, records::property::contact_id, shown(u"ContactID"),
                                   shown(u"CompanyName"));
    };
    Text filter = of_contact(records::FilterForm::phrase);
    Items probe;
    steps.set(probe, [&] {
        return profiles.Folders().Item(records::folder::account_contacts).Items().Restrict(filter);
    });
    if (!probe) filter = of_contact(records::FilterForm::like);
    Items found;
    steps.set(found, [&] { return profiles.Folders().Item(chosen).Items().Restrict(filter); });
    if (!here.lasts()) return found;
    steps.run([&] { list().takes_drops(true); });
    const FolderRow& folder = row_of(chosen);
    if (folder.default_folder != 0) {
        steps.set(found, [&] {
            return name_space().GetDefaultFolder(folder.default_folder).Items().Restrict(filter);
        });
    }
    if (!folder.takes_drops) steps.run([&] { list().takes_drops(false); });
    return found;
}

void QuickView::add_row(const host::outlook::Item& item, bool by_name) {
    const Steps steps(session_);
    std::array<Text, column::entry_id + 1> cells;
    const bool is_known = steps.run([&] {
        const Text text =
            by_name ? item.UserProperties().Item(records::property::name).value().to_text() : item.Subject();
        cells[column::subject] = records::without_leading_blanks(text);
    });
    if (!is_known) return;  // nor is another row filled, which would then open this item
    steps.set(cells[column::modified], [&] { return session_.desktop.text_of(item.LastModificationTime()); });
    steps.set(cells[column::entry_id], [&] { return item.EntryID(); });
    steps.run([&] { list().add(cells); });
}

}  // namespace addin::quickview
