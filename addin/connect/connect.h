// The add-in object that the host loads. It holds every long-lived link to the host; what an event does
// stands in the room that owns the work.
#pragma once

#include "addin/commands/links.h"
#include "addin/connect/discovery.h"
#include "addin/connect/rooms.h"
#include "addin/ground/product.h"
#include "addin/ground/steps.h"
#include "addin/host/family.h"
#include "addin/host/outlook.h"
#include "addin/replicas/guards.h"
#include "automation/automated.h"
#include "automation/events.h"

namespace addin {

namespace replicas {
struct ReplicaRow;
}

/// Sinks, buttons and guards that one room works with alone are that room's own types: it is handed no more
/// of the object.
class Connect : public automation::Automated<Connect>, public commands::Links, public replicas::Guards {
  public:
    explicit Connect(Rooms& rooms) : rooms_(rooms) {}

    /// The operations that are published to the family, and the members that may be read and written from
    /// outside.
    static const automation::Members<Connect>& members();
    automation::Value invoke(automation::Request& request) override;

    /// The host connects the add-in. A failure leaves it unconnected, silently.
    void IDTExtensibility2_OnConnection(const automation::Object& Application, std::int32_t ConnectMode,
                                        const automation::Object& AddInInst);
    void IDTExtensibility2_OnDisconnection(std::int32_t RemoveMode);
    void IDTExtensibility2_OnAddInsUpdate();
    void IDTExtensibility2_OnStartupComplete();
    void IDTExtensibility2_OnBeginShutdown();

    /// Lets go of everything, in a fixed order. Safe to run again.
    void StopAddIn();

    void FindFolder();
    void FindNextFolder(const host::outlook::Folders& ofolders);

    /// Opens the Search Panel on an item, or on none: the first makes a new panel, the second brings up its
    /// own.
    void ShowItemsMenu(const host::outlook::Item& Myitem);
    void ShowItemsMenu2(const host::outlook::Item& Myitem);

    /// A further main window is followed by a tracker of its own.
    void goExplorers_NewExplorer(const host::outlook::Explorer& Explorer);
    void RemoveExplorerTracker(std::int16_t anID);  ///< throws `Failure` if there is none of that number

    Rooms& rooms() { return rooms_; }
    Session& session() { return rooms_.session; }

    // event sinks: each holds an object of the host and receives its events
    automation::Sink goOutlook, goExplorers, goInspectors;
    automation::Sink goInbox, goCalendar, goTask, goContacts;

    // plain members
    host::outlook::NameSpace goNameSpace;  ///< never assigned: code reaches the namespace anew
    bool gExiting = false;                 ///< shutdown through the last window has run; never reset
    bool bFinished = false;                ///< published; nothing here reads or writes it
    DatabaseSearch search;                 ///< `SetDatabase` and `whoami`

  private:
    void StartAddIn(const automation::Object& Application, automation::TextView ProgId);
    void wire_folder(automation::Sink& sink, std::int32_t number, std::vector<automation::Handler> handlers);
    void watch(automation::Sink& sink, const automation::EventInterface& events,
               const automation::Object& source, std::vector<automation::Handler> handlers = {});
    void watch_application(const automation::Object& application);
    void watch_button(automation::Sink commands::Links::*member, const automation::Object& control,
                      commands::Click click) override;
    void watch_inspector(const automation::Object& inspector) override;
    std::vector<automation::Handler> replica_handlers(const replicas::ReplicaRow& row);
    void first_run(const host::family::MainAddIn& main_add_in);
    void take_application();

    void goExplorer_Close();
    void goOutlook_ItemSend(const host::outlook::Item& item);
    void goOutlook_Quit();

    Rooms& rooms_;
};

}  // namespace addin
