// The store in an SQLite file.
#pragma once

#include <set>

#include "desk/store/field_index.h"
#include "desk/store/sqlite_connection.h"
#include "desk/store/store.h"

namespace desk {

class SqliteStore final : public Store {
  public:
    explicit SqliteStore(const std::filesystem::path& file);

    std::vector<FolderRow> folders() override;
    RowId add_folder(const FolderRow& folder) override;
    void update_folder(const FolderRow& folder) override;
    void remove_folder(RowId folder) override;

    RowId add_item(RowId folder, const ItemData& data) override;
    void update_item(RowId item, const ItemData& data, bool with_attachments) override;
    void move_item(RowId item, RowId folder) override;
    void remove_item(RowId item) override;

    std::optional<ItemRow> load(RowId item) override;
    std::vector<AttachmentData> attachments(RowId item) override;

    std::vector<RowId> items(RowId folder) override;
    std::int64_t count(RowId folder) override;
    std::int64_t unread(RowId folder) override;
    std::vector<RowId> lookup(RowId folder, automation::TextView field, automation::TextView value) override;

  protected:
    void begin() override;
    void commit() override;
    void rollback() noexcept override;

  private:
    /// An item's row with what stands of it in the index.
    struct StoredItem {
        RowId folder = 0;
        std::int64_t position = 0;
        std::int64_t attachment_bytes = 0;
        std::set<IndexEntry> entries;
    };

    /// One call that changes the database: a transaction of its own, or a part of the one that is open. It
    /// has no savepoint, which would copy every page that it touches: if it fails halfway, the transaction
    /// around it can't be kept. What may fail without the database's fault is checked before.
    class Step {
      public:
        explicit Step(SqliteStore& store);
        ~Step();
        Step(const Step&) = delete;
        Step& operator=(const Step&) = delete;
        void done();

      private:
        SqliteStore& store_;
        std::optional<Transaction> own_;
        bool done_ = false;
    };

    /// An entry of the index that is still to be written.
    struct PendingEntry {
        RowId folder = 0;
        IndexEntry entry;
        std::int64_t position = 0;
        RowId item = 0;
        friend auto operator<=>(const PendingEntry&, const PendingEntry&) = default;
    };

    void require_transaction();
    void write_pending();
    void require_folder(RowId folder);  ///< throws `result::not_found`
    StoredItem stored(RowId item);      ///< throws `result::not_found`
    void add_attachments(RowId item, const std::vector<std::string>& attachments);
    void add_entries(RowId item, RowId folder, std::int64_t position, const std::set<IndexEntry>& entries);
    void remove_entries(RowId folder, std::int64_t position, const std::set<IndexEntry>& entries);

    SqliteConnection connection_;
    int depth_ = 0;        ///< transactions that are open
    bool broken_ = false;  ///< the innermost transaction has something half done and can't be kept

    /// Entries of the open transaction, written in the index's own order before anything looks into it: that
    /// is many times faster than writing the entries of one item after the other into places all over the
    /// index.
    std::vector<PendingEntry> pending_;

    Statement begin_{connection_, "BEGIN IMMEDIATE"};
    Statement commit_{connection_, "COMMIT"};
    Statement rollback_{connection_, "ROLLBACK"};
    Statement begin_inner_{connection_, "SAVEPOINT inner"};
    Statement commit_inner_{connection_, "RELEASE inner"};
    Statement rollback_inner_{connection_, "ROLLBACK TO inner"};

    Statement folders_{
        connection_,
        "SELECT id, parent, item_type, default_number, name, default_class, description, store_uid,"
        " fields FROM folders ORDER BY id"};
    Statement add_folder_{
        connection_,
        "INSERT INTO folders(parent, item_type, default_number, name, default_class, description,"
        " store_uid, fields) SELECT ?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8"
        " WHERE ?1 = 0 OR EXISTS(SELECT 1 FROM folders WHERE id = ?1)"};
    Statement update_folder_{connection_,
                             "UPDATE folders SET parent = ?1, item_type = ?2, default_number = ?3, name = ?4,"
                             " default_class = ?5, description = ?6, store_uid = ?7, fields = ?8"
                             " WHERE id = ?9"};
    Statement folders_below_{connection_,
                             "WITH RECURSIVE tree(id) AS (SELECT id FROM folders WHERE id = ?1 UNION"
                             " SELECT folders.id FROM folders JOIN tree ON folders.parent = tree.id)"
                             " SELECT id FROM tree"};
    Statement remove_folder_{connection_, "DELETE FROM folders WHERE id = ?1"};
    Statement remove_folder_items_{connection_, "DELETE FROM items WHERE folder = ?1"};
    Statement remove_folder_keys_{connection_, "DELETE FROM keys WHERE folder = ?1"};
    Statement remove_folder_attachments_{
        connection_, "DELETE FROM attachments WHERE item IN (SELECT id FROM items WHERE folder = ?1)"};
    Statement counts_{connection_, "SELECT items, unread FROM folders WHERE id = ?1"};

    Statement add_item_{
        connection_,
        "INSERT INTO items(folder, position, unread, size, data)"
        " VALUES(?1, (SELECT coalesce(max(position), 0) + 1 FROM items WHERE folder = ?1), ?2, ?3, ?4)"
        " RETURNING id, position"};
    Statement update_item_{connection_, "UPDATE items SET unread = ?2, size = ?3, data = ?4 WHERE id = ?1"};
    Statement move_item_{connection_,
                         "UPDATE items SET folder = ?2,"
                         " position = (SELECT coalesce(max(position), 0) + 1 FROM items WHERE folder = ?2)"
                         " WHERE id = ?1 RETURNING position"};
    Statement remove_item_{connection_, "DELETE FROM items WHERE id = ?1"};
    Statement item_{connection_, "SELECT folder, position, size, data FROM items WHERE id = ?1"};
    Statement items_{connection_, "SELECT id FROM items WHERE folder = ?1 ORDER BY position"};

    Statement add_attachment_{connection_, "INSERT INTO attachments(item, number, data) VALUES(?1, ?2, ?3)"};
    Statement remove_attachments_{connection_, "DELETE FROM attachments WHERE item = ?1"};
    Statement attachments_{connection_, "SELECT data FROM attachments WHERE item = ?1 ORDER BY number"};

    Statement add_key_{connection_,
                       "INSERT INTO keys(folder, field, key, position, item) VALUES(?1, ?2, ?3, ?4, ?5)"};
    Statement remove_key_{connection_,
                          "DELETE FROM keys WHERE folder = ?1 AND field = ?2 AND key = ?3 AND position = ?4"};
    Statement lookup_{
        connection_, "SELECT item FROM keys WHERE folder = ?1 AND field = ?2 AND key = ?3 ORDER BY position"};
    Statement lookup_empty_{
        connection_,
        "SELECT id FROM items WHERE folder = ?1 AND (id NOT IN (SELECT item FROM keys WHERE folder = ?1 AND "
        "field = ?2)"
        " OR id IN (SELECT item FROM keys WHERE folder = ?1 AND field = ?2 AND key = ?3)) ORDER BY position"};
};

}  // namespace desk
