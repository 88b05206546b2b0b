#include "addin/createnote/search_targets.h"

#include <utility>

#include "addin/createnote/split.h"

namespace addin::createnote {

using automation::Text;
using automation::TextView;

namespace {

constexpr TextView file_name = u"\\twsystemfolder.ini";
constexpr std::uint32_t names_size = 4096, value_size = 512;  // characters
constexpr TextView display_in = u"Display in", find_definition = u"FindDefinition",
                   folder_name = u"Folder Name";

/// The sections' names out of what the platform gives; the last terminator begins no name.
std::vector<Text> section_names(TextView names) {
    if (names.empty()) return {};
    names.remove_suffix(1);
    return split(names, u'\0');
}

}  // namespace

std::vector<Text> SortSectionNames(std::vector<Text> names) {
    for (bool swapped = true; swapped;) {
        swapped = false;
        for (std::size_t i = 0; i + 1 < names.size(); ++i) {
            if (names[i] <= names[i + 1]) continue;
            std::swap(names[i], names[i + 1]);
            swapped = true;
        }
    }
    return names;
}

std::vector<SearchTarget> read_targets(host::Desktop& desktop, TextView folder, TextView place,
                                       const std::function<void(std::size_t, const Text&)>& found) {
    const Text path = Text(folder) + Text(file_name);
    const auto value = [&](const Text& section, TextView key) {
        return desktop.profile_text(path, section, key, value_size);
    };
    std::vector<SearchTarget> targets;
    for (const Text& name : SortSectionNames(section_names(desktop.section_names(path, names_size)))) {
        if (automation::upper(value(name, display_in)).find(place) == Text::npos) continue;
        SearchTarget target{name, value(name, find_definition), {}};
        if (found) found(targets.size(), name);
        target.folder_name = value(name, folder_name);
        targets.push_back(std::move(target));
    }
    return targets;
}

}  // namespace addin::createnote
