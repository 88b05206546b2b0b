// The context of the stand-ins in a real process: the registry and the host's application object.
#pragma once

#include <memory>
#include <type_traits>

#include "automation/com/apartment.h"
#include "family/context.h"
#include "forms/windows/form_engine.h"

namespace family {

/// Settings are texts under the family's registry key. Calls are recorded in the list "Calls" below it.
class WindowsContext : public Context {
  public:
    explicit WindowsContext(std::shared_ptr<windows::Apartment> apartment)
        : apartment_(std::move(apartment)) {}

    std::optional<automation::Text> read_setting(automation::TextView name) override;
    automation::Object application() override;
    std::shared_ptr<forms::Engine> engine() override;
    void tell(automation::TextView text) override;
    void record(automation::Text call) override;
    automation::Text number_text(double number) override;
    automation::Text time_text(automation::Date date) override;
    void start_check() override;

  private:
    struct CloseKey {
        void operator()(HKEY key) const noexcept { RegCloseKey(key); }
    };
    using Key = std::unique_ptr<std::remove_pointer_t<HKEY>, CloseKey>;
    static Key open_settings();

    std::shared_ptr<windows::Apartment> apartment_;
    Key settings_;  ///< stays open, since every member of a stand-in looks for settings
    std::weak_ptr<windows::FormEngine> engine_;
};

}  // namespace family
