// Why a mail is left alone. The test that decides so bears the reason's name, so that who observes the steps
// can tell it.
#pragma once

#include "automation/text.h"

namespace addin {

enum class Reason {
    none,
    other_class,
    unread,
    filed_already,
    not_for_everybody,
    received_filing_off,
    sent_filing_off,
    no_sender_address,
    no_recipients,
    no_recipient_address,
    directory_filing_off,
    other_address_type,
    no_to_line,
    no_contact,
};

/// A reason, and what it is about: an address, a class. That may be personal, and is not to be told to
/// everybody. It is looked at while the test decides.
struct Why {
    Why(Reason which = Reason::none, automation::TextView what = {}) : reason(which), about(what) {}

    Reason reason;
    automation::TextView about;
};

}  // namespace addin
