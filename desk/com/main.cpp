// desk.exe: a host with Outlook's object model, as a local server and as windows for a person.
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <utility>

#include "automation/com/class_factory.h"
#include "automation/com/failure.h"
#include "automation/com/fault_watch.h"
#include "automation/com/kept_proxies.h"
#include "desk/cdo/cdo.h"
#include "desk/com/add_in_loader.h"
#include "desk/com/desk_surroundings.h"
#include "desk/driver/message_watch.h"
#include "desk/driver/status_watch.h"
#include "desk/outlook/application.h"
#include "desk/search/ado.h"
#include "desk/setup/desk_classes.h"
#include "desk/setup/desk_settings.h"
#include "desk/surface/surface.h"
#include "desk/windows/desk_windows.h"
#include "desk/windows/first_page.h"
#include "desk/windows/main_loop.h"

namespace {

using automation::Text;
using automation::TextView;
using windows::ComPtr;

constexpr DWORD longest_wait_for_database = 15000, wait_step = 50;  // milliseconds

constexpr TextView layout_setting = u"Layout";

/// Lines for whoever wants to know what the desk does; each is written at once.
class LogFile {
  public:
    explicit LogFile(const Text& path)
        : file_(path.empty() ? nullptr : _wfopen(windows::wide(path), L"ab")) {}
    ~LogFile() {
        if (file_) std::fclose(file_);
    }
    LogFile(const LogFile&) = delete;
    LogFile& operator=(const LogFile&) = delete;

    void line(TextView text) {
        if (!file_) return;
        const std::string bytes = automation::to_utf8(text) + "\n";
        std::fwrite(bytes.data(), 1, bytes.size(), file_);
        std::fflush(file_);
    }

  private:
    FILE* file_;
};

/// COM for this thread, with drag and drop.
class Com {
  public:
    Com() { OleInitialize(nullptr); }
    ~Com() { OleUninitialize(); }
    Com(const Com&) = delete;
    Com& operator=(const Com&) = delete;
};

/// Opens the database. A desk that is just ending may hold it for a moment.
std::unique_ptr<desk::Store> open_store(const Text& path) {
    const ULONGLONG last_moment = GetTickCount64() + longest_wait_for_database;
    return desk::Store::open_when_free(std::filesystem::path(path), [last_moment] {
        Sleep(wait_step);
        return GetTickCount64() < last_moment;
    });
}

/// The class object while the desk takes callers.
class ServedClass {
  public:
    /// `make` gives each caller its object.
    ServedClass(windows::Module& module, const automation::Guid& class_id,
                const std::shared_ptr<windows::Apartment>& apartment,
                std::function<std::shared_ptr<automation::Invocable>()> make) {
        factory_ = windows::ClassFactory::create(module, [apartment, make = std::move(make)] {
            return ComPtr<IUnknown>(apartment->bridge(make()).get());
        });
        windows::check(CoRegisterClassObject(windows::to_guid(class_id), factory_.get(), CLSCTX_LOCAL_SERVER,
                                             REGCLS_MULTIPLEUSE, &cookie_));
    }
    ~ServedClass() { revoke(); }
    ServedClass(const ServedClass&) = delete;
    ServedClass& operator=(const ServedClass&) = delete;

    void revoke() {
        if (cookie_ != 0) CoRevokeClassObject(std::exchange(cookie_, 0));
    }

  private:
    ComPtr<IClassFactory> factory_;
    DWORD cookie_ = 0;
};

int main_screen_resolution() {
    const HDC context = GetDC(nullptr);
    const int dots = GetDeviceCaps(context, LOGPIXELSX);
    ReleaseDC(nullptr, context);
    return dots;
}

/// The first page with what it keeps from one start to the next.
class ShownFirstPage {
  public:
    ShownFirstPage(desk::Desk& desk, windows::Module& module)
        : engine_(module, main_screen_resolution), done_(desk, desk::stored_setting(done_name)) {
        page_ = std::make_shared<desk::FirstPage>(
            engine_, done_,
            desk::FirstPageMemory{
                [](const Text& done) { desk::store_setting(done_name, done); },
                [](bool closed) { desk::store_setting(closed_name, closed ? u"1" : u"0"); }},
            is_closed());
    }

    static bool is_closed() { return desk::stored_setting(closed_name) == u"1"; }
    void show() { page_->show(); }
    void look() { page_->look(GetTickCount64()); }
    void close() { page_->unload(); }

  private:
    static constexpr TextView done_name = u"FirstPageDone", closed_name = u"FirstPageClosed";

