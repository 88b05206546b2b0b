// The system as the add-in's logic sees it, on Windows.
#pragma once

#include "windows/com/apartment.h"
#include "windows/com/class_objects.h"
#include "windows/desktop/registry.h"
#include "windows/desktop/screen_pointer.h"

namespace windows {

/// The resolution of the screen.
int screen_dots_per_inch();

/// Belongs to the thread of its apartment.
class WindowsDesktop final : public host::Desktop {
  public:
    explicit WindowsDesktop(std::shared_ptr<Apartment> apartment) : apartment_(std::move(apartment)) {}

    host::Registry& registry() override { return registry_; }
    host::Object create(host::TextView prog_id) override;
    host::Object application() override;  ///< made on first use and kept until `release_others`
    /// Lets go of what is kept of others: the application and the class objects.
    void release_others();

    int message_box(host::TextView text, host::TextView title, std::uint32_t style) override;
    void yield() override;  ///< a message to quit is left in the queue
    void sleep(std::uint32_t milliseconds) override;
    void pointer(host::Pointer pointer) override { screen_pointer_->show(pointer); }
    std::shared_ptr<const ScreenPointer> screen_pointer() const { return screen_pointer_; }
    int dots_per_inch() override { return screen_dots_per_inch(); }

    host::Text find_file(host::TextView path) override;  ///< its name, without the folder
    void delete_file(host::TextView path) override;
    std::intptr_t shell_execute(const host::ShellRequest& request) override;
    host::Text section_names(host::TextView path, std::uint32_t size) override;
    host::Text profile_text(host::TextView path, host::TextView section, host::TextView key,
                            std::uint32_t size) override;
    void beep() override;
    host::Text own_folder() override;

    host::Text text_of(const host::Value& value) override;
    host::Date date_of(host::TextView text) override;
    host::Text format(host::TextView value, host::TextView named_format) override;
    std::string narrow(host::TextView text) override;
    host::Text widen(const std::string& bytes) override;

  private:
    std::shared_ptr<Apartment> apartment_;
    SystemRegistry registry_;
    std::shared_ptr<ScreenPointer> screen_pointer_ = std::make_shared<ScreenPointer>();
    ClassObjects class_objects_;
    host::Object application_;
};

}  // namespace windows
