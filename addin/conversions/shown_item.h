// The item that a conversion works on.
#pragma once

#include "addin/host/outlook.h"

namespace addin::conversions {

/// The item of the active window, which has to be of a class (`object_class`). Throws `Failure` for an item
/// of another class, and without a window.
inline host::outlook::Item shown_item(const host::outlook::Application& application,
                                      std::int32_t object_class) {
    const host::outlook::Item item = application.ActiveInspector().CurrentItem();
    if (item.Class() != object_class) {
        throw automation::Failure(automation::result::type_mismatch,
                                  u"The window shows an item of another class.");
    }
    return item;
}

}  // namespace addin::conversions
