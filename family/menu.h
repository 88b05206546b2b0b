// The menu "Tarnwell" of the family in the host's main windows.
#pragma once

#include <array>
#include <memory>
#include <vector>

#include "addin/host/outlook.h"
#include "automation/events.h"

namespace family {

class Context;

/// Stays in all main windows, those that are opened later too, until the host ends.
class Menu {
  public:
    /// The context lives longer.
    explicit Menu(Context& context) : context_(context) {}

    /// Puts the menu into the host's windows, unless it is there. Throws `Failure` if there is no host.
    void put_up();

    /// Lets go of the host. The menus stay as long as their windows, and do nothing any more.
    void let_go();

    bool is_up() const { return static_cast<bool>(application_.source()); }

    static constexpr std::size_t entry_count = 5;

  private:
    struct InWindow {
        automation::Sink window;
        std::array<automation::Sink, entry_count> entries;
    };

    void add_to(const host::outlook::Explorer& explorer);
    void forget(const InWindow* closed);

    Context& context_;
    automation::Sink application_, explorers_;
    std::vector<std::shared_ptr<InWindow>> windows_;
};

}  // namespace family
