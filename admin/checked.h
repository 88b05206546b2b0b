// What the questions of a check have found so far.
#pragma once

#include <optional>

#include "addin/host/family.h"
#include "admin/machine.h"
#include "admin/report.h"

namespace admin {

struct Checked {
    Machine& machine;
    std::vector<Line> lines{};

    host::outlook::Application application{};  ///< an empty one if no host answers
    Text version{};                            ///< of the host
    std::optional<Bits> bits{};                ///< of the host, if it is known
    Text file{};                               ///< the add-in's, as it is registered
    bool file_there = false;
    host::family::MainAddIn family{};          ///< an empty one if it can't be made
    host::outlook::Folder account_profiles{};  ///< an empty one if it isn't found

    void ok(const std::string& about, const std::string& told) {
        lines.push_back({Line::State::ok, about, told});
    }
    void wrong(const std::string& about, const std::string& told, const std::string& to_do) {
        lines.push_back({Line::State::wrong, about, told, to_do});
    }
    /// A question that can't be answered before another one is.
    void not_asked(const std::string& about, const std::string& reason) {
        lines.push_back({Line::State::wrong, about, "not looked at, since " + reason, "see to that first"});
    }
};

// the questions of the installation
void check_host(Checked& checked);
void check_registration(Checked& checked);
void check_file(Checked& checked);
void check_bits(Checked& checked);
void check_version(Checked& checked);
void check_load_behavior(Checked& checked);
void check_disabled(Checked& checked);
void check_slow(Checked& checked);
void check_connection(Checked& checked);
void check_answer(Checked& checked);

// the questions of what the add-in works with
void check_siblings(Checked& checked);
void check_store(Checked& checked);
void check_account_profiles(Checked& checked);
void check_tree(Checked& checked);
void check_settings(Checked& checked);
void check_index(Checked& checked);

}  // namespace admin
