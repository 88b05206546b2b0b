#include "desk/store/sqlite_connection.h"

#include "desk/store/store.h"

namespace desk {
namespace {

std::string_view bytes_of(const std::u8string& text) {
    return {reinterpret_cast<const char*>(text.data()), text.size()};
}

}  // namespace

SqliteConnection::SqliteConnection(const std::filesystem::path& file)
    : name_(automation::from_utf8(bytes_of(file.u8string()))) {
    const std::string path(bytes_of(file.u8string()));
    sqlite3* handle = nullptr;
    const int code =
        sqlite3_open_v2(path.c_str(), &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    handle_.reset(handle);  // there is one even if it failed, but for want of memory
    if (!handle) fail(u"out of memory");
    if (code != SQLITE_OK) fail();
    sqlite3_extended_result_codes(handle, 1);
}

void SqliteConnection::run(const char* sql) {
    if (sqlite3_exec(handle_.get(), sql, nullptr, nullptr, nullptr) != SQLITE_OK) fail();
}

void SqliteConnection::fail() const {
    constexpr int primary_code = 0xFF;
    const bool busy = (sqlite3_errcode(handle_.get()) & primary_code) == SQLITE_BUSY;
    fail(busy ? database_in_use : automation::result::fail,
         automation::from_utf8(sqlite3_errmsg(handle_.get())));
}

void SqliteConnection::fail(automation::TextView what) const { fail(automation::result::fail, what); }

void SqliteConnection::fail(std::int32_t number, automation::TextView what) const {
    throw automation::Failure(number,
                              u"The database \"" + name_ + u"\" failed: " + automation::Text(what) + u".");
}

Statement::Statement(SqliteConnection& connection, const char* sql) : connection_(connection) {
    sqlite3_stmt* handle = nullptr;
    if (sqlite3_prepare_v3(connection.handle(), sql, -1, SQLITE_PREPARE_PERSISTENT, &handle, nullptr) !=
        SQLITE_OK) {
        connection.fail();
    }
    handle_.reset(handle);
}

Statement::Rows::~Rows() {
    sqlite3_reset(statement_.handle_.get());
    sqlite3_clear_bindings(statement_.handle_.get());
}

bool Statement::Rows::next() {
    const int code = sqlite3_step(statement_.handle_.get());
    if (code == SQLITE_ROW) return true;
    if (code != SQLITE_DONE) statement_.connection_.fail();
    return false;
}

std::string_view Statement::Rows::bytes(int column) const {
    sqlite3_stmt* const handle = statement_.handle_.get();
    const void* const data = sqlite3_column_blob(handle, column);
    const int size = sqlite3_column_bytes(handle, column);
    if (!data && size > 0) statement_.connection_.fail();
    return data ? std::string_view(static_cast<const char*>(data), static_cast<std::size_t>(size))
                : std::string_view();
}

bool Statement::try_run() noexcept {
    const bool done = sqlite3_step(handle_.get()) == SQLITE_DONE;
    sqlite3_reset(handle_.get());
    return done;
}

void Statement::bind(int index, std::int64_t value) {
    if (sqlite3_bind_int64(handle_.get(), index, value) != SQLITE_OK) connection_.fail();
}

void Statement::bind(int index, std::string_view bytes) {
    const char* const data = bytes.data() ? bytes.data() : "";  // a null pointer would be SQL's Null
    if (sqlite3_bind_blob64(handle_.get(), index, data, bytes.size(), SQLITE_STATIC) != SQLITE_OK)
        connection_.fail();
}

}  // namespace desk
