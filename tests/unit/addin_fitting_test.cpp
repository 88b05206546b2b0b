// What the fitting of an item's window and the sending of a mail do that can only be seen from inside.
#include "tests/native/native_world.h"
#include "tests/world/people.h"

namespace addin_tests {
namespace {

using automation::Object;
using automation::TextView;
using host::outlook::Item;
using native::NativeWorld;

constexpr TextView linked_appointment = u"IPM.Appointment.TarnwellAppt";

TEST(Fitting, HidesABarUnlessTheCalendarsFormIsThatOfLinkedAppointments) {
    struct Case {
        TextView default_class;
        bool visible;
    };
    for (const auto& [default_class, visible] :
         {Case{u"IPM.Appointment", false}, Case{linked_appointment, true}}) {
        SCOPED_TRACE(acceptance::shown(default_class));
        NativeWorld world({});
        desk::Desk& model = world.model();
        desk::FolderRow calendar =
            model.existing_folder(model.default_folder(host::outlook::default_folder::calendar));
        calendar.default_class = default_class;
        model.change_folder(calendar);
        constexpr std::int32_t appointment_item = 1, top = 1;
        const Item appointment(world.application().call(u"CreateItem", {appointment_item}).to_object());
        const Object window = appointment.get(u"GetInspector").to_object();
        const Object bar = window.get(u"CommandBars")
                               .to_object()
                               .call(u"Add", {u"TarnwellCreateNote", top, false, true})
                               .to_object();
        bar.put(u"Visible", true);
        appointment.call(u"Display");
        EXPECT_EQ(bar.get(u"Visible").to_boolean(), visible);
    }
}

TEST(Sending, WaitsASecondForEachRecipientWhoIsLookedFor) {
    struct Case {
        TextView to;
        unsigned seconds;
    };
    for (const auto& [to, seconds] :
         {Case{u"Ann Lee <ann.lee@northmill.example>", 1}, Case{u"zoe@quill.example", 1},
          Case{u"ann.lee@northmill.example; zoe@quill.example", 2}, Case{u"All Millers", 0},
          Case{u"All Millers; ann.lee@northmill.example", 1}}) {
        SCOPED_TRACE(acceptance::shown(to));
        NativeWorld world({});
        world.option(u"AutoFileSentEmails", u"1");
        acceptance::add_contact(world);
        acceptance::add_list(world, u"All Millers");
        constexpr std::int32_t mail_item = 0;
        const Item mail(world.application().call(u"CreateItem", {mail_item}).to_object());
        mail.put(u"To", to);
        mail.call(u"Send");
        EXPECT_EQ(world.system().slept, seconds * 1000U);
    }
}

}  // namespace
}  // namespace addin_tests
