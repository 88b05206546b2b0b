#include "tests/wine/support/listeners.h"

#include <array>
#include <functional>
#include <future>
#include <stdexcept>
#include <string>

#include "addin/host/host_events.h"
#include "addin/host/outlook.h"
#include "tests/wine/support/client.h"

namespace wine {
namespace {

constexpr DWORD longest_start = 60000;  // milliseconds
constexpr wchar_t listens_name[] = L"TarnwellTestListens", told_name[] = L"TarnwellTestIsTold";

/// Lets the messages of this thread come until it is told to quit.
void pump() {
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
}

/// Listens to the changes in the Inbox, as long as it lives.
struct Listening {
    Listening(windows::WindowsDesktop& desktop, std::function<void()> told) {
        const host::outlook::Application application(desktop.create(u"Outlook.Application"));
        const auto inbox =
            application.GetNamespace(u"MAPI").GetDefaultFolder(host::outlook::default_folder::inbox);
        sink.connect(host::events::items, inbox.Items(),
                     {{u"ItemChange", [told = std::move(told)](std::span<automation::Value>) { told(); }}});
    }
    automation::Sink sink;
};

}  // namespace

std::unique_ptr<ListeningThread> ListeningThread::start() {
    std::unique_ptr<ListeningThread> made(new ListeningThread);
    std::promise<DWORD> listens;
    std::future<DWORD> id = listens.get_future();
    made->thread_ = std::thread([&told = made->told_, listens = std::move(listens)]() mutable {
        const Com com;
        try {
            windows::Module module;
            windows::WindowsDesktop desktop(windows::Apartment::create(module, u"Another apartment"));
            const Listening listening(desktop, [&] { ++told; });
            listens.set_value(GetCurrentThreadId());
            pump();
            desktop.release_others();
        } catch (...) {
            listens.set_exception(std::current_exception());
        }
    });
    made->thread_id_ = id.get();
    return made;
}

ListeningThread::~ListeningThread() {
    if (thread_id_ != 0) PostThreadMessageW(thread_id_, WM_QUIT, 0, 0);
    if (thread_.joinable()) thread_.join();
}

ListeningProcess::ListeningProcess()
    : listens_(CreateEventW(nullptr, TRUE, FALSE, listens_name)),
      told_(CreateEventW(nullptr, TRUE, FALSE, told_name)) {
    std::array<wchar_t, MAX_PATH> own_path{};
    GetModuleFileNameW(nullptr, own_path.data(), static_cast<DWORD>(own_path.size()));
    const std::string option = argument;
    std::wstring command =
        L"\"" + std::wstring(own_path.data()) + L"\" " + std::wstring(option.begin(), option.end());
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION made{};
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                        &made))
        throw std::runtime_error("another client could not be started");
    CloseHandle(made.hThread);
    process_ = windows_handle(made.hProcess);
    const std::array<HANDLE, 2> either = {listens_.get(), process_.get()};
    if (WaitForMultipleObjects(2, either.data(), FALSE, longest_start) != WAIT_OBJECT_0)
        throw std::runtime_error("another client does not listen");
}

bool ListeningProcess::was_told() const { return WaitForSingleObject(told_.get(), 0) == WAIT_OBJECT_0; }

void ListeningProcess::kill() {
    TerminateProcess(process_.get(), 1);
    WaitForSingleObject(process_.get(), longest_start);
}

int ListeningProcess::run() {
    const windows_handle listens(OpenEventW(EVENT_MODIFY_STATE, FALSE, listens_name));
    const windows_handle told(OpenEventW(EVENT_MODIFY_STATE, FALSE, told_name));
    const Listening listening(client().desktop, [&] { SetEvent(told.get()); });
    SetEvent(listens.get());
    pump();
    return 0;
}

}  // namespace wine
