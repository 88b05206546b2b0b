#include "addin/searchpanel/panel_search.h"

#include "addin/ground/product.h"
#include "addin/ground/settings.h"
#include "addin/ground/status.h"
#include "addin/ground/status_windows.h"
#include "addin/records/database.h"
#include "addin/records/filters.h"
#include "addin/records/names.h"
#include "addin/searchpanel/result_texts.h"
#include "forms/sort_marks.h"

namespace addin::searchpanel {

using automation::Text;
using automation::TextView;
using host::outlook::Folder;
using host::outlook::Item;
using host::outlook::Items;
namespace property = records::property;

namespace {

constexpr TextView only_one =
    u"You can only select 1 item. the first item will be selected.\rDo you wish to continue?";
constexpr TextView nothing_chosen = u"Return value is empty.  Please re-select the item(s) from the list.";
constexpr TextView apostrophe = u"'", doubled_apostrophe = u"''";

/// The column of the picker's rows that holds the entry id.
constexpr std::int32_t picked_entry_id = 7;

/// A control of the header, and what of the shown record it tells: a user property, or a field of a contact.
struct HeaderRow {
    ControlName control;
    TextView source;
    bool is_property;
};
constexpr HeaderRow contact_header[] = {
    {u"CompanyName", u"CompanyName", false},       {u"Contactname", u"FullName", false},
    {u"Street1", u"BusinessAddressStreet", false}, {u"City", u"BusinessAddressCity", false},
    {u"State", u"BusinessAddressState", false},    {u"Zip", u"BusinessAddressPostalCode", false},
    {u"Phone", u"BusinessTelephoneNumber", false}, {u"Fax", u"BusinessFaxNumber", false},
    {u"AccountID", property::account_id, true},    {u"ContactID", property::contact_id, true},
};
constexpr HeaderRow account_header[] = {
    {u"CompanyName", property::account_name, true},
    {u"Street1", property::account_address, true},
    {u"City", property::account_city, true},
    {u"State", property::account_state, true},
    {u"Zip", property::account_zip, true},
    {u"Phone", property::account_phone, true},
    {u"Fax", property::account_fax_of_results, true},
    {u"AccountID", property::account_id, true},
};

/// What is emptied for the record that the user has picked.
constexpr ControlName header_of_picked[] = {u"CompanyName", u"Contactname", u"Street1", u"City",
                                            u"State",       u"Zip",         u"Phone",   u"Fax",
                                            u"AccountID",   u"ContactID"};

Text property_of(const Item& item, TextView name) {
    return item.UserProperties().Item(name).value().to_text();
}

Text value_of(const Item& item, const HeaderRow& row) {
    return row.is_property ? property_of(item, row.source) : item.get(row.source).to_text();
}

Text doubled(TextView text) { return automation::replaced(text, apostrophe, doubled_apostrophe); }

/// The upper bound of a table's first dimension. Throws `Failure` for what is no table.
std::int32_t upper_bound(const std::optional<automation::Array>& table) {
    if (!table) throw automation::Failure(automation::result::type_mismatch);
    const automation::Array::Bounds& first = table->dimensions().front();
    return first.lower + first.count - 1;
}

}  // namespace

PanelSearch::PanelSearch(ShowItems& panel)
    : here_(panel.session(), panel), panel_(panel), session_(panel.session()), state_(panel.state()) {}

forms::Control& PanelSearch::control(ControlName name) const {
    if (gone()) throw automation::Failure(automation::result::object_deleted, u"The panel has been closed.");
    return panel_.control(name);
}

void PanelSearch::caption(ControlName name, TextView text) const {
    steps_.run([&] { control(name).text(text); });
}

bool PanelSearch::run() {
    panel_.CancelLoop = false;
    open_database();
    const bool instant = choosing_.certainly(
        [&] { return Settings(session_).option(setting::enable_desktop_search) == option_on; });
    form_ = instant ? FilterForm::phrase : FilterForm::like;
    if (panel_.gForms2.empty()) choosing_.run([&] { panel_.LoadPanelDefinitions(); });
    choosing_.set(definition_, [&] { return chosen(&createnote::SearchTarget::find_definition); });

    const Next next = state_.gSelectedEntryID.empty() ? let_choose() : take_pending_item();
    if (next == Next::list_items && !gone()) {
        show_record();
        list_items();
    }
    if (next != Next::end && instant && !gone()) ask_index();
    if (here_.session_lasts()) end();
    return !gone();
}

void PanelSearch::open_database() {
    host::Desktop& desktop = session_.desktop;
    const records::Database database = records::open_database(session_, choosing_);
    main_add_in_ = database.main_add_in;
    profiles_ = database.account_profiles;
    choosing_.set(system_,
                  [&] { return records::open_folder(desktop, main_add_in_, records::folder::system); });
    if (!system_) {
        choosing_.set(system_,
                      [&] { return Folder(profiles_.Parent()).Folders().Item(records::folder::system); });
    }
}

// What is searched for

Text PanelSearch::chosen(Text createnote::SearchTarget::*part) const {
    const int place = control(u"SearchMe").choice().chosen();
    if (place < 0 || static_cast<std::size_t>(place) >= panel_.gForms2.size()) {
        throw automation::Failure(automation::result::bad_index, u"No target is chosen.");
    }
    return panel_.gForms2[static_cast<std::size_t>(place)].*part;
}

PanelSearch::Next PanelSearch::take_pending_item() {
    steps_.set(record_, [&] {
        return host::outlook::Application(session_.desktop.application())
            .GetNamespace(u"MAPI")
            .GetItemFromID(state_.gSelectedEntryID, state_.gSelectedStoreID);
    });
    Item entry;
    steps_.set(entry, [&] {
        return system_.Items().Restrict(drop_down_filter(form_, state_.gSelectedClass)).Item(1);
    });
    steps_.set(definition_, [&] { return property_of(entry, property::find_definition); });
    steps_.run([&] { control(u"SearchMe").text(entry.Subject()); });
    state_.gSelectedEntryID.clear();
    state_.gSelectedStoreID.clear();
    steps_.run([&] { show_status(session_, searching); });
    return Next::list_items;
}

PanelSearch::Next PanelSearch::let_choose() {
    host::Desktop& desktop = session_.desktop;
    Text path;
    choosing_.set(path, [&] { return chosen(&createnote::SearchTarget::folder_name); });
    choosing_.set(target_, [&] { return Folder(main_add_in_.ReturnFolderFromPath(path)); });
    if (!panel_.picker) {
        choosing_.set(panel_.picker, [&] {
            return host::family::ListPicker(desktop.create(host::family::prog_id::list_picker));
        });
    }
    const host::family::ListPicker picker = panel_.picker;  // the window may end while it is shown
    choosing_.run([&] { picker.StoreID(target_.StoreID()); });
    choosing_.run([&] { picker.FolderId(target_.EntryID()); });
    choosing_.run([&] { picker.searchany(definition_, definition_, false); });
    if (choosing_.possibly([&] { return picker.dialogcancel(); })) return Next::ask_index;
    if (gone()) return Next::end;

    std::optional<automation::Array> rows;
    choosing_.set(rows, [&] { return std::optional(picker.slist()); });
    if (choosing_.certainly([&] { return upper_bound(rows) <= 1; })) {
        choosing_.set(definition_, [&] { return chosen(&createnote::SearchTarget::find_definition); });
        record_.reset();
        for (const ControlName name : header_of_picked) caption(name, u"");
        choosing_.run([&] { take_record(rows.value_or(automation::Array())); });
        return Next::list_items;
    }
    if (failed_) {
        desktop.message_box(nothing_chosen, product_title, host::box::information);
        return Next::end;
    }
    if (desktop.message_box(only_one, product_title, host::box::yes_no | host::box::question) !=
        host::box::answer_yes) {
        return Next::end;
    }
    if (!gone()) choosing_.run([&] { take_record(rows.value_or(automation::Array())); });
    return Next::list_items;
}

void PanelSearch::take_record(const automation::Array& rows) {
    record_ = host::outlook::Application(session_.desktop.application())
                  .GetNamespace(u"MAPI")
                  .GetItemFromID(rows.at(0, picked_entry_id).to_text(), target_.StoreID());
}

// The header

void PanelSearch::show_record() {
    Text key;
    steps_.set(key, [&] { return property_of(record_, property::contact_id); });
    steps_.set(company_, [&] { return doubled(property_of(record_, property::account_name)); });
    if (key.empty()) {
        show_account();
    } else {
        show_contact(key);
    }
    caption(u"EntryID", u"");
    caption(u"StoreID", u"");
}

void PanelSearch::show_contact(const Text& key) {
    steps_.set(shown_, [&] {
        const Folder contacts = profiles_.Folders().Item(records::folder::account_contacts);
        return contacts.Items()
            .Restrict(records::key_filter(form_, property::contact_id, key, company_))
            .GetFirst();
    });
    for (const HeaderRow& row : contact_header) {
        steps_.run([&] { control(row.control).text(value_of(shown_, row)); });
    }
    steps_.set(company_, [&] { return shown_.CompanyName(); });
    steps_.run([&] { session_.SearchForm.hide(); });
}

void PanelSearch::show_account() {
    steps_.set(shown_, [&] {
        const Text id = property_of(record_, property::account_id);
        const bool with_name = form_ == FilterForm::phrase;
        return profiles_.Items()
            .Restrict(records::key_filter(form_, property::account_id, id,
                                          with_name ? property_of(record_, property::account_name) : Text()))
            .GetFirst();
    });
    for (const HeaderRow& row : account_header) {
        steps_.run([&] { control(row.control).text(value_of(shown_, row)); });
    }
    steps_.set(company_, [&] { return property_of(shown_, property::account_name); });
    caption(u"Contactname", u"");
    caption(u"ContactID", u"");
}

// The results

void PanelSearch::list_items() {
    Item definition;
    Text key_name, id;
    steps_.set(definition, [&] {
        return system_.Items().Restrict(definition_filter(form_, doubled(definition_))).GetFirst();
    });
    steps_.set(key_name, [&] { return property_of(definition, property::key_column_name); });
    steps_.set(id, [&] { return property_of(record_, key_name); });
    steps_.run([&] { list().clear(); });

    Items found;
    steps_.set(found, [&] {
        return profiles_.Items().Restrict(
            records::key_filter(form_, property::account_location, id, company_));
    });
    std::int32_t count = 0;
    if (found && steps_.possibly([&] {
            count = found.Count();
            return count >= 1;
        })) {
        host::family::SafeMailItem safe_mail;
        std::optional<Text> folder;  // unknown for a pending item
        steps_.set(safe_mail, [&] { return records::make_safe_mail(session_.desktop); });
        steps_.set(folder, [&] { return std::optional(records::without_leading_blanks(target_.Name())); });
        for (std::int32_t i = 1; i <= count; ++i) {
            Item item;
            steps_.set(item, [&] { return found.Item(i); });
            if (!item) continue;
            steps_.run([&] { safe_mail.Item(item); });
            add_row(folder, item, safe_mail);
        }
    }
    host::outlook::Folders top;
    steps_.set(top, [&] { return Folder(profiles_.Parent()).Folders(); });
    SearchMeRecurse(records::key_filter(form_, key_name, id, company_), top);
}

void PanelSearch::end() {
    caption(u"EntryID", u"");
    caption(u"StoreID", u"");
    steps_.run([&] { session_.SearchForm.hide(); });
    panel_.picker.reset();
    // the next opening of the default panel makes another one; this one stays as long as it is open
    session_.gOutlookApp.reset();
    state_.search_panel.let_go();
    constexpr std::int32_t rising_mark = 1;
    steps_.run([&] {
        forms::ShowHeaderIcon(list(), column::folder, rising_mark, forms::header::image_on_right,
                              forms::header::with_image);
    });
}

}  // namespace addin::searchpanel
