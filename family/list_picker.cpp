#include "family/list_picker.h"

#include "addin/records/names.h"
#include "family/database_folders.h"

namespace family {

using automation::calls;
using automation::Failure;
using automation::no_id;
using automation::Text;
using automation::TextView;
using automation::Use;
using automation::Value;

namespace {

/// The members as automation calls them.
namespace called {
constexpr TextView folder_id = u"FolderId";
constexpr TextView account_folder_id = u"accountfolderid";
constexpr TextView store_id = u"StoreID";
constexpr TextView load_dialog = u"loaddialog";
constexpr TextView refresh_accounts = u"refreshaccounts";
constexpr TextView show_dialog = u"showdialog";
constexpr TextView search_any = u"searchany";
}  // namespace called

/// A property that tells where to look.
template <const TextView& member, Text ListPicker::FolderIds::*part>
constexpr automation::Property kept{+[](ListPicker& self) { return self.folder_ids().*part; },
                                    +[](ListPicker& self, const Text& given) {
                                        self.folder_ids().*part = given;
                                        self.record_put(member, given);
                                    }};

template <const TextView& member, void (ListPicker::*act)()>
void run(ListPicker& self) {
    self.record_call(member);
    (self.*act)();
}

void run_search(ListPicker& self, const Text& definition, const Text& title,
                const std::optional<Value>& single) {
    Choice choice = Choice::one;
    if (single) {
        self.record_call(called::search_any, {definition, title, single->to_text()});
        if (!single->to_boolean()) choice = Choice::several;
    } else {
        self.record_call(called::search_any, {definition, title});
    }
    self.search(title, choice);
}

using Rows = std::vector<PickerRow>;

std::int32_t size(const Rows& rows) { return static_cast<std::int32_t>(rows.size()); }

/// Calls `put(row, column)` for the place of each text.
template <class Put>
void put_all(const Rows& rows, Put put) {
    for (std::int32_t row = 0; row < size(rows); ++row) {
        for (std::int32_t column = 0; column < picker_column::count; ++column) {
            put(row, column) = rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
        }
    }
}

Value rows_first(const Rows& rows) {
    automation::Array table({0, size(rows) + 1}, {0, picker_column::count});
    put_all(rows, [&](std::int32_t row, std::int32_t column) -> Value& { return table.at(row, column); });
    return table;
}

Value columns_first(const Rows& rows) {
    automation::Array table({0, picker_column::count}, {0, size(rows)});
    put_all(rows, [&](std::int32_t row, std::int32_t column) -> Value& { return table.at(column, row); });
    return table;
}

constexpr TextView dialog_title = u"Account List";

}  // namespace

void ListPicker::search(TextView title, Choice choice) {
    make_window(title, choice);
    forget();
    refresh_accounts();
    choose(rows_first);
}

void ListPicker::load_dialog() { make_window(dialog_title, Choice::one); }

void ListPicker::refresh_accounts() {
    if (!window_) load_dialog();
    window_->fill(read_picker_rows(folder()));
    filled_ = true;
}

void ListPicker::show_dialog() {
    if (shown_) throw Failure(automation::result::fail, u"The picker is being shown already");
    forget();
    if (!filled_) refresh_accounts();
    choose(columns_first);
}

host::outlook::Folder ListPicker::folder() const {
    const Text& id = folder_ids_.folder_id.empty() ? folder_ids_.account_folder_id : folder_ids_.folder_id;
    host::outlook::Folder accounts;
    if (id.empty() || folder_ids_.store_id.empty()) {
        accounts = DatabaseFolders(context()).folder(addin::records::folder::account_profiles);
        if (!accounts) throw Failure(automation::result::not_found, u"There is no folder of accounts");
        if (id.empty()) return accounts;
    }
    return host::outlook::Application(context().application())
        .GetNamespace(u"MAPI")
        .GetFolderFromID(id, folder_ids_.store_id.empty() ? accounts.StoreID() : folder_ids_.store_id);
}

void ListPicker::make_window(TextView title, Choice choice) {
    if (shown_) throw Failure(automation::result::fail, u"The picker is being shown already");
    window_.reset();
    engine_ = context().engine();
    window_ = std::make_shared<ListPickerForm>(*engine_, choice);
    filled_ = false;
    window_->view().caption(title);
}

void ListPicker::choose(Value (*table_of)(const Rows&)) {
    shown_ = true;
    std::optional<Rows> taken;
    try {
        taken = window_->choose();
    } catch (...) {
        let_go();
        throw;
    }
    let_go();
    if (!taken) return;
    cancelled_ = false;
    chosen_ = taken->empty() ? Value() : table_of(*taken);
}

void ListPicker::forget() {
    cancelled_ = true;
    chosen_ = automation::Array(automation::Array::Bounds{}, automation::Array::Bounds{});
}

void ListPicker::let_go() {
    window_.reset();
    engine_.reset();
    filled_ = false;
    shown_ = false;
}

const automation::Members<ListPicker>& ListPicker::members() {
    static const automation::Members<ListPicker> table{
        {called::folder_id, no_id, kept<called::folder_id, &FolderIds::folder_id>},
        {called::account_folder_id, no_id, kept<called::account_folder_id, &FolderIds::account_folder_id>},
        {called::store_id, no_id, kept<called::store_id, &FolderIds::store_id>},
        {called::load_dialog, no_id, Use::method, run<called::load_dialog, &ListPicker::load_dialog>},
        {called::refresh_accounts, no_id, Use::method,
         run<called::refresh_accounts, &ListPicker::refresh_accounts>},
        {called::show_dialog, no_id, Use::method, run<called::show_dialog, &ListPicker::show_dialog>},
        {called::search_any, no_id, Use::method, {u"Definition", u"Title", u"Single"}, run_search},
        {u"dialogcancel", no_id, Use::get, calls<&ListPicker::cancelled>},
        {u"slist", no_id, Use::get, calls<&ListPicker::chosen>},
    };
    return table;
}

}  // namespace family
