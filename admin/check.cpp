#include "admin/check.h"

#include <algorithm>

#include "admin/checked.h"

namespace admin {
namespace {

using Question = void (*)(Checked& checked);

constexpr Question questions[] = {
    check_host,
    check_registration,
    check_file,
    check_bits,
    check_version,
    check_load_behavior,
    check_disabled,
    check_slow,
    check_connection,
    check_answer,
    check_siblings,
    check_store,
    check_account_profiles,
    check_tree,
    check_settings,
    check_index,
};

}  // namespace

Report check(Machine& machine) {
    Checked checked{.machine = machine};
    for (const Question question : questions) question(checked);
    Report report{.lines = std::move(checked.lines)};
    const auto wrong = static_cast<std::size_t>(
        std::ranges::count_if(report.lines, [](const Line& line) { return !line.well(); }));
    report.end = wrong == 0 ? "All is well."
                            : counted(wrong, "line") + " of " + std::to_string(report.lines.size()) +
                                  (wrong == 1 ? " is" : " are") + " not well.";
    return report;
}

}  // namespace admin
