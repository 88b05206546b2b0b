// Dispatch ids that are known already, so that a member access is one round trip.
#pragma once

#include <map>
#include <utility>
#include <vector>

#include "automation/com/platform.h"
#include "automation/object.h"

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
    const KnownMember* find(const automation::Request& request) const;
    void remember(const automation::Request& request, KnownMember member);

  private:
    struct IgnoringCase {
        using is_transparent = void;
        bool operator()(automation::TextView left, automation::TextView right) const {
            return automation::compare_ignoring_case(left, right) < 0;
        }
    };
    std::map<automation::Text, KnownMember, IgnoringCase> members_;
};

/// The known members of one class of objects.
struct ClassMembers {
    bool told = false;  ///< the objects tell which class they are of; else the kind may stand for several
    MemberTable members{};
};

/// The known members of all classes of objects that an apartment has met, under the kind as which they are
/// seen. Kinds are compared by address.
class DispatchIds {
  public:
    /// The table of an object's class. The object is asked for its type, unless one of the kind had none.
    ClassMembers& of(const automation::Kind& kind, IDispatch& object);

    /// Whether an id of a member is good for all objects of a kind that don't tell their classes.
    static bool shared_by_all(const automation::Kind& kind, automation::TextView member);

  private:
    std::map<const automation::Kind*, ClassMembers> untold_;
    std::map<std::pair<const automation::Kind*, automation::Guid>, ClassMembers> told_;
};

}  // namespace windows
