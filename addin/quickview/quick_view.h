// Quick View: the side window that shows one contact with its related items while the user reads mail.
#pragma once

#include "addin/ground/presence.h"
#include "addin/quickview/quick_view_table.h"
#include "addin/quickview/state.h"
#include "addin/records/stamp.h"

namespace addin::quickview {

/// The columns of `lstItems`, from 0.
namespace column {
inline constexpr int subject = 0, modified = 1, entry_id = 2;
}

/// A control of the window, by its name.
using ControlName = forms::ControlName<window::table>;

class QuickView final : public forms::Form {
  public:
    explicit QuickView(State& state)
        : Form(state.session.engine, quick_view_table()), session_(state.session), state_(state) {}

    forms::Control& control(ControlName name) { return Form::control(name); }
    /// The hidden caption; empty as long as no record is shown.
    automation::Text AccountID() { return control(u"AccountID").text(); }

    /// Compares the rows of two parameters by the dates in their second column. It answers 0, 1 and 2, never
    /// less: that is how the order comes about that users know. A text that is no date counts as the first
    /// of all days.
    int CompareDates(std::intptr_t lngParam1, std::intptr_t lngParam2);

  private:
    void on_load() override;
    void on_unload() override;
    void on_click(automation::TextView control) override;
    void on_double_click(automation::TextView control) override;
    void on_column_click(automation::TextView control, int column) override;
    void on_drop(automation::TextView control, int x, int y) override;

    void cmbFolders_Click();
    void cmdAdd_Click();
    void cmdSearchpanel_Click();
    void CompanyName_Click();
    void Contactname_Click();
    void lstItems_DblClick();
    void lstItems_OLEDragDrop(int x, int y);

    host::outlook::Items related_items(const Presence& here, const automation::Text& chosen);
    void add_row(const host::outlook::Item& item, bool by_name);

    host::outlook::Item make_record(const automation::Text& chosen, const automation::Text& key,
                                    const host::outlook::Folder& profiles,
                                    const host::family::SafeMailItem& mail);
    void write_shown_values(const host::outlook::Item& record);
    /// Files a mail by one of the paths; what the window doesn't show comes `of_record`.
    void file_mail(records::Path path, const host::outlook::Folder& profiles,
                   const host::family::SafeMailItem& mail, records::Source of_record);

    host::outlook::NameSpace name_space() const;

    forms::List& list() {
        return Form::control(forms::ControlName<window::table, forms::is_list>(u"lstItems")).list();
    }
    forms::Choice& choice(forms::ControlName<window::table, forms::is_choice> name) {
        return Form::control(name).choice();
    }
    /// What a label or box shows; empty if the window has gone meanwhile.
    automation::Text shown(ControlName name) { return loaded() ? control(name).text() : automation::Text(); }
    /// What the window shows of a record's property.
    automation::Text shown_value(records::Name property);
    void caption(automation::TextView text);

    Session& session_;
    State& state_;
};

}  // namespace addin::quickview
