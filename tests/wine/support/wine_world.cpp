// The world of the acceptance tests under Wine: the real desk, a process of its own, with the real DLL.
#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "addin/ground/settings.h"
#include "automation/com/fault_watch.h"
#include "desk/setup/desk_settings.h"
#include "desk/setup/registry_text.h"
#include "tests/wine/support/client.h"
#include "tests/wine/support/windows_handle.h"
#include "tests/world/world.h"

namespace wine {
namespace {

using acceptance::WorldSetup;
using automation::Text;
using automation::TextView;
using desk::registry::read_text;
using desk::registry::remove_key;
using desk::registry::write_text;
namespace fs = std::filesystem;

const Text family_key = u"Software\\Tarnwell\\Family";
const Text add_ins_key = u"Software\\Microsoft\\Office\\Outlook\\Addins\\CreateNote.Connect";
const Text desk_server_key = u"CLSID\\{0006F03A-0000-0000-C000-000000000046}\\LocalServer32";

constexpr DWORD longest_wait = 60000, wait_step = 10;  // milliseconds

Text text_of(const fs::path& path) { return path.u16string(); }

/// A folder of its own for one world, gone with it.
class WorkFolder {
  public:
    WorkFolder() {
        std::array<wchar_t, MAX_PATH> temporary{};
        GetTempPathW(static_cast<DWORD>(temporary.size()), temporary.data());
        for (int number = 0;; ++number) {
            path_ = fs::path(temporary.data()) /
                    ("acceptance-" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(number));
            if (fs::create_directories(path_)) return;
        }
    }
    ~WorkFolder() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;
    const fs::path& path() const { return path_; }

  private:
    fs::path path_;
};

/// A class that can't be made by its name while this lives.
class LeftOutClass {
  public:
    explicit LeftOutClass(const std::string& prog_id) : key_(automation::from_utf8(prog_id) + u"\\CLSID") {
        class_id_ = read_text(HKEY_CLASSES_ROOT, key_, {}).value_or(Text());
        remove_key(HKEY_CLASSES_ROOT, key_);
    }
    ~LeftOutClass() { write_text(HKEY_CLASSES_ROOT, key_, {}, class_id_); }
    LeftOutClass(const LeftOutClass&) = delete;
    LeftOutClass& operator=(const LeftOutClass&) = delete;

  private:
    Text key_, class_id_;
};

/// A file that isn't there while this lives.
class LeftOutFile {
  public:
    explicit LeftOutFile(fs::path file) : file_(std::move(file)), aside_(file_.native() + L".aside") {
        fs::rename(file_, aside_);
    }
    ~LeftOutFile() {
        std::error_code ignored;
        fs::rename(aside_, file_, ignored);
    }
    LeftOutFile(const LeftOutFile&) = delete;
    LeftOutFile& operator=(const LeftOutFile&) = delete;

  private:
    fs::path file_, aside_;
};

/// The add-in is unknown to the host while this lives.
class LeftOutAddIn {
  public:
    LeftOutAddIn() { remove_key(HKEY_CURRENT_USER, add_ins_key); }
    ~LeftOutAddIn() {
        const DWORD load_at_start = 3;
        write_text(HKEY_CURRENT_USER, add_ins_key, u"FriendlyName", u"Create Tarnwell Note");
        write_text(HKEY_CURRENT_USER, add_ins_key, u"Description", u"Tarnwell Note Add-in");
        RegSetKeyValueW(HKEY_CURRENT_USER, windows::wide(add_ins_key), L"LoadBehavior", REG_DWORD,
                        &load_at_start, sizeof load_at_start);
    }
    LeftOutAddIn(const LeftOutAddIn&) = delete;
    LeftOutAddIn& operator=(const LeftOutAddIn&) = delete;
};

/// The program that serves `Outlook.Application`.
fs::path desk_program() {
    Text command = read_text(HKEY_CLASSES_ROOT, desk_server_key, {}).value_or(Text());
    if (command.starts_with(u"\"")) command = command.substr(1, command.find(u'"', 1) - 1);
    return {command};
}

fs::path program_folder() { return desk_program().parent_path(); }

/// Starts the desk as COM starts the server of a class. COM would then look for it once in a second only.
windows_handle start_desk() {
    Text command_line = u"\"" + text_of(desk_program()) + u"\" -Embedding";
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, reinterpret_cast<wchar_t*>(command_line.data()), nullptr, nullptr, FALSE, 0,
                        nullptr, nullptr, &startup, &process)) {
        const DWORD error = GetLastError();
        throw std::runtime_error("the desk could not be started by " + automation::to_utf8(command_line) +
                                 ": error " + std::to_string(error));
    }
    CloseHandle(process.hThread);
    return windows_handle(process.hProcess);
}

