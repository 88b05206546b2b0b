#include "admin/report.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <ostream>

namespace admin {
namespace {

/// What a state is called, for a person and for a program.
struct StateRow {
    Line::State state;
    const char* text;
    const char* json;
};
constexpr StateRow states[] = {{Line::State::ok, "ok", "ok"},
                               {Line::State::made, "made", "made"},
                               {Line::State::missing, "MISSING", "missing"},
                               {Line::State::wrong, "WRONG", "wrong"}};

const StateRow& row_of(Line::State state) { return *std::ranges::find(states, state, &StateRow::state); }

}  // namespace

bool Report::well() const { return std::ranges::all_of(lines, &Line::well); }

void print_text(const Report& report, std::ostream& out) {
    constexpr std::size_t width = 9;
    for (const Line& line : report.lines) {
        std::string state = row_of(line.state).text;
        state.resize(width, ' ');
        out << state << line.about;
        if (!line.told.empty()) out << ": " << line.told;
        if (!line.to_do.empty()) out << " -> " << line.to_do;
        out << "\n";
    }
    out << report.end << "\n";
}

void print_json(const Report& report, std::ostream& out) {
    nlohmann::ordered_json lines = nlohmann::ordered_json::array();
    for (const Line& line : report.lines) {
        lines.push_back({{"state", row_of(line.state).json},
                         {"about", line.about},
                         {"told", line.told},
                         {"do", line.to_do}});
    }
    const nlohmann::ordered_json all = {
        {"well", report.well()}, {"lines", std::move(lines)}, {"end", report.end}};
    out << all.dump(2) << "\n";
}

std::string counted(std::size_t number, const std::string& thing) {
    return std::to_string(number) + " " + thing + (number == 1 ? "" : "s");
}

std::string sentence(automation::TextView description) {
    std::string text = automation::to_utf8(automation::trimmed(description));
    while (!text.empty() && (text.back() == '.' || text.back() == '\n' || text.back() == '\r'))
        text.pop_back();
    return text.empty() ? "no reason was given" : text;
}

}  // namespace admin
