#include <algorithm>
#include <chrono>
#include <fstream>
#include <iostream>

#include "bench/table.h"
#include "tests/hours/hours.h"
#include "tests/hours/plot.h"
#include "tests/wine/support/desk_measures.h"
#include "tests/world/busy_user.h"

namespace hours {
namespace {

using acceptance::BusyDay;
using bench::decimal;
using wine::DeskMeasures;

/// What one busy user does in a month of this many working days.
constexpr int days_of_month = 22;
constexpr BusyDay work_of_month{
    .received = 20'000, .sent = 4'000, .windows = 2'000, .selections = 1'000, .searches = 500, .linked = 300};

/// What may be more at the end than after the first day. What was looked at last is still held; handles and
/// objects of the system come and go a few at a time; one that each window left behind would be a hundred a
/// day.
constexpr int spread_of_held = 4, spread_of_handles = 16, spread_of_objects = 50;

/// What the desk may take at the end beyond what it takes when it was started again on the same database and
/// has done one day: as a part of that, and what memory that was given back in pieces may come to.
constexpr double largest_growth = 0.10;

constexpr double megabyte = 1024.0 * 1024;

BusyDay day_of(const MonthPlan& plan, int day) {
    const auto part = [&](int all) {
        const auto until = [&](int days) {
            return static_cast<std::int64_t>(all) * plan.percent * days / (days_of_month * 100);
        };
        return static_cast<int>(until(day + 1) - until(day));
    };
    return {.received = part(work_of_month.received),
            .sent = part(work_of_month.sent),
            .windows = part(work_of_month.windows),
            .selections = part(work_of_month.selections),
            .searches = part(work_of_month.searches),
            .linked = part(work_of_month.linked)};
}

std::vector<std::string> cells_of(const std::string& day, const DeskMeasures& now, double seconds) {
    return {day,
            decimal(static_cast<double>(now.private_bytes) / megabyte, 2),
            std::to_string(now.handles),
            std::to_string(now.drawing_objects),
            std::to_string(now.user_objects),
            std::to_string(now.held),
            decimal(seconds, 0)};
}

const std::vector<std::string> heads = {"after day",    "private MB",       "handles", "drawing objects",
                                        "user objects", "COM objects held", "seconds"};

/// The first that does not hold is the one to tell.
bool judged(const std::vector<DeskMeasures>& days, const DeskMeasures& restarted,
            const acceptance::Lines& wrongs) {
    const DeskMeasures &first = days.front(), &last = days.back();
    const auto memory = [](const DeskMeasures& one) { return static_cast<double>(one.private_bytes); };
    const struct {
        bool holds;
        std::string otherwise;
    } checks[] = {
        {wrongs.empty(),
         wrongs.empty() ? "" : wrongs.front() + ", and " + std::to_string(wrongs.size() - 1) + " more"},
        {last.held <= first.held + spread_of_held, "COM objects of the host are held on to"},
        {last.handles <= first.handles + spread_of_handles, "handles are not given back"},
        {last.drawing_objects <= first.drawing_objects + spread_of_objects,
         "drawing objects are not given back"},
        {last.user_objects <= first.user_objects + spread_of_objects,
         "windows, menus or icons are not given back"},
        {memory(last) <= memory(restarted) * (1 + largest_growth),
         "the session takes more memory than the database explains"},
        {!testing::UnitTest::GetInstance()->ad_hoc_test_result().Failed(), "a step of the day went wrong"},
    };
    for (const auto& check : checks) {
        if (check.holds) continue;
        std::cout << "WRONG: " << check.otherwise << '\n';
        return false;
    }
    return true;
}

void write(const MonthPlan& plan, const bench::Table& table, const std::vector<DeskMeasures>& days) {
    const auto curve = [&](const char* name, auto value) {
        Curve made{.name = name, .values = {}};
        for (const DeskMeasures& day : days) made.values.push_back(static_cast<double>(value(day)));
        return made;
    };
    std::ofstream text(plan.folder / "hours.txt", std::ios::binary);
    table.print(text);
    if (!text.flush()) throw std::runtime_error("the table can't be written");
    write_plot(
        plan.folder / "hours.svg", "The desk's process after each day",
        {curve("private memory in MB",
               [](const DeskMeasures& day) { return static_cast<double>(day.private_bytes) / megabyte; }),
         curve("handles", [](const DeskMeasures& day) { return day.handles; }),
         curve("drawing objects", [](const DeskMeasures& day) { return day.drawing_objects; }),
         curve("user objects", [](const DeskMeasures& day) { return day.user_objects; }),
         curve("COM objects held", [](const DeskMeasures& day) { return day.held; })});
}

}  // namespace

bool month(const MonthPlan& plan) {
    using Clock = std::chrono::steady_clock;
    const auto world = acceptance::make_world({});
    acceptance::BusyUser user(*world, plan.seed);
    bench::Table table(std::to_string(plan.days) + " days in one session, " + std::to_string(plan.percent) +
                           " % of a busy user's work, seed " + std::to_string(plan.seed),
                       heads);
    const auto lived = [&](int day, const std::string& name) {
        const Clock::time_point begin = Clock::now();
        user.live(day_of(plan, day));
        user.go_home();
        const DeskMeasures now = wine::measured(*world);
        const std::vector<std::string> cells =
            cells_of(name, now, std::chrono::duration<double>(Clock::now() - begin).count());
        table.add_row(cells);
        for (std::size_t i = 0; i < cells.size(); ++i)
            std::cout << heads[i] << ' ' << cells[i] << (i + 1 < cells.size() ? ", " : "\n");
        std::cout.flush();
        return now;
    };
    std::vector<DeskMeasures> days;
    for (int day = 0; day < plan.days; ++day) days.push_back(lived(day, std::to_string(day + 1)));
    world->quit();
    world->start();
    user.come_back();
    const DeskMeasures restarted = lived(plan.days, "a restart");
    write(plan, table, days);
    const acceptance::Lines wrongs = acceptance::wrongs_of(*world, user);
    std::cout << user.traces().size() << " mails, appointments and tasks were looked for one by one\n";
    return judged(days, restarted, wrongs);
}

}  // namespace hours
