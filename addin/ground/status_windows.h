// The status window of long operations.
#pragma once

#include "addin/ground/session.h"

namespace addin {

const forms::FormTable& search_form_table();

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

}  // namespace addin
