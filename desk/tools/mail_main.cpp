// tarnwell-mail: reads a mail file and writes it as JSON. The desk starts it under Wine, where GMime is not
// at hand.
#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <array>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <tuple>
#include <vector>

#include "desk/mail/message.h"
#include "desk/tools/mail_reader.h"

namespace {

/// Writes a file that is either not there or whole: whoever waits for it never sees a part.
bool write_whole(const std::filesystem::path& file, const std::string& text) {
    std::filesystem::path part = file;
    part += ".part";
    std::ofstream stream(part, std::ios::binary | std::ios::trunc);
    stream << text;
    stream.close();
    std::error_code error;
    if (stream) std::filesystem::rename(part, file, error);
    if (stream && !error) return true;
    std::filesystem::remove(part, error);
    return false;
}

/// Reads one message and writes the answer, or prints it. Answers the exit code.
int answer(const std::string& file, const std::string& output) {
    std::string json;
    int code = 0;
    try {
        json = desk::mail::to_json(desk::mail::read_message_file(file));
    } catch (const std::exception& failure) {
        json = desk::mail::error_to_json(failure.what());
        code = 1;
    }
    if (output.empty()) {
        std::cout << json;
    } else if (!write_whole(output, json)) {
        std::cerr << "\"" << output << "\" can't be written.\n";
        return 2;
    }
    return code;
}

/// Sleeps until something changes in a folder, or goes with it.
class FolderWatch {
  public:
    explicit FolderWatch(const std::filesystem::path& folder) : events_(inotify_init1(IN_CLOEXEC)) {
        inotify_add_watch(events_, folder.c_str(), IN_MOVED_TO | IN_DELETE_SELF | IN_ONLYDIR);
    }
    ~FolderWatch() { close(events_); }
    FolderWatch(const FolderWatch&) = delete;
    FolderWatch& operator=(const FolderWatch&) = delete;

    void wait(std::chrono::milliseconds longest) const {
        pollfd happened{events_, POLLIN, 0};
        std::array<char, 4096> names{};
        if (poll(&happened, 1, static_cast<int>(longest.count())) <= 0) return;
        std::ignore = read(events_, names.data(), names.size());  // which they are, the folder itself tells
    }

  private:
    int events_;
};

/// Answers the requests in a folder, each a file "*.request" with two lines: the message file and the file to
/// write. Ends when the folder is gone, or nothing came for a while.
void serve(const std::filesystem::path& folder) {
    using Clock = std::chrono::steady_clock;
    Clock::time_point end = Clock::now() + desk::mail::longest_idle_time;
    const FolderWatch watch(folder);  // before the first look, so that no request comes in between
    std::error_code error;
    while (std::filesystem::is_directory(folder, error) && Clock::now() < end) {
        std::vector<std::filesystem::path> requests;
        for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
            if (entry.path().extension() == ".request") requests.push_back(entry.path());
        }
        for (const std::filesystem::path& request : requests) {
            std::ifstream lines(request);
            std::string file, output;
            std::getline(lines, file);
            std::getline(lines, output);
            std::filesystem::remove(request, error);
            answer(file, output);
            end = Clock::now() + desk::mail::longest_idle_time;
        }
        if (requests.empty()) watch.wait(desk::mail::longest_idle_time);
    }
}

}  // namespace

int main(int count, char** arguments) {
    CLI::App app("Reads an RFC 5322 message file and writes it as JSON.");
    std::string file, output, folder;
    app.add_option("FILE", file, "the message file")->required();
    app.add_option("--output", output,
                   "the file to write, made whole at once; the standard output if left out");
    app.add_option("--serve", folder,
                   "afterwards answers the requests that come into this folder, until it is gone");
    CLI11_PARSE(app, count, arguments);

    const int code = answer(file, output);
    if (!folder.empty()) serve(folder);
    return code;
}
