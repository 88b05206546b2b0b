// Stands in for the reports object.
#pragma once

#include "family/sibling.h"

namespace family {

/// `Initiate` is recorded.
class ReportsHost : public Sibling<ReportsHost> {
  public:
    static constexpr automation::TextView name = u"ReportsHost";
    static const automation::Members<ReportsHost>& members();

    using Sibling::Sibling;
};

}  // namespace family
