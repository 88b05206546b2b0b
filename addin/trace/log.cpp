#include "addin/trace/log.h"

#include <cstdio>
#include <exception>
#include <memory>

namespace addin::trace {
namespace {

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using OpenedFile = std::unique_ptr<std::FILE, CloseFile>;

/// A file at whose end is written; null for what is none.
OpenedFile opened(const std::string& path) { return OpenedFile(std::fopen(path.c_str(), "ab")); }

std::uintmax_t size_of(std::FILE* file) {
    const long end = std::fseek(file, 0, SEEK_END) == 0 ? std::ftell(file) : 0;
    return end > 0 ? static_cast<std::uintmax_t>(end) : 0;
}

/// Puts a file in the place of another one, if that is a file.
bool replace(const std::string& path, const std::string& older) {
    std::remove(older.c_str());  // Windows renames nothing to a name that is taken
    return std::rename(path.c_str(), older.c_str()) == 0;
}

}  // namespace

bool LogFile::write(std::string_view text) noexcept try {
    OpenedFile file = opened(path_);
    if (!file) return false;
    const std::uintmax_t size = size_of(file.get());
    if (size > 0 && size + text.size() > size_) {
        file.reset();
        if (!replace(path_, path_ + ".old")) return false;
        file = opened(path_);
        if (!file) return false;
    }
    const bool whole = std::fwrite(text.data(), 1, text.size(), file.get()) == text.size();
    return std::fclose(file.release()) == 0 && whole;
} catch (const std::exception&) {
    return false;
}

}  // namespace addin::trace
