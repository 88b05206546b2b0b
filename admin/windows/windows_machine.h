// The machine that the program runs on.
#pragma once

#include "addin/server/desktop/windows_desktop.h"
#include "admin/machine.h"

namespace windows {

/// Belongs to the thread of its apartment.
class WindowsMachine final : public admin::Machine {
  public:
    explicit WindowsMachine(const std::shared_ptr<Apartment>& apartment)
        : apartment_(apartment), desktop_(apartment) {}

    host::Desktop& desktop() override { return desktop_; }
    host::outlook::Application application() override;
    void let_events_come() override;
    std::vector<admin::RegistryValue> values(admin::Hive hive, admin::Bits half,
                                             automation::TextView key) override;
    std::optional<std::string> read_file(automation::TextView path, std::size_t most) override;
    void write_file(automation::TextView path, const std::string& bytes) override;
    automation::Text file_version(automation::TextView path) override;

  private:
    std::shared_ptr<Apartment> apartment_;
    WindowsDesktop desktop_;
};

}  // namespace windows
