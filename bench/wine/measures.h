// What is measured with the real library in the real desk. Each measure prints its tables and answers whether
// what it has seen is right.
#pragma once

namespace bench {

/// The calls that reach the desk for the first mails of a session.
bool round_trips();

/// What start and end of the add-in take.
bool start_and_end();

/// So many mails, one after the other, in one session.
bool soak(int mail_count);

/// A search of the dialog that finds thousands of records.
bool large_search();

/// What the add-in adds to the time in which an item's window opens.
bool opened_items_time();

}  // namespace bench
