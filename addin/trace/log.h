// Where the trace is written.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace addin::trace {

class Log {
  public:
    virtual ~Log() = default;

    /// Appends a text; False if it could not be written as a whole.
    virtual bool write(std::string_view text) noexcept = 0;
};

/// A file that grows to a size and is then kept as the one older copy, which has ".old" at its name's end. It
/// is open only while it is written to, so that processes can share it. By the C library: the streams and
/// paths of C++ would make the DLL larger by a quarter.
class LogFile final : public Log {
  public:
    static constexpr std::uintmax_t usual_size = 10U * 1024 * 1024;  // bytes

    /// The path is one in the system's 8-bit form.
    explicit LogFile(std::string path, std::uintmax_t size = usual_size)
        : path_(std::move(path)), size_(size) {}

    bool write(std::string_view text) noexcept override;

  private:
    std::string path_;
    std::uintmax_t size_;
};

}  // namespace addin::trace
