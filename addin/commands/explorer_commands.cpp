#include "addin/commands/explorer_commands.h"

#include "addin/ground/presence.h"
#include "addin/ground/settings.h"
#include "addin/quickview/launch.h"
#include "addin/quickview/quick_view.h"
#include "addin/records/names.h"

namespace addin::commands {

void goExplorer_SelectionChange(State& state, const Links& links) {
    Session& session = state.session;
    const Steps steps(session);
    const Presence here(session);
    // a selection changes all the time: with the option off, this is all that it costs
    if (Settings(session).option(setting::enable_quick_view) != option_on) return;
    host::outlook::Application application;
    steps.set(application, [&] { return host::outlook::Application(session.desktop.application()); });
    if (steps.possibly([&] {
            const automation::Text shown =
                host::outlook::Explorer(links.goExplorer.source()).CurrentFolder().Name();
            return shown != application.GetNamespace(u"MAPI")
                                .GetDefaultFolder(host::outlook::default_folder::inbox)
                                .Name();
        })) {
        return;
    }
    steps.run([&] { state.quickview.QuickView.hide(); });
    host::outlook::Selection selection;
    steps.set(selection, [&] { return application.ActiveExplorer().Selection(); });
    here.give_way();
    if (steps.possibly([&] { return selection.Count() != 1; })) return;
    if (steps.possibly([&] { return selection.Item(1).MessageClass() != records::message_class::mail; })) {
        return;
    }
    here.give_way();
    steps.run([&] {
        automation::Value selected(selection);
        quickview::launch(state.quickview, links.goExplorer, quickview::Launch::quick_view, selected);
    });
}

}  // namespace addin::commands
