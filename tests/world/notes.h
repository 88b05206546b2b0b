// The notes that the tests find, compared as a whole with what they are to hold.
#pragma once

#include "tests/world/people.h"

namespace acceptance {

/// A note's subject and all its properties that have a value, each as "name: value", in their order.
Lines told_note(const host::outlook::Item& note);

/// A copy of a mail is the mail: its texts, its people, its files.
void expect_same_mail(World& world, const host::outlook::Item& mail, const host::outlook::Item& copy);

/// A note that was filed of a mail. It holds what `told` says (as `told_note` tells it) and no more, two line
/// breaks and the mail's body, and, at its beginning, the mail as it was before it was marked.
void expect_note(World& world, const host::outlook::Item& note, const host::outlook::Item& mail,
                 const Lines& told);

/// How a note tells a mail's date.
std::string told_date(World& world, const host::outlook::Item& mail);

}  // namespace acceptance
