// The safe wrapper for mail, with its sender and its recipients.
#pragma once

#include "family/wrapper.h"

namespace family {

class SafeMailItem : public Wrapper<SafeMailItem> {
  public:
    static constexpr host::TextView name = u"SafeMailItem";
    static const host::Members<SafeMailItem>& members();

    using Wrapper::Wrapper;
};

/// An address entry with its MAPI properties: a sender, or a recipient's.
class SafeAddressEntry : public Wrapper<SafeAddressEntry> {
  public:
    static constexpr host::TextView name = u"SafeAddressEntry";
    static const host::Members<SafeAddressEntry>& members();

    using Wrapper::Wrapper;
};

class SafeRecipient : public Wrapper<SafeRecipient> {
  public:
    static constexpr host::TextView name = u"SafeRecipient";
    static const host::Members<SafeRecipient>& members();

    using Wrapper::Wrapper;
};

/// The recipients of a mail, counted from 1.
class SafeRecipients : public Wrapper<SafeRecipients> {
  public:
    static constexpr host::TextView name = u"SafeRecipients";
    static const host::Members<SafeRecipients>& members();

    using Wrapper::Wrapper;
};

}  // namespace family
