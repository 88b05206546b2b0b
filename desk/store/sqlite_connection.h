// SQLite with owners for its handles and failures for its codes.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string_view>

#include "automation/failure.h"

namespace desk {

/// The connection to a database file. Every failure names its file.
class SqliteConnection {
  public:
    explicit SqliteConnection(const std::filesystem::path& file);

    /// Runs statements that take no values and answer no rows.
    void run(const char* sql);

    /// Throws the failure that SQLite reported last.
    [[noreturn]] void fail() const;
    [[noreturn]] void fail(automation::TextView what) const;
    [[noreturn]] void fail(std::int32_t number, automation::TextView what) const;

    bool in_transaction() const { return sqlite3_get_autocommit(handle_.get()) == 0; }
    std::int64_t last_id() const { return sqlite3_last_insert_rowid(handle_.get()); }
    int changes() const { return sqlite3_changes(handle_.get()); }
    sqlite3* handle() const { return handle_.get(); }

  private:
    struct Close {
        void operator()(sqlite3* handle) const { sqlite3_close(handle); }
    };
    automation::Text name_;
    std::unique_ptr<sqlite3, Close> handle_;
};

/// A prepared statement, kept for many runs.
class Statement {
  public:
    Statement(SqliteConnection& connection, const char* sql);

    /// A run: its rows one after the other. Ends when it goes.
    class Rows {
      public:
        explicit Rows(Statement& statement) : statement_(statement) {}
        ~Rows();
        Rows(const Rows&) = delete;
        Rows& operator=(const Rows&) = delete;

        bool next();  ///< goes to the next row, the first at first; false if there is none
        std::int64_t integer(int column) const {
            return sqlite3_column_int64(statement_.handle_.get(), column);
        }
        std::string_view bytes(int column) const;  ///< until the next row

      private:
        Statement& statement_;
    };

    /// Starts a run. Values are whole numbers and bytes, which live until it ends.
    template <typename... Values>
    [[nodiscard]] Rows rows(const Values&... values) {
        int index = 0;
        (bind(++index, values), ...);
        return Rows(*this);
    }

    /// Runs to the end. Answers how many rows were changed.
    template <typename... Values>
    int run(const Values&... values) {
        Rows run = rows(values...);
        while (run.next()) {
        }
        return connection_.changes();
    }

    /// Runs to the end and tells whether that went well.
    bool try_run() noexcept;

  private:
    struct Finalize {
        void operator()(sqlite3_stmt* handle) const { sqlite3_finalize(handle); }
    };
    void bind(int index, std::int64_t value);
    void bind(int index, std::string_view bytes);

    SqliteConnection& connection_;
    std::unique_ptr<sqlite3_stmt, Finalize> handle_;
};

}  // namespace desk
