// How the add-in bears a month in one session of its host.
#pragma once

#include <cstdint>
#include <filesystem>

namespace hours {

struct MonthPlan {
    int days = 0;                  ///< working days, 22 in a month
    std::uint32_t seed = 0;        ///< of the order in which a day's work is done
    int percent = 100;             ///< of a busy user's work
    std::filesystem::path folder;  ///< takes the table and the plot
};

/// Lives through the days in one session, prints what the desk's process takes after each of them, and checks
/// the database. Whether all is well; if not, a sentence has said what isn't.
bool month(const MonthPlan& plan);

}  // namespace hours
