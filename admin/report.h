// What a command tells: lines of text for a person, or JSON for a program.
#pragma once

#include <iosfwd>
#include <stdexcept>
#include <string>
#include <vector>

#include "automation/text.h"

namespace admin {

/// How the program ends.
namespace exit_code {
inline constexpr int well = 0, not_well = 1, wrong_call = 2, impossible = 3;
}

/// What ends a command: one sentence.
class Refusal : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

struct Line {
    enum class State { ok, made, missing, wrong };

    State state = State::ok;
    std::string about;    ///< what it tells of
    std::string told;     ///< what was found
    std::string to_do{};  ///< what mends it; empty if nothing is to be done

    bool well() const { return state == State::ok || state == State::made; }
};

struct Report {
    std::vector<Line> lines;
    std::string end;  ///< the last sentence

    bool well() const;
    int code() const { return well() ? exit_code::well : exit_code::not_well; }
};

void print_text(const Report& report, std::ostream& out);
void print_json(const Report& report, std::ostream& out);

/// A text as the lines hold it.
inline std::string shown(automation::TextView text) { return automation::to_utf8(text); }

/// "1 thing", "2 things".
std::string counted(std::size_t number, const std::string& thing);

/// A sentence for what the host or the system has said.
std::string sentence(automation::TextView description);

}  // namespace admin
