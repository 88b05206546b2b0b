// The people and mails that the tests put into the world, and what they look for afterwards.
#pragma once

#include <utility>

#include "tests/world/world.h"

namespace acceptance {

using Fields = std::vector<std::pair<automation::TextView, automation::Text>>;

/// A contact record, complete unless a test wants it otherwise.
struct ContactPlan {
    automation::Text full_name = u"Ann Lee";
    automation::Text company = u"North Mill Ltd";
    Fields fields = {{u"Email1Address", u"ann.lee@northmill.example"}};
    Fields properties = {{u"AccountID", u"A-100"},
                         {u"ContactID", u"C-200"},
                         {u"Account Manager", u"Mia Hart"},
                         {u"Team", u"Sales"},
                         {u"Alignment", u"North"}};
};

/// Saves a contact record to "Account Contacts".
host::outlook::Item add_contact(World& world, const ContactPlan& plan = {});

/// The same with another name and address.
host::outlook::Item add_contact(World& world, automation::TextView full_name, automation::TextView address);

/// Saves an empty distribution list to the user's contacts.
host::outlook::Item add_list(World& world, automation::TextView name);

struct MailPlan {
    std::string from = "Ann Lee <ann.lee@northmill.example>";
    std::string to = "Tom Prior <tom.prior@tarnwell.example>";  ///< no To line if it is empty
    std::string subject = "Delivery dates";
    std::string body = "The first line\nThe second line\n";
    std::string more{};  ///< further header lines, each with its end
};

std::string message(const MailPlan& plan = {});

/// Delivers a mail and reads it.
host::outlook::Item read_mail(World& world, const MailPlan& plan = {});

/// How many items a folder below "Account Profiles" holds.
std::int32_t count_in(World& world, automation::TextView folder);

/// The only item of such a folder; Nothing, and the test has failed, if it isn't alone.
host::outlook::Item only_item(World& world, automation::TextView folder = u"Email");

/// Whether a mail bears the mark of received mail that was filed.
bool is_marked(const host::outlook::Item& mail);

/// Tests of what happens to mail, in a world where received mail is filed.
class Filing : public Acceptance {
  protected:
    World& filing(const WorldSetup& setup = {}) {
        World& made = with(setup);
        made.family(u"EmailAutoFile", u"1");
        return made;
    }

    /// The same world again, without contacts, mails, notes and options: for the next of several cases. To
    /// start another one takes longer.
    World& emptied();

    /// No note came of the mail, and it bears no mark.
    static void expect_left_alone(World& world, const host::outlook::Item& mail);
};

/// What a test that failed prints.
inline std::string shown(automation::TextView text) { return automation::to_utf8(text); }

/// A list of texts that the desk keeps, as "Statuses", from a place on.
std::vector<std::string> texts_of(World& world, automation::TextView list, std::size_t from = 0);

/// Every text that the status window has shown, in order.
inline std::vector<std::string> statuses(World& world, std::size_t from = 0) {
    return texts_of(world, u"Statuses", from);
}

/// How many message boxes there were.
std::int32_t count_messages(World& world);

/// Writes one of the desk's options.
void desk_option(World& world, automation::TextView name, const automation::Value& value);

/// The add-in's window with that caption, or Nothing.
automation::Object window_of(World& world, automation::TextView caption);

/// Whether there is a window that is visible. It may close at any time.
bool is_shown(const automation::Object& window);

/// How often a member was asked for, of whatever object, since the desk's `ResetCalls`.
std::int32_t calls_of(World& world, automation::TextView member);

/// How many of the desk's objects the outside holds, in all or of one kind.
std::int32_t held(World& world);
std::int32_t held(World& world, automation::TextView kind);

/// The number of the failure that an action throws; 0 if it throws none.
std::int32_t failure_of(const std::function<void()>& action);

}  // namespace acceptance
