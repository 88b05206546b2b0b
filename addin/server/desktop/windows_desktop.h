// The system as the add-in's logic sees it, on Windows.
#pragma once

#include "addin/server/desktop/registry.h"
#include "automation/com/apartment.h"
#include "automation/com/class_objects.h"
#include "forms/windows/screen_pointer.h"

namespace windows {

/// The resolution of the screen.
int screen_dots_per_inch();

/// Belongs to the thread of its apartment.
class WindowsDesktop final : public host::Desktop {
  public:
    explicit WindowsDesktop(std::shared_ptr<Apartment> apartment) : apartment_(std::move(apartment)) {}

    host::Registry& registry() override { return registry_; }
    automation::Object create(automation::TextView prog_id) override;
    automation::Object application() override;  ///< made on first use and kept until `release_others`
    /// Lets go of what is kept of others: the application and the class objects.
    void release_others();

    int message_box(automation::TextView text, automation::TextView title, std::uint32_t style) override;
    void yield() override;  ///< a message to quit is left in the queue
    void sleep(std::uint32_t milliseconds) override;
    void pointer(forms::Pointer pointer) override { screen_pointer_->show(pointer); }
    std::shared_ptr<const ScreenPointer> screen_pointer() const { return screen_pointer_; }
    int dots_per_inch() override { return screen_dots_per_inch(); }

    automation::Text find_file(automation::TextView path) override;  ///< its name, without the folder
    void delete_file(automation::TextView path) override;
    std::intptr_t shell_execute(const host::ShellRequest& request) override;
    automation::Text section_names(automation::TextView path, std::uint32_t size) override;
    automation::Text profile_text(automation::TextView path, automation::TextView section,
                                  automation::TextView key, std::uint32_t size) override;
    void beep() override;
    automation::Text own_folder() override;

    automation::Text text_of(const automation::Value& value) override;
    automation::Date date_of(automation::TextView text) override;
    automation::Text format(automation::TextView value, automation::TextView named_format) override;
    std::string narrow(automation::TextView text) override;
    automation::Text widen(const std::string& bytes) override;

  private:
    std::shared_ptr<Apartment> apartment_;
    SystemRegistry registry_;
    std::shared_ptr<ScreenPointer> screen_pointer_ = std::make_shared<ScreenPointer>();
    ClassObjects class_objects_;
    automation::Object application_;
};

}  // namespace windows
