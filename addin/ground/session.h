// The session's variables and shared windows: one copy for each load of the add-in, handed on by reference.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <vector>

#include "addin/host/cdo.h"
#include "addin/host/desktop.h"
#include "addin/host/family.h"
#include "addin/host/outlook.h"
#include "addin/records/list_definition.h"
#include "forms/form.h"

namespace addin {

class Connect;
class ExplorerTrackers;
class SearchForm;

/// The Create Note dialog. Without being shown it opens the contact of a mail.
class NoteDialog : public forms::Form {
  public:
    using Form::Form;
    virtual void OpenContact() = 0;
    virtual void OpenTarnwellContact() = 0;
};

/// The side window that follows the selected mail.
class QuickViewWindow : public forms::Form {
  public:
    using Form::Form;
    virtual automation::Text AccountID() = 0;  ///< the hidden caption; empty as long as no record is shown
};

/// Commands of item windows whose work stands in rooms of its own.
enum class Command {
    convert_appointment,
    appointment_information,
    convert_contact,
    convert_lead,
    email_templates,
    save_as_template,
    document_templates,
    excel_templates,
    count
};

/// What a search of the Create Note dialog holds while it runs. There is one for all: a search that starts
/// inside of another takes it over and lets go of it at its end, and the rest of the first one finds nothing.
struct DialogSearch {
    host::outlook::Folder folder;
    host::outlook::Items items;
    host::family::SafeRecordItem wrapper;
};

/// The copy that a replication has made in the item's own folder, as long as it works on it.
struct ReplicaCopy {
    host::outlook::Item source{}, copy{};
    bool in_the_making = true;    ///< the copy isn't at hand yet
    automation::Text entry_id{};  ///< of the copy; empty as long as the host gives it none
};

struct Session {
    Session(host::Desktop& platform, forms::Engine& form_engine);
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session();

    /// Ends with the session. A long routine that gives way to events asks for it before it goes on: the host
    /// may have let go of the add-in meanwhile.
    const std::shared_ptr<const bool> life = std::make_shared<const bool>(true);

    host::Desktop& desktop;
    forms::Engine& engine;  ///< makes the windows

    host::outlook::Application gOutlookApp;  ///< the application, for code outside of `Connect`
    automation::Text gProgId;                ///< the name under which the add-in was connected
    bool gNoteFromExplorer = false;          ///< how the Create Note dialog was opened

    automation::Text gSelectedEntryID;  ///< the item handed to the Search Panel
    automation::Text gSelectedStoreID;
    automation::Text gSelectedClass;

    bool wasProtected =
        false;  ///< whether the context menu's bar was protected when it was opened for changes

    std::int16_t gExplorerSerial = 0;  ///< the number of the last tracker; never reset
    std::unique_ptr<ExplorerTrackers> gExplorerList;
    bool gSkipExplorerTracking = false;  ///< nothing sets it

    std::int32_t LastSortColumn = 0;  ///< of all lists but Quick View's, from 0
    bool SortAscending = false;       ///< of Quick View's list; turned over by each click on a heading
    records::ListDefinition list_definition;  ///< the current one
    host::cdo::Session cdo;                   ///< while a list definition is read
    DialogSearch search;
    bool gSearchCancelled = false;  ///< nothing sets it
    std::list<ReplicaCopy> copies_under_way;

    /// What the session is a part of. Who gives way holds it: the host may let go of the add-in meanwhile.
    std::weak_ptr<void> owner;

    forms::WindowPlace<addin::SearchForm> SearchForm;
    forms::WindowPlace<> Tarnwell;
    forms::WindowPlace<> TarnwellInfo;
    forms::WindowPlace<> search_panel;  ///< the default instance of `ShowItems`
    forms::WindowPlace<> gPanelMenu;
    forms::WindowPlace<> gPanelMenu2;
    /// Every Search Panel that is loaded, also one of which no place knows any more.
    std::vector<std::shared_ptr<forms::Window>> loaded_panels;
    forms::WindowPlace<QuickViewWindow> QuickView;

    /// A new Create Note dialog for each use; nothing as long as nothing makes it.
    std::function<std::shared_ptr<NoteDialog>()> dlgSend;

    /// Work of rooms that open windows of their own; an empty one does nothing.
    std::function<void(Connect& connect, automation::Value& selection)> ShowQuickView;
    std::function<void(Connect& connect, automation::Value& selection)> ShowTarnwell;
    std::array<std::function<void(Connect& connect)>, static_cast<std::size_t>(Command::count)> commands;
};

}  // namespace addin
