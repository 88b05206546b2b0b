// What the host tells the add-in, what the user does in the host's own windows, and what the family calls.
#include <filesystem>
#include <fstream>

#include "addin/ground/settings.h"
#include "tests/unit/support/entries.h"
#include "tests/world/host_numbers.h"
#include "tests/world/linked_items.h"
#include "tests/world/quick_view.h"

namespace addin_tests {
namespace {

using acceptance::account_question;
using acceptance::create_question;
using acceptance::no;
using acceptance::yes;
using automation::Object;
using automation::TextView;
using automation::Value;
using host::outlook::Item;

const std::vector<std::string> filed{"FlagStatus", "FlagRequest", "BillingInformation", "FlagIcon"};
const std::vector<std::string> read_and_filed{"FlagStatus", "FlagRequest", "BillingInformation", "FlagIcon",
                                              "UnRead"};

void nothing(Scene&) {}
Deed shows(Item Scene::*item) {
    return [item](Scene& scene) { scene.show(scene.*item); };
}
Deed writes(Item Scene::*item, TextView field) {
    return [=](Scene& scene) { scene.write(scene.*item, field, u"Written and not saved"); };
}
Deed presses(TextView tag) {
    return [tag](Scene& scene) { scene.press(tag); };
}
Deed presses_entry(TextView tag) {
    return [tag](Scene& scene) { scene.press_entry(tag); };
}
Deed answers(std::vector<std::pair<TextView, std::int32_t>> all) {
    return [all = std::move(all)](Scene& scene) {
        for (const auto& [fragment, button] : all) scene.answer(fragment, button);
    };
}
Deed then(Deed first, Deed second) {
    return [first = std::move(first), second = std::move(second)](Scene& scene) {
        first(scene);
        second(scene);
    };
}
Deed option(TextView name, TextView value) {
    return [=](Scene& scene) { scene.world.option(name, value); };
}
void files_received(Scene& scene) { scene.world.family(u"EmailAutoFile", u"1"); }
void follows_selection(Scene& scene) { scene.world.option(u"EnableQuickView", u"1"); }

/// An operation that the family calls for an item.
Deed calls(TextView operation, Item Scene::*item) {
    return [=](Scene& scene) {
        scene.world.connect().call(operation, {Value(scene.*item)});
        scene.world.settle();
    };
}
Deed calls_for_selection(TextView operation) {
    return [operation](Scene& scene) {
        automation::Request request{
            .access = automation::Access::call,
            .member = operation,
            .arguments = {Value(scene.world.application().ActiveExplorer().Selection())},
            .by_reference = 1};
        scene.world.connect().invoke(request);
        scene.world.settle();
    };
}
Deed selects(Item Scene::*item) {
    return [item](Scene& scene) { scene.select(scene.*item); };
}

void reads(Scene& scene) {
    acceptance::World::read(scene.mail);
    scene.world.settle();
}
void sends(Scene& scene) {
    const Item mail = acceptance::new_item(scene.world, acceptance::item_type::mail);
    mail.put(u"To", u"Ann Lee <ann.lee@northmill.example>");
    mail.Subject(u"Our offer");
    mail.call(u"Send");
    scene.world.settle();
}
Deed changes(Item Scene::*item) {
    return [item](Scene& scene) {
        (scene.*item).Subject(u"Another subject");
        (scene.*item).Save();
        scene.world.settle();
    };
}
void arrives(Scene& scene) {
    const Item contact = scene.world.below(u"Account Contacts").Items().Add(u"IPM.Contact");
    contact.FullName(u"Ann Lee");
    contact.CompanyName(u"North Mill Ltd");
    contact.Save();
    scene.world.settle();
}
Deed copies(Item Scene::*item) {
    return [item](Scene& scene) {
        (scene.*item).Copy().Save();
        scene.world.settle();
    };
}
void opens_explorer(Scene& scene) {
    scene.world.application()
        .Explorers()
        .call(u"Add", {Value(scene.world.inbox()), 0})
        .to_object()
        .call(u"Display");
    scene.world.settle();
}
void closes_last_explorer(Scene& scene) {
    const auto explorers = scene.world.application().Explorers();
    explorers.Item(explorers.Count()).call(u"Close");
    scene.world.settle();
}
void closes_window(Scene& scene) {
    scene.world.application().Inspectors().Item(1).Close(host::outlook::discard_changes);
    scene.world.settle();
}
void links_dead(Scene& scene) {
    scene.unlinked.CustomerID(u"C-999");
    scene.unlinked.Save();
}

constexpr TextView own_value = u"OfTheUser";

void queries(Scene& scene) {
    automation::Request request{.access = automation::Access::call,
                                .member = u"QueryValueEx",
                                .arguments = {host::current_user, own_value, Value()},
                                .by_reference = 4};
    scene.world.connect().invoke(request);
}
void reads_option(Scene& scene) {
    scene.world.connect().call(u"GetKeyValueEx", {host::current_user, addin::Settings::key_name, own_value});
}
void writes_value(Scene& scene) {
    scene.world.connect().call(u"SetValueEx", {host::current_user, own_value,
                                               static_cast<std::int32_t>(host::registry_type::text), u"1"});
}
void writes_option(Scene& scene) {
    scene.world.connect().call(u"SetKeyValue", {host::current_user, addin::Settings::key_name, own_value,
                                                u"1", static_cast<std::int32_t>(host::registry_type::text)});
}

void loads_add_in(Scene& scene) { scene.world.load_add_in(0); }
void unloads_add_in(Scene& scene) { scene.world.unload_add_in(1); }
void before_first_run(Scene& scene) {
    unloads_add_in(scene);
    scene.world.family(u"StoreID", u"-");
}

std::vector<Entry> made_host_entries() {
    const std::vector<std::string> linked{"CustomerID"};
    const std::vector<std::string> written_subject{"Subject", "ConversationTopic", "NormalizedSubject"};
    Entry removal = quiet_entry("goCalendar.ItemRemove", nothing, [](Scene& scene) {
        scene.appointment.call(u"Delete");
        scene.world.settle();
    });
    removal.changes = {"its folder"};
    std::vector<Entry> all{
        {"goInbox.ItemChange", "a mail is read", files_received, reads, read_and_filed},
        quiet_entry("goInbox.ItemAdd", files_received,
                    [](Scene& scene) { scene.world.deliver(acceptance::message({.subject = "Another"})); }),
        {"goOutlook.ItemSend", "", option(u"AutoFileSentEmails", u"1"), sends},
        {"goContacts.ItemAdd", "its source is selected",
         then(selects(&Scene::contact), option(u"PDAContactSync", u"1")), arrives, linked},
        {"goContacts.ItemAdd", "another is selected",
         then(selects(&Scene::unlinked), option(u"PDAContactSync", u"1")), arrives, linked},
        {"goCalendar.ItemChange", "", shows(&Scene::linked_appointment), changes(&Scene::linked_appointment),
         written_subject},
        {"goCalendar.ItemAdd", "", shows(&Scene::linked_appointment), copies(&Scene::linked_appointment)},
        {"goTask.ItemChange", "", shows(&Scene::linked_task), changes(&Scene::linked_task), written_subject},
        {"goTask.ItemAdd", "", shows(&Scene::linked_task), copies(&Scene::linked_task)},
        removal,
        {"goExplorer.SelectionChange", "a contact's mail", follows_selection, selects(&Scene::mail)},
        {"goExplorer.SelectionChange", "a stranger's mail",
         then(follows_selection, answers({{create_question, yes}, {account_question, no}})),
         selects(&Scene::strange)},
        {"goInspectors.NewInspector", "a mail", nothing, shows(&Scene::mail)},
        {"goInspectors.NewInspector", "a contact", nothing, shows(&Scene::unlinked)},
        {"goInspectors.NewInspector", "an appointment", nothing, shows(&Scene::appointment)},
        {"goInspectors.NewInspector", "a linked task", nothing, shows(&Scene::linked_task)},
        {"goInspector.Activate", "", then(shows(&Scene::contact), shows(&Scene::mail)),
         [](Scene& scene) {
             for (const std::int32_t place : {1, 2, 1}) {
                 scene.world.application().Inspectors().Item(place).call(u"Activate");
             }
         }},
        {"goInspector.Close", "", shows(&Scene::mail), closes_window},
        {"goExplorers.NewExplorer", "", nothing, opens_explorer},
        {"m_objExpl_.Close", "", opens_explorer, closes_last_explorer},
        {"goExplorer.Close", "the only one", nothing, closes_last_explorer},
        {"ActiveExplorerCBars.OnUpdate", "", nothing,
         [](Scene& scene) { scene.world.desk().get(u"ContextMenu"); }},
        {"goOutlook.Quit", "", nothing, [](Scene& scene) { scene.leave(); }},

        {"button Create Tarnwell Note", "", shows(&Scene::mail), presses(u"CreateNoteButton")},
        {"button Create Tarnwell Note", "with a target of searches",
         then([](Scene& scene) { acceptance::install(scene.world, {acceptance::SearchTarget{}}); },
              shows(&Scene::mail)),
         presses(u"CreateNoteButton")},
        {"button Open Contact", "a contact", shows(&Scene::mail), presses(u"OpenContactButton")},
        {"button Open Contact", "a stranger",
         then(shows(&Scene::strange), answers({{create_question, yes}, {account_question, no}})),
         presses(u"OpenContactButton")},
        {"button Open Contact", "a stranger with an account",
         then(shows(&Scene::strange), answers({{create_question, yes}, {account_question, yes}})),
         [](Scene& scene) {
             scene.press(u"OpenContactButton");
             scene.pick(u"Account List");
         }},
        {"button Open Tarnwell Contact",
         "a link",
         writes(&Scene::contact, u"JobTitle"),
         presses(u"OpenTarnwellContactButton"),
         {"CustomerID", "Account", "JobTitle"},
         {},
         true},
        {"button Open Tarnwell Contact",
         "a dead link",
         then(links_dead, writes(&Scene::unlinked, u"JobTitle")),
         presses(u"OpenTarnwellContactButton"),
         {"CustomerID", "Account", "JobTitle"}},
        {"button Convert to Tarnwell Contact.",
         "",
         then(writes(&Scene::unlinked, u"JobTitle"), answers({{u"to a Tarnwell Contact? ", yes}})),
         presses(u"ConvertContactButton"),
         {"CustomerID", "JobTitle"}},
        {"button Convert to Tarnwell Contact.",
         "with a picked account",
         then(writes(&Scene::unlinked, u"JobTitle"),
              answers({{u"to a Tarnwell Contact? ", yes}, {u"search for an Account? ", yes}})),
         [](Scene& scene) {
             scene.press(u"ConvertContactButton");
             scene.pick(u"Account List");
         },
         {"CustomerID", "JobTitle"}},
        {"button Convert to Tarnwell Lead.",
         "",
         then(writes(&Scene::unlinked, u"JobTitle"), answers({{u"to a Tarnwell Lead? ", yes}})),
         presses(u"ConvertLeadButton"),
         {"CustomerID", "JobTitle"}},
        {"button Convert to Tarnwell Appointment",
         "",
         shows(&Scene::appointment),
         presses(u"ApptButton1"),
         {"MessageClass"}},
        {"button Convert to Tarnwell Appointment",
         "one that was never saved",
         [](Scene& scene) {
             scene.write(acceptance::new_item(scene.world, acceptance::item_type::appointment), u"Subject",
                         u"Never saved");
         },
         presses(u"ApptButton1"),
         {"MessageClass"}},
        {"button Tarnwell Email Templates", "", shows(&Scene::mail), presses(u"EmailTemplateButton")},
        {"button Tarnwell Document Templates", "", shows(&Scene::ann), presses(u"DocumentTemplateButton")},
        {"button Tarnwell Excel Templates", "", shows(&Scene::ann), presses(u"ExcelTemplateButton")},
        {"button Save as Email Template", "", then(shows(&Scene::mail), answers({{u"Are you sure", yes}})),
         presses(u"SaveAsTemplateButton")},
        {"button Save as Email Template", "with the name of an entry of another list",
         then(shows(&Scene::strange), answers({{u"Are you sure", yes}})), presses(u"SaveAsTemplateButton")},
        {"button Tarnwell", "", shows(&Scene::mail), presses(u"ApptButton1")},
        {"entry Tarnwell Quick View", "", selects(&Scene::mail), presses_entry(u"Tarnwell Quick View")},
        {"entry Tarnwell Create Note", "", selects(&Scene::mail), presses_entry(u"Tarnwell Create Note")},

        {"operation AutomaticCreateNote", "", files_received, calls(u"AutomaticCreateNote", &Scene::mail),
         filed},
        {"operation AutomaticCreateNoteSend", "", nothing, calls(u"AutomaticCreateNoteSend", &Scene::mail),
         filed},
        {"operation ShowQuickView", "", selects(&Scene::mail), calls_for_selection(u"ShowQuickView")},
        {"operation ShowTarnwell", "", selects(&Scene::mail), calls_for_selection(u"ShowTarnwell")},
        {"operation ShowTarnwell", "a stranger",
         then(selects(&Scene::strange), answers({{create_question, yes}, {account_question, no}})),
         calls_for_selection(u"ShowTarnwell")},
        {"operation ShowItemsMenu", "", nothing, calls(u"ShowItemsMenu", &Scene::ann)},
        {"operation ShowItemsMenu2", "", nothing, calls(u"ShowItemsMenu2", &Scene::ann)},
        {"operation PowerPanel", "", nothing,
         [](Scene& scene) { scene.world.connect().call(u"PowerPanel"); }},
        {"operation FindFolder", "", nothing,
         [](Scene& scene) { scene.world.connect().call(u"FindFolder"); }},
        {"operation FindNextFolder", "", nothing,
         [](Scene& scene) {
             scene.world.connect().call(u"FindNextFolder", {Value(scene.world.name_space().get(u"Folders"))});
         }},
        {"operation QueryValueEx", "", nothing, queries},
        {"operation GetKeyValueEx", "", nothing, reads_option},
        {"operation SetValueEx", "", nothing, writes_value},
        {"operation SetKeyValue", "", nothing, writes_option},
        {"operation FileExists", "", nothing,
         [](Scene& scene) { scene.world.connect().call(u"FileExists", {scene.world.add_in_folder()}); }},
        {"operation ShowMessage", "", nothing,
         [](Scene& scene) { scene.world.connect().call(u"ShowMessage", {u"Text"}); }},
        {"operation ShowImportMessage", "", nothing,
         [](Scene& scene) {
             const Object connect = scene.world.connect();
             connect.call(u"ShowImportMessage", {u"Text", 10});
             connect.call(u"ShowImportMessage", {u"", 0});  // as each caller owes it
         }},

        {"IDTExtensibility2.OnConnection", "", unloads_add_in, loads_add_in},
        {"IDTExtensibility2.OnConnection", "a first run", before_first_run, loads_add_in},
        {"IDTExtensibility2.OnConnection", "a first run with its marker",
         then(before_first_run,
              [](Scene& scene) {
                  std::ofstream(std::filesystem::path(scene.world.add_in_folder() + u"/initial.txt")) << "1";
              }),
         loads_add_in},
        {"IDTExtensibility2.OnDisconnection", "", shows(&Scene::mail), unloads_add_in},
        {"IDTExtensibility2.OnBeginShutdown", "", shows(&Scene::mail),
         [](Scene& scene) { scene.world.add_in()->IDTExtensibility2_OnBeginShutdown(); }},
    };
    for (const TextView member :
         {u"GlobalCalendar", u"GlobalTask", u"SetDatabase", u"whoami", u"bFinished"}) {
        all.push_back(quiet_entry("operation " + acceptance::shown(member), nothing, [member](Scene& scene) {
            const Object connect = scene.world.connect();
            connect.put(member, connect.get(member));
        }));
    }
    return all;
}

}  // namespace

const std::vector<Entry>& entries_of_host() {
    static const std::vector<Entry> all = made_host_entries();
    return all;
}

}  // namespace addin_tests
