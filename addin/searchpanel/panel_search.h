// One search of the panel: the record is found and shown, then everything that bears its key is listed.
#pragma once

#include <array>
#include <optional>

#include "core/presence.h"
#include "searchpanel/panel_filters.h"
#include "searchpanel/show_items.h"

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
    void caption(Steps& steps, ControlName control, host::TextView text) const;

    void open_database();
    Next take_pending_item();
    Next let_choose();
    void take_record(const host::Array& rows);
    [[nodiscard]] host::Text chosen(host::Text createnote::Target::*part) const;
    void show_record();
    void show_contact(const host::Text& key);
    void show_account();
    void list_items();
    void end();

    /// Lists what matches a filter in each folder of a collection and below.
    void SearchMeRecurse(const host::Text& filter, const host::outlook::Folders& ofolders);
    /// `wrapper` is the one of the folder before, where none can be made.
    void list_folder(Steps& steps, const host::outlook::Items& found, const std::optional<host::Text>& name,
                     host::family::SafeMailItem& wrapper);
    /// One found item as a row; none without the name of its folder.
    void add_row(Steps& steps, const std::optional<host::Text>& folder, const host::outlook::Item& item,
                 const host::family::SafeMailItem& wrapper) const;
    /// The texts of a row; a cell that can't be read stays empty.
    using Cells = std::array<host::Text, column::key + 1>;
    void fill(Steps& steps, host::Text& cell, const std::function<host::Value()>& read) const;
    void tell_of_cancel();

    void ask_index();
    void add_index_row(Steps& steps, const std::function<host::Value(host::TextView)>& field) const;

    Presence here_;  ///< goes last
    ShowItems& panel_;
    Session& session_;

    Steps steps_;
    FilterForm form_ = FilterForm::like;
    host::family::MainAddIn main_add_in_;
    host::outlook::Folder profiles_, system_;
    host::outlook::Folder target_;  ///< where the user picked; none for a pending item
    host::Text definition_;         ///< the name of the list definition
    host::outlook::Item record_;    ///< what is searched for
    host::Text company_;            ///< the account's name that goes with the key
    host::outlook::Item shown_;     ///< the contact or account in the header
};

}  // namespace addin::searchpanel
