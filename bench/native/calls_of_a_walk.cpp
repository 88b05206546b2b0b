#include <algorithm>
#include <iostream>
#include <map>

#include "bench/native/measures.h"
#include "bench/table.h"
#include "tests/world/search_panel.h"

namespace bench {
namespace {

using automation::Text;
using automation::Value;

constexpr int tree_sizes[] = {10, 100, 2'000};
constexpr int all_items = 100'000;
constexpr int rows_of_folder = 2;  // of each folder's items so many are the account's

/// The account and its contact bear the key, too.
constexpr int rows_besides = 2;

/// What a folder costs: itself, its name and items, one question to it, the number of what was found and the
/// folders below it with their number.
constexpr double calls_of_folder = 7;
/// What a row costs: the item, the wrapper's item, subject, sender, class, time, change and entry id.
constexpr double calls_of_row = 8;
/// A wrapper is made for each folder in which something was found.
constexpr double calls_of_found = 1;
/// What a search costs besides.
constexpr double calls_around = 120;

/// The add-in holds no more of the host's objects at once, however many items there are.
constexpr int most_held = 60;

/// Adds folders with items beside the others of the database.
void add_tree(desk::Store& store, int folders, int items) {
    const std::vector<desk::FolderRow> all = store.folders();
    const auto anchor = std::ranges::find(all, Text(u"Account Profiles"), &desk::FolderRow::name);
    desk::Store::Transaction transaction(store);
    for (int i = 1; i <= folders; ++i) {
        desk::FolderRow row = *anchor;
        row.name = u"Made-up folder " + automation::to_text(i);
        row.fields.clear();
        const desk::RowId folder = store.add_folder(row);
        const int share = items / folders;
        for (int item = 0; item < share; ++item) {
            desk::ItemData data;
            data.message_class = u"IPM.Post.Note";
            data.fields = {{u"Subject", u"Made-up note " + automation::to_text(item)}};
            data.user_properties = {{u"AccountID", 1, Text(item < rows_of_folder ? u"A-100" : u"A-1")}};
            store.add_item(folder, data);
        }
    }
    transaction.keep();
}

struct Walk {
    std::map<std::string, int> calls;
    int folders = 0, rows = 0, held = 0;
    long memory = 0;  // kilobytes
};

/// A search of the panel for the account. The list has been left to the panel.
Walk walk(native::NativeWorld& world, const host::outlook::Item& account) {
    Walk done;
    const std::function<void()> usual = world.system().on_yield;
    world.system().on_yield = [&] {
        ++done.folders;
        int held = 0;
        for (const desk::LiveCount& count : world.boundary().live()) held += count.count;
        done.held = std::max(done.held, held);
        usual();
    };
    const long before = peak_memory();
    world.boundary().forget_calls();
    world.connect().call(u"ShowItemsMenu", {Value(account)});
    done.memory = peak_memory() - before;
    world.system().on_yield = usual;
    for (const std::string& call : world.boundary().calls()) ++done.calls[call];
    const acceptance::SearchPanel panel(world);
    done.rows = panel.count();
    return done;
}

}  // namespace

bool calls_of_a_walk() {
    bool right = true;
    Table table("A search of the Search Panel, of items in all folders",
                {"folders", "items", "rows", "Restrict per folder", "calls per folder and row",
                 "objects held at most", "KB of memory"});
    for (const int size : tree_sizes) {
        for (const int items : {all_items / 10, all_items}) {
            const auto world = filing_world();
            acceptance::install_panel(*world);
            acceptance::add_full_account(*world);
            world->quit();
            world->start();
            add_tree(world->model().store(), size, items);
            world->quit();
            world->start();
            const Walk done = walk(*world, world->account_profiles().Items().Item(1));
            int calls = 0;
            for (const auto& [name, times] : done.calls) calls += times;
            constexpr int around = 4;  // the entry, the account, the definition, what is located there
            const int asked = done.calls.at("Items.Restrict") - around;
            const double expected = calls_around + done.folders * calls_of_folder + size * calls_of_found +
                                    done.rows * calls_of_row;
            table.add_row({std::to_string(done.folders), std::to_string(items), std::to_string(done.rows),
                           decimal(static_cast<double>(asked) / done.folders, 2),
                           decimal(static_cast<double>(calls) / (done.folders + done.rows), 2),
                           std::to_string(done.held), std::to_string(done.memory)});
            right = right && asked == done.folders && done.rows == size * rows_of_folder + rows_besides &&
                    calls <= expected && done.held <= most_held;
        }
    }
    table.print(std::cout);
    if (!right) {
        std::cout << "WRONG: rows are missing, a folder is asked more than once, or more calls are made or "
                     "objects held than the walk needs\n\n";
    }
    return right;
}

}  // namespace bench
