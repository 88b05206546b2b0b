#include "addin/commands/context_menu.h"

#include "addin/commands/buttons.h"
#include "addin/ground/steps.h"
#include "addin/quickview/launch.h"
#include "addin/quickview/quick_view.h"
#include "addin/quickview/sticky_notes.h"
#include "addin/records/names.h"

namespace addin::commands {

using host::office::CommandBar;
using host::office::CommandBarControl;

namespace {

constexpr std::int32_t entry_priority = 1;
constexpr char16_t version_without_entries = u'9';

/// An entry's tag is its caption, too. `Visible` is written twice.
void write_entry(const Session& session, const CommandBarControl& entry, automation::TextView tag) {
    const Steps steps(session);
    steps.run([&] { entry.Tag(tag); });
    steps.run([&] { entry.Caption(tag); });
    steps.run([&] { entry.Priority(entry_priority); });
    steps.run([&] { entry.Visible(true); });
    steps.run([&] { entry.Visible(true); });
}

void AddContextEntries(State& state, Links& links, const CommandBar& bar) {
    const Steps steps(state.session);
    if (steps.possibly([&] {
            return host::outlook::Explorer(links.goExplorer.source()).CurrentFolder().DefaultMessageClass() !=
                   records::message_class::mail;
        })) {
        return;
    }
    if (steps.possibly([&] {
            return host::outlook::Application(state.session.desktop.application())
                .Version()
                .starts_with(version_without_entries);
        })) {
        return;
    }
    steps.set(links.Control, [&] { return bar.FindControl(host::office::control_button, quick_view_tag); });
    if (links.Control) return;
    const auto add = [&] { return bar.Controls().Add(host::office::control_button); };

    SetBarProtection(state, bar, false);
    steps.set(links.Control, add);
    write_entry(state.session, links.Control, quick_view_tag);
    SetBarProtection(state, bar, true);
    steps.run([&] { links.watch_button(&Links::ContextButton, links.Control, ContextButton_Click); });

    steps.set(links.Control, add);
    SetBarProtection(state, bar, false);
    write_entry(state.session, links.Control, create_note_tag);
    SetBarProtection(state, bar, true);
    steps.run([&] { links.watch_button(&Links::CreateNoteButton, links.Control, CreateNoteButton_Click); });
}

}  // namespace

void ActiveExplorerCBars_OnUpdate(State& state, Links& links) {
    if (links.ContextButton.source()) return;
    const Steps steps(state.session);
    steps.set(links.bar, [&] {
        return host::office::CommandBars(links.ActiveExplorerCBars.source()).Item(context_menu_bar);
    });
    if (links.bar) AddContextEntries(state, links, links.bar);
}

void SetBarProtection(State& state, const CommandBar& bar, bool restore) {
    constexpr std::int32_t protection_bit = host::office::bar_no_customize;
    const Steps steps(state.session);
    if (!restore) {
        steps.set(state.wasProtected, [&] { return (bar.Protection() & protection_bit) != 0; });
        if (state.wasProtected) steps.run([&] { bar.Protection(bar.Protection() & ~protection_bit); });
    } else if (state.wasProtected) {
        steps.run([&] { bar.Protection(bar.Protection() & protection_bit); });
    }
}

void ContextButton_Click(State& state, Links& links) {
    const Steps steps(state.session);
    Session& session = state.session;
    host::outlook::Application application;
    steps.set(application, [&] { return host::outlook::Application(session.desktop.application()); });
    const std::shared_ptr<quickview::QuickView> quick_view = state.quickview.QuickView.window();
    automation::Text account_id;
    if (quick_view) steps.set(account_id, [&] { return quick_view->AccountID(); });
    quickview::close_sticky_notes(session, account_id);
    steps.run([&] {
        automation::Value selection(application.ActiveExplorer().Selection());
        quickview::launch(state.quickview, links.goExplorer, quickview::Launch::quick_view, selection);
    });
}

void CreateNoteButton_Click(State& state, Links&) { show_note_dialog(state.createnote, true); }

}  // namespace addin::commands
