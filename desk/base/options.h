// What a real installation decides, and a person or a script decides here.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

#include "automation/text.h"

namespace desk {

/// When the events of folders and items come.
enum class EventOrder {
    host,      ///< as the real host: `ItemChange` during `Save`, adds and removals at the next yield
    deferred,  ///< everything at the next yield
    at_once    ///< everything at once
};

/// The orders by their names, as settings and scripts give them.
struct NamedOrder {
    const char* name;
    EventOrder order;
};
inline constexpr std::array<NamedOrder, 3> event_orders = {
    {{"host", EventOrder::host}, {"deferred", EventOrder::deferred}, {"at-once", EventOrder::at_once}}};

/// The name of an order.
constexpr const char* name_of(EventOrder order) {
    return std::ranges::find(event_orders, order, &NamedOrder::order)->name;
}

/// Which events of a folder's items come at once; the others wait for the next yield.
struct AtOnce {
    bool adds = false, changes = false, removals = false;

    static constexpr AtOnce of(EventOrder order) {
        const bool all = order == EventOrder::at_once;
        return {all, order != EventOrder::deferred, all};
    }
    friend bool operator==(const AtOnce&, const AtOnce&) = default;
};

struct Options {
    automation::Text host_version = u"16.0.0.0";
    /// The first number of the version.
    int host_major() const {
        int major = 0;
        for (const char16_t c : host_version) {
            if (c < u'0' || c > u'9') break;
            major = 10 * major + (c - u'0');
        }
        return major;
    }
    bool instant_search = false;
    std::int32_t language = 1033;  ///< LCID of the user interface
    AtOnce at_once = AtOnce::of(EventOrder::host);
    bool word_mail = false;  ///< mail is edited in Word's windows
    bool unattended = true;
};

}  // namespace desk
