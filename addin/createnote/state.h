// What the Create Note dialogs of one load have in common.
#pragma once

#include "addin/ground/session.h"
#include "addin/host/cdo.h"
#include "addin/host/family.h"
#include "addin/records/list_definition.h"

namespace addin::createnote {

/// What a search of the dialog holds while it runs. There is one for all: a search that starts inside of
/// another takes it over and lets go of it at its end, and the rest of the first one finds nothing.
struct DialogSearch {
    host::outlook::Folder folder;
    host::outlook::Items items;
    host::family::SafeRecordItem safe_record;
};

struct State {
    explicit State(Session& of_load) : session(of_load) {}
    State(const State&) = delete;
    State& operator=(const State&) = delete;

    Session& session;
    bool gNoteFromExplorer = false;           ///< how the dialog was opened
    std::int32_t LastSortColumn = 0;          ///< of the dialog's list and the Search Panel's, from 0
    records::ListDefinition list_definition;  ///< the current one
    host::cdo::CdoSession cdo;                ///< while a list definition is read
    DialogSearch search;
    bool gSearchCancelled = false;  ///< nothing sets it
};

}  // namespace addin::createnote
