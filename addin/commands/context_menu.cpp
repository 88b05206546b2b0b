#include "addin/commands/context_menu.h"

#include "addin/commands/buttons.h"
#include "addin/commands/sticky_notes.h"
#include "addin/records/names.h"

namespace addin::commands {

using host::office::CommandBar;
using host::office::CommandBarControl;

namespace {

constexpr std::int32_t entry_priority = 1;
constexpr char16_t version_without_entries = u'9';

/// An entry's tag is its caption, too. `Visible` is written twice.
void write_entry(Steps& steps, const CommandBarControl& entry, automation::TextView tag) {
    steps.run([&] { entry.Tag(tag); });
    steps.run([&] { entry.Caption(tag); });
    steps.run([&] { entry.Priority(entry_priority); });
    steps.run([&] { entry.Visible(true); });
    steps.run([&] { entry.Visible(true); });
}

void AddContextEntries(Connect& connect, const CommandBar& bar) {
    Steps steps;
    Session& session = connect.session();
    if (steps.holds([&] {
            return host::outlook::Explorer(connect.goExplorer.source())
                       .CurrentFolder()
                       .DefaultMessageClass() != records::message_class::mail;
        })) {
        return;
    }
    if (steps.holds([&] {
            return host::outlook::Application(session.desktop.application())
                .Version()
                .starts_with(version_without_entries);
        })) {
        return;
    }
    steps.set(connect.Control, [&] { return bar.FindControl(host::office::control_button, quick_view_tag); });
    if (connect.Control) return;
    const auto add = [&] { return bar.Controls().Add(host::office::control_button); };

    SetBarProtection(session, bar, false);
    steps.set(connect.Control, add);
    write_entry(steps, connect.Control, quick_view_tag);
    SetBarProtection(session, bar, true);
    steps.run([&] { connect.watch_button(&Connect::ContextButton, connect.Control, ContextButton_Click); });

    steps.set(connect.Control, add);
    SetBarProtection(session, bar, false);
    write_entry(steps, connect.Control, create_note_tag);
    SetBarProtection(session, bar, true);
    steps.run(
        [&] { connect.watch_button(&Connect::CreateNoteButton, connect.Control, CreateNoteButton_Click); });
}

}  // namespace

void ActiveExplorerCBars_OnUpdate(Connect& connect) {
    if (connect.ContextButton.source()) return;
    Steps steps;
    steps.set(connect.bar, [&] {
        return host::office::CommandBars(connect.ActiveExplorerCBars.source()).Item(context_menu_bar);
    });
    if (connect.bar) AddContextEntries(connect, connect.bar);
}

void SetBarProtection(Session& session, const CommandBar& bar, bool restore) {
    constexpr std::int32_t protection_bit = host::office::bar_no_customize;
    Steps steps;
    if (!restore) {
        steps.set(session.wasProtected, [&] { return (bar.Protection() & protection_bit) != 0; });
        if (session.wasProtected) steps.run([&] { bar.Protection(bar.Protection() & ~protection_bit); });
    } else if (session.wasProtected) {
        steps.run([&] { bar.Protection(bar.Protection() & protection_bit); });
    }
}

void ContextButton_Click(Connect& connect) {
    Steps steps;
    Session& session = connect.session();
    host::outlook::Application application;
    steps.set(application, [&] { return host::outlook::Application(session.desktop.application()); });
    const std::shared_ptr<QuickViewWindow> quick_view = session.QuickView.window();
    automation::Text account_id;
    if (quick_view) steps.set(account_id, [&] { return quick_view->AccountID(); });
    close_sticky_notes(session, account_id);
    steps.run([&] {
        automation::Value selection(application.ActiveExplorer().Selection());
        if (session.ShowQuickView) session.ShowQuickView(connect, selection);
    });
}

void CreateNoteButton_Click(Connect& connect) { show_note_dialog(connect, true); }

}  // namespace addin::commands
