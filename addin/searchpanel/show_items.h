// The Search Panel: an account or contact with everything that is filed under it.
#pragma once

#include <vector>

#include "addin/createnote/search_targets.h"
#include "addin/host/family.h"
#include "addin/searchpanel/panel_table.h"
#include "addin/searchpanel/state.h"

namespace addin::searchpanel {

/// The columns of `lstItems`, from 0.
namespace column {
inline constexpr int folder = 0, subject = 1, creator = 2, created = 3, modified = 4;
inline constexpr int key = 5;  ///< an entry id, or where the index found it
inline constexpr int last = 6;
}  // namespace column

/// A control of the panel, by its name.
using ControlName = forms::ControlName<panel::table>;

class ShowItems final : public forms::Form {
  public:
    explicit ShowItems(State& state)
        : Form(state.session.engine, panel_table()), session_(state.session), state_(state) {}

    bool CancelLoop = false;  ///< the last key was Escape; a search begins without
    std::vector<createnote::SearchTarget>
        gForms2;                       ///< the targets, by their places in `SearchMe`; none: no table
    host::family::MainAddIn sobj;      ///< held as long as the window is loaded
    host::outlook::Folder Hostfolder;  ///< "Account Profiles", the same
    automation::Text MySavedEntryID;   ///< the item that was pending at the last load or activation
    host::family::ListPicker picker;   ///< while a search holds one

    void LoadPanelDefinitions();
    void ArrangeList();

    Session& session() { return session_; }
    State& state() { return state_; }
    forms::Control& control(ControlName name) { return Form::control(name); }
    forms::List& list() {
        return Form::control(forms::ControlName<panel::table, forms::is_list>(u"lstItems")).list();
    }
    forms::Choice& choice(forms::ControlName<panel::table, forms::is_choice> name) {
        return Form::control(name).choice();
    }

  private:
    void on_load() override;
    void on_unload() override;
    void on_close() override;
    void on_activate() override;
    void on_resize() override;
    void on_character(char16_t character) override;
    void on_click(automation::TextView control) override;
    void on_double_click(automation::TextView control) override;
    void on_column_click(automation::TextView control, int column) override;

    /// Searches for the pending item, or for one that the user picks. False: the window or the whole session
    /// has ended meanwhile.
    bool search();
    void OpenCompany();
    void OpenContact();

    Session& session_;
    State& state_;
};

/// Opens what the selected row stands for.
void open_result(ShowItems& panel);

}  // namespace addin::searchpanel
