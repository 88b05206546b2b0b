// Which bars and buttons the window of an item gets: the whole of its bars for each kind of item, in each
// state of the bar that the buttons stand on.
#include "tests/world/button_lines.h"
#include "tests/world/host_numbers.h"
#include "tests/world/people.h"

namespace acceptance {
namespace {

using automation::TextView;
using host::outlook::Folder;
using host::outlook::Item;
namespace default_folder = host::outlook::default_folder;

class InspectorCommands : public Acceptance {
  protected:
    /// Opens a window on an item and closes it again; answers its bars while it was open.
    static Lines opened(const Item& item, BarState state) {
        OpenedItem window(item);
        prepare_bar(window.window, state);
        window.show();
        return bars_of(window.window);
    }
};

struct KindCase {
    const char* name;
    Item (*make)(World&);
    Lines absent, empty, filled;  ///< all bars of the window, by the state in which the bar was
};

void expect_bars(World& world, const KindCase& one) {
    struct Expected {
        BarState state;
        const Lines& bars;
    };
    const Item item = one.make(world);
    for (const auto& [state, bars] :
         {Expected{BarState::absent, one.absent}, Expected{BarState::empty, one.empty},
          Expected{BarState::filled, one.filled}}) {
        SCOPED_TRACE(std::string(one.name) + ", bar " + told(state));
        OpenedItem window(item);
        prepare_bar(window.window, state);
        window.show();
        EXPECT_EQ(bars_of(window.window), bars);
    }
}

Item saved(const Item& item) {
    item.Subject(u"Our offer");
    item.Save();
    return item;
}

// mail

TEST_F(InspectorCommands, OfMail) {
    World& world = with({});
    show_folder(world, world.inbox());
    const KindCase cases[] = {
        {"a new mail", [](World& w) { return new_item(w, item_type::mail); },
         joined({menu_bar(""), shown_bar({create_note, email_templates, save_as_template})}),
         joined({menu_bar(""), shown_bar({create_note, open_contact_shown})}),
         joined({menu_bar(""), shown_bar(left_controls({.create_note = "shown", .open_contact = "shown"}))})},
        {"a new mail that was saved", [](World& w) { return saved(new_item(w, item_type::mail)); },
         joined({menu_bar("its id"),
                 shown_bar({create_note, email_templates, save_as_template, open_contact_group_shown})}),
         joined({menu_bar("its id"), shown_bar({create_note, open_contact_shown})}),
         joined({menu_bar("its id"),
                 shown_bar(left_controls({.create_note = "shown", .open_contact = "shown"}))})},
        {"a received mail", [](World& w) { return w.deliver(message()); },
         joined({menu_bar("its id"),
                 shown_bar({create_note, email_templates, save_as_template, open_contact_group_shown})}),
         joined({menu_bar("its id"), shown_bar({create_note, open_contact_shown})}),
         joined({menu_bar("its id"),
                 shown_bar(left_controls({.create_note = "shown", .open_contact = "shown"}))})},
        {"an unknown class", [](World& w) { return new_item(w, drafts, u"IPM.Other.Thing"); },
         joined({menu_bar(""), shown_bar({create_note, email_templates, save_as_template})}),
         joined({menu_bar(""), shown_bar({create_note, open_contact_shown})}),
         joined({menu_bar(""), shown_bar(left_controls({.create_note = "shown", .open_contact = "shown"}))})},
    };
    for (const KindCase& one : cases) expect_bars(world, one);
}

/// Of mail that is opened while the explorer shows Sent Items, or a folder that is only called so.
const Lines sent_filled = joined(
    {menu_bar("its id"), shown_bar(left_controls({.create_note = "shown", .open_contact = "hidden"}))});
const KindCase mail_from_sent_items[] = {
    {"a new mail", [](World& w) { return new_item(w, item_type::mail); },
     joined({menu_bar(""), shown_bar({create_note, email_templates, save_as_template})}),
     joined({menu_bar(""), shown_bar({create_note, open_contact_hidden})}),
     joined({menu_bar(""), shown_bar(left_controls({.create_note = "shown", .open_contact = "hidden"}))})},
    {"a saved mail", [](World& w) { return saved(new_item(w, item_type::mail)); },
     joined({menu_bar("its id"),
             shown_bar({create_note, email_templates, save_as_template, open_contact_group_hidden})}),
     joined({menu_bar("its id"), shown_bar({create_note, open_contact_hidden})}), sent_filled},
    {"a received mail", [](World& w) { return w.deliver(message()); },
     joined({menu_bar("its id"),
             shown_bar({create_note, email_templates, save_as_template, open_contact_group_hidden})}),
     joined({menu_bar("its id"), shown_bar({create_note, open_contact_hidden})}), sent_filled},
};

TEST_F(InspectorCommands, OfMailThatIsOpenedFromSentItems) {
    World& world = with({});
    show_folder(world, world.name_space().GetDefaultFolder(default_folder::sent_mail));
    for (const KindCase& one : mail_from_sent_items) expect_bars(world, one);
}

TEST_F(InspectorCommands, OfMailThatIsOpenedFromAnotherFolderCalledSentItems) {
    World& world = with({});
    const Folder other(
        world.name_space().GetDefaultFolder(drafts).Folders().call(u"Add", {u"Sent Items"}).to_object());
    show_folder(world, other);
    for (const KindCase& one : mail_from_sent_items) expect_bars(world, one);
}

TEST_F(InspectorCommands, OfMailFollowTheNameThatSentItemsHasNow) {
    World& world = with({});
    const Folder sent = world.name_space().GetDefaultFolder(default_folder::sent_mail);
    sent.put(u"Name", u"What went out");
    const Item mail = world.deliver(message());
    show_folder(world, sent);
    EXPECT_EQ(opened(mail, BarState::empty),
              joined({menu_bar("its id"), shown_bar({create_note, open_contact_hidden})}));
    show_folder(
        world,
        Folder(
            world.name_space().GetDefaultFolder(drafts).Folders().call(u"Add", {u"Sent Items"}).to_object()));
    EXPECT_EQ(opened(mail, BarState::empty),
              joined({menu_bar("its id"), shown_bar({create_note, open_contact_shown})}));
}

TEST_F(InspectorCommands, OfMailOnABarThatHasOnlyOneOfThem) {
    World& world = with({});
    show_folder(world, world.inbox());
    const Item mail = world.deliver(message());
    struct Case {
        TextView tag;
        Lines controls;
    };
    const Case cases[] = {
        {u"CreateNoteButton", {left("CreateNoteButton", "shown")}},
        {u"OpenContactButton", {left("OpenContactButton", "hidden"), create_note, open_contact_shown}},
        {u"SaveAsTemplateButton", {left("SaveAsTemplateButton", "hidden"), create_note, open_contact_shown}},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(shown(one.tag));
        OpenedItem window(mail);
        add_button(prepare_bar(window.window, BarState::empty), one.tag);
        window.show();
        EXPECT_EQ(bars_of(window.window), joined({menu_bar("its id"), shown_bar(one.controls)}));
    }
}

// what is left alone

TEST_F(InspectorCommands, OfStickyNotesAndConflictsAreNone) {
    World& world = with({});
    const KindCase cases[] = {
        {"a sticky note", [](World& w) { return new_item(w, item_type::note); }, own_bars(),
         joined({own_bars(), bar_as_left({})}), joined({own_bars(), bar_as_left(left_controls())})},
        {"a saved sticky note",
         [](World& w) {
             const Item note = new_item(w, item_type::note);
             note.Body(u"Call Ann");
             note.Save();
             return note;
         },
         own_bars(), joined({own_bars(), bar_as_left({})}),
         joined({own_bars(), bar_as_left(left_controls())})},
        {"a conflict message",
         [](World& w) { return w.deliver(message({.more = "X-Desk-Class: IPM.Conflict.Message\n"})); },
         own_bars(), joined({own_bars(), bar_as_left({})}),
         joined({own_bars(), bar_as_left(left_controls())})},
    };
    for (const KindCase& one : cases) expect_bars(world, one);
}

// appointments, tasks and others

TEST_F(InspectorCommands, OfAppointments) {
    World& world = with({});
    show_folder(world, world.inbox());
    const Lines convert{"Convert Appointment, row -1, shown, enabled", convert_appointment};
    const KindCase cases[] = {
        {"a new personal appointment", [](World& w) { return new_item(w, item_type::appointment); },
         joined({own_bars(), convert}), joined({own_bars(), hidden_bar({}), convert}),
         joined({own_bars(), hidden_bar(left_controls()), convert})},
        {"a saved personal appointment", [](World& w) { return saved(new_item(w, item_type::appointment)); },
         joined({own_bars(), convert}), joined({own_bars(), hidden_bar({}), convert}),
         joined({own_bars(), hidden_bar(left_controls()), convert})},
        {"an appointment of another class",
         [](World& w) { return new_item(w, default_folder::calendar, u"IPM.Appointment.TarnwellAppts"); },
         joined({own_bars(), convert}), joined({own_bars(), hidden_bar({}), convert}),
         joined({own_bars(), hidden_bar(left_controls()), convert})},
        {"a new linked appointment",
         [](World& w) { return new_item(w, default_folder::calendar, u"IPM.Appointment.TarnwellAppt"); },
         menu_bar(""), joined({menu_bar(""), bar_as_left({})}),
         joined({menu_bar(""), bar_as_left(left_controls())})},
        {"a saved linked appointment",
         [](World& w) {
             return saved(new_item(w, default_folder::calendar, u"IPM.Appointment.TarnwellAppt"));
         },
         menu_bar("its id"), joined({menu_bar("its id"), bar_as_left({})}),
         joined({menu_bar("its id"), bar_as_left(left_controls())})},
    };
    for (const KindCase& one : cases) expect_bars(world, one);
}

TEST_F(InspectorCommands, OfTasksPostsAndJournalEntries) {
    World& world = with({});
    show_folder(world, world.inbox());
    constexpr std::int32_t journal = 11;  // OlDefaultFolders
    const KindCase cases[] = {
        {"a new task", [](World& w) { return new_item(w, item_type::task); }, menu_bar(""),
         joined({menu_bar(""), hidden_bar({})}), joined({menu_bar(""), hidden_bar(left_controls())})},
        {"a saved task", [](World& w) { return saved(new_item(w, item_type::task)); }, menu_bar("its id"),
         joined({menu_bar("its id"), hidden_bar({})}),
         joined({menu_bar("its id"), hidden_bar(left_controls())})},
        {"a new linked task",
         [](World& w) { return new_item(w, default_folder::tasks, u"IPM.Task.TarnwellTask"); }, menu_bar(""),
         joined({menu_bar(""), bar_as_left({})}), joined({menu_bar(""), bar_as_left(left_controls())})},
        {"a new post", [](World& w) { return new_item(w, item_type::post); }, menu_bar(""),
         joined({menu_bar(""), hidden_bar({})}), joined({menu_bar(""), hidden_bar(left_controls())})},
        {"a filed note", [](World& w) { return saved(w.below(u"Email").Items().Add(u"IPM.Post.Note")); },
         menu_bar("its id"), joined({menu_bar("its id"), hidden_bar({})}),
         joined({menu_bar("its id"), hidden_bar(left_controls())})},
        {"an account profile",
         [](World& w) { return saved(w.account_profiles().Items().Add(u"IPM.Post.Tarnwell_2000")); },
         menu_bar("its id"), joined({menu_bar("its id"), hidden_bar({})}),
         joined({menu_bar("its id"), hidden_bar(left_controls())})},
        {"a journal entry", [](World& w) { return new_item(w, journal, u"IPM.Activity"); }, menu_bar(""),
         joined({menu_bar(""), hidden_bar({})}), joined({menu_bar(""), hidden_bar(left_controls())})},
    };
    for (const KindCase& one : cases) expect_bars(world, one);
}

}  // namespace
}  // namespace acceptance
