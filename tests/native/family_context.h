// Where the family's stand-ins live in a native test: settings and records in the registry's keys, as on
// Windows.
#pragma once

#include <functional>

#include "addin/host/desktop.h"
#include "family/context.h"

namespace native {

/// The key, of the current user, below which the family keeps its settings and what it records.
inline constexpr automation::TextView family_key = u"Software\\Tarnwell\\Family";

class FamilyContext final : public family::Context {
  public:
    /// The engine lives longer than the windows that are made by it.
    FamilyContext(host::Registry& registry, std::function<automation::Object()> application,
                  std::function<void(automation::TextView)> tell, forms::Engine& engine)
        : registry_(registry),
          application_(std::move(application)),
          tell_(std::move(tell)),
          engine_(engine) {}

    std::optional<automation::Text> read_setting(automation::TextView name) override;
    automation::Object application() override { return application_(); }
    std::shared_ptr<forms::Engine> engine() override { return {std::shared_ptr<void>(), &engine_}; }
    void tell(automation::TextView text) override { tell_(text); }
    void record(automation::Text call) override;

  private:
    host::Registry& registry_;
    std::function<automation::Object()> application_;
    std::function<void(automation::TextView)> tell_;
    forms::Engine& engine_;
};

/// Appends a text to the list under a key of the family's: values named "0001", "0002" and so on.
void append_to_family_list(host::Registry& registry, automation::TextView list, automation::TextView text);

}  // namespace native
