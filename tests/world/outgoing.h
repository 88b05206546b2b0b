// Mail that goes out: a world in which sent mail is filed, and what becomes of a mail that is sent in it.
#pragma once

#include "tests/world/bars.h"
#include "tests/world/people.h"

namespace acceptance {

struct OutgoingPlan {
    automation::Text to = u"Ann Lee <ann.lee@northmill.example>";
    automation::Text cc{};
    automation::Text subject = u"Our offer";
    automation::Text body = u"The first line\r\nThe second line\r\n";
};

/// A new mail, not saved and not shown.
host::outlook::Item new_mail(World& world, const OutgoingPlan& plan = {});

/// The mails that were sent.
host::outlook::Items sent_items(World& world);

/// Sends a mail, which must succeed; answers it as it lies among the sent ones, the last of them.
host::outlook::Item send(World& world, const host::outlook::Item& mail);

/// Whether a mail bears the mark of sent mail that was filed.
bool is_marked_as_sent(const host::outlook::Item& mail);

/// The texts that the status window shows for one recipient.
namespace status {
inline constexpr const char* entry = "Checking names...  ";
Lines skipped(const std::string& name);  ///< nothing is looked for
Lines without_to_line(const std::string& name);
Lines stranger(const std::string& name);
Lines contact(const std::string& name, const std::string& full_name);
}  // namespace status

class Outgoing : public Filing {
  protected:
    /// A world in which sent mail is filed, and received mail isn't.
    World& sending(const WorldSetup& setup = {}) {
        World& made = with(setup);
        made.option(u"AutoFileSentEmails", u"1");
        return made;
    }

    /// The same world again, for the next of several cases.
    World& cleared();

    /// A contact whose three addresses are all known: an empty one would equal an address that isn't.
    static host::outlook::Item add_full_contact(World& world, automation::TextView full_name,
                                                automation::TextView address);
};

}  // namespace acceptance
