// One user's busy days, by chance but the same for the same seed, and what must have come of them.
#pragma once

#include <random>

#include "tests/world/world.h"

namespace acceptance {

/// How often a user does something on one day.
struct BusyDay {
    int received = 0;    ///< mails that arrive and are read
    int sent = 0;        ///< mails
    int windows = 0;     ///< of items, opened and closed
    int selections = 0;  ///< of mails, with Quick View beside them
    int searches = 0;    ///< in the Search Panel
    int linked = 0;      ///< appointments and tasks that are made and changed
};

class BusyUser {
  public:
    /// A mail, an appointment or a task of the user's.
    struct Trace {
        enum class Kind { received, sent, appointment, task };
        Kind kind = Kind::received;
        std::string subject;
        bool becomes_record = false;  ///< a note, or a copy in a shared folder
        bool is_there = false;        ///< the host has said that the item is delivered, sent or saved
        bool is_done = false;         ///< the host has said that all that belongs to it is done
    };

    /// Puts the records of a small company into the world, and switches on all that the user works with.
    BusyUser(World& world, std::uint32_t seed);

    /// Does all of a day, in an order by chance. A failure of the host ends it.
    void live(const BusyDay& day);

    /// Has nothing open and nothing selected any more.
    void go_home();

    /// The same after the desk was ended and started again.
    void come_back();

    const std::vector<Trace>& traces() const { return traces_; }

  private:
    void receive();
    void send();
    void open_window();
    void select();
    void search();
    void make_linked();
    Trace& begin(Trace::Kind kind, const char* name, bool becomes_record);

    World& world_;
    std::mt19937 random_;
    std::vector<Trace> traces_;
    host::outlook::Item last_mail_, contact_, quiet_account_;
    automation::Text contact_id_, quiet_id_;
    int windows_ = 0;
};

/// What is not as it should be after such days, a sentence each: every mail that had to become a note is
/// one exactly once, every linked item has one copy, and no note is without its mail.
Lines wrongs_of(World& world, const BusyUser& user);

}  // namespace acceptance
