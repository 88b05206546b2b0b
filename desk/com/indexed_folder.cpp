#include "desk/com/indexed_folder.h"

#include <algorithm>
#include <cstdio>
#include <memory>

#include "automation/com/com_ptr.h"

namespace desk {

using automation::Text;

namespace {

constexpr std::size_t most_read = std::size_t{1} << 20;  // bytes of a file

struct FindCloser {
    void operator()(HANDLE search) const { FindClose(search); }
};
struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

automation::Date local_date(const FILETIME& time) {
    FILETIME local{};
    SYSTEMTIME parts{};
    if (!FileTimeToLocalFileTime(&time, &local) || !FileTimeToSystemTime(&local, &parts)) return {};
    return automation::to_date(
        {parts.wYear, parts.wMonth, parts.wDay, parts.wHour, parts.wMinute, parts.wSecond});
}

std::string beginning_of(const Text& path) {
    const std::unique_ptr<std::FILE, FileCloser> file(_wfopen(windows::wide(path), L"rb"));
    std::string content(file ? most_read : 0, '\0');
    if (file) content.resize(std::fread(content.data(), 1, content.size(), file.get()));
    return content;
}

void add_files(const Text& folder, std::vector<IndexedFile>& files) {
    const Text pattern = folder + u"\\*";
    WIN32_FIND_DATAW entry{};
    const HANDLE found = FindFirstFileW(windows::wide(pattern), &entry);
    if (found == INVALID_HANDLE_VALUE) return;
    const std::unique_ptr<std::remove_pointer_t<HANDLE>, FindCloser> search(found);
    do {
        const Text name(reinterpret_cast<const char16_t*>(entry.cFileName));
        const Text path = folder + u"\\" + name;
        if (!(entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)) {
            files.push_back({.folder = folder,
                             .name = name,
                             .created = local_date(entry.ftCreationTime),
                             .modified = local_date(entry.ftLastWriteTime),
                             .content = beginning_of(path)});
        } else if (name != u"." && name != u"..") {
            add_files(path, files);
        }
    } while (FindNextFileW(search.get(), &entry));
}

}  // namespace

std::vector<IndexedFile> files_below(const Text& folder) {
    std::vector<IndexedFile> files;
    if (!folder.empty()) add_files(folder, files);
    std::ranges::sort(files, {}, [](const IndexedFile& file) { return std::pair(file.folder, file.name); });
    return files;
}

}  // namespace desk
