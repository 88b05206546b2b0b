// The database and the folders of one user, with things of every kind in them, in which a routine of the
// add-in is run while the outside fails or changes.
#pragma once

#include <map>
#include <memory>

#include "tests/native/native_world.h"
#include "tests/world/item_state.h"
#include "tests/world/note_dialog.h"

namespace addin_tests {

/// All items of all folders, by their ids, each as a whole and with the folder that it lies in.
using Things = std::map<std::string, acceptance::ItemState>;
Things things_of(acceptance::World& world);

class Scene {
  public:
    explicit Scene(const acceptance::WorldSetup& setup = {});
    ~Scene();
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    native::NativeWorld world;
    host::outlook::Item mail;         ///< of Ann Lee, who is a contact
    host::outlook::Item strange;      ///< a mail of somebody unknown
    host::outlook::Item contact;      ///< the user's own, linked with Ann's record
    host::outlook::Item unlinked;     ///< another one, without a link
    host::outlook::Item appointment;  ///< the user's own
    host::outlook::Item linked_appointment, linked_task;
    host::outlook::Item ann;          ///< her record
    host::outlook::Item opportunity;  ///< of hers

    // what the user does

    /// Shows an item in a window of its own, which stays until the end, and answers it.
    acceptance::OpenedItem& show(const host::outlook::Item& item);
    /// Shows an item and writes into a field of it without saving.
    void write(const host::outlook::Item& item, automation::TextView field, automation::TextView text);
    /// Presses a button of the window that was shown last, or an entry of the explorer's context menu. One
    /// that isn't there isn't pressed.
    void press(automation::TextView tag);
    void press_entry(automation::TextView tag);
    void select(const host::outlook::Item& item);
    void answer(automation::TextView fragment, std::int32_t button);
    /// A window as long as it is shown, or null; a control of it, or null.
    native::MemoryWindow* window(automation::TextView caption);
    native::MemoryControl* control(automation::TextView caption, automation::TextView name);
    /// Chooses the first row of the family's picker, if that is shown.
    void pick(automation::TextView caption);

    /// What was written into an open window and isn't there any more, neither in the window nor saved.
    std::string lost_text();
    /// The option that switches the synchronisation of contacts off and on, as it is stored.
    std::string synchronisation();
    /// Closes all windows as the user does, and ends the host. What the add-in still holds afterwards.
    std::string leave();

  private:
    std::vector<std::unique_ptr<acceptance::OpenedItem>> opened_;
    host::outlook::Item written_;
    automation::Text written_id_, field_, text_;
};

}  // namespace addin_tests
