// Start and stop of the add-in: the order of the steps is binding, and a failing one is skipped.
#include <utility>

#include "addin/commands/context_menu.h"
#include "addin/commands/explorer_commands.h"
#include "addin/commands/inspector_commands.h"
#include "addin/connect/connect.h"
#include "addin/conversions/new_contacts.h"
#include "addin/filing/received_mail.h"
#include "addin/filing/sent_mail.h"
#include "addin/ground/presence.h"
#include "addin/ground/settings.h"
#include "addin/ground/status.h"
#include "addin/ground/status_windows.h"
#include "addin/ground/steps.h"
#include "addin/host/host_events.h"
#include "addin/host/shell.h"
#include "addin/quickview/quick_view.h"
#include "addin/records/database.h"
#include "addin/records/names.h"
#include "addin/replicas/replicas.h"
#include "addin/searchpanel/panels.h"

namespace addin {

using automation::Handler;
using automation::Object;
using automation::Text;
using automation::TextView;
using automation::Value;
using host::office::CommandBarControl;
using host::office::CommandBars;
namespace default_folder = host::outlook::default_folder;
namespace events = host::events;

namespace {

constexpr TextView checking_names = u"Checking names...  ";
constexpr TextView first_run_marker = u"\\initial.txt";
constexpr TextView store_program = u"TWstore.exe /s";
constexpr TextView utility_program = u"TarnwellUtility.exe Help";
constexpr TextView update_program = u"TarnwellUpdate.exe Help";

/// The object that an event is about.
Object object_of(std::span<Value> arguments) {
    return arguments.empty() ? Object() : arguments[0].to_object();
}

host::outlook::Item item_of(std::span<Value> arguments) { return host::outlook::Item(object_of(arguments)); }

/// Files a mail while it is sent, if that is wanted.
void file_sent_mail(Session& session, const Presence& here, const host::outlook::Item& item) {
    const Steps steps(session);
    if (steps.certainly(Reason::sent_filing_off, [&] {
            return Settings(session).option(setting::auto_file_sent_emails) != option_on;
        })) {
        return;
    }
    steps.run([&] { session.SearchForm.show(); });
    steps.run([&] { session.SearchForm.window()->status(checking_names); });
    here.give_way();
    // a mail that was never saved has no id, and the later steps need one
    if (steps.possibly([&] { return item.EntryID().empty(); })) steps.run([&] { item.Save(); });
    filing::AutomaticCreateNoteSend(session, item);
}

void delete_control(const automation::Sink& button) { CommandBarControl(button.source()).Delete(); }

}  // namespace

void Connect::IDTExtensibility2_OnConnection(const Object& Application, std::int32_t,
                                             const Object& AddInInst) {
    const Entry entry(session().step_observer, "OnConnection");
    Text prog_id;
    try {
        prog_id = host::office::ComAddIn(AddInInst).ProgId();
    } catch (const automation::Failure&) {
        return;
    }
    if (!Application) return;  // no host is nothing to start in
    StartAddIn(Application, prog_id);
}

void Connect::IDTExtensibility2_OnDisconnection(std::int32_t) {
    const Entry entry(session().step_observer, "OnDisconnection");
    StopAddIn();
}

void Connect::IDTExtensibility2_OnAddInsUpdate() {}

void Connect::IDTExtensibility2_OnStartupComplete() {}

void Connect::watch(automation::Sink& sink, const automation::EventInterface& interface, const Object& source,
                    std::vector<Handler> handlers) {
    for (Handler& handler : handlers) {
        // a handler may give way, and the host let go of the add-in meanwhile
        handler.run = [this, run = std::move(handler.run)](std::span<automation::Value> arguments) {
            const std::shared_ptr<Connect> alive = shared_from_this();
            run(arguments);
        };
    }
    sink.connect(interface, source, std::move(handlers));
}

void Connect::watch_application(const Object& application) {
    watch(goOutlook, events::application, application,
          {{u"ItemSend", [this](auto a) { goOutlook_ItemSend(item_of(a)); }},
           {u"Quit", [this](auto) { goOutlook_Quit(); }}});
}

void Connect::watch_inspector(const Object& inspector) {
    watch(goInspector, events::inspector, inspector,
          {{u"Activate", [this](auto) { commands::goInspector_Activate(rooms_.commands, *this); }},
           {u"Close", [this](auto) { commands::goInspector_Close(rooms_.commands, *this); }}});
}

void Connect::watch_button(automation::Sink commands::Links::*member, const Object& control,
                           commands::Click click) {
    if (!control) {
        (this->*member).clear();
        return;
    }
    watch(this->*member, events::button, control,
          {{u"Click", [this, click](auto) { click(rooms_.commands, *this); }}});
}

void Connect::wire_folder(automation::Sink& sink, std::int32_t number, std::vector<Handler> handlers) {
    const host::outlook::Application application(session().desktop.application());
    watch(sink, events::items, application.GetNamespace(u"Mapi").GetDefaultFolder(number).Items(),
          std::move(handlers));
}

std::vector<Handler> Connect::replica_handlers(const replicas::ReplicaRow& row) {
    return {
        {u"ItemAdd", [this, &row](auto a) { replicas::ItemAdd(rooms_.replicas, *this, row, item_of(a)); }},
        {u"ItemChange", [this, &row](auto a) {
             replicas::ItemChange(rooms_.replicas, *this, row, item_of(a),
                                  [this](const Object& inspector) { watch_inspector(inspector); });
         }}};
}

void Connect::StartAddIn(const Object& Application, TextView ProgId) {
    Session& session = this->session();
    const Steps steps(session);
    rooms_.createnote.gNoteFromExplorer = false;
    GlobalCalendar = false;
    steps.run([&] {
        host::outlook::Application(Application)
            .COMAddIns()
            .Item(connect_prog_id)
            .object(Object(shared_from_this()));
    });
    host::outlook::Application application;
    steps.set(application, [&] { return host::outlook::Application(session.desktop.application()); });
    steps.run([&] {
        watch(ActiveExplorerCBars, events::command_bars, application.ActiveExplorer().CommandBars(),
              {{u"OnUpdate",
                [this](auto) { commands::ActiveExplorerCBars_OnUpdate(rooms_.commands, *this); }}});
    });
    steps.run([&] { watch_application(application); });
    session.gOutlookApp = host::outlook::Application(goOutlook.source());
    steps.run([&] {
        watch(goInspectors, events::inspectors, application.Inspectors(),
              {{u"NewInspector", [this](auto a) {
                    commands::goInspectors_NewInspector(rooms_.commands, *this, *this,
                                                        host::outlook::Inspector(object_of(a)));
                }}});
    });
    steps.run([&] {
        watch(goExplorers, events::explorers, application.Explorers(),
              {{u"NewExplorer",
                [this](auto a) { goExplorers_NewExplorer(host::outlook::Explorer(object_of(a))); }}});
    });
    steps.run([&] {
        watch(goExplorer, events::explorer, application.ActiveExplorer(),
              {{u"Close", [this](auto) { goExplorer_Close(); }}, {u"SelectionChange", [this](auto) {
                                                                      commands::goExplorer_SelectionChange(
                                                                          rooms_.commands, *this);
                                                                  }}});
    });
    steps.run([&] {
        wire_folder(
            goInbox, default_folder::inbox,
            {{u"ItemAdd", [&session](auto a) { filing::goInbox_ItemAdd(session, item_of(a)); }},
             {u"ItemChange", [&session](auto a) { filing::goInbox_ItemChange(session, item_of(a)); }}});
    });
    steps.run([&] {
        std::vector<Handler> handlers = replica_handlers(replicas::calendar);
        handlers.push_back({u"ItemRemove", [](auto) { replicas::goCalendar_ItemRemove(); }});
        wire_folder(goCalendar, default_folder::calendar, std::move(handlers));
    });
    steps.run([&] { wire_folder(goTask, default_folder::tasks, replica_handlers(replicas::tasks)); });

    host::family::MainAddIn main_add_in;
    host::outlook::Folder folder;
    Text user;  // asked for, though the value serves nothing here
    steps.set(main_add_in, [&] { return records::make_main_add_in(session.desktop); });
    steps.set(folder, [&] {
        return records::open_folder(session.desktop, main_add_in, records::folder::account_profiles);
    });
    steps.set(user, [&] { return main_add_in.getcurrentusername(); });
    steps.run([&] {
        watch(goContacts, events::items, folder.Folders().Item(records::folder::account_contacts).Items(),
              {{u"ItemAdd", [&session](auto a) { conversions::goContacts_ItemAdd(session, item_of(a)); }}});
    });
    if (steps.possibly([&] { return Settings(session).option(setting::enable_power_panel) == option_on; })) {
        steps.run([&] { rooms_.searchpanel.search_panel.show(); });
    }
    Text store_id;
    steps.set(store_id, [&] { return main_add_in.GetStoreId(); });
    if (store_id.empty()) first_run(main_add_in);
    session.gProgId = ProgId;
}

void Connect::first_run(const host::family::MainAddIn& main_add_in) {
    const Steps steps(session());
    host::Desktop& desktop = session().desktop;
    Text marker;
    steps.set(marker, [&] { return desktop.own_folder() + Text(first_run_marker); });
    if (steps.possibly([&] { return FileExists(desktop, marker); })) {
        steps.run([&] { desktop.delete_file(marker); });
        return;  // the marker stands for one start without the programs
    }

    bool failed = false;
    const Steps counted(session(), failed);
    host::WshShell shell;
    counted.set(shell, [&] { return host::WshShell(desktop.create(host::WshShell::prog_id)); });
    counted.run([&] { shell.CurrentDirectory(main_add_in.getspecialfolderlocation()); });
    counted.run([&] { shell.Run(store_program, host::WshShell::normal_window, true); });
    counted.run([&] { shell.CurrentDirectory(main_add_in.GetDLLPath()); });
    counted.run([&] { shell.Run(utility_program); });
    if (failed) steps.run([&] { shell.Run(update_program); });
}

void Connect::goExplorer_Close() {
    const Steps steps(session());
    steps.set(bar,
              [&] { return CommandBars(ActiveExplorerCBars.source()).Item(commands::context_menu_bar); });
    steps.run([&] { commands::SetBarProtection(rooms_.commands, bar, false); });
    steps.set(Control,
              [&] { return bar.FindControl(host::office::control_button, commands::quick_view_tag); });
    // on the Outlook 2000 host the close of the last window ends the work by itself; what is counted is the
    // inspectors
    constexpr std::int32_t several = 2;
    if (steps.possibly([&] {
            // elsewhere nothing is counted: a tracker's end may have let go of the session's application
            return host::outlook::Application(session().desktop.application()).Version().starts_with(u'9') &&
                   session().gOutlookApp.Inspectors().Count() < several;
        })) {
        steps.run([&] { StopAddIn(); });
        gExiting = true;
    }
}

void Connect::goOutlook_ItemSend(const host::outlook::Item& item) {
    const Steps steps(session());
    if (steps.possibly(Reason::other_class,
                       [&] { return item.MessageClass() != records::message_class::mail; })) {
        return;
    }
    const Presence here(session());
    file_sent_mail(session(), here, item);
    commands::goInspector_Close(rooms_.commands, *this);  // sending ends the window's use
}

void Connect::goOutlook_Quit() {
    const Steps steps(session());
    steps.run([&] { rooms_.searchpanel.search_panel.hide(); });
    steps.run([&] { rooms_.searchpanel.search_panel.unload(); });
    steps.run([&] { StopAddIn(); });
}

void Connect::IDTExtensibility2_OnBeginShutdown() {
    const Entry entry(session().step_observer, "OnBeginShutdown");
    const Steps steps(session());
    steps.run([&] { delete_control(goButton); });
    steps.run([&] { delete_control(OpenButton); });
    // the sinks don't wait for the host's later calls
    goExplorers.clear();
    goExplorer.clear();
    goInspectors.clear();
    goInspector.clear();
    goNameSpace.reset();
    goOutlook.clear();
    session().gOutlookApp.reset();
    bar.reset();
    ActiveExplorerCBars.clear();
    for (automation::Sink* sink : {&goExplorers, &goExplorer, &goInspectors, &goInspector, &goButton,
                                   &OpenButton, &goInbox, &goCalendar, &goContacts, &goOutlook}) {
        sink->clear();
    }
    session().gOutlookApp.reset();
    StopAddIn();
}

void Connect::StopAddIn() {
    if (gExiting) return;
    const std::shared_ptr<Connect> alive = shared_from_this();
    const Steps steps(session());
    steps.run([&] { rooms_.quickview.QuickView.unload(); });
    searchpanel::close_panels(rooms_.searchpanel);
    steps.run([&] { delete_control(goButton); });
    steps.set(bar,
              [&] { return CommandBars(ActiveExplorerCBars.source()).Item(commands::context_menu_bar); });
    steps.run([&] { bar.Delete(); });  // the host refuses this for its own bar
    steps.run([&] { Control.Priority(0); });
    steps.run([&] { delete_control(ContextButton); });
    steps.run([&] { CommandBarControl(ContextButton.source()).Reset(); });
    steps.run([&] { delete_control(OpenButton); });
    ContextButton.clear();
    Control.reset();
    bar.reset();
    ActiveExplorerCBars.clear();
    goExplorers.clear();
    goExplorer.clear();
    goInspectors.clear();
    goInspector.clear();
    goNameSpace.reset();
    goButton.clear();
    OpenButton.clear();
    goInbox.clear();
    goCalendar.clear();
    goTask.clear();
    goContacts.clear();
    goOutlook.clear();
    session().gOutlookApp.reset();
    EmailTemplateButton.clear();
    SaveAsTemplateButton.clear();
    ConvertContactButton.clear();
    ConvertLeadButton.clear();
    ExcelTemplateButton.clear();
    DocumentTemplateButton.clear();
    OpenContactButton.clear();
    ApptButton1.clear();
    ApptButton2.clear();
    ApptButton3.clear();
}

void Connect::FindFolder() {
    addin::FindFolder(session(), search, [this] { take_application(); });
}

void Connect::FindNextFolder(const host::outlook::Folders& ofolders) {
    addin::FindNextFolder(session(), search, ofolders, [this] { take_application(); });
}

void Connect::take_application() {
    if (goOutlook.source()) return;
    watch_application(session().desktop.application());
}

void Connect::ShowItemsMenu(const host::outlook::Item& Myitem) {
    searchpanel::ShowItemsMenu(rooms_.searchpanel, Myitem);
}

void Connect::ShowItemsMenu2(const host::outlook::Item& Myitem) {
    searchpanel::ShowItemsMenu2(rooms_.searchpanel, Myitem);
}

void Connect::goExplorers_NewExplorer(const host::outlook::Explorer& Explorer) {
    rooms_.commands.gExplorerList.NewExplorer(Explorer);
}

void Connect::RemoveExplorerTracker(std::int16_t anID) {
    rooms_.commands.gExplorerList.RemoveExplorerTracker(anID);
}

}  // namespace addin
