#include "windows/com/dispatch_ids.h"

namespace windows {
namespace {

/// The member's name and those of the arguments, in one text. No name holds a zero.
host::Text joined_names(const host::Request& request) {
    host::Text names(request.member);
    for (const host::NamedArgument& argument : request.named) {
        names += u'\0';
        names += argument.name;
    }
    return names;
}

}  // namespace

const KnownMember* MemberTable::find(const host::Request& request) const {
    const auto found =
        request.named.empty() ? members_.find(request.member) : members_.find(joined_names(request));
    return found == members_.end() ? nullptr : &found->second;
}

void MemberTable::remember(const host::Request& request, KnownMember member) {
    members_.insert_or_assign(joined_names(request), std::move(member));
}

}  // namespace windows
