#include "desk/windows/file_dialogs.h"

#include <shobjidl.h>

#include "automation/com/com_ptr.h"
#include "automation/com/failure.h"

namespace desk {

using automation::Text;
using windows::ComPtr;

namespace {

constexpr DWORD in_any_dialog = FOS_FORCEFILESYSTEM | FOS_NOCHANGEDIR;

void offer_kinds(IFileDialog& dialog, std::span<const FileKind> kinds) {
    std::vector<COMDLG_FILTERSPEC> filters;
    for (const FileKind& kind : kinds) filters.push_back({kind.title, kind.pattern});
    filters.push_back({L"All files", L"*.*"});
    dialog.SetFileTypes(static_cast<UINT>(filters.size()), filters.data());
}

/// The path of a file that was chosen; empty for what is no file.
Text path_of(IShellItem& item) {
    wchar_t* name = nullptr;
    if (FAILED(item.GetDisplayName(SIGDN_FILESYSPATH, &name))) return {};
    Text path(reinterpret_cast<const char16_t*>(name));
    CoTaskMemFree(name);
    return path;
}

}  // namespace

std::vector<Text> choose_files(HWND owner, const wchar_t* title, std::span<const FileKind> kinds) {
    ComPtr<IFileOpenDialog> dialog;
    windows::check(CoCreateInstance(CLSID_FileOpenDialog, nullptr, CLSCTX_INPROC_SERVER, IID_IFileOpenDialog,
                                    dialog.put_void()));
    offer_kinds(*dialog.get(), kinds);
    dialog->SetTitle(title);
    dialog->SetOptions(in_any_dialog | FOS_ALLOWMULTISELECT | FOS_FILEMUSTEXIST);
    ComPtr<IShellItemArray> chosen;
    if (FAILED(dialog->Show(owner)) || FAILED(dialog->GetResults(chosen.put()))) return {};
    DWORD count = 0;
    chosen->GetCount(&count);
    std::vector<Text> paths;
    for (DWORD i = 0; i < count; ++i) {
        ComPtr<IShellItem> item;
        if (FAILED(chosen->GetItemAt(i, item.put()))) continue;
        if (Text path = path_of(*item.get()); !path.empty()) paths.push_back(std::move(path));
    }
    return paths;
}

Text choose_new_file(HWND owner, const wchar_t* title, const Text& name) {
    ComPtr<IFileSaveDialog> dialog;
    windows::check(CoCreateInstance(CLSID_FileSaveDialog, nullptr, CLSCTX_INPROC_SERVER, IID_IFileSaveDialog,
                                    dialog.put_void()));
    offer_kinds(*dialog.get(), {});
    dialog->SetTitle(title);
    dialog->SetFileName(windows::wide(name));
    dialog->SetOptions(in_any_dialog | FOS_OVERWRITEPROMPT | FOS_PATHMUSTEXIST);
    ComPtr<IShellItem> chosen;
    if (FAILED(dialog->Show(owner)) || FAILED(dialog->GetResult(chosen.put()))) return {};
    return path_of(*chosen.get());
}

}  // namespace desk
