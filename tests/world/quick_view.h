// Quick View from outside, and a world in which it follows the selected mail.
#pragma once

#include "tests/world/add_in_window.h"
#include "tests/world/note_dialog.h"

namespace acceptance {

class QuickView : public AddInWindow {
  public:
    explicit QuickView(World& world);

    /// What it shows of a record: each label that isn't empty as "name: text", and what is chosen.
    Lines told() const;

    /// Chooses a folder in the drop-down.
    void choose_folder(automation::TextView name) const { choose(u"cmbFolders", name); }
    /// Whether the list, which has rows, refuses what is dropped. If it doesn't, this was a drop.
    bool refuses_drops() const;
    /// Drops something on a row's cell, both counted from 1, and waits until all is done. Below the rows if
    /// the row is 0.
    void drop(std::int32_t row, std::int32_t column = 1) const;
    void close() const;
};

class SideView : public Filing {
  protected:
    /// A world in which the window follows the explorer, with the Inbox before it.
    World& viewing(const WorldSetup& setup = {});

    /// Clicks mails in the explorer, and waits until nothing happens any more.
    void select(const host::outlook::Item& mail);
    /// Calls an operation for what is selected, or for another collection of items, as others of the family
    /// do; answers what the collection became.
    automation::Object call(automation::TextView operation);
    automation::Object call(automation::TextView operation, const automation::Value& selection);
    /// The entry of the explorer's context menu; it comes back at once.
    void press_entry();

    QuickView view() { return QuickView(world()); }

    /// Shows Ann Lee, by a mail of hers, which is answered too.
    host::outlook::Item show_ann(const ContactPlan& contact = full_contact());

    /// A contact with all that the window shows.
    static ContactPlan full_contact();

    /// As many folders below the accounts as a database with inquiries has.
    void add_folders();

    void answer(automation::TextView question, std::int32_t button);

    /// Every program that was started, as "command line in folder", once there are so many: each notes its
    /// start itself.
    Lines programs(std::int32_t at_least = 0);
};

inline constexpr automation::TextView create_question = u"Would you like to Create an Account/Contact",
                                      account_question = u"Would you like to search for an Account Name? ";

/// Saves a record of a class to a folder below "Account Profiles".
host::outlook::Item add_record(World& world, automation::TextView folder, automation::TextView message_class,
                               automation::TextView subject, const Fields& properties);

/// The keys of Ann Lee's records.
extern const Fields keys_of_ann;

}  // namespace acceptance
