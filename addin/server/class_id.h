// The class under which the add-in is known to COM.
#pragma once

#include "automation/guid.h"
#include "automation/text.h"

namespace windows {

/// The class id of `CreateNote.Connect`, in the one spelling from which all else is made.
inline constexpr std::string_view connect_class_spelling = "{A9939A0C-D199-41D1-9BDD-2217BB6DD341}";
inline constexpr automation::Guid connect_class = automation::guid(connect_class_spelling);

}  // namespace windows
