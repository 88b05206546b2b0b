// The safe wrappers for contacts and posts: an item, its MAPI properties and all its own members.
#pragma once

#include "family/wrapper.h"

namespace family {

class SafeContactItem : public Wrapper<SafeContactItem> {
  public:
    static constexpr automation::TextView name = u"SafeContactItem";
    static const automation::Members<SafeContactItem>& members();

    using Wrapper::Wrapper;
};

class SafePostItem : public Wrapper<SafePostItem> {
  public:
    static constexpr automation::TextView name = u"SafePostItem";
    static const automation::Members<SafePostItem>& members();

    using Wrapper::Wrapper;
};

}  // namespace family
