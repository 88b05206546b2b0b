// What was committed survives whatever happens to the process, and to its memory.
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <map>
#include <random>

#include "tests/unit/support/store_support.h"

namespace {

using namespace store_tests;
using desk::ItemData;
using desk::RowId;
using desk::Store;

automation::Text subject_of(int number) { return u"item " + automation::to_text(number); }

/// An item whose attachment grows and shrinks, so that commits are of all sizes.
ItemData numbered_item(int number) {
    ItemData item = item_with_subject(subject_of(number));
    item.attachments = {file_attachment(std::string(static_cast<std::size_t>(number * 977 % 20000), 'x'))};
    return item;
}

struct Report {
    RowId id = 0;
    int number = 0;
};

/// Adds items until it is killed and reports each after its commit. Now and then it deletes one that was
/// never reported.
[[noreturn]] void add_items_for_ever(const std::filesystem::path& file, int pipe_end) {
    try {
        const auto store = Store::open(file);
        const RowId folder = store->folders().at(0).id;
        for (int number = 0;; ++number) {
            if (number % 7 == 3) store->remove_item(store->add_item(folder, numbered_item(number)));
            const Report report{store->add_item(folder, numbered_item(number)), number};
            if (write(pipe_end, &report, sizeof report) != sizeof report) _exit(2);
        }
    } catch (...) {
        _exit(3);
    }
}

/// Lets a process add items and kills it after `enough` reports. Answers all that it reported.
std::vector<Report> reports_of_a_killed_process(const std::filesystem::path& file, int enough) {
    int ends[2];
    EXPECT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    if (child == 0) {
        close(ends[0]);
        add_items_for_ever(file, ends[1]);
    }
    close(ends[1]);
    std::vector<Report> reports;
    Report report;
    while (read(ends[0], &report, sizeof report) == sizeof report) {
        reports.push_back(report);
        if (static_cast<int>(reports.size()) == enough) kill(child, SIGKILL);
    }
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status)) << WEXITSTATUS(status);
    return reports;
}

std::string check_of(const std::filesystem::path& file) {
    sqlite3* handle = nullptr;
    sqlite3_open(file.string().c_str(), &handle);
    std::string answer;
    auto keep = [](void* text, int, char** values, char**) {
        *static_cast<std::string*>(text) += values[0];
        return 0;
    };
    sqlite3_exec(handle, "PRAGMA integrity_check", keep, &answer, nullptr);
    sqlite3_close(handle);
    return answer;
}

TEST(StoreDeath, EveryReportedItemIsThereAfterTheProcessWasKilled) {
    TemporaryFolder files;
    const auto file = files / "desk.db";
    const RowId folder = Store::open(file)->add_folder(folder_named(u"Inbox"));
    std::mt19937 random(3);
    std::vector<Report> all;
    for (int round = 0; round < 12; ++round) {
        for (const Report& report : reports_of_a_killed_process(file, 1 + static_cast<int>(random() % 150))) {
            all.push_back(report);
        }
        const auto store = Store::open(file);
        for (const Report& report : all) {
            const auto item = store->load(report.id);
            ASSERT_TRUE(item) << report.number;
            ASSERT_EQ(item->data, item_with_subject(subject_of(report.number)));
            ASSERT_TRUE(store->attachments(report.id) == numbered_item(report.number).attachments);
        }
        ASSERT_EQ(store->count(folder), static_cast<std::int64_t>(store->items(folder).size()));
        for (const RowId id : store->items(folder)) {
            const automation::Text subject = store->load(id)->data.fields.at(u"Subject").to_text();
            const auto found = store->lookup(folder, u"Subject", subject);
            ASSERT_NE(std::find(found.begin(), found.end(), id), found.end());
        }
    }
    EXPECT_EQ(check_of(file), "ok");
    EXPECT_GT(all.size(), 100u);
}

/// SQLite's memory, of which the n-th request fails and all behind it succeed. SQLite takes plain functions,
/// so the count must stand where they find it.
struct FailingMemory {
    sqlite3_mem_methods real{};
    long until_failure = -1;  ///< -1: none fails
    bool failed = false;

    bool fails() {
        if (until_failure < 0 || until_failure-- > 0) return false;
        return failed = true;
    }
};

FailingMemory& memory() {
    static FailingMemory memory;
    return memory;
}

