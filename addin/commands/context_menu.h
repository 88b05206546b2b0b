// The explorer's "Context Menu" bar.
#pragma once

#include "core/session.h"
#include "host/office.h"

namespace addin::commands {

inline constexpr host::TextView context_menu_bar = u"Context Menu";
inline constexpr host::TextView quick_view_tag = u"Tarnwell Quick View";

/// Opens the host's bar for changes (`restore` false), or gives it back. What is given back is the protection
/// masked once more, not its earlier bits: a bar that was protected stays open.
void SetBarProtection(Session& session, const host::office::CommandBar& bar, bool restore);

}  // namespace addin::commands