    windows::FormEngine engine_;  // outlives its window
    desk::FirstStepsDone done_;
    std::shared_ptr<desk::FirstPage> page_;
};

void run(const desk::DeskSettings& settings, LogFile& log) {
    windows::Module module;  // outlives what clients still hold when COM is left
    const Com com;
    const windows::KeptProxies proxies;
    const auto apartment =
        windows::Apartment::create(module, u"Outlook", std::make_shared<windows::BridgeCounter>());
    desk::DeskSurroundings surroundings(settings, apartment);
    desk::Desk desk(surroundings, open_store(settings.database), settings.options);
    desk::offer_surface(desk);
    desk::MainLoop loop;
    desk::MessageWatch messages(desk);
    desk::StatusWatch status(desk);
    desk::DeskWindows desk_windows(desk, module);
    desk::AddInLoader add_ins(desk, apartment, [&log](TextView text) { log.line(text); });

    surroundings.hooks.wake = [&loop] { loop.wake(); };
    surroundings.hooks.pump = [&loop](std::int32_t time) {
        loop.pump(static_cast<DWORD>(std::max(time, 0)));
    };
    surroundings.hooks.post = [&loop](std::function<void()> action) { loop.post(std::move(action)); };
    surroundings.hooks.changed = [&loop] { loop.change(); };
    surroundings.hooks.came_up = [&desk_windows] { desk_windows.follow(); };
    surroundings.hooks.connect_add_in = [&add_ins](TextView name, bool connect) {
        add_ins.connect(name, connect);
    };
    loop.on_wake = [&desk] { desk.yield(); };
    loop.on_change = [&desk_windows] { desk_windows.follow(); };
    ShownFirstPage first_page(desk, module);
    loop.on_tick = [&messages, &first_page] {
        messages.look();
        first_page.look();
    };
    desk_windows.on_first_page([&first_page] { first_page.show(); });

    ServedClass served(module, desk::application_class, apartment, [&desk] { return desk.application(); });
    const ServedClass served_cdo(module, desk::cdo_session_class, apartment,
                                 [&desk] { return std::make_shared<desk::CdoSession>(desk); });
    const ServedClass served_connection(module, desk::ado_connection_class, apartment,
                                        [&desk] { return std::make_shared<desk::AdoConnection>(desk); });
    const ServedClass served_recordset(module, desk::ado_recordset_class, apartment,
                                       [&desk] { return std::make_shared<desk::AdoRecordset>(desk); });
    surroundings.hooks.quit = [&] {
        served.revoke();  // who asks for an application from now on gets a new one
        loop.ask_to_quit();
    };
    loop.on_quit = [&] {
        add_ins.begin_shutdown();
        desk.application()->raise(u"Quit");
        add_ins.disconnect_all();
        loop.end();
    };

    // where nobody sits before the screen, each start is like the other
    if (!settings.options.unattended) desk_windows.arrange(desk::stored_setting(layout_setting));
    desk_windows.follow();
    add_ins.load_all();
    if (settings.first_page && !ShownFirstPage::is_closed()) first_page.show();
    log.line(u"process " + automation::to_text(static_cast<long long>(GetCurrentProcessId())));
    log.line(u"ready");
    loop.run();
    surroundings.hooks = {};
    first_page.close();
    desk_windows.close_all();
    if (!settings.options.unattended) desk::store_setting(layout_setting, desk_windows.arrangement());
    log.line(u"live at the end: " +
             automation::to_text(static_cast<long long>(apartment->counter()->live_in_all())));
}

/// What stands on the command line behind the program's name.
Text arguments() {
    const std::wstring_view line = GetCommandLineW();
    const std::size_t end = line.starts_with(L'"') ? line.find(L'"', 1) : line.find(L' ');
    const std::wstring_view behind = line.substr(std::min(line.find(L' ', end), line.size()));
    return automation::trimmed(windows::from_wide(behind.data(), behind.size()));
}

constexpr TextView register_command = u"/RegServer", settings_command = u"/Settings ";

/// Enters the desk into the registry, or the settings of a file, instead of starting. Answers the exit code.
int set_up(TextView command) {
    const auto code = windows::guarded([&] {
        if (command == register_command) {
            desk::register_classes();
        } else {
            const Text file = automation::replaced(command.substr(settings_command.size()), u"\"", u"");
            desk::write_settings(desk::settings_of(file));
        }
        return S_OK;
    });
    return code == S_OK ? 0 : 1;
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    const Text command = arguments();
    if (command == register_command || command.starts_with(settings_command)) return set_up(command);
    const desk::DeskSettings settings = desk::read_settings();
    LogFile log(settings.log_file);
    const windows::FaultWatch faults;
    try {
        run(settings, log);
        log.line(u"faults: " + windows::FaultWatch::told());
        log.line(u"ended");
        return 0;
    } catch (const std::exception& failure) {
        log.line(u"failed: " + automation::from_utf8(failure.what()));
        if (!settings.options.unattended) {
            MessageBoxW(nullptr, windows::wide(automation::from_utf8(failure.what())), L"Desk", MB_ICONERROR);
        }
        return 1;
    }
}
