#include "tests/native/native_world.h"

#include <algorithm>
#include <fstream>

#include "addin/ground/settings.h"
#include "desk/office/add_ins.h"
#include "desk/outlook/application.h"
#include "desk/surface/surface.h"
#include "desk/tools/database/sample_data.h"

namespace native {

using automation::Failure;
using automation::Object;
using automation::Text;
using automation::TextView;
namespace result = automation::result;

namespace {

constexpr std::int32_t mode_after_startup = 0, mode_startup = 1;      // ext_ConnectMode
constexpr std::int32_t mode_host_shutdown = 0, mode_user_closed = 1;  // ext_DisconnectMode

constexpr TextView family_programs[] = {u"TWstore.exe", u"TarnwellUtility.exe", u"TarnwellUpdate.exe"};

/// What the family answers from the start on: its folders, so that programs can be started in them.
struct FamilyValue {
    TextView name, value;
};
constexpr FamilyValue family_values[] = {{u"SpecialFolder", u"C:\\family\\data"},
                                         {u"ProgramFolder", u"C:\\family\\programs"}};

/// A database's file, written once for all worlds of the process.
const std::filesystem::path& database_file(const std::string& name) {
    static const TemporaryFolder folder;
    static std::map<std::string, std::filesystem::path> files;
    auto [entry, fresh] = files.try_emplace(name, folder.path() / (name + ".desk"));
    if (fresh) {
        const std::filesystem::path data = std::filesystem::path(TARNWELL_DATA_FOLDER) / name;
        const std::unique_ptr<desk::Store> store = desk::Store::open(entry->second);
        desk::sample::write_data(desk::sample::read_data(data), *store);
    }
    return entry->second;
}

std::vector<Text> texts(const std::vector<std::string>& names) {
    std::vector<Text> all;
    for (const std::string& name : names) all.push_back(automation::from_utf8(name));
    return all;
}

}  // namespace

/// The desk while it runs.
struct NativeWorld::Host {
    NativeSurroundings surroundings;
    desk::Desk desk;

    Host(Boundary& boundary, const Programs& programs, Strands& strands, MemoryEngine& engine,
         const std::filesystem::path& database, desk::Options options)
        : surroundings(boundary, programs, strands, engine),
          desk(surroundings, desk::Store::open(database), std::move(options)) {
        desk::offer_surface(desk);
        surroundings.run_message_loop = [this] { yield(); };
        surroundings.telling = [this] { return desk.telling(); };
    }

