#include "addin/ground/session.h"

#include <utility>

#include "addin/commands/explorer_tracking.h"
#include "addin/conversions/furnish.h"
#include "addin/createnote/dlg_send.h"
#include "addin/ground/status_windows.h"
#include "addin/quickview/quick_view.h"
#include "addin/searchpanel/show_items.h"
#include "addin/templates/template_commands.h"

namespace addin {

Session::Session(host::Desktop& platform, forms::Engine& form_engine)
    : desktop(platform), engine(form_engine), gExplorerList(std::make_unique<ExplorerTrackers>()) {
    SearchForm.made_by([this] { return std::make_shared<addin::SearchForm>(engine); });
    Tarnwell.made_by([this] { return std::make_shared<addin::Tarnwell>(*this); });
    TarnwellInfo.made_by([this] { return std::make_shared<addin::TarnwellInfo>(engine); });
    commands.at(static_cast<std::size_t>(Command::appointment_information)) = [this](Connect&) {
        TarnwellInfo.show();
    };
    createnote::furnish(*this);
    conversions::furnish(*this);
    searchpanel::furnish(*this);
    templates::furnish(*this);
    quickview::furnish(*this);
}

Session::~Session() {
    for (const auto& panel : std::exchange(loaded_panels, {})) panel->unload();
}

}  // namespace addin
