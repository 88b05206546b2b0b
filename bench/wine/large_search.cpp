#include <algorithm>
#include <chrono>
#include <iostream>
#include <thread>

#include "bench/table.h"
#include "bench/wine/desk_process.h"
#include "bench/wine/measures.h"
#include "tests/acceptance/note_dialog.h"

namespace bench {
namespace {

using acceptance::World;
using host::Object;

using Clock = std::chrono::steady_clock;

/// Of one row: the item and its id, and for each of the fields, the key and the number that nobody uses what
/// the wrapper asks of the item.
constexpr double most_calls_per_row = 22;

/// The calls that have reached the desk since the last reset, but for those that this program waits with.
double calls_of_the_add_in(World& world) {
    constexpr std::string_view waiting[] = {"Desk", "ResetCalls", "Calls", "Window", "Control", "Text"};
    const Object calls = world.desk().get(u"Calls").to_object();
    const std::int32_t count = calls.get(u"Count").to_integer();
    double sum = 0;
    for (std::int32_t i = 1; i <= count; ++i) {
        const Object entry = calls.call(u"Item", {i}).to_object();
        const std::string member = host::to_utf8(entry.get(u"Member").to_text());
        if (std::ranges::find(waiting, member) == std::end(waiting)) {
            sum += entry.get(u"Invocations").to_integer();
        }
    }
    return sum;
}

}  // namespace

bool large_search() {
    constexpr std::int32_t counts[] = {500, 5000};
    bool right = true;
    Table table("A search in the Create Note dialog",
                {"rows", "seconds", "rows a second", "calls of the host per row", "KB of memory per row"});
    for (const std::int32_t count : counts) {
        const auto world = acceptance::make_world({});
        acceptance::install_many_records(*world, count);
        acceptance::OpenedItem mail(world->deliver(acceptance::message()));
        mail.show();
        acceptance::NoteDialog dialog(*world);
        right = dialog.open(mail) && right;
        dialog.choose(u"Combo2", u"People");
        dialog.type(u"SearchString", u"Mill");
        world->desk().call(u"ResetCalls");
        const double memory = static_cast<double>(desk_memory());
        const Clock::time_point begin = Clock::now();
        dialog.control(u"cmdSearch").call(u"Click");
        constexpr auto round = std::chrono::milliseconds(100), longest = std::chrono::milliseconds(300'000);
        const auto is_done = [&] { return dialog.text(u"lblHeader") == "Search Complete for Mill"; };
        while (!is_done() && Clock::now() - begin < longest) std::this_thread::sleep_for(round);
        const double seconds = std::chrono::duration<double>(Clock::now() - begin).count();
        const double per_row = calls_of_the_add_in(*world) / count;
        const std::int32_t rows = dialog.count();
        table.row({std::to_string(rows), decimal(seconds, 1), decimal(rows / seconds, 0), decimal(per_row, 2),
                   decimal((static_cast<double>(desk_memory()) - memory) / 1024 / count, 2)});
        right = right && rows == count && per_row <= most_calls_per_row + 1;
    }
    table.print(std::cout);
    if (!right) {
        std::cout << "WRONG: rows are missing, or one costs more than " << most_calls_per_row << " calls\n\n";
    }
    return right;
}

}  // namespace bench