/// Puts the failing memory below SQLite, which must have nothing open.
class WithFailingMemory {
  public:
    WithFailingMemory() {
        sqlite3_shutdown();
        EXPECT_EQ(sqlite3_config(SQLITE_CONFIG_GETMALLOC, &memory().real), SQLITE_OK);
        sqlite3_mem_methods failing = memory().real;
        failing.xMalloc = [](int size) -> void* {
            return memory().fails() ? nullptr : memory().real.xMalloc(size);
        };
        failing.xRealloc = [](void* block, int size) -> void* {
            return memory().fails() ? nullptr : memory().real.xRealloc(block, size);
        };
        EXPECT_EQ(sqlite3_config(SQLITE_CONFIG_MALLOC, &failing), SQLITE_OK);
        EXPECT_EQ(sqlite3_initialize(), SQLITE_OK);
    }
    ~WithFailingMemory() {
        memory().until_failure = -1;
        sqlite3_shutdown();
        sqlite3_config(SQLITE_CONFIG_MALLOC, &memory().real);
        sqlite3_initialize();
    }
};

/// Where an item should be, and under which subject.
struct ExpectedItem {
    RowId folder = 0;
    automation::Text subject;
};
using ExpectedItems = std::map<RowId, ExpectedItem>;

/// Adds, changes and moves an item in one transaction, going on after a call that failed. Answers what is
/// then to be there, or nothing if the transaction could not be kept.
std::optional<ExpectedItems> try_changes(const std::filesystem::path& file, const std::vector<RowId>& folders,
                                         ExpectedItems expected) {
    try {
        const auto store = Store::open(file);
        Store::Transaction transaction(*store);
        RowId item = 0;
        auto attempt = [&](auto change) {
            try {
                change();
            } catch (const automation::Failure&) {
            }
        };
        attempt([&] {
            item = store->add_item(folders[0], numbered_item(40));
            expected[item] = {folders[0], subject_of(40)};
        });
        attempt([&] {
            store->update_item(item, item_with_subject(u"updated"), true);
            expected[item].subject = u"updated";
        });
        attempt([&] {
            store->move_item(item, folders[1]);
            expected[item].folder = folders[1];
        });
        attempt([&] {
            const RowId removed = expected.begin()->first;
            if (expected.size() > 3) store->remove_item(removed);
            if (expected.size() > 3) expected.erase(removed);
        });
        transaction.keep();
        return expected;
    } catch (const automation::Failure&) {
        return std::nullopt;
    }
}

void expect_items(Store& store, const std::vector<RowId>& folders, const ExpectedItems& expected) {
    std::size_t found = 0;
    for (const RowId folder : folders) {
        const std::vector<RowId> items = store.items(folder);
        ASSERT_EQ(store.count(folder), static_cast<std::int64_t>(items.size()));
        found += items.size();
        for (const automation::Text& subject : {subject_of(40), automation::Text(u"updated")}) {
            std::vector<RowId> with_subject;
            for (const RowId item : items) {
                if (expected.at(item).subject == subject) with_subject.push_back(item);
            }
            ASSERT_EQ(store.lookup(folder, u"Subject", subject), with_subject);
        }
    }
    ASSERT_EQ(found, expected.size());
    for (const auto& [item, item_expected] : expected) {
        const auto loaded = store.load(item);
        ASSERT_TRUE(loaded);
        ASSERT_EQ(loaded->folder, item_expected.folder);
        ASSERT_EQ(loaded->data, item_with_subject(item_expected.subject));
        ASSERT_EQ(store.attachments(item).size(), item_expected.subject == u"updated" ? 0u : 1u);
    }
}

TEST(StoreDeath, WhicheverRequestForMemoryFailsEachCallIsDoneWhollyOrNotAtAll) {
    TemporaryFolder files;
    const auto file = files / "desk.db";
    WithFailingMemory failing;
    std::vector<RowId> folders;
    for (const char16_t* name : {u"Inbox", u"Target"}) {
        folders.push_back(Store::open(file)->add_folder(folder_named(name)));
    }
    ExpectedItems expected;
    int kept = 0, undone = 0;
    memory().failed = true;
    for (long n = 0; memory().failed; ++n) {
        memory().failed = false;
        memory().until_failure = n;
        const std::optional<ExpectedItems> changed = try_changes(file, folders, expected);
        memory().until_failure = -1;
        if (changed) expected = *changed;
        ++(changed ? kept : undone);
        const auto store = Store::open(file);
        ASSERT_NO_FATAL_FAILURE(expect_items(*store, folders, expected)) << n;
    }
    EXPECT_GT(undone, 100);
    EXPECT_GT(kept, 1);
    EXPECT_EQ(check_of(file), "ok");
}

}  // namespace
