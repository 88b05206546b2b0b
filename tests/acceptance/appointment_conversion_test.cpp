// A personal appointment becomes a linked one: its class is changed behind the host's back, and its window
// is closed and opened anew.
#include "tests/world/button_lines.h"
#include "tests/world/item_state.h"
#include "tests/world/people.h"

namespace acceptance {
namespace {

using automation::Object;
using automation::TextView;
using host::outlook::Folder;
using host::outlook::Item;

constexpr TextView linked_class = u"IPM.Appointment.TarnwellAppt", personal_appointment = u"IPM.Appointment";
constexpr TextView appointment_bar = u"Convert Appointment", button = u"ApptButton1";

class AppointmentConversion : public Acceptance {
  protected:
    Folder calendar() {
        return world().name_space().GetDefaultFolder(host::outlook::default_folder::calendar);
    }
    Item planned(const Folder& folder) {
        const Item appointment = folder.Items().Add(personal_appointment);
        appointment.Subject(u"Tea at the mill");
        appointment.put(u"Location", u"York");
        appointment.put(u"Start", u"2026-03-03 09:15:00");
        appointment.Body(u"Bring the plans");
        return appointment;
    }

    /// Presses the button in an appointment's window; answers the ids of what was opened.
    Lines convert(
        const Item& appointment, const std::function<void()>& before_press = [] {}) {
        const Object opened(appointment.get(u"GetInspector").to_object());
        appointment.Display();
        before_press();
        const std::int32_t before = world().displayed();
        press(world(), opened, appointment_bar, button);
        Lines ids = world().ids_displayed_since(before);
        EXPECT_EQ(world().application().Inspectors().Count(), static_cast<std::int32_t>(ids.size()))
            << "its window has closed";
        return ids;
    }
    Item again(TextView id) { return world().name_space().GetItemFromID(id, calendar().StoreID()); }
    void close_windows() {
        const host::outlook::Inspectors open = world().application().Inspectors();
        while (open.Count() > 0) open.Item(1).Close(host::outlook::discard_changes);
    }
};

TEST_F(AppointmentConversion, ChangesTheClassAndNothingElse) {
    World& world = with({});
    const Object connect = world.connect();
    for (const bool saved : {true, false}) {
        SCOPED_TRACE(saved ? "saved" : "never saved");
        connect.put(u"GlobalCalendar", false);
        const Item appointment = planned(calendar());
        if (saved) appointment.Save();
        ItemState before = state_of(appointment);
        const Lines opened = convert(appointment);
        ASSERT_EQ(calendar().Items().Count(), 1);
        const Item there = calendar().Items().Item(1);
        EXPECT_EQ(opened, Lines{shown(there.EntryID())});
        EXPECT_EQ(there.MessageClass(), linked_class);
        EXPECT_TRUE(there.Saved());
        ItemState after = state_of(there);
        after.erase("CreationTime");
        before.erase("CreationTime");
        EXPECT_EQ(changes(before, after),
                  Lines{shown(u"MessageClass: IPM.Appointment.TarnwellAppt instead of IPM.Appointment")});

        const Object window = world.application().Inspectors().Item(1);
        EXPECT_FALSE(find_bar(window, appointment_bar)) << "it is offered once";
        EXPECT_EQ(bars_of(window), menu_bar("its id"));
        EXPECT_TRUE(connect.get(u"GlobalCalendar").to_boolean());
        close_windows();
        empty_folder(calendar());
    }
    EXPECT_EQ(count_messages(world), 0);
}

TEST_F(AppointmentConversion, OfALinkedOneIsOnlyToldOf) {
    World& world = with({});
    const Item appointment = calendar().Items().Add(linked_class);
    appointment.Subject(u"Tea at the mill");
    appointment.Save();
    const ItemState before = state_of(appointment);
    OpenedItem window(appointment);
    window.show();
    press(world, window.window, u"Menu Bar", u"ApptButton1");
    const Object told = window_of(world, u"Tarnwell Information");
    EXPECT_TRUE(is_shown(told));
    EXPECT_EQ(world.application().Inspectors().Count(), 1);
    EXPECT_EQ(changes(before, state_of(appointment)), Lines{});
    EXPECT_EQ(count_messages(world), 0);
}

TEST_F(AppointmentConversion, DropsWhatWasTypedIntoASavedOne) {
    with({});
    const Item appointment = planned(calendar());
    appointment.Save();
    const ItemState before = state_of(appointment);
    const Lines opened = convert(appointment, [&] { appointment.put(u"Location", u"Hull"); });
    ASSERT_EQ(opened.size(), 1U);
    EXPECT_EQ(changes(before, state_of(again(automation::from_utf8(opened[0])))),
              Lines{shown(u"MessageClass: IPM.Appointment.TarnwellAppt instead of IPM.Appointment")});
}

/// One step fails; the item is closed and opened again all the same.
TEST_F(AppointmentConversion, ClosesAndOpensTheWindowWhereTheClassCannotBeChanged) {
    World& world = with({});
    for (const TextView member : {u"CDO.Session.Logon", u"CDO.Session.GetMessage", u"CDO.Message.Update"}) {
        SCOPED_TRACE(shown(member));
        const Item appointment = planned(calendar());
        appointment.Save();
        const Lines opened = convert(appointment, [&] {
            appointment.put(u"Location", u"Hull");
            world.fail(member);
        });
        EXPECT_EQ(opened, Lines{shown(appointment.EntryID())});
        EXPECT_EQ(appointment.MessageClass(), personal_appointment);
        EXPECT_EQ(appointment.get(u"Location").to_text(), u"York") << "what was typed is dropped";
        close_windows();
        empty_folder(calendar());
    }
    EXPECT_EQ(count_messages(world), 0);
}

TEST_F(AppointmentConversion, OfAnotherStoreIsOnlyClosed) {
    World& world = with({});
    const Folder shared = Folder(world.account_profiles().Parent()).Folders().Item(u"Global Calendar");
    const Item appointment = planned(shared);
    appointment.Save();
    EXPECT_EQ(convert(appointment), Lines{});
    EXPECT_EQ(appointment.MessageClass(), personal_appointment);
    EXPECT_EQ(shared.Items().Count(), 1);
}

TEST_F(AppointmentConversion, LeavesAloneWhatIsNoAppointment) {
    World& world = with({});
    const Item appointment = planned(calendar());
    appointment.Save();
    OpenedItem window(appointment);
    window.show();
    OpenedItem mail(world.deliver(message()));
    mail.show();
    const ItemState before = state_of(mail.item);
    press(world, window.window, appointment_bar, button);
    EXPECT_EQ(changes(before, state_of(mail.item)), Lines{});
    EXPECT_EQ(appointment.MessageClass(), personal_appointment);
    EXPECT_EQ(world.application().Inspectors().Count(), 2);
}

}  // namespace
}  // namespace acceptance
