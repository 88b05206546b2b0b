// The Create Note dialog: a mail is filed as a note against one of its own people, or a record found by a
// search.
#pragma once

#include "addin/createnote/dialog_table.h"
#include "addin/createnote/state.h"
#include "addin/ground/presence.h"
#include "addin/host/family.h"
#include "addin/host/outlook.h"
#include "addin/records/stamp.h"

namespace addin::createnote {

/// The first of the targets that can be searched for.
inline constexpr automation::TextView search_by_email = u"Search by Email";

/// The columns of `lstRecipients`, from 0.
namespace column {
inline constexpr int text = 0, third = 2, key = 6, entry_id = 7;
}

/// A control of the dialog, by its name.
using ControlName = forms::ControlName<dialog::table>;

class dlgSend final : public forms::Form {
  public:
    explicit dlgSend(State& state)
        : Form(state.session.engine, dialog_table()), session_(state.session), state_(state) {}

    bool gbSend = false;     ///< nothing here reads it
    bool gbCreated = false;  ///< the outcome of the last creation

    void PopulateList();

    /// Make the note of the selected row: of an address, or of a record that a search has found. They ignore
    /// failures; `gbCreated` tells of success.
    void CreateNote();
    void CreateNoteEx();

    // without being shown
    void OpenContact();
    void OpenTarnwellContact();

    void LoadFindDefinitions();
    void GetListDef();

    Session& session() { return session_; }
    forms::Control& control(ControlName name) { return Form::control(name); }
    forms::List& list() {
        return Form::control(forms::ControlName<dialog::table, forms::is_list>(u"lstRecipients")).list();
    }
    forms::Choice& choice(forms::ControlName<dialog::table, forms::is_choice> name) {
        return Form::control(name).choice();
    }
    automation::Text row_text() { return list().text(list().selected(), column::text); }
    bool contact_level() { return control(u"Option2").selected(); }
    void header(const automation::Text& text) { control(u"lblHeader").text(text); }

    /// The mail in the inspector, or the first one of the selection, as the dialog was opened.
    records::MailToFile choose_mail();

  private:
    void on_load() override;
    void on_activate() override;
    void on_focus() override;
    void on_click(automation::TextView control) override;
    void on_double_click(automation::TextView control) override;
    void on_key_press(automation::TextView control, char16_t key) override;
    void on_column_click(automation::TextView control, int column) override;

    void load();
    void cmdSend_Click();
    void lstRecipients_DblClick();
    void cmdCancel_Click();
    void Option1_Click();
    void Option2_Click();
    void Combo2_Click();
    void show_headings(const host::outlook::Item& definition);
    void cmdSearch_Click();
    /// Whether the user has closed the window while the search gave way; the pointer is the usual one then.
    bool has_ended(const Presence& here);
    void SearchListTarget(const host::outlook::Folder& folder);
    /// One found item as a row. `key` keeps the key of the item before where this one's can't be read.
    void add_row(const Presence& here, const host::family::SafeRecordItem& safe_record,
                 const host::outlook::Items& items, std::int32_t place, automation::Text& key);
    void create();
    void report_creation(const Presence& here);
    void create_for_new_contact(const Presence& here, const records::MailToFile& mail,
                                const host::family::MainAddIn& main_add_in,
                                const host::outlook::Folder& profiles, const host::outlook::Folder& folder,
                                const automation::Text& name);
    void create_from_record(const records::PathRow& path, const host::outlook::Folder& folder,
                            const host::outlook::Folder& profiles, const records::MailToFile& mail);
    bool is_row_empty();
    automation::Text key_of_row();

    Session& session_;
    State& state_;
};

}  // namespace addin::createnote
