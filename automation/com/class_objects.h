// Class objects that are kept, so that making an object doesn't look its class up in the registry again.
#pragma once

#include <map>

#include "automation/com/com_ptr.h"

namespace windows {

/// Makes objects by their program ids. Belongs to one thread.
class ClassObjects {
  public:
    /// A new object of a class. The class object of a server in the same process is kept. Throws `Failure`
    /// with `result::bad_prog_id` for an unknown name.
    ComPtr<IDispatch> make(automation::TextView prog_id);

    void let_go() { kept_.clear(); }  ///< of all class objects, so that their servers may end

  private:
    std::map<automation::Text, ComPtr<IClassFactory>, std::less<>> kept_;  ///< by program id
};

/// The class id of a program id. Throws `Failure` with `result::bad_prog_id` for an unknown name.
CLSID class_id_of(automation::TextView prog_id);

/// A new object of a class in whatever process its server is, without keeping anything.
ComPtr<IDispatch> make_object(const CLSID& class_id);

}  // namespace windows
