#include "core/status.h"

#include "core/status_windows.h"
#include "core/steps.h"

namespace addin {
namespace {

constexpr std::uint32_t message_time = 1000;  // milliseconds

}  // namespace

void show_status(Session& session, host::TextView text) {
    session.SearchForm.show();
    session.SearchForm.window()->status(text);
}

void ShowMessage(Session& session, host::TextView MyText) {
    session.desktop.yield();
    show_status(session, MyText);
    session.desktop.yield();
    session.desktop.sleep(message_time);
    session.desktop.yield();
    session.SearchForm.hide();
}

void ShowImportMessage(Session& session, host::TextView MyText, std::int32_t SleepTime) {
    host::Desktop& desktop = session.desktop;
    Steps steps;
    steps.run([&] { desktop.yield(); });
    if (MyText.empty()) {
        steps.run([&] { desktop.pointer(host::Pointer::standard); });
        steps.run([&] { session.SearchForm.hide(); });
        steps.run([&] { session.SearchForm.unload(); });
        return;
    }
    steps.run([&] { session.SearchForm.show(); });
    steps.run([&] { session.SearchForm.window()->status(MyText); });
    steps.run([&] { desktop.pointer(host::Pointer::hourglass); });
    steps.run([&] { desktop.yield(); });
    if (SleepTime == 0) {
        steps.run([&] { desktop.yield(); });
    } else {
        steps.run([&] { desktop.sleep(static_cast<std::uint32_t>(SleepTime)); });
    }
    steps.run([&] { desktop.pointer(host::Pointer::hourglass); });
    steps.run([&] { desktop.yield(); });
}

bool FileExists(host::Desktop& desktop, host::TextView Fname) {
    if (Fname.empty() || Fname.back() == u'\\') return false;
    return !desktop.find_file(Fname).empty();
}

}  // namespace addin
