// The lists of the add-in and of its siblings while they fill, in the real desk.
#include <algorithm>
#include <chrono>
#include <functional>
#include <iostream>
#include <thread>

#include "bench/table.h"
#include "bench/wine/desk_process.h"
#include "bench/wine/measures.h"
#include "bench/wine/server_work.h"
#include "tests/world/note_dialog.h"
#include "tests/world/quick_view.h"
#include "tests/world/search_panel.h"

namespace bench {
namespace {

using acceptance::World;
using automation::Object;
using automation::TextView;
using automation::Value;
using host::outlook::Item;

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

/// A list that is being filled.
struct Filling {
    std::function<void()> begin;
    std::function<bool()> is_done;
    std::function<std::int32_t()> rows;
};

/// What may be spent on a row.
struct Aims {
    double calls;         ///< of the host
    double round_trips;   ///< to Wine's server
    double milliseconds;  ///< on a plain machine that does nothing else
};

struct Cost {
    std::int32_t rows = 0;
    double seconds = 0, calls = 0, round_trips = 0, memory = 0;
};

/// The calls that have reached the desk since the last reset, but for those that this program waits with.
double calls_of_others(World& world) {
    constexpr std::string_view waiting[] = {"Desk",    "ResetCalls", "Calls", "Window",
                                            "Control", "Text",       "Count", "Visible"};
    const Object calls = world.desk().get(u"Calls").to_object();
    const std::int32_t count = calls.get(u"Count").to_integer();
    double sum = 0;
    for (std::int32_t i = 1; i <= count; ++i) {
        const Object entry = calls.call(u"Item", {i}).to_object();
        const std::string member = automation::to_utf8(entry.get(u"Member").to_text());
        if (std::ranges::find(waiting, member) == std::end(waiting)) {
            sum += entry.get(u"Invocations").to_integer();
        }
    }
    return sum;
}

double answers() { return static_cast<double>(server_answers().value_or(0)); }

/// Looks now and then whether it is done.
template <class Done>
void wait(const Done& is_done, milliseconds longest) {
    constexpr milliseconds round(250);
    const Clock::time_point begin = Clock::now();
    while (!is_done() && Clock::now() - begin < longest) std::this_thread::sleep_for(round);
}

double seconds_since(Clock::time_point begin) {
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

Cost cost_of(World& world, const Filling& filling) {
    world.desk().call(u"ResetCalls");
    const double memory = static_cast<double>(desk_memory());
    const double before = answers();
    const Clock::time_point begin = Clock::now();
    filling.begin();
    wait(filling.is_done, milliseconds(300'000));
    Cost cost{.rows = filling.rows(), .seconds = seconds_since(begin)};
    cost.round_trips = answers() - before;
    cost.calls = calls_of_others(world);
    cost.memory = static_cast<double>(desk_memory()) - memory;

    // what goes on anyway, this program's own waiting with it
    const double idle_before = answers();
    const Clock::time_point idle_begin = Clock::now();
    wait([&] { return filling.is_done() && seconds_since(idle_begin) > 2; }, milliseconds(5'000));
    cost.round_trips -= (answers() - idle_before) / seconds_since(idle_begin) * cost.seconds;
    return cost;
}

void copy(World& world, const Item& record, std::int32_t count) {
    world.desk().call(u"Copies", {Value(record), count, u"Subject"});
}

// The lists

Cost create_note_search(std::int32_t count) {
    const auto world = acceptance::make_world({});
    acceptance::install_many_records(*world, count);
    acceptance::OpenedItem mail(world->deliver(acceptance::message()));
    mail.show();
    acceptance::NoteDialog dialog(*world);
    dialog.open(mail);
    dialog.choose(u"Combo2", u"People");
    dialog.type(u"SearchString", u"Mill");
    return cost_of(*world,
                   {.begin = [&] { dialog.control(u"cmdSearch").call(u"Click"); },
                    .is_done = [&] { return dialog.text(u"lblHeader") == "Search Complete for Mill"; },
                    .rows = [&] { return dialog.count(); }});
}

/// A panel shows some fifty rows of each folder.
constexpr std::int32_t copies_for_panel = 59;

Cost search_panel(std::int32_t) {
    const auto world = acceptance::make_world({});
    acceptance::install_panel(*world);
    acceptance::add_full_account(*world);
    const Item contact = acceptance::add_full_contact(*world);
    struct Records {
        TextView folder, message_class;
    };
    for (const Records& records : {Records{u"Notes", u"IPM.Post.Note"}, Records{u"Email", u"IPM.Post.Note"},
                                   Records{u"Opportunities", u"IPM.Post.Opportunity"},
                                   Records{u"Customer Service", u"IPM.Post.CustomerService"}}) {
        copy(*world,
             acceptance::add_record(world->below(records.folder), records.message_class, u"Note",
                                    {{u"ContactID", u"C-200"}}),
             copies_for_panel);
    }
    const acceptance::SearchPanel panel(*world);
    panel.open_second(Item());
    panel.open_second(contact);
    return cost_of(*world, {.begin = [&] { panel.control(u"SearchMe").call(u"Select", {1}); },
                            .is_done = [&] { return panel.count() > 1 && panel.text(u"StoreID").empty(); },
                            .rows = [&] { return panel.count(); }});
}

Cost quick_view(std::int32_t count) {
    const auto world = acceptance::make_world({});
    world->option(u"EnableQuickView", u"1");
    acceptance::show_folder(*world, world->inbox());
    acceptance::add_contact(*world);
    copy(*world, acceptance::add_record(*world, u"Notes", u"IPM.Post.Note", u"Note", acceptance::keys_of_ann),
         count - 1);
    world->desk().call(u"Select", {Value(world->deliver(acceptance::message()))});
    world->wait_for_handlers();
    const acceptance::QuickView window(*world);
    return cost_of(*world, {.begin = [&] { window.choose_folder(u"Notes"); },
                            .is_done = [&] { return window.count() == count; },
                            .rows = [&] { return window.count(); }});
}

Cost picker(std::int32_t count) {
    constexpr TextView caption = u"Accounts by id";
    const auto world = acceptance::make_world({});
    acceptance::install_panel(*world);
    copy(*world, acceptance::add_full_account(*world), count - 1);
    const acceptance::SearchPanel panel(*world);
    panel.open();
    const auto window = [&] { return acceptance::window_of(*world, caption); };
    const auto list = [&] { return window().call(u"Control", {u"lstItems"}).to_object(); };
    const Cost cost = cost_of(*world, {.begin = [&] { panel.choose(u"Accounts"); },
                                       .is_done = [&] { return acceptance::is_shown(window()); },
                                       .rows = [&] { return list().get(u"Count").to_integer(); }});
    window().call(u"Control", {u"cmdCancel"}).to_object().call(u"Click");
    world->wait_until([&] { return !acceptance::is_shown(window()); });
    return cost;
}

struct Measured {
    const char* name;
    std::int32_t asked_for, expected;  ///< rows
    Cost (*measure)(std::int32_t rows);
    Aims aims;
};

/// Of a row of the dialog: the type of the folder, the item twice, the accessor and two answers for each of
/// seven fields, the number that nobody uses and the entry id, and one call for each item that the wrapper is
/// given.
constexpr Measured lists[] = {
    {"Create Note search", 500, 500, create_note_search, {24, 45, 4}},
    {"Create Note search", 5000, 5000, create_note_search, {24, 45, 4}},
    {"Search Panel", 0, 205, search_panel, {12, 60, 6}},
    {"Quick View", 500, 500, quick_view, {6, 30, 3}},
    {"the family's picker", 500, 500, picker, {20, 45, 4}},
};

}  // namespace

bool filled_lists() {
    bool right = true;
    Table table(
        "Lists that fill, in the real desk; for each row, with the aim",
        {"list", "rows", "seconds", "ms", "aim", "host calls", "aim", "server trips", "aim", "KB of memory"});
    for (const Measured& list : lists) {
        const Cost cost = list.measure(list.asked_for);
        const double ms = cost.seconds * 1000 / cost.rows, calls = cost.calls / cost.rows,
                     trips = cost.round_trips / cost.rows;
        table.add_row({list.name, std::to_string(cost.rows), decimal(cost.seconds, 1), decimal(ms, 1),
                       decimal(list.aims.milliseconds, 0), decimal(calls, 1), decimal(list.aims.calls, 0),
                       server_answers() ? decimal(trips, 0) : "?", decimal(list.aims.round_trips, 0),
                       decimal(cost.memory / 1024 / cost.rows, 2)});
        right = right && cost.rows == list.expected && ms <= list.aims.milliseconds &&
                calls <= list.aims.calls && trips <= list.aims.round_trips;
    }
    table.print(std::cout);
    if (!right) std::cout << "WRONG: rows are missing, or an aim is missed\n\n";
    return right;
}

}  // namespace bench
