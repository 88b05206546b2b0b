// The system as the add-in sees it in a native test.
#pragma once

#include "desk/model/desk.h"
#include "host/desktop.h"
#include "tests/native/boundary.h"
#include "tests/native/family_surroundings.h"
#include "tests/native/memory_registry.h"
#include "tests/native/shell.h"

namespace native {

/// All that it hands out lies beyond the boundary, and so do its own calls that may fail: create,
/// application, the registry's, the search and the deletion of files. It stays while the host comes and goes.
/// The engine makes the family's windows.
class NativeDesktop final : public host::Desktop {
  public:
    NativeDesktop(std::shared_ptr<Boundary> boundary, MemoryRegistry& registry, Programs& programs,
                  host::Text own_folder, std::vector<host::Text> without, addin::forms::Engine& engine);

    /// The host that runs now, or null.
    void attach(desk::Desk* desk);

    host::Registry& registry() override { return watched_; }
    host::Object create(host::TextView prog_id) override;
    host::Object application() override;
    int message_box(host::TextView text, host::TextView title, std::uint32_t style) override;
    void yield() override;
    void sleep(std::uint32_t milliseconds) override { slept += milliseconds; }
    void pointer(host::Pointer pointer) override { shown_pointer = pointer; }
    int dots_per_inch() override { return 96; }
    host::Text find_file(host::TextView path) override;
    void delete_file(host::TextView path) override;
    std::intptr_t shell_execute(const host::ShellRequest& request) override;  ///< only records it
    host::Text section_names(host::TextView path, std::uint32_t size) override;
    host::Text profile_text(host::TextView path, host::TextView section, host::TextView key,
                            std::uint32_t size) override;
    void beep() override { ++beeps; }
    host::Text own_folder() override { return own_folder_; }
    host::Text text_of(const host::Value& value) override;
    host::Date date_of(host::TextView text) override;
    host::Text format(host::TextView value, host::TextView named_format) override;
    std::string narrow(host::TextView text) override;
    host::Text widen(const std::string& bytes) override;

    /// The same without the boundary, for the host's own use.
    host::Object make(host::TextView prog_id);

    /// Whether an object isn't there in this world.
    bool left_out(host::TextView prog_id) const;

    std::function<void()> on_yield = [] {};        ///< what a turn of the message loop does
    std::function<void()> on_message_box = [] {};  ///< what happens while a box is shown
    /// Makes an object in place of the usual one; Nothing where it makes none.
    std::function<host::Object(host::TextView prog_id)> stand_in = [](host::TextView) {
        return host::Object();
    };

    std::uint32_t slept = 0;  ///< milliseconds in all; nobody waits for them
    int beeps = 0;
    host::Pointer shown_pointer = host::Pointer::standard;

  private:
    class WatchedRegistry final : public host::Registry {
      public:
        WatchedRegistry(Boundary& boundary, host::Registry& inner) : boundary_(boundary), inner_(inner) {}
        std::int32_t open_key(host::KeyHandle root, const std::string& path, host::KeyHandle& key) override;
        std::int32_t create_key(host::KeyHandle root, const std::string& path, host::KeyHandle& key) override;
        std::int32_t query_value(host::KeyHandle key, const std::string& name, std::uint32_t& type,
                                 void* data, std::uint32_t& size) override;
        std::int32_t set_value(host::KeyHandle key, const std::string& name, std::uint32_t type,
                               const void* data, std::uint32_t size) override;
        std::int32_t close_key(host::KeyHandle key) override;

      private:
        /// The status of a call that was made to fail, or success.
        std::int32_t passed(const char* call);

        Boundary& boundary_;
        host::Registry& inner_;
    };

    desk::Desk& running() const;
    template <class T>
    host::Object object_of_the_desk() const;

    std::shared_ptr<Boundary> boundary_;
    WatchedRegistry watched_;
    Programs& programs_;
    host::Text own_folder_;
    std::vector<host::Text> without_;
    desk::Desk* desk_ = nullptr;
    std::shared_ptr<FamilySurroundings> family_;
};

}  // namespace native
