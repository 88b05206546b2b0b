// Linked appointments and tasks of the user's own folders, kept as copies in folders that the team shares.
#pragma once

#include <functional>
#include <span>

#include "addin/records/names.h"
#include "addin/replicas/guards.h"
#include "addin/replicas/state.h"

namespace addin::replicas {

/// What becomes of the copy that a handler has made in the item's own folder.
enum class Ending {
    move,            ///< it goes to the shared folder at once
    yield_and_move,  ///< the same, after a yield
    save_and_delete  ///< nothing goes to the shared folder: what is added comes there with its next change
};

/// All in which the two kinds of replicas differ.
struct ReplicaRow {
    bool Guards::*guard;
    automation::TextView enabled;           ///< the option that turns it off
    automation::TextView folder_option;     ///< the option that names the shared folder
    records::Name default_folder;           ///< its name where the option is empty
    records::Name message_class;            ///< of the linked items
    records::Name key;                      ///< the property that an item and its replica have in common
    automation::TextView status;            ///< what the status window shows meanwhile
    std::span<const records::Name> copied;  ///< properties that are set on the copy one by one, in this order
    Ending on_add, on_change;
};

extern const ReplicaRow calendar;
extern const ReplicaRow tasks;

void ItemAdd(State& state, const Guards& guards, const ReplicaRow& row, const host::outlook::Item& item);

/// Holds an object as the last inspector. It fails for what can't be held.
using HoldInspector = std::function<void(const automation::Object& inspector)>;
void ItemChange(State& state, Guards& guards, const ReplicaRow& row, const host::outlook::Item& item,
                const HoldInspector& hold_inspector);

/// Does nothing: what the user deletes stays in the shared folder.
void goCalendar_ItemRemove();

}  // namespace addin::replicas
