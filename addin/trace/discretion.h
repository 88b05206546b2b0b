// What is told of a host's own words to those whom a mail's content does not concern.
#pragma once

#include <set>
#include <string>

#include "automation/text.h"
#include "automation/value.h"

namespace addin::trace {

/// Remembers what was said between the add-in and the host, and leaves it out of a text: each word of it, and
/// whatever else in a text looks as if it was somebody's.
class Discretion {
  public:
    void hears(automation::TextView said);
    void forgets() { words_.clear(); }

    /// A text in UTF-8, on one line. What is quoted, a path, an address and every word that was heard become
    /// an ellipsis; words of which failures are told stay.
    std::string said_discreetly(automation::TextView text) const;

  private:
    bool is_private(automation::TextView word) const;

    std::set<automation::Text> words_;  ///< folded
};

/// A text in UTF-8 as it is, on one line and not longer than a line should be.
std::string on_one_line(automation::TextView text);

}  // namespace addin::trace
