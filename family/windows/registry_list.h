// A growing list of texts under a registry key.
#pragma once

#include <string_view>

namespace family {

/// The registry key, of the current user, below which the family keeps its settings and what it records.
inline constexpr std::wstring_view family_key = L"Software\\Tarnwell\\Family";

/// Appends a text to the list under a key of the family's: values named "0001", "0002" and so on. Any number
/// of processes may append at once. False if the registry refuses.
bool append_to_list(std::wstring_view list, std::wstring_view text);

/// Appends what this program was started for: the note, a tabulator, and the time of the start as digits that
/// sort, since the notes of two that start at once may be written in the other order.
bool note_start(std::wstring_view list, std::wstring_view note);

}  // namespace family
