// A folder of files that goes with its owner.
#pragma once

#include <filesystem>
#include <random>

#include "automation/text.h"

namespace native {

class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::random_device random;
        const std::string name = "tarnwell_" + std::to_string(random());
        std::error_code failed;
        path_ = memory / name;  // a database on a disk waits for it at each change
        const bool has_room = std::filesystem::space(memory, failed).available > room && !failed;
        if (has_room && std::filesystem::create_directory(path_, failed)) return;
        path_ = std::filesystem::temp_directory_path() / name;
        std::filesystem::create_directory(path_);
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path operator/(const char* name) const { return path_ / name; }

  private:
    static inline const std::filesystem::path memory{"/dev/shm"};
    static constexpr std::uintmax_t room = 1U << 30;

    std::filesystem::path path_;
};

/// A path of the add-in's or the desk's own, whose folders may stand apart by backslashes.
inline std::filesystem::path local_path(automation::TextView path) {
    return {automation::replaced(path, u"\\", u"/")};
}

/// A path as the host's system spells it.
inline automation::Text system_path(const std::filesystem::path& path) {
    return automation::replaced(path.u16string(), u"/", u"\\");
}

}  // namespace native
