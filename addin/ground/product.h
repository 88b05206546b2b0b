// What the product is called. Which version it is tells product_version.h, made of the project's version.
#pragma once

#include "automation/text.h"

namespace addin {

/// The title of the message boxes.
inline constexpr automation::TextView product_title = u"Tarnwell";

/// The project's own title, which a message box without a title shows.
inline constexpr automation::TextView project_title = u"Tarnwell Create Note AddIn Project";

/// The name under which the add-in's class is registered and published.
inline constexpr automation::TextView connect_prog_id = u"CreateNote.Connect";

}  // namespace addin
