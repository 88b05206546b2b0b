// The arguments of a call that comes in from COM.
#pragma once

#include <span>

#include "automation/com/apartment.h"

namespace windows {

/// Brings a caller's arguments into a request, and changed ones back to where the caller's references point
/// to.
class IncomingArguments {
  public:
    explicit IncomingArguments(const DISPPARAMS& parameters) : parameters_(parameters) {}

    /// S_OK, or what is wrong with the shape of the parameters.
    HRESULT validate() const;

    /// Fills in arguments and by_reference. Named arguments name the places of parameters; the value of a put
    /// comes last. Throws `result::type_mismatch`, `result::parameter_not_found`.
    void bring_into(automation::Request& request, Apartment& apartment);

    /// Stores the arguments that the callee has changed.
    void write_back(const automation::Request& request, Apartment& apartment) const;

  private:
    void place(automation::Request& request, std::size_t at, const VARIANT& given, Apartment& apartment);

    struct Reference {
        std::size_t place;
        const VARIANT* target;
        automation::Value before;
    };
    const DISPPARAMS& parameters_;
    std::vector<Reference> references_;
};

}  // namespace windows
