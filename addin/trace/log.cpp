#include "addin/trace/log.h"

#include <exception>
#include <fstream>
#include <system_error>

namespace addin::trace {

bool LogFile::write(std::string_view text) noexcept try {
    namespace fs = std::filesystem;
    std::error_code none;
    const std::uintmax_t size = fs::is_regular_file(path_, none) ? fs::file_size(path_, none) : 0;
    if (size > 0 && size + text.size() > size_) {
        fs::path older = path_;
        older += ".old";
        std::error_code failed;
        fs::rename(path_, older, failed);
        if (failed) return false;
    }
    std::ofstream file(path_, std::ios::binary | std::ios::app);
    file.write(text.data(), static_cast<std::streamsize>(text.size()));
    file.close();
    return !file.fail();
} catch (const std::exception&) {
    return false;
}

}  // namespace addin::trace
