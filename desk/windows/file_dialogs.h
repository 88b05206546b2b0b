// The system's dialogs for files.
#pragma once

#include <span>
#include <vector>

#include "automation/com/platform.h"
#include "automation/text.h"

namespace desk {

/// Files that a dialog shows before all others, by the endings of their names.
struct FileKind {
    const wchar_t* title;
    const wchar_t* pattern;
};

/// The paths of the files that a person chooses; none where the dialog is left.
std::vector<automation::Text> choose_files(HWND owner, const wchar_t* title,
                                           std::span<const FileKind> kinds = {});

/// The path that a person gives to a file which is to be written; empty where the dialog is left. The system
/// asks before a file is replaced.
automation::Text choose_new_file(HWND owner, const wchar_t* title, const automation::Text& name);

}  // namespace desk
