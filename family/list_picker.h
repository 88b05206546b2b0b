// Stands in for the account and contact picker.
#pragma once

#include "family/list_picker_form.h"
#include "family/sibling.h"

namespace family {

/// The picker as automation sees it. How it is asked is recorded, too.
class ListPicker : public Sibling<ListPicker> {
  public:
    static constexpr automation::TextView name = u"ListPicker";
    static const automation::Members<ListPicker>& members();

    using Sibling::Sibling;

    /// Where the picker looks, as its caller says. Without a folder it is the accounts' one, without a store
    /// the database's.
    struct FolderIds {
        automation::Text folder_id;
        automation::Text account_folder_id;
        automation::Text store_id;
    };
    FolderIds& folder_ids() { return folder_ids_; }

    /// The search form: makes its window with that title, lists the folder's records, and comes back when the
    /// user is done. Throws `Failure` if the folder can't be read, or while a window of this picker is shown.
    void search(automation::TextView title, Choice choice);

    // the dialog form, in the order in which its members are called; each does what an earlier one left out
    void load_dialog();
    void refresh_accounts();
    void show_dialog();

    bool cancelled() const { return cancelled_; }

    /// The rows that were chosen, a table with two dimensions from 0. After a search its rows are the first
    /// one, with an empty row behind the last: its upper bound is the number of rows. After the dialog the
    /// columns are the first one and the rows the second. Column 7 is the entry id. A table without elements
    /// after a cancel, and no table at all if the user was done without choosing anything.
    const automation::Value& chosen() const { return chosen_; }

  private:
    host::outlook::Folder folder() const;
    void make_window(automation::TextView title, Choice choice);
    void choose(automation::Value (*table_of)(const std::vector<PickerRow>&));

    void forget();  ///< what was chosen
    void let_go();  ///< of the window

    FolderIds folder_ids_;
    std::shared_ptr<forms::Engine> engine_;  // outlives the window
    std::shared_ptr<ListPickerForm> window_;
    bool filled_ = false;
    bool shown_ = false;
    bool cancelled_ = true;
    automation::Value chosen_ = automation::Array(automation::Array::Bounds{}, automation::Array::Bounds{});
};

}  // namespace family
