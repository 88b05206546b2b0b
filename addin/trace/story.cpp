#include "addin/trace/story.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "addin/host/host_events.h"
#include "addin/trace/reasons.h"

namespace addin::trace {

using automation::Failure;
using automation::Request;
using automation::Text;
using automation::TextView;
using automation::Value;
using std::chrono::steady_clock;

namespace {

constexpr std::size_t most_lines = 300;  // of one story: a walk over all folders may fail at each item

/// What is shown of a mail where its content may be.
constexpr TextView shown_members[] = {u"MessageClass", u"Subject", u"SenderName", u"To", u"Address"};
constexpr TextView body = u"Body", post = u"Post", find = u"Find";

/// The entries that file mail.
constexpr std::string_view filing_entries[] = {"ItemsEvents.ItemChange", "ApplicationEvents.ItemSend",
                                               "AutomaticCreateNote", "AutomaticCreateNoteSend"};

std::string counted(int number, std::string_view one, std::string_view several) {
    return std::to_string(number) + " " + std::string(number == 1 ? one : several);
}

/// Tenths of a millisecond: nobody can do anything with less.
std::string in_milliseconds(steady_clock::duration time) {
    const auto tenths =
        std::chrono::round<std::chrono::duration<long long, std::ratio<1, 10000>>>(time).count();
    return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10);
}

std::string number_of(const Failure& failure) {
    std::array<char, 16> digits{};
    std::snprintf(digits.data(), digits.size(), "0x%08X", static_cast<unsigned>(failure.number()));
    return digits.data();
}

std::string event_name(const automation::Guid& interface_id, const Request& event) {
    for (const automation::EventInterface* interface : host::events::all) {
        if (interface->id != interface_id) continue;
        for (const automation::Event& one : interface->events) {
            const bool is_it = event.id != automation::no_id ? one.id == event.id : one.name == event.member;
            if (is_it) return std::string(interface->name) + "." + automation::to_utf8(one.name);
        }
        return std::string(interface->name);
    }
    return "an event";
}

}  // namespace

struct Teller::Story {
    int number = 0;
    std::string what;
    std::chrono::system_clock::time_point date;
    std::vector<std::string> lines{};
    int failed = 0, passed_over = 0, calls = 0, posted = 0, contacts = 0;
    std::vector<std::pair<std::string, int>> reasons{};  ///< as sentences, and how often each
    std::map<Turn, steady_clock::duration> took{};
    std::vector<Turn> turns{Turn::add_in};
    bool empty = true;
    bool without_event = false;

    bool files_mail() const { return std::ranges::find(filing_entries, what) != std::end(filing_entries); }
};

Moment now() { return {std::chrono::system_clock::now(), steady_clock::now()}; }

Teller::Teller(std::unique_ptr<Log> log, Clock clock, Manner manner)
    : log_(std::move(log)),
      clock_(std::move(clock)),
      manner_(manner),
      discretion_(manner.content),
      counted_(clock_().time) {}

Teller::~Teller() {
    while_told([&] {
        while (!stories_.empty()) end();
    });
}

template <class Deed>
void Teller::while_told(Deed&& deed) noexcept {
    if (!log_) return;
    try {
        deed();
    } catch (const std::exception&) {
        log_.reset();  // no memory is no reason for the add-in to stop
    }
}

void Teller::clock_to(Turn turn) {
    const steady_clock::time_point time = clock_().time;
    if (!stories_.empty()) stories_.back().took[turn] += time - counted_;
    counted_ = time;
}

void Teller::begin(std::string what) {
    if (!stories_.empty() && stories_.back().without_event) end();
    if (!stories_.empty()) clock_to(stories_.back().turns.back());
    const Moment moment = clock_();
    counted_ = moment.time;
    stories_.push_back({.number = 0, .what = std::move(what), .date = moment.date});
}

Teller::Story& Teller::current() {
    if (stories_.empty()) {
        begin("outside of an event");
        stories_.back().without_event = true;
    }
    Story& story = stories_.back();
    if (story.empty) {
        story.empty = false;
        story.number = ++number_;
    }
    return story;
}

void Teller::add(std::string line) {
    Story& story = current();
    if (story.lines.size() < most_lines) {
        story.lines.push_back(std::move(line));
    } else {
        ++story.passed_over;
    }
}

void Teller::end() {
    clock_to(stories_.back().turns.back());
    const Story story = std::move(stories_.back());
    stories_.pop_back();
    if (!story.empty) {
        std::string text = written(story.date) + "  #" + std::to_string(story.number) + "  " + story.what;
        if (!stories_.empty()) text += ", during #" + std::to_string(current().number);
        text += "\n";
        for (const std::string& line : story.lines) text += "    " + line + "\n";
        if (story.passed_over > 0) text += "    and " + std::to_string(story.passed_over) + " lines more\n";
        const auto took = [&](Turn turn) {
            const auto found = story.took.find(turn);
            return in_milliseconds(found == story.took.end() ? steady_clock::duration() : found->second);
        };
        text += "    took " + took(Turn::add_in) + " ms in the add-in, " + took(Turn::host) +
                " ms in the host (" + counted(story.calls, "call", "calls") + ")";
        if (story.took.contains(Turn::waiting)) text += ", " + took(Turn::waiting) + " ms of waiting";
        write(text + "\n    " + ending(story) + "\n");
    }
    if (stories_.empty()) discretion_.forgets();
}

