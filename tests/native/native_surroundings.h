// Where the desk's model lives in a native test.
#pragma once

#include <deque>
#include <filesystem>
#include <functional>

#include "desk/base/surroundings.h"
#include "tests/native/boundary.h"
#include "tests/native/memory_driver.h"
#include "tests/native/shell.h"

namespace native {

class NativeSurroundings final : public desk::Surroundings {
  public:
    NativeSurroundings(Boundary& boundary, const Programs& programs, Strands& strands, MemoryEngine& engine)
        : boundary_(boundary), programs_(programs), strands_(strands), engine_(engine) {}

    /// What the model asks for and only the whole world can do.
    std::function<void()> run_message_loop = [] {};
    std::function<automation::Object(automation::TextView)> make_object;
    std::function<bool(automation::TextView prog_id)> is_registered;
    std::function<void(automation::TextView prog_id, bool connect)> connect;
    std::function<void(automation::TextView name, automation::TextView value)> remember;
    /// How many events are being told, those of actions that wait in modal windows among them.
    std::function<int()> telling = [] { return 0; };
    std::function<int(automation::TextView text, automation::TextView title, std::uint32_t style)> ask_person;

    /// Runs what was posted since, until nothing is left.
    void run_posted();

    std::filesystem::path indexed_folder;  ///< of the files that the desktop search knows

    bool quit_asked = false;  ///< the host was told to end
    int wakes = 0;            ///< how often events began to wait

    automation::Date now() override;
    automation::Date to_utc(automation::Date local) override;
    std::string random_bytes(std::size_t count) override;
    desk::ItemData read_mail(automation::TextView path) override;
    automation::Text page_text(automation::TextView html) override;
    void wake() override { ++wakes; }
    /// Outside of all that runs, an action runs at once; one that shows a modal window waits in it.
    void post(std::function<void()> action) override;
    void pump(std::int32_t) override { run_message_loop(); }
    std::unique_ptr<desk::WindowDriver> window(automation::TextView caption) override;
    int ask(automation::TextView text, automation::TextView title, std::uint32_t style) override {
        return ask_person(text, title, style);
    }
    automation::Object create_object(automation::TextView prog_id) override { return make_object(prog_id); }
    bool has_class(automation::TextView prog_id) override { return is_registered(prog_id); }
    std::vector<desk::IndexedFile> indexed_files() override;
    std::vector<desk::StartedProgram> programs() override { return programs_.started; }
    std::vector<automation::Text> opened() override { return programs_.opened; }
    std::vector<desk::LiveCount> live() override { return boundary_.live(); }
    std::vector<desk::CallCount> calls() override;
    void reset_calls() override { boundary_.forget_calls(); }
    /// There is no screen: throws `result::not_implemented`.
    void snapshot(automation::TextView path) override;
    void connect_add_in(automation::TextView prog_id, bool is_to_be) override { connect(prog_id, is_to_be); }
    void quit() override { quit_asked = true; }
    void changed() override {}
    void came_up() override { engine_.activate_host(); }
    void remember_option(automation::TextView name, automation::TextView value) override {
        remember(name, value);
    }

  private:
    Boundary& boundary_;
    const Programs& programs_;
    Strands& strands_;
    MemoryEngine& engine_;
    std::deque<std::function<void()>> posted_;
    int waiting_ = 0;  ///< the events whose handlers wait in modal windows
};

}  // namespace native
