#include "addin/searchpanel/show_items.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "addin/records/database.h"
#include "addin/records/names.h"
#include "addin/records/property_filters.h"
#include "addin/searchpanel/panel_search.h"
#include "forms/sort_marks.h"

namespace addin::searchpanel {

using automation::Text;
using automation::TextView;
using host::outlook::Folder;
using host::outlook::Item;

namespace {

constexpr char16_t escape_key = 27;
constexpr std::uint32_t full_row_select = 0x20;  // LVS_EX_FULLROWSELECT
constexpr std::uint32_t all_bits = 0xFFFFFFFF;

/// How the list fills the window, in twips.
constexpr int smallest_window = 3000, list_top = 1700, beside_list = 170, around_list = 2300;
constexpr double shares = 7, share_loss = 40, parts_of_share = 5, subject_parts = 5.1;

int rounded(double twips) { return static_cast<int>(std::lround(twips)); }

}  // namespace

// Load, activation and end

void ShowItems::on_load() {
    state_.loaded_panels.push_back(shared_from_this());
    const Steps steps(session_);
    steps.run([&] { ArrangeList(); });
    const records::Database database = records::open_database(session_);
    sobj = database.main_add_in;
    Hostfolder = database.account_profiles;
    steps.run([&] { LoadPanelDefinitions(); });
    if (!state_.gSelectedEntryID.empty()) {
        MySavedEntryID = state_.gSelectedEntryID;
        if (!search()) return;
    }
    steps.run([&] { list().extended_style(full_row_select, all_bits); });
}

void ShowItems::on_unload() {
    hide();
    sobj.reset();
    Hostfolder.reset();
    picker.reset();
    gForms2.clear();
    std::erase(state_.loaded_panels, shared_from_this());
}

void ShowItems::on_close() {
    hide();
    unload();
}

void ShowItems::on_activate() {
    const Text& pending = state_.gSelectedEntryID;
    if (!pending.empty() && !MySavedEntryID.empty() && pending != MySavedEntryID && !search()) return;
    MySavedEntryID = state_.gSelectedEntryID;
}

void ShowItems::LoadPanelDefinitions() {
    const Text folder = sobj.getspecialfolderlocation();
    forms::Choice& entries = choice(u"SearchMe");
    gForms2 = createnote::read_targets(session_.desktop, folder, createnote::in_search_panel,
                                       [&](std::size_t place, const Text& name) {
                                           if (static_cast<int>(place) == entries.count()) entries.add(name);
                                       });
}

// The list

void ShowItems::ArrangeList() {
    if (view().minimized()) return;
    const forms::Size size = view().size();
    if (size.width < smallest_window || size.height < smallest_window) return;
    const double share = size.width / shares - share_loss;
    control(u"lstItems").place({0, list_top, size.width - beside_list, size.height - around_list});
    const int usual = rounded(share + share / parts_of_share);
    for (const int shown : {column::folder, column::creator, column::created, column::modified}) {
        list().width(shown, usual);
    }
    list().width(column::subject, rounded(share + subject_parts * (share / parts_of_share)));
    for (const int hidden : {column::key, column::last}) list().width(hidden, 0);
}

void ShowItems::on_resize() {
    if (loaded()) ArrangeList();
}

void ShowItems::on_column_click(TextView, int column) {
    forms::sort_by_column(list(), column, state_.LastSortColumn);
}

// Keys and clicks

void ShowItems::on_character(char16_t character) { CancelLoop = character == escape_key; }

void ShowItems::on_click(TextView name) {
    if (ControlName(u"SearchMe") == name) search();
    if (ControlName(u"CompanyName") == name) OpenCompany();
    if (ControlName(u"Contactname") == name) OpenContact();
}

void ShowItems::on_double_click(TextView) { open_result(*this); }

bool ShowItems::search() { return PanelSearch(*this).run(); }

void ShowItems::OpenCompany() {
    const Steps steps(session_);
    const Folder profiles = records::open_database(session_).account_profiles;
    host::outlook::Items found;
    steps.set(found, [&] {
        return profiles.Items().Restrict(
            records::equality(records::property::account_id, control(u"AccountID").text()));
    });
    steps.run([&] { found.Item(1).Display(); });
}

void ShowItems::OpenContact() {
    const Steps steps(session_);
    const Folder profiles = records::open_database(session_).account_profiles;
    Item found;
    steps.set(found, [&] {
        return profiles.Folders()
            .Item(records::folder::account_contacts)
            .Items()
            .Find(records::equality(records::property::contact_id, control(u"ContactID").text()));
    });
    steps.run([&] { found.Display(); });
}

}  // namespace addin::searchpanel
