// The window that lists the templates of one kind.
#pragma once

#include "family/surroundings.h"
#include "forms/form.h"

namespace family {

/// A template is a drop-down record of the database; a double click opens it.
class TemplateList final : public forms::Form {
  public:
    /// The surroundings live longer than the window.
    TemplateList(forms::Engine& engine, Surroundings& surroundings, automation::Text kind);

    /// Lists the records of the kind as they are now, none where the database can't be read, and shows
    /// itself.
    void show_with_title(automation::TextView title);

  private:
    void on_click(automation::TextView control) override;
    void on_double_click(automation::TextView control) override;
    void fill();
    void open_selected();

    Surroundings& surroundings_;
    automation::Text kind_;
};

/// Shows the window of the templates of a kind, the one that is there, or a new one. It stays until somebody
/// closes it, or until the surroundings close their windows.
void show_templates(Surroundings& surroundings, automation::TextView title, automation::TextView kind);

}  // namespace family
