#include "desk/windows/dragged_files.h"

#include <shellapi.h>
#include <shlobj.h>

#include <cstring>

#include "desk/driver/dragged.h"

namespace desk {

using automation::Text;
using windows::ComPtr;

namespace {

FORMATETC files_format() { return {CF_HDROP, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL}; }

/// What the system has handed over while it lives.
class Medium {
  public:
    Medium(IDataObject& data, FORMATETC& format) {
        if (FAILED(data.GetData(&format, &medium_))) medium_ = {};
    }
    ~Medium() { ReleaseStgMedium(&medium_); }
    Medium(const Medium&) = delete;
    Medium& operator=(const Medium&) = delete;

    HDROP files() const {
        return medium_.tymed == TYMED_HGLOBAL ? static_cast<HDROP>(medium_.hGlobal) : nullptr;
    }

  private:
    STGMEDIUM medium_{};
};

class FilesToDrag final : public Dragged {
  public:
    FilesToDrag(windows::Module& module, const std::vector<Text>& paths) : Dragged(module) {
        for (const Text& path : paths) paths_ += path + u'\0';
        paths_ += u'\0';
    }

    HRESULT STDMETHODCALLTYPE GetData(FORMATETC* format, STGMEDIUM* medium) noexcept override {
        if (!medium) return E_POINTER;
        if (const HRESULT offered = QueryGetData(format); offered != S_OK) return offered;
        const std::size_t bytes = paths_.size() * sizeof(char16_t);
        const HGLOBAL memory = GlobalAlloc(GHND, sizeof(DROPFILES) + bytes);
        if (!memory) return E_OUTOFMEMORY;
        auto* const files = static_cast<DROPFILES*>(GlobalLock(memory));
        files->pFiles = sizeof(DROPFILES);
        files->fWide = TRUE;
        std::memcpy(files + 1, paths_.data(), bytes);
        GlobalUnlock(memory);
        *medium = {};
        medium->tymed = TYMED_HGLOBAL;
        medium->hGlobal = memory;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* format) noexcept override {
        if (!format) return E_POINTER;
        const bool fits = format->cfFormat == CF_HDROP && (format->tymed & TYMED_HGLOBAL) != 0;
        return fits ? S_OK : DV_E_FORMATETC;
    }
    HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) noexcept override {
        if (direction != DATADIR_GET) return E_NOTIMPL;
        const FORMATETC format = files_format();
        return SHCreateStdEnumFmtEtc(1, &format, formats);
    }

  private:
    Text paths_;  ///< each with its end, and an end more
};

}  // namespace

bool are_files(IDataObject* data) {
    FORMATETC format = files_format();
    return data && data->QueryGetData(&format) == S_OK;
}

std::vector<Text> dragged_files(IDataObject* data) {
    if (!are_files(data)) return {};
    FORMATETC format = files_format();
    const Medium medium(*data, format);
    std::vector<Text> paths;
    if (!medium.files()) return paths;
    const UINT count = DragQueryFileW(medium.files(), 0xFFFFFFFF, nullptr, 0);
    for (UINT i = 0; i < count; ++i) {
        Text path(DragQueryFileW(medium.files(), i, nullptr, 0), u'\0');
        DragQueryFileW(medium.files(), i, reinterpret_cast<wchar_t*>(path.data()),
                       static_cast<UINT>(path.size() + 1));
        paths.push_back(std::move(path));
    }
    return paths;
}

ComPtr<IDataObject> files_to_drag(windows::Module& module, const std::vector<Text>& paths) {
    return ComPtr<IDataObject>::attach(new FilesToDrag(module, paths));
}

}  // namespace desk
