#include "addin/conversions/furnish.h"

#include "addin/conversions/appointment_conversion.h"
#include "addin/conversions/contact_conversion.h"

namespace addin::conversions {

void furnish(Session& session) {
    const auto command = [&session](Command which, void (*work)(Session&)) {
        session.commands.at(static_cast<std::size_t>(which)) = [&session, work](Connect&) { work(session); };
    };
    command(Command::convert_appointment, convert_appointment);
    command(Command::convert_contact, convert_to_contact);
    command(Command::convert_lead, convert_to_lead);
}

}  // namespace addin::conversions
