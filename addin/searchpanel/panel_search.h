// One search of the panel: the record is found and shown, then everything that bears its key is listed.
#pragma once

#include <array>
#include <optional>

#include "addin/ground/presence.h"
#include "addin/searchpanel/panel_filters.h"
#include "addin/searchpanel/show_items.h"

namespace addin::searchpanel {

/// It gives way to events at each folder, so its window and its session may end while it runs, and another
/// search may run inside of it in the same list. It ends when its window has gone, even if that is loaded
/// anew meanwhile.
class PanelSearch {
  public:
    explicit PanelSearch(ShowItems& panel);

    /// False: the window or the whole session has ended meanwhile.
    bool run();

  private:
    /// How the search goes on when it is known what is searched for.
    enum class Next { list_items, ask_index, end };

    [[nodiscard]] bool gone() const { return !here_.lasts(); }
    /// A control of the window that the search began in. Throws `Failure` when that has gone.
    forms::Control& control(ControlName name) const;
    forms::List& list() const { return control(u"lstItems").list(); }
    void caption(ControlName control, automation::TextView text) const;

    void open_database();
    Next take_pending_item();
    Next let_choose();
    void take_record(const automation::Array& rows);
    [[nodiscard]] automation::Text chosen(automation::Text createnote::SearchTarget::*part) const;
    void show_record();
    void show_contact(const automation::Text& key);
    void show_account();
    void list_items();
    void end();

    /// Lists what matches a filter in each folder of a collection and below.
    void SearchMeRecurse(const automation::Text& filter, const host::outlook::Folders& ofolders);
    /// `safe_mail` is the one of the folder before, where none can be made.
    void list_folder(const host::outlook::Items& found, const std::optional<automation::Text>& name,
                     host::family::SafeMailItem& safe_mail);
    /// One found item as a row; none without the name of its folder.
    void add_row(const std::optional<automation::Text>& folder, const host::outlook::Item& item,
                 const host::family::SafeMailItem& safe_mail) const;
    /// The texts of a row; a cell that can't be read stays empty.
    using Cells = std::array<automation::Text, column::key + 1>;
    void fill(automation::Text& cell, const std::function<automation::Value()>& read) const;
    void tell_of_cancel();

    void ask_index();
    void add_index_row(const std::function<automation::Value(automation::TextView)>& field) const;

    Presence here_;  ///< goes last
    ShowItems& panel_;
    Session& session_;
    State& state_;

    Steps steps_{session_};
    bool failed_ = false;                ///< a step of `choosing_` has: what was chosen isn't to be relied on
    Steps choosing_{session_, failed_};  ///< up to the choice
    FilterForm form_ = FilterForm::like;
    host::family::MainAddIn main_add_in_;
    host::outlook::Folder profiles_, system_;
    host::outlook::Folder target_;  ///< where the user picked; none for a pending item
    automation::Text definition_;   ///< the name of the list definition
    host::outlook::Item record_;    ///< what is searched for
    automation::Text company_;      ///< the account's name that goes with the key
    host::outlook::Item shown_;     ///< the contact or account in the header
};

}  // namespace addin::searchpanel
