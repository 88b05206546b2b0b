// Reading mail files with the native mail reader, a program of the system that Wine runs on.
#pragma once

#include <cstdint>
#include <functional>

#include "desk/store/item_data.h"

namespace desk {

/// The reader is started for the first mail and serves for the next ones, as long as they follow each other:
/// each start of a native program costs time, and two file handles of this process that Wine never gives
/// back.
class MailProcess {
  public:
    using Pump = std::function<void(std::int32_t milliseconds)>;

    /// `reader` is the program, in the native system's spelling; `state` a folder for requests and answers.
    /// The desk goes on with `pump` while a mail is read.
    MailProcess(automation::Text reader, const automation::Text& state, Pump pump);
    ~MailProcess();  ///< the reader ends
    MailProcess(const MailProcess&) = delete;
    MailProcess& operator=(const MailProcess&) = delete;

    /// Has a mail file read, whose path is one of Windows. Throws `automation::Failure` with one clear
    /// sentence: the reader's own, or why it gave none.
    ItemData read(const automation::Text& path);

    /// Has a page of HTML read as a mail that is nothing else.
    automation::Text page_text(automation::TextView html);

  private:
    enum class Outcome { answered, reader_gone, too_late };

    /// Hands a mail to the reader that serves.
    Outcome ask(const std::string& file, const std::string& answer_file, const automation::Text& answer);
    void start(const std::string& file, const std::string& answer_file);
    /// Waits for a file that is made whole at once. `lives` tells whether the reader is known to live.
    Outcome wait_for(const automation::Text& file, bool lives);
    bool reader_lives() const;
    void use_new_folder();
    void leave_folder();

    automation::Text reader_, state_, folder_;
    Pump pump_;
    std::uint64_t serves_until_ = 0;  ///< milliseconds of the system's clock
    std::uint64_t requests_ = 0;
};

}  // namespace desk
