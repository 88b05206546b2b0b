#include "addin/conversions/appointment_conversion.h"

#include "addin/conversions/shown_item.h"
#include "addin/ground/steps.h"
#include "addin/host/cdo.h"
#include "addin/records/names.h"

namespace addin::conversions {

using automation::Text;
using host::outlook::Item;

void convert_appointment(Session& session) {
    host::Desktop& desktop = session.desktop;
    const Steps steps(session);
    // made anew: the session's application isn't used here
    host::outlook::Application application;
    steps.set(application,
              [&] { return host::outlook::Application(desktop.create(host::outlook::application_prog_id)); });
    const auto calendar_store = [&] {
        return application.GetNamespace(u"MAPI")
            .GetDefaultFolder(host::outlook::default_folder::calendar)
            .StoreID();
    };
    Item appointment;
    steps.set(appointment, [&] { return shown_item(application, host::outlook::object_class::appointment); });
    Text id;
    steps.set(id, [&] { return appointment.EntryID(); });
    if (id.empty()) {
        steps.run([&] { appointment.Save(); });
        steps.set(id, [&] { return appointment.EntryID(); });
    }

    host::cdo::CdoSession cdo;
    steps.set(cdo, [&] { return host::cdo::CdoSession(desktop.create(host::cdo::session_prog_id)); });
    steps.run([&] { cdo.Logon(); });
    host::cdo::Message message;
    steps.set(message, [&] {
        const Text entry_id = appointment.EntryID();
        return cdo.GetMessage(entry_id, calendar_store());
    });
    steps.run([&] { message.Type(records::message_class::appointment); });
    steps.run([&] { message.Update(true, true); });

    // one that couldn't be saved is there in its window alone
    if (!id.empty()) steps.run([&] { appointment.Close(host::outlook::discard_changes); });
    appointment.reset();
    steps.set(appointment, [&] {
        const host::outlook::NameSpace name_space = application.GetNamespace(u"MAPI");
        return name_space.GetItemFromID(id, calendar_store());
    });
    steps.run([&] { appointment.Display(); });
    appointment.reset();
    application.reset();
    message.reset();
    steps.run([&] { cdo.Logoff(); });
}

}  // namespace addin::conversions
