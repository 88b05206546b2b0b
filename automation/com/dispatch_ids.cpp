#include "automation/com/dispatch_ids.h"

#include <optional>

#include "automation/com/com_ptr.h"

namespace windows {
namespace {

/// The id of an object's type, as the object itself tells it.
std::optional<automation::Guid> type_of(IDispatch& object) {
    UINT count = 0;
    if (FAILED(object.GetTypeInfoCount(&count)) || count == 0) return std::nullopt;
    ComPtr<ITypeInfo> info;
    TYPEATTR* attributes = nullptr;
    if (FAILED(object.GetTypeInfo(0, LOCALE_USER_DEFAULT, info.put())) || !info) return std::nullopt;
    if (FAILED(info->GetTypeAttr(&attributes)) || !attributes) return std::nullopt;
    const automation::Guid type = from_guid(attributes->guid);
    info->ReleaseTypeAttr(attributes);
    if (type == automation::Guid{}) return std::nullopt;
    return type;
}

/// The member's name and those of the arguments, in one text. No name holds a zero.
automation::Text joined_names(const automation::Request& request) {
    automation::Text names(request.member);
    for (const automation::NamedArgument& argument : request.named) {
        names += u'\0';
        names += argument.name;
    }
    return names;
}

}  // namespace

const KnownMember* MemberTable::find(const automation::Request& request) const {
    const auto found =
        request.named.empty() ? members_.find(request.member) : members_.find(joined_names(request));
    return found == members_.end() ? nullptr : &found->second;
}

void MemberTable::remember(const automation::Request& request, KnownMember member) {
    members_.insert_or_assign(joined_names(request), std::move(member));
}

ClassMembers& DispatchIds::of(const automation::Kind& kind, IDispatch& object) {
    if (const auto untold = untold_.find(&kind); untold != untold_.end()) return untold->second;
    const std::optional<automation::Guid> type = type_of(object);
    if (!type) return untold_[&kind];
    ClassMembers& known = told_[{&kind, *type}];
    known.told = true;
    return known;
}

bool DispatchIds::shared_by_all(const automation::Kind& kind, automation::TextView member) {
    return !kind.parts || !kind.parts(member);
}

}  // namespace windows
