#include "admin/database.h"

#include <algorithm>

#include "addin/ground/settings.h"
#include "addin/host/family.h"
#include "addin/records/names.h"
#include "admin/builder.h"

namespace admin {
namespace {

using automation::Failure;
using host::outlook::Application;
using host::outlook::Folder;
using host::outlook::Folders;

std::vector<Text> names_of(TextView path) {
    std::vector<Text> names;
    while (!path.empty()) {
        const std::size_t end = std::min(path.find(u'\\'), path.size());
        if (end > 0) names.emplace_back(path.substr(0, end));
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return names;
}

/// Where the database's root is, or is to be.
struct Place {
    Folder parent;
    Text name;
    Text path;  ///< of the root, its names as they are spelled in the host
};

Place find_place(const Application& application, TextView path) {
    std::vector<Text> names = names_of(path);
    if (names.size() < 2) {
        throw Refusal("\"" + shown(path) + "\" does not name a folder in a store: STORE\\FOLDER is needed.");
    }
    Place place;
    place.name = names.back();
    names.pop_back();
    Folders folders = application.GetNamespace(u"MAPI").Folders();
    for (const Text& name : names) {
        place.parent = child_named(folders, name);
        if (!place.parent) {
            throw Refusal(place.path.empty() ? "There is no store \"" + shown(name) + "\" in this profile."
                                             : "There is no folder \"" + shown(name) + "\" in \"" +
                                                   shown(place.path) + "\".");
        }
        place.path += (place.path.empty() ? u"" : u"\\") + place.parent.Name();
        folders = place.parent.Folders();
    }
    const Folder root = child_named(folders, place.name);
    place.path += u"\\" + (root ? root.Name() : place.name);
    return place;
}

/// Hosts before Outlook 2007 can tell folders' fields to nobody.
void check_host(const Application& application, const Folder& folder) {
    try {
        folder.get(u"UserDefinedProperties");
        folder.get(u"PropertyAccessor");
    } catch (const Failure&) {
        throw Refusal("This host, version " + shown(application.Version()) +
                      ", can't define fields of folders; it takes Outlook 2007 or a later one.");
    }
}

std::string end_of(const Report& report, bool only_check) {
    const auto number = static_cast<std::size_t>(std::ranges::count_if(
        report.lines, [&](const Line& line) { return only_check ? !line.well() : true; }));
    if (number == 0) return only_check ? "All is there." : "All was there already; nothing was made.";
    if (only_check)
        return counted(number, "thing") + (number == 1 ? " is" : " are") + " missing or of the wrong kind.";
    return counted(number, "thing") + (number == 1 ? " was" : " were") + " made.";
}

Report look_after(const DatabaseRequest& request, Machine& machine) {
    const Application application = host_of(machine);
    const Place place = find_place(application, request.root_path);
    check_host(application, place.parent);
    addin::Settings settings(machine.desktop());
    Plan plan = make_plan(place.path, [&](TextView name) { return settings.option(name); });
    plan.root.name = place.name;
    const Text ini_folder = request.ini_folder.value_or(ini_folder_of_family(application));
    if (ini_folder.empty() && !request.only_check) {
        throw Refusal(
            "The main add-in does not tell where twsystemfolder.ini is to be; give its folder by --ini.");
    }

    Report report{.lines = Builder(plan, place.parent, ini_folder, machine).compare()};
    if (request.only_check) {
        report.end = end_of(report, true);
        return report;
    }
    if (std::ranges::any_of(report.lines, [](const Line& l) { return l.state == Line::State::wrong; })) {
        std::erase_if(report.lines, [](const Line& line) { return line.state != Line::State::wrong; });
        report.end = "Nothing was made, since what is there is of the wrong kind.";
        return report;
    }
    report.lines = Builder(plan, place.parent, ini_folder, machine).make();
    report.end = end_of(report, false);
    return report;
}

}  // namespace

Report look_after_database(const DatabaseRequest& request, Machine& machine) {
    try {
        return look_after(request, machine);
    } catch (const Failure& failure) {
        throw Refusal("It can't be done: " + sentence(failure.description()) + ".");
    }
}

Text ini_folder_of_family(const Application& application) {
    try {
        const host::family::MainAddIn family(application.CreateObject(host::family::prog_id::main_add_in));
        return family.getspecialfolderlocation();
    } catch (const Failure&) {
        return {};
    }
}

Text path_of(Folder folder) {
    Text path = folder.Name();
    while (true) {
        folder = Folder(folder.Parent());
        if (folder.Class() != host::outlook::object_class::folder) return path;
        path = folder.Name() + u"\\" + path;
    }
}

}  // namespace admin
