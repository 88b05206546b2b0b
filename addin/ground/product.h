// What the product is called.
#pragma once

#include "automation/text.h"

namespace addin {

/// The title of the message boxes.
inline constexpr automation::TextView product_title = u"Tarnwell";

/// The project's own title, which a message box without a title shows.
inline constexpr automation::TextView project_title = u"Tarnwell Create Note AddIn Project";

/// Major, minor and revision number; the library's version resource tells the same.
inline constexpr int product_version[] = {6, 0, 2178};

}  // namespace addin
