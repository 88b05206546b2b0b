// The status window of long operations, and two small windows that carry almost no logic.
#pragma once

#include "addin/ground/session.h"

namespace addin {

const forms::FormTable& search_form_table();
const forms::FormTable& tarnwell_table();
const forms::FormTable& tarnwell_info_table();

/// The sign of progress. It bears the hourglass as long as it is loaded.
class SearchForm : public forms::Form {
  public:
    explicit SearchForm(forms::Engine& engine) : Form(engine, search_form_table()) {}

    /// Sets the text of `Label1`; the window is loaded, but not shown, if it isn't there.
    void status(automation::TextView text) { control(label).text(text); }

    static constexpr automation::TextView label = u"Label1";

  private:
    void on_load() override { view().pointer(forms::Pointer::hourglass); }
    void on_unload() override { view().pointer(forms::Pointer::standard); }
};

/// Nothing of this program shows it; it is hidden and unloaded at each inspector's close.
class Tarnwell : public forms::Form {
  public:
    explicit Tarnwell(Session& session) : Form(session.engine, tarnwell_table()), session_(session) {}

    automation::Object Myitem;

  private:
    void on_click(automation::TextView control) override;
    void on_unload() override { Myitem.reset(); }

    Session& session_;
};

/// Shown by the inspectors' "Tarnwell" button. It has no logic, and nothing fills its list.
class TarnwellInfo : public forms::Form {
  public:
    explicit TarnwellInfo(forms::Engine& engine) : Form(engine, tarnwell_info_table()) {}
};

}  // namespace addin
