#include <algorithm>
#include <chrono>
#include <iostream>
#include <set>

#include "bench/table.h"
#include "bench/wine/desk_process.h"
#include "bench/wine/measures.h"
#include "tests/world/many_mails.h"
#include "tests/world/people.h"

namespace bench {
namespace {

using acceptance::World;
using automation::Text;
using host::outlook::Item;

using Clock = std::chrono::steady_clock;

constexpr double largest_growth = 1.05;

/// After so many mails the desk is at its working size; of a short run it is the first quarter.
constexpr int longest_warm_up = 500;

/// The desk between two mails.
struct State {
    int mails = 0;
    std::int32_t held = 0;  ///< of its objects, from outside
    double memory = 0;      ///< bytes
};

State state_of(World& world, int mails) {
    const automation::Object live = world.desk().get(u"Live").to_object();
    return {mails, live.get(u"Total").to_integer(), static_cast<double>(desk_memory())};
}

/// The subjects of the notes that there are.
std::vector<Text> subjects_of_notes(World& world) {
    std::vector<Text> subjects;
    const host::outlook::Items items = world.below(u"Email").Items();
    const std::int32_t count = items.Count();
    for (std::int32_t i = 1; i <= count; ++i) subjects.push_back(items.Item(i).Subject());
    return subjects;
}

}  // namespace

bool soak(int mail_count) {
    const auto world = acceptance::make_world({});
    world->family(u"EmailAutoFile", u"1");
    acceptance::add_contact(*world);

    // the file of each mail is a new one: to write over another, some file systems wait for the disk
    const Text file = world->write_file("delivered.eml", {});

    const int warm_up = std::min(longest_warm_up, mail_count / 4);
    const Clock::time_point begin = Clock::now();
    Clock::duration reading_filed{}, reading_others{};
    State first;
    std::vector<Text> to_be_filed;
    int wrong = 0;
    for (int i = 0; i < mail_count; ++i) {
        if (i == warm_up) first = state_of(*world, i);
        world->remove_file(file);
        const acceptance::MailOfMany& kind = acceptance::mail_of_many(i);
        const std::string subject = "Mail " + std::to_string(i);
        const Item mail =
            world->deliver(acceptance::message({.from = kind.from, .subject = subject, .more = kind.more}));
        const Clock::time_point before = Clock::now();
        World::read(mail);
        (kind.is_filed ? reading_filed : reading_others) += Clock::now() - before;
        if (acceptance::is_marked(mail) != kind.is_filed) ++wrong;
        if (kind.is_filed) to_be_filed.push_back(automation::from_utf8(subject));
    }
    world->settle();
    const State last = state_of(*world, mail_count);
    const std::chrono::duration<double> time = Clock::now() - begin;

    std::vector<Text> notes = subjects_of_notes(*world);
    const std::size_t distinct = std::set(notes.begin(), notes.end()).size();
    Table decisions("A long session", {"", "count"});
    decisions.add_row({"mails read", std::to_string(mail_count)});
    decisions.add_row({"of them to be filed", std::to_string(to_be_filed.size())});
    decisions.add_row({"notes", std::to_string(notes.size())});
    decisions.add_row({"mails filed twice", std::to_string(notes.size() - distinct)});
    decisions.add_row({"wrong decisions", std::to_string(wrong)});
    const auto mean = [](Clock::duration sum, std::size_t count) {
        return decimal(std::chrono::duration<double, std::milli>(sum).count() / static_cast<double>(count),
                       1);
    };
    const std::size_t others = static_cast<std::size_t>(mail_count) - to_be_filed.size();
    decisions.add_row({"ms to read one that is filed, mean", mean(reading_filed, to_be_filed.size())});
    decisions.add_row({"ms to read another, mean", mean(reading_others, others)});
    decisions.add_row({"mails a second, from their delivery on", decimal(mail_count / time.count(), 1)});
    decisions.print(std::cout);

    Table states("The desk in that session", {"mails", "objects held from outside", "memory in MB"});
    for (const State& state : {first, last}) {
        states.add_row({std::to_string(state.mails), std::to_string(state.held),
                        decimal(state.memory / (1024 * 1024), 2)});
    }
    states.print(std::cout);

    const struct {
        bool holds;
        const char* otherwise;
    } checks[] = {
        {wrong == 0 && notes == to_be_filed, "WRONG: mails were filed that should not be, or the other way"},
        {last.held == first.held, "WRONG: objects are held on to"},
        {last.memory <= first.memory * largest_growth, "WRONG: the desk's memory grows by more than 5 %"},
    };
    bool right = true;
    for (const auto& check : checks) {
        if (check.holds) continue;
        std::cout << check.otherwise << "\n\n";
        right = false;
    }
    return right;
}

}  // namespace bench
