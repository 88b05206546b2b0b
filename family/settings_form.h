// The window with every setting of the add-in.
#pragma once

#include <deque>
#include <vector>

#include "family/context.h"
#include "family/setting_rows.h"
#include "forms/form.h"

namespace family {

/// The window's table: switches to the left, texts to the right, a sentence below each.
class SettingsLayout {
  public:
    SettingsLayout();
    SettingsLayout(const SettingsLayout&) = delete;
    SettingsLayout& operator=(const SettingsLayout&) = delete;

    const forms::FormTable& table() const { return table_; }

    /// The name of the control that holds a setting: a check box of a switch, else a text box.
    static automation::Text control_name(const SettingRow& row);

  private:
    int add_switch(const SettingRow& row, int top);
    int add_text(const SettingRow& row, int top);
    int add_sentence(const SettingRow& row, int left, int top);
    void add(const forms::ControlRow& row) { rows_.push_back(row); }
    automation::TextView kept(automation::Text text) { return texts_.emplace_back(std::move(text)); }

    std::deque<automation::Text> texts_;  // its elements stay where they are
    std::vector<forms::ControlRow> rows_;
    forms::FormTable table_;
};

/// Shows what the settings are, and stores those that were changed when its user says so.
class SettingsForm final : public forms::Form {
  public:
    /// The context and the layout live longer than the window.
    SettingsForm(forms::Engine& engine, const SettingsLayout& layout, Context& context)
        : Form(engine, layout.table()), context_(context) {}

    /// Reads them anew, unless the window is there already, and shows it. Throws `Failure` with a sentence
    /// for a person if the add-in isn't loaded.
    void show_settings();

  private:
    void on_click(automation::TextView control) override;
    void fill(const automation::Object& add_in);
    void store();
    automation::Text shown(const SettingRow& row);

    Context& context_;
    std::vector<automation::Text> before_;  ///< what each control showed, in the order of the rows
};

/// Shows the window, the one that is there or a new one. It stays until somebody closes it, or until the
/// context closes its windows. Throws as `SettingsForm::show_settings` does.
void show_settings(Context& context);

}  // namespace family
