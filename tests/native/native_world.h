// The world of the acceptance tests with everything in one process: the desk's model on a database file, the
// family's stand-ins, and the add-in across a boundary.
#pragma once

#include "addin/connect/load.h"
#include "tests/native/engine_across.h"
#include "tests/native/native_desktop.h"
#include "tests/native/native_surroundings.h"
#include "tests/native/temporary_folder.h"
#include "tests/world/world.h"

namespace native {

/// What a load is made of here: the world's own desktop and windows outlive it.
struct NativeLoad {
    NativeLoad(host::Desktop& desktop, MemoryEngine& windows, forms::Engine& windows_of_rooms)
        : engine(windows), rooms(desktop, windows_of_rooms) {}

    MemoryEngine& engine;
    addin::Rooms rooms;
};

class NativeWorld final : public acceptance::World {
  public:
    explicit NativeWorld(const acceptance::WorldSetup& setup);
    ~NativeWorld() override;

    void start() override;
    void quit() override;
    host::outlook::Application application() override;
    host::Registry& registry() override { return registry_; }
    host::Desktop& desktop() override { return desktop_; }
    automation::Text add_in_folder() override;
    automation::Text write_file(const std::string& name, const std::string& bytes) override;
    automation::Text write_document(const std::string& name, const std::string& bytes) override;
    bool file_exists(automation::TextView path) override;
    void remove_file(automation::TextView path) override;

    // what only the tests of this build look at

    bool runs() const { return host_ != nullptr; }
    desk::Desk& model();  ///< the desk that runs
    NativeDesktop& system() { return desktop_; }
    MemoryRegistry& memory_registry() { return registry_; }
    Boundary& boundary() { return *boundary_; }
    MemoryEngine& engine() { return engine_; }  ///< the windows of the add-in and the family
    const forms::Engine& engine_of_add_in() const { return engine_across_; }
    addin::Connect* add_in();  ///< the add-in as it is loaded; null if it isn't

    /// Does something at each yield of an action, with its number from 1. Answers how many there were.
    int follow_yields(const std::function<void(int)>& at_each, const std::function<void()>& action);

    /// Does something at the n-th yield of an action. Answers how many there were.
    int at_yield(int n, const std::function<void()>& deed, const std::function<void()>& action);

    /// Loads the add-in as the host does, or lets go of it.
    void load_add_in(std::int32_t connect_mode);
    void unload_add_in(std::int32_t remove_mode);

    /// What is given to the add-in to connect: the application and the host's entry of it, as it sees them.
    automation::Object application_for_add_in();
    automation::Object entry_for_add_in();

  private:
    struct Host;

    Host& running();
    void end_host();
    void watch_status();
    std::shared_ptr<addin::Connect> make_connect();

    acceptance::WorldSetup setup_;
    TemporaryFolder folder_;
    MemoryRegistry registry_;
    Programs programs_;
    std::shared_ptr<Boundary> boundary_ = std::make_shared<Boundary>();
    NativeDesktop desktop_;
    std::unique_ptr<Host> host_;
    Strands strands_;
    MemoryEngine engine_{strands_};
    EngineAcross engine_across_{*boundary_, engine_};
    std::shared_ptr<addin::Connect> connect_;  ///< the add-in, with the load that it keeps
    addin::CurrentLoad<NativeLoad> load_;
};

}  // namespace native
