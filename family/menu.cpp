#include "family/menu.h"

#include "addin/host/host_events.h"
#include "addin/host/office.h"
#include "family/context.h"
#include "family/filed_today.h"
#include "family/note_add_in.h"
#include "family/settings_form.h"

namespace family {

using automation::Failure;
using automation::TextView;
using automation::Value;
using host::office::CommandBarControl;
using host::office::CommandBarControls;
using host::outlook::Explorer;
namespace events = host::events;

namespace {

constexpr TextView title = u"&Tarnwell", tag = u"TarnwellMenu";
constexpr std::int32_t control_popup = 10;  // MsoControlType

/// What an entry works with: the window whose menu it is in.
struct Chosen {
    Context& context;
    const Explorer& explorer;
};

void open_panel_on(const Chosen& chosen, const host::outlook::Item& item) {
    note_add_in(chosen.context).call(u"ShowItemsMenu", {Value(item)});
}

void open_panel(const Chosen& chosen) { open_panel_on(chosen, {}); }

void open_panel_on_selected(const Chosen& chosen) {
    const host::outlook::Selection selection = chosen.explorer.Selection();
    if (selection.Count() != 1) {
        throw Failure(automation::result::not_found,
                      u"Select one item of the list first: the Search Panel opens on it.");
    }
    open_panel_on(chosen, selection.Item(1));
}

void open_settings(const Chosen& chosen) { show_settings(chosen.context); }

void open_filed_today(const Chosen& chosen) { show_filed_today(chosen.context); }

void check_set_up(const Chosen& chosen) { chosen.context.start_check(); }

struct EntryRow {
    TextView caption;
    void (*run)(const Chosen& chosen);
};
constexpr std::array<EntryRow, Menu::entry_count> rows = {{
    {u"Search &Panel", open_panel},
    {u"Search Panel on the &Selected Item", open_panel_on_selected},
    {u"What Was &Filed Today", open_filed_today},
    {u"Se&ttings...", open_settings},
    {u"&Check This Set-up", check_set_up},
}};

/// Whatever fails is told to the person who has chosen the entry.
void run(const EntryRow& row, const Chosen& chosen) {
    try {
        row.run(chosen);
    } catch (const Failure& failure) {
        chosen.context.tell(failure.description());
    }
}

}  // namespace

void Menu::put_up() {
    if (is_up()) return;
    const host::outlook::Application application(context_.application());
    application_.connect(events::application, application,
                         {{u"Quit", [this](std::span<Value>) {
                               Context& context = context_;  // what is captured ends with the connection
                               let_go();
                               context.close_windows();
                           }}});
    const host::outlook::Explorers explorers = application.Explorers();
    explorers_.connect(events::explorers, explorers, {{u"NewExplorer", [this](std::span<Value> arguments) {
                                                           add_to(Explorer(arguments[0].to_object()));
                                                       }}});
    for (std::int32_t i = 1; i <= explorers.Count(); ++i) add_to(explorers.Item(i));
}

void Menu::let_go() {
    windows_.clear();
    explorers_.clear();
    application_.clear();
}

void Menu::add_to(const Explorer& explorer) {
    const auto shown = std::make_shared<InWindow>();
    const CommandBarControls bar(
        explorer.CommandBars().get(u"ActiveMenuBar").to_object().get(u"Controls").to_object());
    const CommandBarControl popup = bar.AddTemporary(control_popup);
    popup.Caption(title);
    popup.Tag(tag);
    const CommandBarControls entries(popup.get(u"Controls").to_object());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const EntryRow& row = rows.at(i);
        const CommandBarControl entry = entries.AddTemporary(host::office::control_button);
        entry.Caption(row.caption);
        shown->entries.at(i).connect(events::button, entry,
                                     {{u"Click", [&row, &context = context_, explorer](std::span<Value>) {
                                           run(row, {context, explorer});
                                       }}});
    }
    shown->window.connect(events::explorer, explorer,
                          {{u"Close", [this, closed = shown.get()](std::span<Value>) { forget(closed); }}});
    windows_.push_back(shown);
}

void Menu::forget(const InWindow* closed) {
    std::erase_if(windows_, [&](const auto& each) { return each.get() == closed; });
}

}  // namespace family
