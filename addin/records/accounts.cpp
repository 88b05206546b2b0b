#include "addin/records/accounts.h"

#include "addin/records/stamp.h"

namespace addin::records {

host::family::ListPicker make_account_picker(const Session& session,
                                             const host::outlook::Folder& account_profiles) {
    const Steps steps(session);
    host::family::ListPicker picker;
    steps.set(picker, [&] {
        return host::family::ListPicker(host::outlook::Application(session.desktop.application())
                                            .CreateObject(host::family::prog_id::list_picker));
    });
    steps.run([&] { picker.StoreID(host::outlook::Folder(account_profiles.Parent()).StoreID()); });
    steps.run([&] { picker.FolderId(account_profiles.EntryID()); });
    steps.run([&] { picker.accountfolderid(account_profiles.EntryID()); });
    return picker;
}

void write_contact_field(const Session& session, const host::outlook::Item& contact,
                         const AccountToContact& row, const std::function<automation::Value()>& value,
                         const SourcePlace& place) {
    const Steps steps(session);
    if (row.contact_field_is_property) {
        write_property(session, contact, row.contact_field, value, place);
    } else {
        steps.run([&] { contact.put(row.contact_field, value()); }, place);
    }
}

}  // namespace addin::records
