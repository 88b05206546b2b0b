// Reading mail files with the native mail reader, a program of the system that Wine runs on.
#pragma once

#include <cstdint>

#include "desk/store/item_data.h"

namespace desk {

/// The reader is started for the first mail and serves for the next ones, as long as they follow each other:
/// each start of a native program costs time, and two file handles of this process that Wine never gives
/// back.
class MailProcess {
  public:
    /// `reader` is the program, in the native system's spelling; `state` a folder for requests and answers.
    MailProcess(host::Text reader, const host::Text& state);
    ~MailProcess();  ///< the reader ends
    MailProcess(const MailProcess&) = delete;
    MailProcess& operator=(const MailProcess&) = delete;

    /// Has a mail file read, whose path is one of Windows. Throws `host::Failure` with one clear sentence:
    /// the reader's own, or why it gave none.
    ItemData read(const host::Text& path);

  private:
    /// Hands a mail to the reader that serves. False if it doesn't answer in time.
    bool ask(const std::string& file, const std::string& answer_file, const host::Text& answer);
    void start(const std::string& file, const std::string& answer_file);

    host::Text reader_, folder_;
    std::uint64_t serves_until_ = 0;  ///< milliseconds of the system's clock
    std::uint64_t requests_ = 0;
};

}  // namespace desk
