// What the tests of the mail reader share.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "desk/tools/mail/mail_reader.h"

namespace mail_tests {

inline std::filesystem::path sample_mails() {
    return std::filesystem::path(TARNWELL_DATA_FOLDER) / "sample" / "mails";
}

inline std::string bytes_of(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

/// A message with the line ends that mails have.
inline std::string with_crlf(std::string_view text) {
    std::string message;
    for (const char c : text) message += c == '\n' ? "\r\n" : std::string(1, c);
    return message;
}

/// Reads a message that is written with plain line ends.
inline desk::ItemData read(std::string_view text) { return desk::mail::read_message(with_crlf(text)); }

/// The sentence with which such a message is refused; empty if it is read.
inline std::string refusal(std::string_view text) {
    try {
        read(text);
        return {};
    } catch (const automation::Failure& failure) {
        return failure.what();
    }
}

/// A field as UTF-8; "(none)" if it is not set.
inline std::string field(const desk::ItemData& item, automation::TextView name) {
    const auto found = item.fields.find(name);
    return found == item.fields.end() ? "(none)" : automation::to_utf8(found->second.to_text());
}

/// A file of its own that goes with its owner.
class TemporaryFile {
  public:
    explicit TemporaryFile(const std::string& name) : path_(std::filesystem::temp_directory_path() / name) {
        std::filesystem::remove(path_);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() { std::filesystem::remove(path_); }
    const std::filesystem::path& path() const { return path_; }

  private:
    std::filesystem::path path_;
};

}  // namespace mail_tests
