// What a user does in the add-in's windows.
#include "addin/commands/small_windows.h"
#include "tests/unit/support/entries.h"
#include "tests/world/host_numbers.h"
#include "tests/world/quick_view.h"
#include "tests/world/search_panel.h"

namespace addin_tests {
namespace {

using acceptance::account_question;
using acceptance::create_question;
using acceptance::no;
using acceptance::yes;
using automation::TextView;
using automation::Value;
using host::outlook::Item;
using native::MemoryControl;

constexpr TextView dialog = u"Tarnwell Create Note", panel = u"Tarnwell Search Panel",
                   quick_view = u"TW Quick View";
constexpr TextView picker = u"Account List";

const std::vector<std::string> mark{"FlagStatus", "FlagRequest", "BillingInformation", "FlagIcon"};

/// What is done with a control, if it is there.
using Use = std::function<void(MemoryControl&)>;
Deed use(TextView window, TextView name, const Use& what) {
    return [=](Scene& scene) {
        if (MemoryControl* const control = scene.control(window, name)) what(*control);
        scene.world.settle();
    };
}
void clicks(MemoryControl& control) { control.click(); }
Use types(TextView text) {
    return [text](MemoryControl& control) { control.type(text); };
}
Use chooses(int entry) {
    return [entry](MemoryControl& control) { control.choose(entry); };
}
Use double_clicks(int row) {
    return [row](MemoryControl& control) { control.double_click(row); };
}
Use clicks_column(int column) {
    return [column](MemoryControl& control) { control.column_click(column); };
}

Deed after(std::vector<Deed> deeds) {
    return [deeds = std::move(deeds)](Scene& scene) {
        for (const Deed& deed : deeds) deed(scene);
    };
}

// The dialog

Deed dialog_over(Item Scene::*mail) {
    return [mail](Scene& scene) {
        acceptance::install(scene.world, {acceptance::SearchTarget{}});
        scene.show(scene.*mail);
        scene.press(u"CreateNoteButton");
    };
}
const Deed dialog_over_ann = dialog_over(&Scene::mail), dialog_over_eve = dialog_over(&Scene::strange);
void dialog_from_explorer(Scene& scene) {
    scene.select(scene.mail);
    scene.press_entry(u"Tarnwell Create Note");
}
void search_ann(Scene& scene) {
    use(dialog, u"Combo2", chooses(0))(scene);
    use(dialog, u"SearchString", types(u"Ann"))(scene);
}
Deed answers_both(std::int32_t create, std::int32_t account) {
    return [=](Scene& scene) {
        scene.answer(create_question, create);
        scene.answer(account_question, account);
    };
}
void picks_account(Scene& scene) { scene.pick(picker); }

// Quick View

Deed view_of_ann(int folder) {
    return [folder](Scene& scene) {
        scene.world.option(u"EnableQuickView", u"1");
        const host::outlook::Folders folders = scene.world.account_profiles().Folders();
        for (std::int32_t i = folders.Count(); i < 12; ++i) {
            folders.call(u"Add", {Value(u"More " + automation::to_text(static_cast<long long>(i)))});
        }
        acceptance::add_note(scene.world, u"Of Ann",
                             {{u"ContactID", u"C-200"}, {u"Account Name", u"North Mill Ltd"}});
        scene.select(scene.mail);
        if (folder >= 0) use(quick_view, u"cmbFolders", chooses(folder))(scene);
    };
}
void notes_of_ann(Scene& scene) {
    for (const automation::Text subject : {u"First", u"Second"}) {
        acceptance::add_note(scene.world, subject,
                             {{u"ContactID", u"C-200"}, {u"Account Name", u"North Mill Ltd"}});
    }
    view_of_ann(0)(scene);
}
Deed uses_view(TextView control, const Use& what) { return use(quick_view, control, what); }

// The Search Panel

void panel_of_ann(Scene& scene) {
    acceptance::install_panel(scene.world);
    acceptance::add_note(
        scene.world, u"Of Ann",
        {{u"AccountID", u"A-100"}, {u"ContactID", u"C-200"}, {u"Account Name", u"North Mill Ltd"}});
    for (const Item& item : {Item(), scene.ann}) {
        scene.world.connect().call(u"ShowItemsMenu2", {Value(item)});
        scene.world.settle();
    }
}
void searched_panel_of_ann(Scene& scene) {
    panel_of_ann(scene);
    use(panel, u"SearchMe", chooses(0))(scene);
}
/// The panel with a row of a file of the index.
void panel_with_file(Scene& scene) {
    panel_of_ann(scene);
    const automation::Text file = scene.world.write_document("offer.txt", "An offer");
    const automation::Text folder = file.substr(0, file.rfind(u'\\'));
    native::MemoryList& rows = scene.control(panel, u"lstItems")->memory_list();
    rows.add(std::vector<automation::Text>{u"File Search", u"offer.txt", folder, u"", u"", folder});
}
void empty_panel(Scene& scene) {
    acceptance::install_panel(scene.world);
    scene.world.connect().call(u"PowerPanel");
    scene.world.settle();
}
void picks_contact(Scene& scene) {
    use(panel, u"SearchMe", chooses(1))(scene);
    scene.pick(u"Contacts by id");
    scene.pick(u"Accounts by id");
}

// Small windows

void small_window(Scene& scene) { scene.world.add_in()->rooms().commands.Tarnwell.show(); }
void information(Scene& scene) { scene.world.add_in()->rooms().commands.TarnwellInfo.show(); }

std::vector<Entry> made_window_entries() {
    std::vector<Entry> all{
        {"dlgSend.cmdSend", "for a contact", dialog_over_ann, use(dialog, u"cmdSend", clicks), mark},
        {"dlgSend.cmdSend", "at account level",
         after({dialog_over_ann, use(dialog, u"Option1", clicks), use(dialog, u"Combo2", chooses(1))}),
         use(dialog, u"cmdSend", clicks), mark},
        {"dlgSend.cmdSend", "from the explorer", dialog_from_explorer, use(dialog, u"cmdSend", clicks), mark},
        {"dlgSend.cmdSend", "for a stranger", after({dialog_over_eve, answers_both(yes, no)}),
         use(dialog, u"cmdSend", clicks), mark},
        {"dlgSend.cmdSend", "for a stranger with an account",
         after({dialog_over_eve, answers_both(yes, yes)}),
         after({use(dialog, u"cmdSend", clicks), picks_account}), mark},
        {"dlgSend.cmdSend", "for a record",
         after({dialog_over_ann, search_ann, use(dialog, u"cmdSearch", clicks)}),
         use(dialog, u"cmdSend", clicks), mark},
        {"dlgSend.Check1", "stays open", after({dialog_over_ann, use(dialog, u"Check1", clicks)}),
         use(dialog, u"cmdSend", clicks), mark},
        {"dlgSend.lstRecipients", "double click", dialog_over_ann,
         use(dialog, u"lstRecipients", double_clicks(0)), mark},
        quiet_entry("dlgSend.lstRecipients", dialog_over_ann,
                    use(dialog, u"lstRecipients", clicks_column(0))),
        {"dlgSend.cmdSearch", "", after({dialog_over_ann, search_ann}), use(dialog, u"cmdSearch", clicks)},
        {"dlgSend.SearchString", "Enter", after({dialog_over_ann, search_ann}),
         use(dialog, u"SearchString", [](MemoryControl& box) { box.key(13); })},
        {"dlgSend.Combo2", "a target", dialog_over_ann, use(dialog, u"Combo2", chooses(0))},
        {"dlgSend.Combo2", "the addresses", dialog_over_ann, use(dialog, u"Combo2", chooses(1))},
        quiet_entry("dlgSend.Option1", dialog_over_ann, use(dialog, u"Option1", clicks)),
        {"dlgSend.Option2", "", after({dialog_over_ann, use(dialog, u"Option1", clicks)}),
         use(dialog, u"Option2", clicks)},
        quiet_entry("dlgSend.cmdCancel", dialog_over_ann, use(dialog, u"cmdCancel", clicks)),
        quiet_entry("dlgSend.Combo1", dialog_over_ann, use(dialog, u"Combo1", chooses(0))),
        quiet_entry("dlgSend.txtNote", dialog_over_ann, use(dialog, u"txtNote", types(u"Dates"))),

        {"ShowItems.SearchMe", "of a record", panel_of_ann, use(panel, u"SearchMe", chooses(0))},
        {"ShowItems.SearchMe", "of one that is picked", empty_panel, picks_contact},
        {"ShowItems.lstItems", "double click", searched_panel_of_ann,
         use(panel, u"lstItems", double_clicks(0))},
        quiet_entry("ShowItems.lstItems", searched_panel_of_ann, use(panel, u"lstItems", clicks_column(3))),
        {"ShowItems.lstItems", "double click on a file", panel_with_file,
         use(panel, u"lstItems", double_clicks(0))},
        {"ShowItems.Contactname", "", searched_panel_of_ann, use(panel, u"Contactname", clicks)},
        {"ShowItems.CompanyName", "", searched_panel_of_ann, use(panel, u"CompanyName", clicks)},

        {"QuickView.cmdSearchpanel", "", view_of_ann(-1), uses_view(u"cmdSearchpanel", clicks)},
        {"QuickView.Contactname", "", view_of_ann(-1), uses_view(u"Contactname", clicks)},
        {"QuickView.CompanyName", "", view_of_ann(-1), uses_view(u"CompanyName", clicks)},
        {"QuickView.lstItems", "double click", view_of_ann(0), uses_view(u"lstItems", double_clicks(0))},
        quiet_entry("QuickView.lstItems", view_of_ann(0), uses_view(u"lstItems", clicks_column(1))),
        {"QuickView.lstItems", "sort by date", notes_of_ann, uses_view(u"lstItems", clicks_column(1))},
        {"QuickView.lstItems", "drop", view_of_ann(1),
         uses_view(u"lstItems", [](MemoryControl& list) { list.drop(0); }), mark},

        {"Tarnwell.Command1", "", small_window,
         after({use(u"Tarnwell", u"Command1", clicks), picks_account})},
        quiet_entry("Tarnwell.Command2", small_window, use(u"Tarnwell", u"Command2", clicks)),
        quiet_entry("TarnwellInfo.Combo1", information, use(u"Tarnwell Information", u"Combo1", types(u"x"))),
        quiet_entry("TarnwellInfo.Command1", information, use(u"Tarnwell Information", u"Command1", clicks)),
    };
    for (int folder = 0; folder < 6; ++folder) {
        const std::string name = "entry " + std::to_string(folder);
        all.push_back(
            {"QuickView.cmbFolders", name, view_of_ann(-1), uses_view(u"cmbFolders", chooses(folder))});
        all.push_back({"QuickView.cmdAdd", name, view_of_ann(folder), uses_view(u"cmdAdd", clicks), mark});
    }
    return all;
}

}  // namespace

Entry quiet_entry(std::string name, Deed prepare, Deed act) {
    Entry entry{std::move(name), "without a call", std::move(prepare), std::move(act)};
    entry.quiet = true;
    return entry;
}

std::vector<Entry> all_entries() {
    std::vector<Entry> all = entries_of_windows();
    all.insert(all.end(), entries_of_host().begin(), entries_of_host().end());
    return all;
}

const std::vector<Entry>& entries_of_windows() {
    static const std::vector<Entry> all = made_window_entries();
    return all;
}

}  // namespace addin_tests
