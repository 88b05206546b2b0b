// The mouse pointers that windows ask for.
#pragma once

namespace forms {

/// By the numbers of the windows' own `MousePointer`.
enum class Pointer { standard = 0, hourglass = 11 };

}  // namespace forms
