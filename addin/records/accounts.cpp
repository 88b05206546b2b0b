#include "addin/records/accounts.h"

#include "addin/records/stamp.h"

namespace addin::records {

host::family::ListPicker make_account_picker(Steps& steps, host::Desktop& desktop,
                                             const host::outlook::Folder& account_profiles) {
    host::family::ListPicker picker;
    steps.set(picker, [&] {
        return host::family::ListPicker(host::outlook::Application(desktop.application())
                                            .CreateObject(host::family::prog_id::list_picker));
    });
    steps.run([&] { picker.StoreID(host::outlook::Folder(account_profiles.Parent()).StoreID()); });
    steps.run([&] { picker.FolderId(account_profiles.EntryID()); });
    steps.run([&] { picker.accountfolderid(account_profiles.EntryID()); });
    return picker;
}

void write_contact_field(Steps& steps, const host::outlook::Item& contact, const AccountToContact& row,
                         const std::function<automation::Value()>& value) {
    if (row.contact_field_is_property) {
        write_property(steps, contact, row.contact_field, value);
    } else {
        steps.run([&] { contact.put(row.contact_field, value()); });
    }
}

}  // namespace addin::records
