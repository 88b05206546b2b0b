// What is measured with add-in and desk in one process. Each measure prints its tables and answers whether
// what it has seen is right.
#pragma once

#include <memory>

#include "tests/native/native_world.h"
#include "tests/world/people.h"

namespace bench {

/// A world that files received mail and has one contact, the usual sender of the mails.
std::unique_ptr<native::NativeWorld> filing_world();

/// The most memory that the process has held so far, in kilobytes.
long peak_memory();

/// The calls that the add-in makes for one mail.
bool calls_of_a_mail();

/// The calls that the add-in makes for an item's window, by the kind of item, and the time that they take.
bool calls_of_opened_items();

/// The calls that the add-in makes when the selection changes and it has nothing to do.
bool calls_of_a_selection();

/// The calls that a search of the Create Note dialog makes for each of its rows.
bool calls_of_a_search();

/// The calls that a search of the Search Panel makes for each folder and row, and what it holds meanwhile.
bool calls_of_a_walk();

/// The calls that the add-in makes when a linked item is changed and its replica replaced.
bool calls_of_a_replica();

/// What a mail's filing takes with few and with many contacts.
bool time_of_a_mail();

/// What it costs to file mails with the trace, and that it costs nothing where it is off.
bool cost_of_the_trace();

}  // namespace bench
