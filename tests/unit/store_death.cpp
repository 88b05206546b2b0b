// What was committed survives whatever happens to the process, and to its memory.
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <random>

#include "store_support.h"

namespace {

using namespace store_tests;
using desk::ItemData;
using desk::RowId;
using desk::Store;

host::Text subject_of(int number) { return u"item " + host::to_text(number); }

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
            const host::Text subject = store->load(id)->data.fields.at(u"Subject").to_text();
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

TEST(StoreDeath, WhicheverRequestForMemoryFailsACallIsDoneWhollyOrNotAtAll) {
    TemporaryFolder files;
    const auto file = files / "desk.db";
    WithFailingMemory failing;
    RowId folder = 0, target = 0;
    {
        const auto store = Store::open(file);
        folder = store->add_folder(folder_named(u"Inbox"));
        target = store->add_folder(folder_named(u"Target"));
    }
    int failures = 0;
    bool failed = true;
    for (long n = 0; failed; ++n) {
        bool kept = false;
        std::int64_t before = 0;
        memory().failed = false;
        try {
            memory().until_failure = -1;
            before = Store::open(file)->count(target);
            memory().until_failure = n;
            const auto store = Store::open(file);
            Store::Transaction transaction(*store);
            const RowId item = store->add_item(folder, numbered_item(static_cast<int>(n)));
            store->update_item(item, item_with_subject(u"updated"), true);
            store->move_item(item, target);
            transaction.keep();
            kept = true;
        } catch (const host::Failure&) {
            ++failures;
        }
        failed = memory().failed;
        memory().until_failure = -1;

        const auto store = Store::open(file);
        ASSERT_EQ(store->count(target), before + (kept ? 1 : 0)) << n;
        ASSERT_EQ(static_cast<std::int64_t>(store->items(target).size()), store->count(target)) << n;
        ASSERT_EQ(static_cast<std::int64_t>(store->lookup(target, u"Subject", u"updated").size()),
                  store->count(target));
        ASSERT_EQ(store->count(folder), 0) << n;
    }
    EXPECT_GT(failures, 100);
    EXPECT_EQ(check_of(file), "ok");
}

}  // namespace
