// Mail that is dropped on the row of an opportunity or inquiry is filed for it.
#include "addin/ground/keyed.h"
#include "addin/quickview/quick_view.h"
#include "addin/records/database.h"
#include "addin/records/names.h"

namespace addin::quickview {

using automation::TextView;
using host::family::SafeMailItem;
using host::outlook::Item;
using records::Path;

namespace {

constexpr TextView copying = u"Copying Email.";
constexpr std::uint32_t time_to_see = 1000;  // milliseconds

/// What a mail becomes by the class of the record that it is dropped on.
struct DropRow {
    records::Name message_class;
    Path path;
};
constexpr DropRow drop_rows[] = {{records::message_class::opportunity, Path::drop_on_opportunity},
                                 {records::message_class::inquiry, Path::drop_on_inquiry}};
static_assert(is_keyed(drop_rows, &DropRow::message_class));

/// Throws `Failure` for an item of another kind: it is neither copied nor marked.
const Item& as_mail(const Item& item) {
    if (item.Class() != host::outlook::object_class::mail) {
        throw automation::Failure(automation::result::type_mismatch, u"What is selected is no mail.");
    }
    return item;
}

}  // namespace

void QuickView::lstItems_OLEDragDrop(int x, int y) {
    host::Desktop& desktop = session_.desktop;
    const Steps steps(session_);
    forms::Hit hit;
    steps.set(hit, [&] { return list().hit(x, y); });
    if (hit.row < 0) return;
    steps.run([&] { list().select(hit.row); });
    host::outlook::Explorer explorer;
    host::outlook::Selection selection;
    SafeMailItem mail;
    steps.set(explorer, [&] { return host::outlook::Application(desktop.application()).ActiveExplorer(); });
    steps.set(mail, [&] { return records::make_safe_mail(session_.desktop); });
    steps.set(selection, [&] { return explorer.Selection(); });
    desktop.pointer(forms::Pointer::hourglass);
    if (steps.possibly(
            [&] { return list().count() == 0 || list().text(list().selected(), column::subject).empty(); })) {
        desktop.pointer(forms::Pointer::standard);
        desktop.beep();
        return;
    }
    Item dropped, target;
    steps.set(dropped, [&] { return as_mail(name_space().GetItemFromID(selection.Item(1).EntryID())); });
    steps.set(target,
              [&] { return name_space().GetItemFromID(list().text(list().selected(), column::entry_id)); });
    steps.run([&] { mail.Item(dropped); });
    const host::outlook::Folder profiles = records::open_database(session_).account_profiles;
    for (const DropRow& row : drop_rows) {
        if (steps.certainly([&] { return target.MessageClass() != row.message_class; })) continue;
        steps.run([&] { caption(copying); });
        file_mail(row.path, profiles, mail,
                  {records::From::target, [&](records::Name name) { return records::copied(target, name); }});
        desktop.sleep(time_to_see);
    }
    records::mark_mail(session_, records::filed_by_user, mail);
    steps.run([&] { caption(quick_view_table().caption); });
    desktop.pointer(forms::Pointer::standard);
}

}  // namespace addin::quickview
