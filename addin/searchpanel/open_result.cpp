// A double click on a result.
#include <algorithm>
#include <iterator>
#include <limits>

#include "addin/ground/keyed.h"
#include "addin/ground/presence.h"
#include "addin/ground/product.h"
#include "addin/searchpanel/show_items.h"

namespace addin::searchpanel {

using automation::Text;
using automation::TextView;
using host::outlook::Folder;
namespace default_folder = host::outlook::default_folder;

namespace {

constexpr char16_t in_files = u'\\', in_index = u'/';  ///< tell the kind of a row by its key
constexpr TextView open_operation = u"Open";

constexpr TextView not_in_default_folder =
    u"Item is not in a default folder. Please navigate to the folder to open the item";
constexpr TextView many_start = u"There are ", many_middle = u" items in this conversation.\r\r",
                   many_end = u"\r\rDo you want to open all items? Selecting No will open 5 items.";
constexpr std::int16_t opened_unasked = 5;

/// The host's folders by the names under which the index knows them.
struct FolderRow {
    TextView name;
    std::int32_t number;
};
constexpr FolderRow folders[] = {
    {u"Inbox", default_folder::inbox},          {u"Calendar", default_folder::calendar},
    {u"Tasks", default_folder::tasks},          {u"Deleted Items", default_folder::deleted_items},
    {u"Sent Items", default_folder::sent_mail}, {u"Drafts", default_folder::drafts}};
static_assert(is_keyed(folders, &FolderRow::name));

/// The cells of the selected row. Throws `Failure` if there is none.
Text cell(ShowItems& panel, int column) { return panel.list().text(panel.list().selected(), column); }

std::int16_t as_16_bits(std::int32_t count) {
    if (count > std::numeric_limits<std::int16_t>::max())
        throw automation::Failure(automation::result::overflow);
    return static_cast<std::int16_t>(count);
}

void open_file(ShowItems& panel) {
    const Text file = cell(panel, column::subject), folder = cell(panel, column::key);
    panel.session().desktop.shell_execute({.window = panel.view().system_handle(),
                                           .operation = open_operation,
                                           .file = file,
                                           .directory = folder});
}

/// The index knows no entry id: the item is found again by its subject and sender.
void open_indexed(ShowItems& panel) {
    const Steps steps(panel.session());
    host::Desktop& desktop = panel.session().desktop;
    Text folder_name, subject;
    Folder folder;
    steps.set(folder_name, [&] { return cell(panel, column::folder); });
    const auto row = std::ranges::find(folders, TextView(folder_name), &FolderRow::name);
    if (row != std::end(folders)) {
        steps.set(folder, [&] {
            return host::outlook::Application(desktop.application())
                .GetNamespace(u"MAPI")
                .GetDefaultFolder(row->number);
        });
    }
    steps.set(subject, [&] { return cell(panel, column::subject); });
    host::outlook::Items found;
    std::int16_t count = 0;
    steps.set(found, [&] {
        const Text filter = u"@SQL=(\"urn:schemas:httpmail:subject\" = '" + subject +
                            u"' AND \"urn:schemas:httpmail:fromname\" = '" + cell(panel, column::creator) +
                            u"')";
        return folder.Items().Restrict(filter);
    });
    steps.set(count, [&] { return as_16_bits(found.Count()); });
    if (count > opened_unasked) {
        const Text question = Text(many_start) + automation::to_text(static_cast<long long>(count)) +
                              Text(many_middle) + subject + Text(many_end);
        if (desktop.message_box(question, product_title, host::box::yes_no) != host::box::answer_yes) {
            count = opened_unasked;
        }
    }
    for (std::int32_t i = 1; i <= count; ++i) steps.run([&] { found.Item(i).Display(); });
    if (!folder) desktop.message_box(not_in_default_folder, product_title, host::box::ok);
}

}  // namespace

void open_result(ShowItems& panel) {
    const Presence here(panel.session(), panel);
    host::Desktop& desktop = panel.session().desktop;
    const Steps steps(panel.session());
    desktop.pointer(forms::Pointer::hourglass);
    if (steps.possibly([&] { return panel.list().count() == 0 || cell(panel, column::folder).empty(); })) {
        desktop.pointer(forms::Pointer::standard);
        desktop.beep();
        return;
    }
    // a mail's place may hold the other sign as well, in a folder's name; its subject is never opened
    if (steps.possibly([&] {
            const Text place = cell(panel, column::key);
            return place.find(in_files) != Text::npos && !place.starts_with(in_index);
        })) {
        steps.run([&] { open_file(panel); });
    } else if (steps.possibly([&] { return cell(panel, column::key).starts_with(in_index); })) {
        open_indexed(panel);
    } else {
        steps.run([&] {
            host::outlook::Application(desktop.application())
                .GetNamespace(u"MAPI")
                .GetItemFromID(cell(panel, column::key))
                .Display();
        });
    }
    if (here.session_lasts()) desktop.pointer(forms::Pointer::standard);
}

}  // namespace addin::searchpanel
