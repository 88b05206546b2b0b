#include "addin/host/cdo.h"
#include "tests/unit/support/model_support.h"

namespace model_tests {
namespace {

constexpr std::int32_t not_logged_on = static_cast<std::int32_t>(0x80040605);  // CdoE_NOT_INITIALIZED
constexpr std::int32_t class_tag = 0x001A001E, subject_tag = 0x0037001E;       // PR_MESSAGE_CLASS, PR_SUBJECT
constexpr TextView linked_class = u"IPM.Appointment.TarnwellAppt";

class Cdo : public ModelTest {
  protected:
    host::cdo::CdoSession cdo{world.desktop().create(host::cdo::session_prog_id)};
    Folder calendar = default_folder(folder_number::calendar);

    Item add_appointment(TextView subject) const {
        const Item appointment = calendar.Items().Add(u"IPM.Appointment");
        appointment.Subject(subject);
        appointment.Save();
        return appointment;
    }
    host::cdo::Message message_of(const Item& item) const {
        return cdo.GetMessage(item.EntryID(), calendar.StoreID());
    }
    Item from_id(TextView id) const { return Item(name_space.GetItemFromID(id, calendar.StoreID())); }
};

TEST_F(Cdo, AnswersOnlyWhileItIsLoggedOn) {
    const Item appointment = add_appointment(u"Visit");
    EXPECT_EQ(failure_of([&] { message_of(appointment); }), not_logged_on);
    cdo.Logon();
    EXPECT_EQ(message_of(appointment).Type(), u"IPM.Appointment");
    cdo.Logoff();
    EXPECT_EQ(failure_of([&] { message_of(appointment); }), not_logged_on);
    EXPECT_EQ(failure_of([&] { cdo.Logoff(); }), not_logged_on);
}

TEST_F(Cdo, FindsMessagesByTheirIdInTheirStore) {
    cdo.Logon();
    const Item appointment = add_appointment(u"Visit");
    EXPECT_EQ(text(message_of(appointment), u"ID"), appointment.EntryID());
    EXPECT_EQ(text(message_of(appointment), u"StoreID"), calendar.StoreID());
    EXPECT_EQ(text(message_of(appointment), u"FolderID"), calendar.EntryID());
    EXPECT_EQ(message_of(appointment).call(u"Subject").to_text(), u"Visit");

    const Text other_store = world.below(u"Email").StoreID();
    struct Case {
        Text id, store;
    };
    const Case cases[] = {{Text(), calendar.StoreID()},
                          {u"00", calendar.StoreID()},
                          {calendar.EntryID(), calendar.StoreID()},
                          {appointment.EntryID(), other_store}};
    for (const Case& one : cases) {
        EXPECT_EQ(failure_of([&] { cdo.GetMessage(one.id, one.store); }), result::not_found) << shown(one.id);
    }
}

TEST_F(Cdo, ChangesOfAMessageAreStoredByItsUpdate) {
    cdo.Logon();
    const Text id = add_appointment(u"Visit").EntryID();
    const host::cdo::Message message = cdo.GetMessage(id, calendar.StoreID());
    message.Type(linked_class);
    EXPECT_EQ(message.Type(), linked_class);
    EXPECT_EQ(from_id(id).MessageClass(), u"IPM.Appointment") << "not yet";
    message.Update(false, false);
    EXPECT_EQ(from_id(id).MessageClass(), u"IPM.Appointment") << "not for good";
    message.Update(true, true);

    const Item changed = from_id(id);
    EXPECT_EQ(changed.MessageClass(), linked_class);
    EXPECT_EQ(changed.Subject(), u"Visit");
    EXPECT_EQ(changed.EntryID(), id);
    EXPECT_EQ(text(changed.UserProperties().Item(u"AccountID"), u"Value"), u"") << "the fields of its form";
}

TEST_F(Cdo, AnUpdateMayForgetWhatWasChanged) {
    cdo.Logon();
    const Item appointment = add_appointment(u"Visit");
    const host::cdo::Message message = message_of(appointment);
    message.Type(linked_class);
    message.Update(false, true);
    EXPECT_EQ(message.Type(), u"IPM.Appointment");
}

TEST_F(Cdo, AnObjectOfTheHostDoesNotSeeTheChange) {
    cdo.Logon();
    const Item open = add_appointment(u"Visit");
    open.Display();
    open.Subject(u"Typed, not saved");
    const host::cdo::Message message = message_of(open);
    message.Type(linked_class);
    message.Update(true, true);

    EXPECT_EQ(open.MessageClass(), u"IPM.Appointment");
    EXPECT_EQ(open.Subject(), u"Typed, not saved");
    EXPECT_EQ(failure_of([&] { open.Save(); }), result::changed_meanwhile);
    const Item opened_again = from_id(message.call(u"ID").to_text());
    EXPECT_EQ(opened_again.MessageClass(), linked_class);
    EXPECT_EQ(opened_again.Subject(), u"Visit");

    open.call(u"Close", {1});  // discards
    EXPECT_EQ(from_id(opened_again.EntryID()).Subject(), u"Visit");
}

TEST_F(Cdo, HasPropertiesByTheirTags) {
    cdo.Logon();
    const Item appointment = add_appointment(u"Visit");
    const host::cdo::Message message = message_of(appointment);
    const auto field = [&](std::int32_t tag) { return message.get(u"Fields", {tag}).to_object(); };
    EXPECT_EQ(text(field(subject_tag), u"Value"), u"Visit");
    EXPECT_EQ(text(field(class_tag), u"Value"), u"IPM.Appointment");
    field(class_tag).put(u"Value", linked_class);
    field(subject_tag).put(u"Value", u"Changed");
    message.call(u"Update");
    EXPECT_EQ(from_id(appointment.EntryID()).MessageClass(), linked_class);
    EXPECT_EQ(from_id(appointment.EntryID()).Subject(), u"Changed");
    constexpr std::int32_t unknown_tag = 0x7FFE001E;
    EXPECT_EQ(failure_of([&] { field(unknown_tag); }), result::not_found);
}

TEST_F(Cdo, AMessageThatIsGoneCannotBeUpdated) {
    cdo.Logon();
    const Item appointment = add_appointment(u"Visit");
    const host::cdo::Message message = message_of(appointment);
    message.Type(linked_class);
    appointment.call(u"Delete");
    EXPECT_EQ(failure_of([&] { message.Update(true, true); }), result::not_found);
}

TEST_F(Cdo, TheFolderTellsOfAChangeAtTheNextYield) {
    cdo.Logon();
    const Item appointment = add_appointment(u"Visit");
    const Items watched = calendar.Items();
    const Listener listener(host::events::items, watched, {u"ItemAdd", u"ItemChange", u"ItemRemove"});
    const host::cdo::Message message = message_of(appointment);
    message.Type(linked_class);
    message.Update(true, true);
    EXPECT_EQ(listener.told, Told{});
    world.settle();
    EXPECT_EQ(listener.told, Told{"ItemChange Visit"});
}

}  // namespace
}  // namespace model_tests
