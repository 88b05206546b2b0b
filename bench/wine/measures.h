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

/// Lists that fill with hundreds and thousands of rows.
bool filled_lists();

/// The messages that a list takes for a row.
bool list_messages();

/// What the add-in adds to the time in which an item's window opens.
bool opened_items_time();

}  // namespace bench
