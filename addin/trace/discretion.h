// What is told of a host's own words to those whom a mail's content does not concern.
#pragma once

#include <set>
#include <string>

#include "automation/text.h"
#include "automation/value.h"

namespace addin::trace {

/// Of a text, only the words are told of which failures are made: a host may name in it whom it likes. Where
/// the content of mails may be told, it is the other way round: only the words of what was heard are left
/// out.
class Discretion {
  public:
    explicit Discretion(bool open = false) : open_(open) {}

    void hears(automation::TextView said);
    void forgets() { words_.clear(); }

    /// A text in UTF-8, on one line, with an ellipsis for each word that is left out.
    std::string said_discreetly(automation::TextView text) const;

  private:
    bool is_private(automation::TextView word) const;

    bool open_;
    std::set<automation::Text> words_;  ///< folded
};

/// A text in UTF-8 as it is, on one line and not longer than a line should be.
std::string on_one_line(automation::TextView text);

}  // namespace addin::trace
