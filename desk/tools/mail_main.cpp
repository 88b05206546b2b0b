// tarnwell-mail: reads a mail file and writes it as JSON. The desk starts it under Wine, where GMime is not
// at hand.
#include <fcntl.h>
#include <poll.h>
#include <sys/inotify.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <array>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <tuple>
#include <vector>

#include "desk/mail/message.h"
#include "desk/tools/mail/mail_reader.h"

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

constexpr rlim_t longest_work = 3;                        // seconds of the processor
constexpr std::chrono::milliseconds longest_time{10000};  // of the clock, for a machine that is busy

/// Writes the answer, or prints it. Answers the exit code.
int give(const std::string& json, const std::string& output, int code) {
    if (output.empty()) {
        std::cout << json << std::flush;
    } else if (!write_whole(output, json)) {
        std::cerr << "\"" << output << "\" can't be written.\n";
        return 2;
    }
    return code;
}

int give_error(std::string_view sentence, const std::string& output) {
    return give(desk::mail::error_to_json(sentence), output, 1);
}

int read_and_give(const std::string& file, const std::string& output) {
    try {
        const std::string json = desk::mail::to_json(desk::mail::read_message_file(file));
        if (json.size() > desk::mail::largest_answer)
            return give_error("The mail holds too much text.", output);
        return give(json, output, 0);
    } catch (const automation::Failure& failure) {
        return give_error(failure.what(), output);
    } catch (const std::bad_alloc&) {
        return give_error("The mail takes too much memory.", output);
    }
}

/// Waits for a process to end, which is ended if it takes too long. False if it was.
bool ends_in_time(pid_t process) {
    // by its number: the library of this system declares its function for C alone
    const int handle = static_cast<int>(syscall(SYS_pidfd_open, process, 0));
    if (handle < 0) return true;  // the limit on its work ends it
    pollfd end{handle, POLLIN, 0};
    const bool ended = poll(&end, 1, static_cast<int>(longest_time.count())) != 0;
    close(handle);
    if (!ended) kill(process, SIGKILL);
    return ended;
}

/// Reads one message in a process of its own, since no parser is proof against each mail: whatever becomes of
/// it, there is an answer. Answers the exit code.
int answer(const std::string& file, const std::string& output) {
    const pid_t process = fork();
    if (process < 0) return give_error("The mail reader can't start.", output);
    if (process == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        const rlimit work{longest_work, longest_work + 1}, no_dump{0, 0};  // the softer one tells why
        setrlimit(RLIMIT_CPU, &work);
        setrlimit(RLIMIT_CORE, &no_dump);
        _exit(read_and_give(file, output));
    }
    const bool in_time = ends_in_time(process);
    int status = 0;
    waitpid(process, &status, 0);
    if (WIFEXITED(status)) return WEXITSTATUS(status);
    if (!in_time || WTERMSIG(status) == SIGXCPU)
        return give_error("The mail takes too long to read.", output);
    return give_error("The mail can't be read: the parser broke off.", output);
}

/// Tells the desk, which can't wait for a native process, that this one lives.
class LifeSign {
  public:
    explicit LifeSign(const std::filesystem::path& folder)
        : file_(open((folder / desk::mail::life_sign).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
        flock whole{};
        whole.l_type = F_WRLCK;
        fcntl(file_, F_SETLK, &whole);
    }
    ~LifeSign() { close(file_); }
    LifeSign(const LifeSign&) = delete;
    LifeSign& operator=(const LifeSign&) = delete;

  private:
    int file_;
};

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

    if (folder.empty()) return answer(file, output);
    const LifeSign life_sign(folder);
    const int code = answer(file, output);
    serve(folder);
    return code;
}
