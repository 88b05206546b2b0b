#include "addin/commands/state.h"

#include "addin/commands/small_windows.h"

namespace addin::commands {

State::State(createnote::State& dialogs, quickview::State& quick_view, std::function<void()> stop_add_in)
    : session(dialogs.session),
      createnote(dialogs),
      quickview(quick_view),
      gExplorerList(dialogs.session, std::move(stop_add_in)) {
    Tarnwell.made_by([this] { return std::make_shared<commands::Tarnwell>(session); });
    TarnwellInfo.made_by([this] { return std::make_shared<commands::TarnwellInfo>(session.engine); });
}

}  // namespace addin::commands
