// What the product is called; product_version.h, which the build makes of the project's version, tells which one it is.
#pragma once

#include "automation/text.h"

namespace addin {

/// The title of the message boxes.
inline constexpr automation::TextView product_title = u"Tarnwell";

/// The project's own title, which a message box without a title shows.
inline constexpr automation::TextView project_title = u"Tarnwell Create Note AddIn Project";

}  // namespace addin
