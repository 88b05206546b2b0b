// The system as the add-in sees it in a native test.
#pragma once

#include "addin/host/desktop.h"
#include "desk/base/desk.h"
#include "tests/native/boundary.h"
#include "tests/native/family_context.h"
#include "tests/native/memory_registry.h"
#include "tests/native/shell.h"

namespace native {

/// All that it hands out lies beyond the boundary, and so do its own calls that may fail, each in the
/// system's way: a box that can't be shown answers 0, an ini file that can't be read has nothing. It stays
/// while the host comes and goes. The engine makes the family's windows.
class NativeDesktop final : public host::Desktop {
  public:
    NativeDesktop(std::shared_ptr<Boundary> boundary, MemoryRegistry& registry, Programs& programs,
                  automation::Text own_folder, std::vector<automation::Text> without, forms::Engine& engine);

    /// The host that runs now, or null.
    void attach(desk::Desk* desk);

    host::Registry& registry() override { return watched_; }
    automation::Object create(automation::TextView prog_id) override;
    automation::Object application() override;
    int message_box(automation::TextView text, automation::TextView title, std::uint32_t style) override;
    void yield() override;
    void sleep(std::uint32_t milliseconds) override { slept += milliseconds; }
    void pointer(forms::Pointer pointer) override { shown_pointer = pointer; }
    int dots_per_inch() override { return 96; }
    automation::Text find_file(automation::TextView path) override;
    void delete_file(automation::TextView path) override;
    std::intptr_t shell_execute(const host::ShellRequest& request) override;  ///< only records it
    automation::Text section_names(automation::TextView path, std::uint32_t size) override;
    automation::Text profile_text(automation::TextView path, automation::TextView section,
                                  automation::TextView key, std::uint32_t size) override;
    void beep() override { ++beeps; }
    automation::Text own_folder() override { return own_folder_; }
    automation::Text text_of(const automation::Value& value) override;
    automation::Date date_of(automation::TextView text) override;
    automation::Text format(automation::TextView value, automation::TextView named_format) override;
    std::string narrow(automation::TextView text) override;
    automation::Text widen(const std::string& bytes) override;

    // the same without the boundary, for the host's own use

    automation::Object make(automation::TextView prog_id);
    int ask(automation::TextView text, automation::TextView title, std::uint32_t style);

    /// Whether an object isn't there in this world.
    bool left_out(automation::TextView prog_id) const;

    std::function<void()> on_yield = [] {};        ///< what a turn of the message loop does
    std::function<void()> on_message_box = [] {};  ///< what happens while a box is shown
    /// Makes an object in place of the usual one; Nothing where it makes none.
    std::function<automation::Object(automation::TextView prog_id)> stand_in = [](automation::TextView) {
        return automation::Object();
    };

    std::uint32_t slept = 0;  ///< milliseconds in all; nobody waits for them
    int beeps = 0;
    forms::Pointer shown_pointer = forms::Pointer::standard;

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
    bool passes(const char* call);  ///< false if it is made to fail
    template <class T>
    automation::Object object_of_the_desk() const;

    std::shared_ptr<Boundary> boundary_;
    WatchedRegistry watched_;
    Programs& programs_;
    automation::Text own_folder_;
    std::vector<automation::Text> without_;
    desk::Desk* desk_ = nullptr;
    std::shared_ptr<FamilyContext> family_;
};

}  // namespace native
