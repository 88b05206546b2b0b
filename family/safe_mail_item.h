// The safe wrapper for mail, with its sender and its recipients.
#pragma once

#include "family/wrapper.h"

namespace family {

class SafeMailItem : public Wrapper<SafeMailItem> {
  public:
    static constexpr automation::TextView name = u"SafeMailItem";
    static const automation::Members<SafeMailItem>& members();

    using Wrapper::Wrapper;
};

/// An address entry with its MAPI properties: a sender, or a recipient's.
class SafeAddressEntry : public Wrapper<SafeAddressEntry> {
  public:
    static constexpr automation::TextView name = u"SafeAddressEntry";
    static const automation::Members<SafeAddressEntry>& members();

    using Wrapper::Wrapper;
};

class SafeRecipient : public Wrapper<SafeRecipient> {
  public:
    static constexpr automation::TextView name = u"SafeRecipient";
    static const automation::Members<SafeRecipient>& members();

    using Wrapper::Wrapper;
};

/// The recipients of a mail, counted from 1.
class SafeRecipients : public Wrapper<SafeRecipients> {
  public:
    static constexpr automation::TextView name = u"SafeRecipients";
    static const automation::Members<SafeRecipients>& members();

    using Wrapper::Wrapper;
};

}  // namespace family
