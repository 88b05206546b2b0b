// Finding and loading add-ins, as the real host does.
#pragma once

#include <memory>
#include <vector>

#include "automation/com/apartment.h"
#include "automation/com/extensibility.h"
#include "desk/base/desk.h"

namespace desk {

/// Keeps the add-ins that are connected. Belongs to the thread of the apartment.
class AddInLoader {
  public:
    using Log = std::function<void(automation::TextView line)>;

    AddInLoader(Desk& desk, std::shared_ptr<windows::Apartment> apartment, Log log)
        : desk_(desk), apartment_(std::move(apartment)), log_(std::move(log)) {}

    /// Enters all add-ins that are registered for the user, and connects those that are to be loaded at the
    /// start: one that can't be is left out.
    void load_all();
    void connect(automation::TextView prog_id, bool connect);
    void begin_shutdown();
    void disconnect_all();

  private:
    struct Loaded {
        automation::Text prog_id;
        windows::ComPtr<windows::IDTExtensibility2> add_in;
    };

    void enter(const automation::Text& prog_id);
    void load(const automation::Text& prog_id, long mode);
    void disconnect(Loaded& loaded, long mode);

    Desk& desk_;
    std::shared_ptr<windows::Apartment> apartment_;
    Log log_;
    std::vector<Loaded> loaded_;
};

}  // namespace desk