class WineWorld : public acceptance::World {
  public:
    explicit WineWorld(const WorldSetup& setup) : setup_(setup) {
        const char* const databases = std::getenv("TARNWELL_DATABASES");
        if (!databases) throw std::runtime_error("TARNWELL_DATABASES does not say where the databases are");
        const fs::path source = fs::path("Z:" + std::string(databases)) / setup.database;
        fs::create_directories(folder_.path() / "special");
        fs::create_directories(folder_.path() / "files");
        fs::copy_file(source / "tarnwell.db", folder_.path() / "special" / "tarnwell.db");
        fs::create_directories(folder_.path() / "documents");
        if (fs::exists(source / "documents"))
            fs::copy(source / "documents", folder_.path() / "documents", fs::copy_options::recursive);
        fs::copy_file(source / "twsystemfolder.ini", folder_.path() / "special" / "twsystemfolder.ini");
        for (const std::string& name : setup.without) {
            if (name.ends_with(".exe")) {
                files_.push_back(std::make_unique<LeftOutFile>(program_folder() / name));
            } else {
                classes_.push_back(std::make_unique<LeftOutClass>(name));
            }
        }
        if (!setup.add_in) add_in_ = std::make_unique<LeftOutAddIn>();
        remove_key(HKEY_CURRENT_USER, Text(addin::Settings::key_name));
        remove_key(HKEY_CURRENT_USER, Text(addin::Settings::own_key_name));
        remove_key(HKEY_CURRENT_USER, family_key);
        write_text(HKEY_CURRENT_USER, family_key, u"SpecialFolder", text_of(folder_.path() / "special"));
        write_text(HKEY_CURRENT_USER, family_key, u"ProgramFolder", text_of(program_folder()));
        if (setup.started) start();
    }

    ~WineWorld() override {
        try {
            quit();
        } catch (const std::exception& exception) {
            ADD_FAILURE() << "The desk is gone, or does not end: " << exception.what();
            TerminateProcess(desk_.get(), 1);
        }
        const std::size_t own_faults = windows::FaultWatch::count() - own_faults_before_;
        if (own_faults != 0)
            faults_told_ += "in the test: " + automation::to_utf8(windows::FaultWatch::told());
        EXPECT_EQ(faults_ + own_faults, expected_faults())
            << "mistakes of the program, of the desk's or of what they have loaded: " << faults_told_;
    }

    void start() override {
        std::error_code ignored;
        fs::remove(log(), ignored);
        desk::DeskSettings settings;
        settings.mail_reader = desk::read_settings().mail_reader;
        settings.database = text_of(folder_.path() / "special" / "tarnwell.db");
        settings.state = text_of(folder_.path() / "special");
        settings.log_file = text_of(log());
        settings.indexed_folder = text_of(folder_.path() / "documents");
        settings.options.host_version = setup_.host_version;
        settings.options.instant_search = setup_.instant_search;
        settings.options.at_once = desk::AtOnce::of(setup_.event_order);
        desk::write_settings(settings);
        desk_ = start_desk();
        wait_for_log("ready");
        application_ = host::outlook::Application(client().desktop.create(u"Outlook.Application"));
    }

    void quit() override {
        if (!application_) return;
        const host::outlook::Application leaving = std::exchange(application_, {});
        leaving.call(u"Quit");
        wait_for_log("ended");
        if (const std::string told = wait_for_log("faults: "); told != "0") {
            faults_ += std::stoul(told);
            faults_told_ += told + "\n";
        }
        WaitForSingleObject(desk_.get(), longest_wait);
    }

    host::outlook::Application application() override { return application_; }
    host::Registry& registry() override { return client().desktop.registry(); }
    host::Desktop& desktop() override { return client().desktop; }
    Text add_in_folder() override { return text_of(program_folder()); }

    Text write_file(const std::string& name, const std::string& bytes) override {
        return write(folder_.path() / "files" / fs::path(automation::from_utf8(name)), bytes);
    }
    Text write_document(const std::string& name, const std::string& bytes) override {
        return write(folder_.path() / "documents" / fs::path(automation::from_utf8(name)), bytes);
    }
    bool file_exists(TextView path) override { return fs::exists(fs::path(path)); }
    void remove_file(TextView path) override { fs::remove(fs::path(path)); }

  private:
    static Text write(const fs::path& file, const std::string& bytes) {
        std::ofstream(file, std::ios::binary | std::ios::trunc)
            .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return text_of(file);
    }

    fs::path log() const { return folder_.path() / "desk.log"; }

    /// Waits for a line of the desk's log; answers what follows after its beginning.
    std::string wait_for_log(const std::string& start) const {
        for (DWORD waited = 0; waited < longest_wait; waited += wait_step) {
            const bool ended = WaitForSingleObject(desk_.get(), 0) == WAIT_OBJECT_0;
            std::ifstream file(log(), std::ios::binary);
            for (std::string read; std::getline(file, read);) {
                if (read.starts_with(start)) return read.substr(start.size());
                if (read.starts_with("failed")) throw std::runtime_error("the desk " + read);
            }
            if (ended) break;
            Sleep(wait_step);
        }
        throw std::runtime_error("the desk never said \"" + start + "\"");
    }

    WorldSetup setup_;
    WorkFolder folder_;
    std::vector<std::unique_ptr<LeftOutClass>> classes_;
    std::vector<std::unique_ptr<LeftOutFile>> files_;
    std::unique_ptr<LeftOutAddIn> add_in_;
    windows_handle desk_;
    std::size_t faults_ = 0;  ///< of the desks that have ended
    std::string faults_told_;
    std::size_t own_faults_before_ = windows::FaultWatch::count();
    host::outlook::Application application_;
};

}  // namespace

Client& client() {
    static Client the_client;
    return the_client;
}

}  // namespace wine

namespace acceptance {

std::unique_ptr<World> make_world(const WorldSetup& setup) {
    return std::make_unique<wine::WineWorld>(setup);
}

}  // namespace acceptance
