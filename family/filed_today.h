// The window that lists what was filed today.
#pragma once

#include "addin/host/outlook.h"
#include "family/context.h"
#include "forms/form.h"

namespace family {

/// Today's notes of the database, the newest first. A double click opens one.
class FiledToday final : public forms::Form {
  public:
    /// The context lives longer than the window.
    FiledToday(forms::Engine& engine, Context& context);

    /// Lists what there is now, and shows itself. Throws `Failure` with a sentence for a person if there is
    /// no database, or if the host does not find today's notes.
    void show_list();

  private:
    void on_click(automation::TextView control) override;
    void on_double_click(automation::TextView control) override;
    void act(void (FiledToday::*deed)());
    void fill();
    void open_selected();

    Context& context_;
};

/// Shows the window, the one that is there or a new one, with what there is now. It stays until somebody
/// closes it, or until the context closes its windows. Throws as `FiledToday::show_list` does.
void show_filed_today(Context& context);

}  // namespace family
