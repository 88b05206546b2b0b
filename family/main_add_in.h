// Stands in for the add-in that owns the database's location.
#pragma once

#include "family/sibling.h"

namespace family {

/// Answers from the settings and from the profile's folders. What it is told to show, or to change of what it
/// shows, is recorded; the lists of templates are windows.
class MainAddIn : public Sibling<MainAddIn> {
  public:
    static constexpr automation::TextView name = u"MainAddIn";
    static const automation::Members<MainAddIn>& members();

    using Sibling::Sibling;

    /// The database folder's entry id; empty if there is no folder of that name.
    automation::Text folder_id(automation::TextView folder) const;

    automation::Text mail_id;  ///< of the mail that a template is wanted for

    /// The database's store; empty if there is none.
    automation::Text store_id() const;
};

}  // namespace family
