// Two small windows that carry almost no logic.
#pragma once

#include "addin/ground/session.h"

namespace addin::commands {

const forms::FormTable& tarnwell_table();
const forms::FormTable& tarnwell_info_table();

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

}  // namespace addin::commands