    /// A turn of the message loop: what waits in the model, and what was posted.
    void yield() {
        desk.yield();
        surroundings.run_posted();
    }
};

NativeWorld::NativeWorld(const acceptance::WorldSetup& setup)
    : setup_(setup),
      desktop_(boundary_, registry_, programs_, add_in_folder(), texts(setup.without), engine_) {
    std::filesystem::create_directory(folder_ / "addin");
    std::filesystem::create_directory(folder_ / "files");
    const std::filesystem::path documents =
        std::filesystem::path(TARNWELL_DATA_FOLDER) / setup.database / "documents";
    std::filesystem::create_directory(folder_ / "documents");
    if (std::filesystem::exists(documents))
        std::filesystem::copy(documents, folder_ / "documents", std::filesystem::copy_options::recursive);
    std::filesystem::copy_file(database_file(setup.database), folder_ / "database.desk");
    for (const TextView program : family_programs) {
        const bool left_out = std::ranges::any_of(texts(setup.without), [&](const Text& name) {
            return automation::same_ignoring_case(name, program);
        });
        if (!left_out) programs_.there.emplace_back(program);
    }
    for (const FamilyValue& value : family_values) family(value.name, value.value);
    if (setup.started) start();
}

NativeWorld::~NativeWorld() {
    try {
        if (host_) quit();
    } catch (const std::exception& failure) {
        ADD_FAILURE() << "The host did not end: " << failure.what();
    }
    EXPECT_EQ(engine_.faults.size(), expected_faults())
        << "mistakes of the program in events of its windows: " << testing::PrintToString(engine_.faults);
}

void NativeWorld::start() {
    desk::Options options;
    options.host_version = setup_.host_version;
    options.instant_search = setup_.instant_search;
    options.at_once = desk::AtOnce::of(setup_.event_order);
    host_ = std::make_unique<Host>(*boundary_, programs_, strands_, engine_, folder_ / "database.desk",
                                   std::move(options));
    desktop_.attach(&host_->desk);
    engine_.screen_pointer = [this] { return desktop_.shown_pointer; };
    desktop_.on_yield = [this] {
        if (host_) host_->yield();
    };
    watch_status();
    NativeSurroundings& surroundings = host_->surroundings;
    surroundings.ask_person = [this](TextView text, TextView title, std::uint32_t style) {
        return desktop_.ask(text, title, style);
    };
    surroundings.indexed_folder = folder_ / "documents";
    surroundings.is_registered = [this](TextView prog_id) { return !desktop_.left_out(prog_id); };
    surroundings.make_object = [this](TextView prog_id) {
        if (!automation::same_ignoring_case(prog_id, addin::connect_prog_id)) return desktop_.make(prog_id);
        return boundary_->to_outside(Object(make_connect()));
    };
    surroundings.connect = [this](TextView, bool connect) {
        if (connect && !connect_) load_add_in(mode_after_startup);
        if (!connect) unload_add_in(mode_user_closed);
    };
    surroundings.remember = [this](TextView name, TextView value) {
        if (automation::same_ignoring_case(name, u"HostVersion")) setup_.host_version = Text(value);
    };
    if (!setup_.add_in) return;
    host_->desk.add_ins()->all.push_back(std::make_shared<desk::AddIn>(
        host_->desk, Text(addin::connect_prog_id), u"Tarnwell Note Add-in", u""));
    load_add_in(mode_startup);
}

void NativeWorld::watch_status() {
    engine_.on_show = [this](MemoryWindow& window) {
        MemoryControl* const label = window.find(desk::Desk::status_label);
        if (host_ && label && window.caption() == desk::Desk::status_caption) {
            host_->desk.status_window_up(label->text());
        }
    };
    engine_.on_text = [this](MemoryWindow& window, MemoryControl& control) {
        const bool is_status = window.caption() == desk::Desk::status_caption && window.visible() &&
                               control.table_row().name == desk::Desk::status_label;
        if (host_ && is_status) host_->desk.status_shown(control.text());
    };
}

void NativeWorld::quit() {
    strands_.finish();  // what is still shown as a modal window goes first
    if (connect_) connect_->IDTExtensibility2_OnBeginShutdown();
    running().desk.application()->raise(u"Quit");
    unload_add_in(mode_host_shutdown);
    end_host();
}

void NativeWorld::end_host() {
    for (const auto& entry : host_->desk.add_ins()->all) entry->published.reset();
    desktop_.attach(nullptr);
    host_.reset();
}

std::shared_ptr<addin::Connect> NativeWorld::make_connect() {
    return addin::make_connect(load_.get(desktop_, engine_, engine_across_));
}

void NativeWorld::load_add_in(std::int32_t connect_mode) {
    const std::shared_ptr<addin::Connect> connect = make_connect();
    connect_ = connect;
    connect->IDTExtensibility2_OnConnection(application_for_add_in(), connect_mode, entry_for_add_in());
    host_->desk.add_ins()->all.front()->connected = true;
    connect->IDTExtensibility2_OnAddInsUpdate();
    if (connect_mode == mode_startup) connect->IDTExtensibility2_OnStartupComplete();
}

void NativeWorld::unload_add_in(std::int32_t remove_mode) {
    if (!connect_) return;
    const std::shared_ptr<addin::Connect> going = connect_;
    going->IDTExtensibility2_OnDisconnection(remove_mode);
    const auto& entry = host_->desk.add_ins()->all.front();
    entry->connected = false;
    entry->published.reset();
    connect_.reset();
}

NativeWorld::Host& NativeWorld::running() {
    if (!host_) throw Failure(result::no_such_class, u"The host does not run.");
    return *host_;
}

host::outlook::Application NativeWorld::application() {
    return host::outlook::Application(running().desk.application()->self());
}

desk::Desk& NativeWorld::model() { return running().desk; }

int NativeWorld::follow_yields(const std::function<void(int)>& at_each, const std::function<void()>& action) {
    const std::function<void()> usual = desktop_.on_yield;
    int yields = 0;
    desktop_.on_yield = [&] {
        at_each(++yields);
        usual();
    };
    action();
    desktop_.on_yield = usual;
    return yields;
}

int NativeWorld::at_yield(int n, const std::function<void()>& deed, const std::function<void()>& action) {
    return follow_yields(
        [&](int yield) {
            if (yield == n) deed();
        },
        action);
}

addin::Connect* NativeWorld::add_in() { return connect_.get(); }

Object NativeWorld::application_for_add_in() { return boundary_->to_add_in(application()); }

Object NativeWorld::entry_for_add_in() {
    return boundary_->to_add_in(running().desk.add_ins()->all.front()->self());
}

Text NativeWorld::add_in_folder() { return (folder_ / "addin").u16string(); }

Text NativeWorld::write_file(const std::string& name, const std::string& bytes) {
    const std::filesystem::path path = folder_ / "files" / name;
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return path.u16string();
}

Text NativeWorld::write_document(const std::string& name, const std::string& bytes) {
    const std::filesystem::path path = folder_ / "documents" / name;
    std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return system_path(path);
}

bool NativeWorld::file_exists(TextView path) { return std::filesystem::exists(local_path(path)); }

void NativeWorld::remove_file(TextView path) { std::filesystem::remove(local_path(path)); }

}  // namespace native

std::unique_ptr<acceptance::World> acceptance::make_world(const WorldSetup& setup) {
    return std::make_unique<native::NativeWorld>(setup);
}
