// The items of a folder that belong to the contact that is shown.
#include "quickview/quick_view.h"
#include "records/names.h"

namespace addin::quickview {

using host::Text;
using host::TextView;
using host::outlook::Items;

namespace {

constexpr TextView sql_start = u"@SQL=(", filter_end = u"')";
constexpr TextView phrase = u" ci_phrasematch '", like = u" Like '", and_next = u"' AND ";

/// The address of a user property, as a filter quotes it. Blanks stand in it as their code.
Text quoted_address(records::Name name) {
    return u"\"" + Text(records::schema_root) + u"mapi/string/" + Text(records::user_property_set) + u"/" +
           host::replaced(name, u" ", u"%20") + u"\"";
}

Text without_leading_blanks(const Text& text) {
    const std::size_t first = text.find_first_not_of(u' ');
    return first == Text::npos ? Text() : text.substr(first);
}

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
constexpr FolderRow any_other{u"", 0, true};

const FolderRow& row_of(const Text& chosen) {
    for (const FolderRow& row : folder_rows) {
        if (row.chosen == chosen) return row;
    }
    return any_other;
}

}  // namespace

Text indexed_filter(const Text& contact_id, const Text& company) {
    return Text(sql_start) + quoted_address(records::property::contact_id) + Text(phrase) + contact_id +
           Text(and_next) + quoted_address(records::property::account_name) + Text(phrase) + company +
           Text(filter_end);
}

Text like_filter(const Text& contact_id) {
    return Text(sql_start) + quoted_address(records::property::contact_id) + Text(like) + contact_id +
           Text(filter_end);
}

void QuickView::cmbFolders_Click() {
    Steps steps;
    const Text chosen = shown(u"cmbFolders");
    const Items found = related_items(steps, chosen);
    if (!loaded()) return;
    steps.run([&] { list().clear(); });
    std::int32_t count = 0;
    steps.set(count, [&] { return found.Count(); });
    int row = -1;  // of the item before, where an item's own can't be added
    for (std::int32_t i = 1; i <= count && loaded(); ++i) {
        host::outlook::Item item;
        steps.set(item, [&] { return found.Item(i); });
        add_row(steps, item, chosen == records::folder::opportunities, row);
    }
}

Items QuickView::related_items(Steps& steps, const Text& chosen) {
    const host::outlook::Folder profiles = open_database(steps).account_profiles;
    // which form the store takes is found out by trying
    Text filter = indexed_filter(shown(u"ContactID"), shown(u"CompanyName"));
    Items probe;
    steps.set(probe, [&] {
        return profiles.Folders().Item(records::folder::account_contacts).Items().Restrict(filter);
    });
    if (!probe) filter = like_filter(shown(u"ContactID"));
    Items found;
    steps.set(found, [&] { return profiles.Folders().Item(chosen).Items().Restrict(filter); });
    if (!loaded()) return found;
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

void QuickView::add_row(Steps& steps, const host::outlook::Item& item, bool by_name, int& row) {
    steps.set(row, [&] {
        const Text text =
            by_name ? item.UserProperties().Item(records::property::name).value().to_text() : item.Subject();
        return list().add(without_leading_blanks(text));
    });
    steps.run([&] { list().text(row, column::modified, item.LastModificationTime().to_text()); });
    steps.run([&] { list().text(row, column::entry_id, item.EntryID()); });
}

}  // namespace addin::quickview
