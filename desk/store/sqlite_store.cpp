#include "desk/store/sqlite_store.h"

#include "desk/store/schema.h"

namespace desk {

std::unique_ptr<Store> Store::open(const std::filesystem::path& file) {
    return std::make_unique<SqliteStore>(file);
}

SqliteStore::SqliteStore(const std::filesystem::path& file) : database_(open_database(file)) {}

/// Some failures, a full disk for one, make SQLite undo the whole transaction. What comes behind must not be
/// written then as if it stood alone.
void SqliteStore::require_transaction() {
    if (broken_ || !database_.in_transaction()) {
        database_.fail(u"the transaction was undone by an earlier failure");
    }
}

void SqliteStore::begin() {
    if (depth_ == 0) {
        broken_ = false;
        begin_.run();
    } else {
        require_transaction();
        begin_inner_.run();
    }
    ++depth_;
}

void SqliteStore::commit() {
    require_transaction();
    (depth_ == 1 ? commit_ : commit_inner_).run();
    --depth_;
}

void SqliteStore::rollback() noexcept {
    --depth_;
    if (!database_.in_transaction()) return;
    if (depth_ == 0) {
        rollback_.try_run();
    } else if (!rollback_inner_.try_run() || !commit_inner_.try_run()) {
        broken_ = true;
    }
}

}  // namespace desk
