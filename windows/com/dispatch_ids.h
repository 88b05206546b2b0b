// Dispatch ids that are known already, so that a member access is one round trip.
#pragma once

#include <map>
#include <vector>

#include "host/object.h"
#include "windows/com/platform.h"

namespace windows {

/// What is known of one member, as it was asked for.
struct KnownMember {
    std::vector<DISPID>
        ids{};  ///< the member's, then those of the named arguments, in the order of the request
    WORD object_put = DISPATCH_PROPERTYPUTREF;  ///< by which an object is assigned to it
};

/// The known members of one object, or of one kind of object.
class MemberTable {
  public:
    /// What is known of the member with these named arguments; null if nothing.
    const KnownMember* find(const host::Request& request) const;
    void remember(const host::Request& request, KnownMember member);

  private:
    struct IgnoringCase {
        using is_transparent = void;
        bool operator()(host::TextView left, host::TextView right) const {
            return host::compare_ignoring_case(left, right) < 0;
        }
    };
    std::map<host::Text, KnownMember, IgnoringCase> members_;
};

/// The known members of every kind of object that an apartment has met. Kinds are compared by address.
class DispatchIds {
  public:
    MemberTable& of(const host::Kind& kind) { return tables_[&kind]; }

  private:
    std::map<const host::Kind*, MemberTable> tables_;
};

}  // namespace windows
