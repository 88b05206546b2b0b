// The walk over all folders of the database.
#include "addin/ground/product.h"
#include "addin/ground/status_windows.h"
#include "addin/records/database.h"
#include "addin/records/filters.h"
#include "addin/searchpanel/panel_search.h"
#include "addin/searchpanel/result_texts.h"

namespace addin::searchpanel {

using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Folder;
using host::outlook::Folders;
using host::outlook::Item;
using host::outlook::Items;

namespace {

constexpr TextView cancelled = u"Search Cancelled!";
constexpr TextView please_wait = u"Please Wait.. Searching for ", in_folder = u" in folder ";
constexpr TextView found_start = u"Found ", found_middle = u" items in folder ",
                   stopping = u" Stopping at 50.";

/// With the row that goes beyond, the rest of a folder is left out.
constexpr int most_rows = 50;

/// What begins with it has been received, or posted.
constexpr TextView received_classes = u"IPM.Po";

/// The name of a folder that could be read. Throws `Failure` for one that couldn't.
const Text& known(const std::optional<Text>& name) {
    if (!name)
        throw automation::Failure(automation::result::object_not_set, u"The folder's name isn't known.");
    return *name;
}

}  // namespace

void PanelSearch::SearchMeRecurse(const Text& filter, const Folders& ofolders) {
    std::int32_t folder_count = 0;
    host::family::SafeMailItem safe_mail;
    steps_.set(folder_count, [&] { return ofolders.Count(); });
    for (std::int32_t i = 1; i <= folder_count; ++i) {
        Folder folder;
        steps_.set(folder, [&] { return ofolders.Item(i); });
        if (!folder) continue;
        std::optional<Text> name;
        steps_.set(name, [&] { return std::optional(folder.Name()); });
        steps_.run([&] { session_.SearchForm.window()->status(Text(searching) + known(name)); });
        if (!here_.give_way()) return;
        tell_of_cancel();
        if (gone()) return;

        Items found;
        steps_.set(found, [&] { return folder.Items().Restrict(filter); });
        if (found) {
            list_folder(found, name, safe_mail);
            if (gone()) return;
        }
        Folders below;
        steps_.set(below, [&] { return folder.Folders(); });
        if (steps_.possibly([&] { return below.Count() > 0; })) SearchMeRecurse(filter, below);
        if (gone()) return;
    }
}

void PanelSearch::list_folder(const Items& found, const std::optional<Text>& name,
                              host::family::SafeMailItem& safe_mail) {
    steps_.run([&] {
        const Text company = control(u"CompanyName").text(), contact = control(u"Contactname").text();
        control(u"StoreID")
            .text(Text(please_wait) + company + u" " + contact + Text(in_folder) + known(name));
    });
    std::int32_t count = 0;
    if (steps_.certainly([&] {
            count = found.Count();
            return count < 1;
        })) {
        return;
    }
    steps_.run([&] {
        control(u"StoreID")
            .text(Text(found_start) + automation::to_text(static_cast<long long>(count)) +
                  Text(found_middle) + known(name) + u".");
    });
    steps_.set(safe_mail, [&] { return records::make_safe_mail(session_.desktop); });
    std::optional<Text> shown_name;
    steps_.set(shown_name, [&] { return std::optional(records::without_leading_blanks(known(name))); });
    int rows = 0;
    for (std::int32_t i = 1; i <= count; ++i) {
        Item item;
        steps_.set(item, [&] { return found.Item(i); });
        if (!item) continue;
        steps_.run([&] { safe_mail.Item(item); });
        add_row(shown_name, item, safe_mail);
        tell_of_cancel();
        if (gone()) return;
        if (++rows > most_rows) {
            steps_.run([&] { control(u"StoreID").text(control(u"StoreID").text() + Text(stopping)); });
            return;
        }
    }
}

void PanelSearch::fill(Text& cell, const std::function<Value()>& read) const {
    steps_.set(cell, [&] { return shown_text(session_.desktop, read()); });
}

void PanelSearch::add_row(const std::optional<Text>& folder, const Item& item,
                          const host::family::SafeMailItem& safe_mail) const {
    Cells cells;
    steps_.set(cells[column::folder], [&] { return known(folder); });
    if (!folder) return;
    fill(cells[column::subject], [&] { return item.get(u"Subject"); });
    fill(cells[column::creator], [&] { return Value(safe_mail.SenderName()); });
    if (steps_.possibly([&] { return item.MessageClass().starts_with(received_classes); })) {
        fill(cells[column::created], [&] { return item.get(u"ReceivedTime"); });
    } else {
        fill(cells[column::created], [&] { return item.get(u"CreationTime"); });
    }
    fill(cells[column::modified], [&] { return item.get(u"LastModificationTime"); });
    fill(cells[column::key], [&] { return Value(item.EntryID()); });
    steps_.run([&] { list().add(cells); });
}

void PanelSearch::tell_of_cancel() {
    // It informs, and stops nothing.
    if (panel_.CancelLoop) session_.desktop.message_box(cancelled, product_title, host::box::information);
}

}  // namespace addin::searchpanel
