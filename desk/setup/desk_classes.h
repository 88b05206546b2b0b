// The classes that desk.exe serves, and their entering into the registry.
#pragma once

#include "automation/guid.h"

namespace desk {

inline constexpr automation::Guid application_class =
    automation::guid("{0006F03A-0000-0000-C000-000000000046}");  // Outlook.Application
inline constexpr automation::Guid cdo_session_class =
    automation::guid("{3FA7DEB3-6438-101B-ACC1-00AA00423326}");  // MAPI.Session
// ADODB's names lead to classes of the desk's own, whatever the system has.
inline constexpr automation::Guid ado_connection_class =
    automation::guid("{5B0C9A1E-2F64-4D0B-8E57-91C3A7D46F10}");
inline constexpr automation::Guid ado_recordset_class =
    automation::guid("{5B0C9A1F-2F64-4D0B-8E57-91C3A7D46F10}");

/// Enters this program for the machine as the server of its classes, under all their names, and as a host of
/// its kind.
void register_classes();

}  // namespace desk
