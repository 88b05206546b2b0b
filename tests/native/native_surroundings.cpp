#include "tests/native/native_surroundings.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <fstream>
#include <map>
#include <random>

#include "desk/tools/mail/html_text.h"
#include "desk/tools/mail/mail_reader.h"
#include "tests/native/temporary_folder.h"

namespace native {

namespace {

automation::Date local_date(std::time_t seconds) {
    std::tm clock{};
    localtime_r(&seconds, &clock);
    constexpr int first_year = 1900;
    return automation::to_date({first_year + clock.tm_year, clock.tm_mon + 1, clock.tm_mday, clock.tm_hour,
                                clock.tm_min, clock.tm_sec});
}

}  // namespace

automation::Date NativeSurroundings::now() { return local_date(std::time(nullptr)); }

automation::Date NativeSurroundings::to_utc(automation::Date local) {
    const automation::ClockTime clock = automation::to_clock(local);
    constexpr int first_year = 1900, unknown = -1;
    std::tm parts{};
    parts.tm_year = clock.year - first_year;
    parts.tm_mon = clock.month - 1;
    parts.tm_mday = clock.day;
    parts.tm_hour = clock.hour;
    parts.tm_min = clock.minute;
    parts.tm_sec = clock.second;
    parts.tm_isdst = unknown;
    const std::time_t seconds = std::mktime(&parts);
    gmtime_r(&seconds, &parts);
    return automation::to_date({first_year + parts.tm_year, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour,
                                parts.tm_min, parts.tm_sec});
}

std::string NativeSurroundings::random_bytes(std::size_t count) {
    std::random_device source;
    std::uniform_int_distribution<int> byte(0, 255);
    std::string bytes(count, '\0');
    for (char& place : bytes) place = static_cast<char>(byte(source));
    return bytes;
}

desk::ItemData NativeSurroundings::read_mail(automation::TextView path) {
    return desk::mail::read_message_file(local_path(path));
}

automation::Text NativeSurroundings::page_text(automation::TextView html) {
    return desk::mail::html_to_text(html);
}

std::vector<desk::CallCount> NativeSurroundings::calls() {
    std::map<std::string, std::int64_t> counts;
    for (const std::string& call : boundary_.calls()) {
        const std::size_t dot = call.rfind('.');  // the desk counts by the member alone
        ++counts[dot == std::string::npos ? call : call.substr(dot + 1)];
    }
    std::vector<desk::CallCount> all;
    for (const auto& [member, count] : counts) all.push_back({member, count, 0});
    return all;
}

std::vector<desk::IndexedFile> NativeSurroundings::indexed_files() {
    std::vector<desk::IndexedFile> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(indexed_folder)) {
        if (!entry.is_regular_file()) continue;
        std::ifstream stream(entry.path(), std::ios::binary);
        std::string content(std::istreambuf_iterator<char>(stream), {});
        const auto time = std::chrono::file_clock::to_sys(entry.last_write_time());
        const automation::Date changed =
            local_date(std::chrono::system_clock::to_time_t(std::chrono::floor<std::chrono::seconds>(time)));
        files.push_back({.folder = system_path(entry.path().parent_path()),
                         .name = entry.path().filename().u16string(),
                         .created = changed,
                         .modified = changed,
                         .content = std::move(content)});
    }
    std::ranges::sort(files, {},
                      [](const desk::IndexedFile& file) { return std::pair(file.folder, file.name); });
    return files;
}

void NativeSurroundings::post(std::function<void()> action) {
    posted_.push_back(std::move(action));
    if (strands_.parked() == 0) waiting_ = 0;
    const bool handler_runs = telling() > waiting_;
    if (!strands_.running() && !handler_runs) run_posted();
}

std::unique_ptr<desk::WindowDriver> NativeSurroundings::window(automation::TextView caption) {
    return drive_window(engine_, caption, [this](std::function<void()> deed) { post(std::move(deed)); });
}

void NativeSurroundings::run_posted() {
    while (!posted_.empty()) {
        const std::function<void()> next = std::move(posted_.front());
        posted_.pop_front();
        if (strands_.running()) {
            next();
        } else {
            strands_.run(next);
            strands_.resume_parked();  // it may have ended what another action waits for
            waiting_ = strands_.parked() > 0 ? telling() : 0;
        }
    }
}

void NativeSurroundings::snapshot(automation::TextView) {
    throw automation::Failure(automation::result::not_implemented, u"There is no screen here.");
}

}  // namespace native
