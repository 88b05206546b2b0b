// The host itself: its version, its add-ins and its command bars.
#include <algorithm>

#include "admin/probe/questions.h"

namespace admin {
namespace {

using host::office::CommandBar;
using host::office::CommandBarControl;
using host::outlook::Explorer;

/// A bar of the host's main window that goes with this.
class Bar {
  public:
    explicit Bar(Probed& probed) {
        const Explorer explorer = probed.host().ActiveExplorer();
        if (explorer) bar_ = explorer.CommandBars().AddTemporary(u"Tarnwell probe", host::office::bar_top);
    }
    Bar(const Bar&) = delete;
    Bar& operator=(const Bar&) = delete;
    ~Bar() {
        try {
            if (bar_) bar_.Delete();
        } catch (const std::exception&) {
            bar_.reset();  // it is temporary, and goes with the window
        }
    }
    const CommandBar& get() const { return bar_; }
    CommandBarControl button() const {
        CommandBarControl made = bar_.Controls().AddTemporary(host::office::control_button);
        made.Caption(u"Probe");
        made.Tag(u"ProbeTag");
        return made;
    }

  private:
    CommandBar bar_;
};

constexpr const char* no_window = "the host has no main window";

constexpr ProbeQuestion host_rows[] = {
    {"The host's version is four numbers", "yes", "Application.Version property",
     [](Probed& probed) {
         const Text version = probed.host().Version();
         return yes_or_no(std::ranges::count(version, u'.') == 3);
     }},
    {"An add-in by a name that isn't there", "an error", source::believed,
     [](Probed& probed) {
         return std::string(probed.host().COMAddIns().Item(u"No.Such.AddIn") ? "something" : "nothing");
     }},
    {"The language of the host's windows is told", "yes", "LanguageSettings.LanguageID property",
     [](Probed& probed) {
         return yes_or_no(probed.host().LanguageSettings().LanguageID(host::office::language_of_windows) > 0);
     }},
    {"A main window that holds a selection tells how many items", "yes", "Explorer.Selection property",
     [](Probed& probed) {
         const Explorer explorer = probed.host().ActiveExplorer();
         return explorer ? yes_or_no(explorer.Selection().Count() >= 0) : no_window;
     }},
    {"A command bar is found by its name", "yes", "CommandBars.Item property",
     [](Probed& probed) {
         const Bar bar(probed);
         if (!bar.get()) return std::string(no_window);
         const auto bars = probed.host().ActiveExplorer().CommandBars();
         return yes_or_no(bars.Item(u"Tarnwell probe").Name() == u"Tarnwell probe");
     }},
    {"A command bar of one's own is built in", "no", "CommandBar.BuiltIn property",
     [](Probed& probed) {
         const Bar bar(probed);
         return bar.get() ? yes_or_no(bar.get().BuiltIn()) : std::string(no_window);
     }},
    {"A button is found by its tag", "yes", "CommandBar.FindControl method",
     [](Probed& probed) {
         const Bar bar(probed);
         if (!bar.get()) return std::string(no_window);
         const CommandBarControl button = bar.button();
         return yes_or_no(static_cast<bool>(bar.get().FindControl(u"ProbeTag")));
     }},
    {"A button looked for by a tag that isn't there", "nothing", "CommandBar.FindControl method",
     [](Probed& probed) {
         const Bar bar(probed);
         if (!bar.get()) return std::string(no_window);
         return std::string(bar.get().FindControl(u"NoSuchTag") ? "something" : "nothing");
     }},
    {"A bar's protection is kept", "yes", "CommandBar.Protection property",
     [](Probed& probed) {
         const Bar bar(probed);
         if (!bar.get()) return std::string(no_window);
         bar.get().Protection(host::office::bar_no_customize);
         return yes_or_no((bar.get().Protection() & host::office::bar_no_customize) != 0);
     }},
    {"A button that was deleted, looked for by its tag", "nothing", source::believed,
     [](Probed& probed) {
         const Bar bar(probed);
         if (!bar.get()) return std::string(no_window);
         bar.button().Delete();
         return std::string(bar.get().FindControl(u"ProbeTag") ? "something" : "nothing");
     }},
};

}  // namespace

std::span<const ProbeQuestion> host_questions() { return host_rows; }

}  // namespace admin
