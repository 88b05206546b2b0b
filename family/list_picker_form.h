// The picker's window: a list that is searched as one types, and what is taken from it.
#pragma once

#include <optional>

#include "family/picker_rows.h"
#include "forms/form.h"

namespace family {

/// How many rows the window lets one take. One that takes several has a second list, of those taken so far.
enum class Choice { one, several };

const forms::FormTable& list_picker_table(Choice choice);

class ListPickerForm final : public forms::Form {
  public:
    ListPickerForm(forms::Engine& engine, Choice choice);

    /// Replaces what is listed.
    void fill(PickerRows rows);

    /// Shows the window modally and unloads it. Answers the rows that were taken, none too; nothing if the
    /// user cancelled.
    std::optional<std::vector<PickerRow>> choose();

  private:
    void on_close() override { hide(); }
    void on_click(automation::TextView control) override;
    void on_double_click(automation::TextView control) override;
    void on_change(automation::TextView control) override;
    void on_column_click(automation::TextView control, int column) override;

    void take();
    void add();
    void remove();
    void show_matches();
    void show_added();
    forms::List& list();
    /// The highlighted row of a list; null if there is none.
    const PickerRow* highlighted(forms::List& list) const;

    Choice choice_;
    PickerRows rows_;
    std::vector<PickerRow> added_;
    std::optional<std::vector<PickerRow>> taken_;
    std::int32_t last_sort_column_ = -1;
};

}  // namespace family
