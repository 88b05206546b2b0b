#include <algorithm>
#include <iostream>

#include "bench/native/measures.h"
#include "bench/table.h"

namespace bench {
namespace {

using host::outlook::Item;

struct Mail {
    const char* name;
    acceptance::MailPlan plan;
    bool is_filed;
};

const std::vector<Mail>& mails() {
    static const std::vector<Mail> all = {
        {"a known sender's mail, filed", {}, true},
        {"an unknown sender's mail", {.from = "Nobody <nobody@elsewhere.example>"}, false},
        {"a mail of another class", {.more = "X-Desk-Class: IPM.Note.Other\n"}, false},
    };
    return all;
}

/// The calls by member, in the order of their first use.
std::vector<std::pair<std::string, int>> counted(const std::vector<std::string>& calls) {
    std::vector<std::pair<std::string, int>> counts;
    for (const std::string& member : calls) {
        const auto known = std::ranges::find(counts, member, &std::pair<std::string, int>::first);
        if (known == counts.end()) {
            counts.emplace_back(member, 1);
        } else {
            ++known->second;
        }
    }
    return counts;
}

}  // namespace

bool calls_of_a_mail() {
    bool right = true;
    const auto world = filing_world();
    for (const Mail& mail : mails()) {
        const Item delivered = world->deliver(acceptance::message(mail.plan));
        world->settle();
        world->boundary().forget_calls();
        acceptance::World::read(delivered);
        world->settle();
        const std::vector<std::string> calls = world->boundary().calls();

        Table table(std::string("Calls of the add-in to the outside: ") + mail.name, {"member", "calls"});
        for (const auto& [member, count] : counted(calls)) table.add_row({member, std::to_string(count)});
        table.add_row({"in all", std::to_string(calls.size())});
        table.print(std::cout);
        if (acceptance::is_marked(delivered) != mail.is_filed) {
            std::cout << "WRONG: it was " << (mail.is_filed ? "not " : "") << "filed\n\n";
            right = false;
        }
    }
    return right;
}

}  // namespace bench
