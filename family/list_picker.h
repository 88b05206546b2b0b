// Stands in for the account and contact picker.
#pragma once

#include "family/sibling.h"

namespace family {

/// A picker that nobody answers: it records how it was asked, nothing is ever chosen, and so it reports a
/// cancel and an empty table of rows.
class ListPicker : public Sibling<ListPicker> {
  public:
    static constexpr host::TextView name = u"ListPicker";
    static const host::Members<ListPicker>& members();

    using Sibling::Sibling;

    /// Where the picker looks, as its caller says.
    struct Place {
        host::Text folder_id;
        host::Text account_folder_id;
        host::Text store_id;
    };
    Place& place() { return place_; }

    bool cancelled() const { return chosen_.dimensions().front().count == 0; }
    const host::Array& chosen() const { return chosen_; }

  private:
    Place place_;
    host::Array chosen_{host::Array::Bounds{}, host::Array::Bounds{}};  ///< rows by columns
};

}  // namespace family
