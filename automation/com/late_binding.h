// The late-bound half of an object of ours: ids of names, calls by id.
#pragma once

#include <string>

#include "automation/com/apartment.h"

namespace windows {

/// Answers GetIDsOfNames and Invoke for an object. The COM object that it is a part of keeps itself alive
/// during the calls.
class LateBinding {
  public:
    LateBinding(std::shared_ptr<Apartment> apartment, std::shared_ptr<automation::Invocable> object);

    const std::shared_ptr<Apartment>& apartment() const { return apartment_; }
    const std::shared_ptr<automation::Invocable>& object() const { return object_; }
    const std::string& class_name() const { return class_name_; }  ///< under which the object is counted

    /// Each name that is unknown gets DISPID_UNKNOWN, the others their ids all the same.
    HRESULT identify(REFIID iid, LPOLESTR* names, UINT count, DISPID* ids) noexcept;

    /// Failures come as DISP_E_EXCEPTION with their number and text; IDispatch's own codes as they are.
    HRESULT invoke(DISPID id, REFIID iid, WORD flags, DISPPARAMS* parameters, VARIANT* answer,
                   EXCEPINFO* details, UINT* wrong_argument) noexcept;

  private:
    HRESULT enumerate(VARIANT* answer);
    HRESULT run(DISPID id, WORD flags, const DISPPARAMS& parameters, VARIANT* answer);

    std::shared_ptr<Apartment> apartment_;
    std::shared_ptr<automation::Invocable> object_;
    std::string class_name_;
};

}  // namespace windows
