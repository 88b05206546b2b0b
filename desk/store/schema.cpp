#include "desk/store/schema.h"

#include <string>

namespace desk {
namespace {

constexpr std::int64_t application_id = 0x54576473;  // "TWds": marks the file as the desk's
constexpr std::int64_t schema_version = 1;

/// Another process that is about to end may hold the file still.
constexpr int busy_milliseconds = 1000;

/// Texts are bytes of `write_text`, items and attachments those of the codec: texts hold any UTF-16 unit, and
/// SQLite would change what is no valid one. Triggers keep the counts of a folder right whatever is done to
/// its items. `position` is the place in a folder; it grows with each arrival. `keys` is the index of fields,
/// in the order in which it is asked.
constexpr const char* tables = R"(
CREATE TABLE folders(
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    parent INTEGER NOT NULL,
    item_type INTEGER NOT NULL,
    default_number INTEGER NOT NULL,
    name BLOB NOT NULL,
    default_class BLOB NOT NULL,
    description BLOB NOT NULL,
    store_uid BLOB NOT NULL,
    fields BLOB NOT NULL,
    items INTEGER NOT NULL DEFAULT 0,
    unread INTEGER NOT NULL DEFAULT 0
) STRICT;
CREATE INDEX folders_of_parent ON folders(parent);

CREATE TABLE items(
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    folder INTEGER NOT NULL,
    position INTEGER NOT NULL,
    unread INTEGER NOT NULL,
    size INTEGER NOT NULL,
    data BLOB NOT NULL
) STRICT;
CREATE UNIQUE INDEX items_in_order ON items(folder, position);

CREATE TABLE attachments(
    item INTEGER NOT NULL,
    number INTEGER NOT NULL,
    data BLOB NOT NULL
) STRICT;
CREATE UNIQUE INDEX attachments_in_order ON attachments(item, number);

CREATE TABLE keys(
    folder INTEGER NOT NULL,
    field INTEGER NOT NULL,
    key BLOB NOT NULL,
    position INTEGER NOT NULL,
    item INTEGER NOT NULL,
    PRIMARY KEY(folder, field, key, position)
) STRICT, WITHOUT ROWID;

CREATE TRIGGER item_added AFTER INSERT ON items BEGIN
    UPDATE folders SET items = items + 1, unread = unread + new.unread WHERE id = new.folder;
END;
CREATE TRIGGER item_removed AFTER DELETE ON items BEGIN
    UPDATE folders SET items = items - 1, unread = unread - old.unread WHERE id = old.folder;
END;
CREATE TRIGGER item_changed AFTER UPDATE OF folder, unread ON items
WHEN old.folder <> new.folder OR old.unread <> new.unread BEGIN
    UPDATE folders SET items = items - 1, unread = unread - old.unread WHERE id = old.folder;
    UPDATE folders SET items = items + 1, unread = unread + new.unread WHERE id = new.folder;
END;
)";

std::int64_t read_number(SqliteConnection& connection, const char* sql) {
    Statement statement(connection, sql);
    Statement::Rows rows = statement.rows();
    return rows.next() ? rows.integer(0) : 0;
}

void make_tables(SqliteConnection& connection) {
    const std::string marks = "PRAGMA application_id = " + std::to_string(application_id) +
                              "; PRAGMA user_version = " + std::to_string(schema_version) + ";";
    connection.run("BEGIN IMMEDIATE");
    connection.run(tables);
    connection.run(marks.c_str());
    connection.run("COMMIT");
}

/// Whether a file has less than the pages that it says it has. SQLite itself misses a last page that is cut.
/// What stands in the log only need not be in the file.
bool is_cut(SqliteConnection& connection, const std::filesystem::path& file, bool has_log) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    if (error || has_log) return false;
    const std::int64_t pages = read_number(connection, "PRAGMA page_count");
    return static_cast<std::int64_t>(size) < pages * read_number(connection, "PRAGMA page_size");
}

/// The write-ahead log stands beside the file, and goes when the file is closed well.
bool has_log_beside(std::filesystem::path file) {
    std::error_code ignored;
    return std::filesystem::exists(file += "-wal", ignored);
}

}  // namespace

SqliteConnection open_connection(const std::filesystem::path& file) {
    const bool has_log = has_log_beside(file);
    SqliteConnection connection(file);
    sqlite3_busy_timeout(connection.handle(), busy_milliseconds);
    // Before the first access, so that the write-ahead log needs no memory shared between processes.
    connection.run("PRAGMA locking_mode = EXCLUSIVE");

    // Another program's file is refused before anything in it is changed.
    const std::int64_t found = read_number(connection, "PRAGMA application_id");
    const bool empty = found == 0 && read_number(connection, "SELECT count(*) FROM sqlite_schema") == 0;
    if (!empty && found != application_id) connection.fail(u"the file is not a database of the desk");
    if (!empty && read_number(connection, "PRAGMA user_version") != schema_version) {
        connection.fail(u"the file was made by another version of the desk");
    }

    if (is_cut(connection, file, has_log)) connection.fail(u"the file is truncated");

    // With the log a commit is one append. Without a sync for each, the last commits may be lost if the
    // machine dies, never if the process does, and the file stays whole in either case.
    connection.run(
        "PRAGMA journal_mode = WAL;"
        "PRAGMA synchronous = NORMAL;"
        "PRAGMA journal_size_limit = 16777216;"
        "PRAGMA cache_size = -1000;"
        "PRAGMA temp_store = MEMORY");
    if (empty) make_tables(connection);
    return connection;
}

}  // namespace desk
