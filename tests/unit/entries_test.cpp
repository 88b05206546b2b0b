// The table of entries knows all ways into the add-in that its code has.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>

#include "addin/commands/buttons.h"
#include "addin/commands/context_menu.h"
#include "addin/commands/small_windows.h"
#include "addin/createnote/dialog_table.h"
#include "addin/quickview/quick_view_table.h"
#include "addin/searchpanel/panel_table.h"
#include "tests/unit/support/entries.h"

namespace addin_tests {
namespace {

using acceptance::shown;

std::set<std::string> names_of_entries() {
    std::set<std::string> names;
    for (const Entry& entry : all_entries()) names.insert(entry.name);
    return names;
}

/// Finds a pattern in all sources of the add-in; what stands in its first brackets, and how often.
std::map<std::string, int> in_sources(const std::string& pattern) {
    std::map<std::string, int> found;
    const std::regex expression(pattern);
    const std::filesystem::path tree = std::filesystem::path(TARNWELL_DATA_FOLDER).parent_path() / "addin";
    for (const auto& file : std::filesystem::recursive_directory_iterator(tree)) {
        if (file.path().extension() != ".cpp" && file.path().extension() != ".h") continue;
        std::ifstream source(file.path());
        const std::string text{std::istreambuf_iterator<char>(source), {}};
        for (std::sregex_iterator at(text.begin(), text.end(), expression), end; at != end; ++at)
            ++found[(*at)[1]];
    }
    return found;
}

TEST(Entries, NameAllEventsThatAreWired) {
    // an event by the host's name of it, and the sinks that take it; where one line of code wires two of
    // them, as those of both replicas, it counts once
    const std::map<std::string, std::vector<std::string>> wired{
        {"Activate", {"goInspector"}},
        {"Click", {}},  // the buttons, which have a table of their own
        {"Close", {"goInspector", "goExplorer", "m_objExpl_"}},
        {"ItemAdd", {"goInbox", "goContacts", "goCalendar"}},
        {"ItemChange", {"goInbox", "goCalendar"}},
        {"ItemRemove", {"goCalendar"}},
        {"ItemSend", {"goOutlook"}},
        {"NewExplorer", {"goExplorers"}},
        {"NewInspector", {"goInspectors"}},
        {"OnUpdate", {"ActiveExplorerCBars"}},
        {"Quit", {"goOutlook"}},
        {"SelectionChange", {"goExplorer"}},
    };
    const std::set<std::string> names = names_of_entries();
    std::map<std::string, int> expected;
    for (const auto& [event, sinks] : wired) {
        expected[event] = sinks.empty() ? 1 : static_cast<int>(sinks.size());
        for (const std::string& sink : sinks)
            EXPECT_TRUE(names.contains(sink + "." + event)) << sink << event;
    }
    EXPECT_EQ(in_sources(R"re(\{\s*u"(\w+)",\s*\[)re"), expected);
    for (const char* const replica : {"goTask.ItemAdd", "goTask.ItemChange"})
        EXPECT_TRUE(names.contains(replica));
}

TEST(Entries, NameAllButtons) {
    const std::set<std::string> names = names_of_entries();
    for (const addin::commands::ButtonRow& row : addin::commands::buttons()) {
        EXPECT_TRUE(names.contains("button " + shown(row.caption))) << shown(row.caption);
    }
    for (const automation::TextView tag :
         {addin::commands::quick_view_tag, addin::commands::create_note_tag}) {
        EXPECT_TRUE(names.contains("entry " + shown(tag))) << shown(tag);
    }
    EXPECT_EQ(in_sources(R"(watch_button\((&Links::\w+))"),
              (std::map<std::string, int>{{"&Links::ContextButton", 1}, {"&Links::CreateNoteButton", 1}}))
        << "all other buttons are rows of the table";
}

TEST(Entries, NameAllPublishedOperations) {
    const std::set<std::string> names = names_of_entries();
    for (const auto& row : addin::Connect::members().rows()) {
        EXPECT_TRUE(names.contains("operation " + shown(row.name))) << shown(row.name);
    }
}

TEST(Entries, NameAllControlsThatAUserCanUse) {
    const forms::FormTable* const tables[] = {
        &addin::createnote::dialog_table(), &addin::searchpanel::panel_table(),
        &addin::quickview::quick_view_table(), &addin::commands::tarnwell_table(),
        &addin::commands::tarnwell_info_table()};
    const std::set<std::string> names = names_of_entries();
    std::map<std::string, int> known{{"SearchForm", 1}};  // shows texts alone
    using forms::ControlKind;
    for (const forms::FormTable* const table : tables) {
        known[shown(table->name)] = 1;
        for (const forms::ControlRow& row : table->controls) {
            const bool shows_only = row.kind == ControlKind::label || row.kind == ControlKind::frame ||
                                    row.kind == ControlKind::line || row.kind == ControlKind::image ||
                                    row.kind == ControlKind::image_list;
            if (shows_only || !row.visible) continue;
            EXPECT_TRUE(names.contains(shown(table->name) + "." + shown(row.name)))
                << shown(table->name) << "." << shown(row.name);
        }
    }
    EXPECT_EQ(in_sources(R"re(FormTable \w+\{\.name = u"(\w+)")re"), known);
}

}  // namespace
}  // namespace addin_tests
