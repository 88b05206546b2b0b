#include "addin/ground/status.h"

#include "addin/ground/presence.h"
#include "addin/ground/status_windows.h"

namespace addin {
namespace {

constexpr std::uint32_t message_time = 1000;  // milliseconds

}  // namespace

void show_status(Session& session, automation::TextView text) {
    session.SearchForm.show();
    session.SearchForm.window()->status(text);
}

void ShowMessage(Session& session, automation::TextView MyText) {
    const Presence here(session);
    here.give_way_or_fail();
    show_status(session, MyText);
    here.give_way_or_fail();
    session.desktop.sleep(message_time);
    here.give_way_or_fail();
    session.SearchForm.hide();
}

void ShowImportMessage(Session& session, automation::TextView MyText, std::int32_t SleepTime) {
    host::Desktop& desktop = session.desktop;
    const Presence here(session);
    const Steps steps(session);
    here.give_way();
    if (MyText.empty()) {
        steps.run([&] { desktop.pointer(forms::Pointer::standard); });
        steps.run([&] { session.SearchForm.hide(); });
        steps.run([&] { session.SearchForm.unload(); });
        return;
    }
    steps.run([&] { session.SearchForm.show(); });
    steps.run([&] { session.SearchForm.window()->status(MyText); });
    steps.run([&] { desktop.pointer(forms::Pointer::hourglass); });
    here.give_way();
    if (SleepTime == 0) {
        here.give_way();
    } else {
        steps.run([&] { desktop.sleep(static_cast<std::uint32_t>(SleepTime)); });
    }
    steps.run([&] { desktop.pointer(forms::Pointer::hourglass); });
    here.give_way();
}

bool FileExists(host::Desktop& desktop, automation::TextView Fname) {
    if (Fname.empty() || Fname.back() == u'\\') return false;
    return !desktop.find_file(Fname).empty();
}

}  // namespace addin