std::string Teller::ending(const Story& story) const {
    std::string reasons;
    for (const auto& [sentence, times] : story.reasons) {
        if (!reasons.empty()) reasons += "; ";
        reasons += sentence;
        if (times > 1) reasons += " (" + std::to_string(times) + " times)";
    }
    std::string text;
    if (story.posted > 0) {
        text = "filed: " + counted(story.posted, "note", "notes");
        if (!reasons.empty()) text += "; not for others: " + reasons;
    } else if (!reasons.empty()) {
        text = (story.files_mail() ? "not filed: " : "left: ") + reasons;
    } else if (story.files_mail() && story.contacts > 0) {
        text = "not filed: the note could not be posted";
    } else {
        text = "ended";
    }
    if (story.failed > 0)
        text += ", after " + counted(story.failed, "step", "steps") + " that failed (above)";
    return text;
}

void Teller::write(const std::string& text) {
    if (log_ && !log_->write(text)) log_.reset();
}

std::string Teller::words_of(const Failure& failure) const {
    const std::string words = discretion_.said_discreetly(failure.description());
    return number_of(failure) + (words.empty() ? "" : " ") + words;
}

void Teller::skipped(const SourcePlace& place, const Failure& failure) noexcept {
    while_told([&] {
        ++current().failed;
        add("failed  " + name_of(place.function_name(), place.file_name(), place.line()) + ": " +
            words_of(failure));
    });
}

void Teller::decided(const SourcePlace& place, bool answer, const Why& why,
                     const Failure* unanswered) noexcept {
    while_told([&] {
        std::string line = (answer ? "yes     " : "no      ") +
                           name_of(place.function_name(), place.file_name(), place.line());
        if (unanswered) {
            ++current().failed;
            line += ", taken for it: " + words_of(*unanswered);
        }
        add(std::move(line));
        Story& story = current();
        if (why.reason == Reason::no_contact && !answer) ++story.contacts;
        if (why.reason == Reason::none || !answer) return;
        std::string told(sentence(why.reason));
        if (manner_.content && !why.about.empty()) told += " " + on_one_line(why.about);
        const auto known = std::ranges::find(story.reasons, told, &std::pair<std::string, int>::first);
        if (known == story.reasons.end()) {
            story.reasons.emplace_back(std::move(told), 1);
        } else {
            ++known->second;
        }
    });
}

void Teller::asks(const Request& request) noexcept {
    while_told([&] {
        ++current().calls;
        for (const Value& argument : request.arguments) {
            if (!argument.is(Value::Type::text)) continue;
            if (request.member == body) discretion_.hears(argument.to_text());
            if (manner_.content && request.member == find) add("find    " + on_one_line(argument.to_text()));
        }
    });
    turns(Turn::host);
}

void Teller::asked(const Request& request, const Value* answer, const Failure* failure) noexcept {
    turns_back();
    while_told([&] {
        if (!failure && request.member == post) ++current().posted;
        if (!answer || !answer->is(Value::Type::text)) return;
        const Text text = answer->to_text();
        if (request.member == body) discretion_.hears(text);
        if (manner_.content && std::ranges::find(shown_members, request.member) != std::end(shown_members))
            add("read    " + automation::to_utf8(request.member) + ": " + on_one_line(text));
    });
}

void Teller::tells(const automation::Guid& interface_id, const Request& event) noexcept {
    while_told([&] { begin(event_name(interface_id, event)); });
}

void Teller::told() noexcept { left(); }

void Teller::entered(std::string_view what) noexcept {
    while_told([&] { begin(std::string(what)); });
}

void Teller::left() noexcept {
    while_told([&] {
        if (!stories_.empty() && stories_.back().without_event) end();
        if (!stories_.empty()) end();
    });
}

void Teller::turns(Turn turn) noexcept {
    while_told([&] {
        Story& story = current();
        clock_to(story.turns.back());
        story.turns.push_back(turn);
    });
}

void Teller::turns_back() noexcept {
    while_told([&] {
        if (stories_.empty() || stories_.back().turns.size() < 2) return;
        clock_to(stories_.back().turns.back());
        stories_.back().turns.pop_back();
    });
}

std::string name_of(std::string_view function, std::string_view file, unsigned line) {
    std::string name(function);
    for (const std::string_view unnamed : {"(anonymous namespace)::", "{anonymous}::"}) {
        for (std::size_t at = name.find(unnamed); at != std::string::npos; at = name.find(unnamed)) {
            name.erase(at, unnamed.size());
        }
    }
    name.erase(std::min(name.find('('), name.size()));  // the parameters
    const std::size_t blank = name.rfind(' ');          // what it returns
    if (blank != std::string::npos) name.erase(0, blank + 1);
    constexpr std::string_view ours = "addin::";
    if (name.starts_with(ours)) name.erase(0, ours.size());
    const std::size_t slash = file.find_last_of("/\\");
    if (slash != std::string_view::npos) file.remove_prefix(slash + 1);
    return name + " (" + std::string(file) + ":" + std::to_string(line) + ")";
}

std::string written(std::chrono::system_clock::time_point date) {
    using namespace std::chrono;
    const auto day = floor<days>(date);
    const year_month_day ymd(day);
    const hh_mm_ss clock(floor<milliseconds>(date - day));
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02d.%03dZ",
                  static_cast<int>(ymd.year()), static_cast<unsigned>(ymd.month()),
                  static_cast<unsigned>(ymd.day()), static_cast<int>(clock.hours().count()),
                  static_cast<int>(clock.minutes().count()), static_cast<int>(clock.seconds().count()),
                  static_cast<int>(clock.subseconds().count()));
    return text.data();
}

}  // namespace addin::trace
