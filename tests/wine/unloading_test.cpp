// A host may let go of the add-in, and then of the libraries that nobody needs, while the add-in waits below
// a message loop. What waits comes back into code that is still there, and the library goes when all has
// ended.
#include <algorithm>
#include <array>
#include <memory>
#include <stdexcept>

#include "automation/com/com_ptr.h"
#include "tests/wine/support/windows_handle.h"
#include "tests/world/quick_view.h"
#include "tests/world/search_panel.h"

#include <psapi.h>

namespace wine {
namespace {

using acceptance::add_full_account;
using acceptance::NoteDialog;
using acceptance::OpenedItem;
using acceptance::Picker;
using acceptance::SearchPanel;
using acceptance::World;
using automation::Object;
using automation::TextView;
using automation::Value;
using host::outlook::Item;

/// Whether the desk's process has the add-in's library loaded.
bool library_is_loaded() {
    DWORD id = 0;
    GetWindowThreadProcessId(FindWindowW(L"TarnwellDeskExplorer", nullptr), &id);
    const windows_handle process(OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, id));
    std::array<HMODULE, 512> modules{};
    DWORD bytes = 0;
    if (!process || !EnumProcessModules(process.get(), modules.data(), sizeof modules, &bytes)) {
        throw std::runtime_error("the desk's libraries can't be listed");
    }
    const std::size_t count = std::min(modules.size(), bytes / sizeof(HMODULE));
    for (std::size_t i = 0; i < count; ++i) {
        std::array<wchar_t, MAX_PATH> name{};
        GetModuleBaseNameW(process.get(), modules.at(i), name.data(), static_cast<DWORD>(name.size()));
        if (_wcsicmp(name.data(), L"TarnwellNote.dll") == 0) return true;
    }
    return false;
}

class Unloading : public acceptance::SideView {
  public:
    // what the add-in may be at when the host lets go of it

    void picker_below_the_panel() {
        World& same = filing();
        install_panel(same);
        add_full_account(same);
        SearchPanel panel(same);
        panel.open_second(Item());
        panel.choose(u"Accounts");
        const Picker picker(same, u"Accounts by id");
        ASSERT_TRUE(picker.comes_up());
        let_go();
        EXPECT_TRUE(library_is_loaded());
        picker.click(u"cmdCancel");
        EXPECT_TRUE(picker.goes());
    }

    void modal_dialog() {
        const OpenedItem mail(filing().deliver(acceptance::message()));
        mail.item.Display();
        NoteDialog dialog(world());
        ASSERT_TRUE(dialog.open(mail));
        let_go();
        EXPECT_TRUE(library_is_loaded());
    }

    void search_that_gives_way() {
        World& same = filing({.host_version = u"9.0.0.3821"});
        install_panel(same);
        const Item account = add_full_account(same);
        SearchPanel panel(same);
        panel.open_second(Item());
        panel.open_second(account);
        let_go_at(u"Searching... Account Profiles");
        panel.choose(u"Accounts");
        EXPECT_TRUE(has_gone());
    }

    void drop() {
        World& same = viewing();
        show_ann();
        same.option(u"EnableQuickView", u"0");
        acceptance::Fields properties = acceptance::keys_of_ann;
        properties.insert(properties.end(), {{u"OppID", u"O-1"}, {u"Name", u"Row"}});
        acceptance::add_record(same, u"Opportunities", u"IPM.Post.Opportunity", u"Row", properties);
        view().choose_folder(u"Opportunities");
        const Item mail = same.deliver(acceptance::message());
        World::read(mail);
        select(mail);
        let_go_at(u"ItemChange");
        view().control(u"lstItems").call(u"Drop", {1, 1});
        EXPECT_TRUE(has_gone());
        EXPECT_TRUE(acceptance::is_marked_by_user(mail)) << "what had begun is done";
    }

    void status_window() {
        const Object connect = filing().connect();
        let_go_at(u"Importing");
        connect.call(u"ShowMessage", {u"Importing"});
        EXPECT_TRUE(has_gone());
    }

  protected:
    Object entry() { return world().application().COMAddIns().Item(u"CreateNote.Connect"); }
    void let_go() { entry().put(u"Connect", false); }
    void let_go_at(TextView moment) {
        world().desk().call(u"Meanwhile", {Value(moment), Value(entry()), u"Connect", false});
    }
    bool has_gone() {
        return world().wait_until([this] { return !entry().get(u"Connect").to_boolean(); });
    }
};

TEST_F(Unloading, WaitsForWhateverIsAtWork) {
    const struct {
        const char* name;
        void (Unloading::*begin_and_let_go)();
    } cases[] = {
        {"the picker below the panel", &Unloading::picker_below_the_panel},
        {"a modal dialog", &Unloading::modal_dialog},
        {"a search that gives way", &Unloading::search_that_gives_way},
        {"a drop", &Unloading::drop},
        {"a status window", &Unloading::status_window},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.name);
        (this->*one.begin_and_let_go)();
        World& same = world();
        EXPECT_TRUE(has_gone());
        EXPECT_TRUE(same.wait_for_handlers());

        // it comes back, works, and with nothing to do it goes at once
        entry().put(u"Connect", true);
        EXPECT_TRUE(library_is_loaded());
        same.family(u"EmailAutoFile", u"1");
        acceptance::add_contact(same, u"Bob Ray", u"bob@ray.example");
        const Item later = acceptance::read_mail(same, {.from = "Bob Ray <bob@ray.example>"});
        EXPECT_TRUE(same.wait_until([&] { return acceptance::is_marked(later); }));
        EXPECT_TRUE(same.wait_for_handlers());
        let_go();
        EXPECT_TRUE(same.wait_until([] { return !library_is_loaded(); }));
        same.quit();
    }
}

}  // namespace
}  // namespace wine
