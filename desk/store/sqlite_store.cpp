#include "desk/store/sqlite_store.h"

#include <algorithm>

#include "desk/store/schema.h"

namespace desk {

std::unique_ptr<Store> Store::open(const std::filesystem::path& file) {
    return std::make_unique<SqliteStore>(file);
}

std::unique_ptr<Store> Store::open_when_free(const std::filesystem::path& file,
                                             const std::function<bool()>& wait) {
    for (;;) {
        try {
            return open(file);
        } catch (const automation::Failure& failure) {
            if (failure.number() != database_in_use || !wait()) throw;
        }
    }
}

SqliteStore::SqliteStore(const std::filesystem::path& file) : connection_(open_connection(file)) {}

SqliteStore::Step::Step(SqliteStore& store) : store_(store) {
    if (store.depth_ == 0) {
        own_.emplace(store);
    } else {
        store.require_transaction();
    }
}

SqliteStore::Step::~Step() {
    if (!done_ && !own_) store_.broken_ = true;
}

void SqliteStore::Step::done() {
    if (own_) own_->keep();
    done_ = true;
}

/// Some failures, a full disk for one, make SQLite undo the whole transaction. What comes behind must not be
/// written then as if it stood alone.
void SqliteStore::require_transaction() {
    if (broken_ || !connection_.in_transaction()) {
        connection_.fail(u"the transaction was spoilt by an earlier failure");
    }
}

void SqliteStore::write_pending() {
    if (pending_.empty()) return;
    Step step(*this);
    std::ranges::sort(pending_);
    for (const PendingEntry& one : pending_) {
        add_key_.run(one.folder, one.entry.first, one.entry.second, one.position, one.item);
    }
    pending_.clear();
    step.done();
}

void SqliteStore::begin() {
    if (depth_ == 0) {
        broken_ = false;
        begin_.run();
    } else {
        require_transaction();
        write_pending();
        begin_inner_.run();
    }
    ++depth_;
}

void SqliteStore::commit() {
    require_transaction();
    write_pending();
    (depth_ == 1 ? commit_ : commit_inner_).run();
    --depth_;
}

void SqliteStore::rollback() noexcept {
    --depth_;
    pending_.clear();
    if (!connection_.in_transaction()) return;
    // The state before the transaction is whole again, unless not even that succeeds.
    broken_ = depth_ == 0 ? !rollback_.try_run() : !(rollback_inner_.try_run() && commit_inner_.try_run());
}

}  // namespace desk
