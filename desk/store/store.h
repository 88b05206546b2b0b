// The desk's memory: folders and items in an SQLite file. What was committed survives the death of the
// process.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "automation/failure.h"
#include "desk/store/item_data.h"

namespace desk {

using RowId = std::int64_t;

/// A field that a folder knows beside the built-in ones.
struct FolderField {
    automation::Text name;
    std::int32_t type = 1;
    friend bool operator==(const FolderField&, const FolderField&) = default;
};

struct FolderRow {
    RowId id = 0;
    RowId parent = 0;  ///< 0: the root of a message store
    automation::Text name;
    std::int32_t item_type =
        0;  ///< what it holds: 0 mail, 1 appointments, 2 contacts, 3 tasks, 5 notes, 6 posts
    std::int32_t default_number = 0;  ///< its number as a default folder of the profile, 0 if it is none
    automation::Text default_class;   ///< message class of a new item
    automation::Text description;
    automation::Text store_uid;  ///< of a store's root: 32 upper-case hexadecimal digits
    std::vector<FolderField> fields;
};

/// An item as it was loaded. Attachments are left out of `data`; see `Store::attachments`.
struct ItemRow {
    RowId id = 0;
    RowId folder = 0;
    ItemData data;
    std::int64_t size = 0;  ///< bytes of the item with its attachments
};

/// The fields, built-in or user properties, that `Store::lookup` finds without a scan.
bool is_indexed(automation::TextView field);

/// The number of the failure to open a database that another process has open.
inline constexpr std::int32_t database_in_use =
    automation::result::code(0x80070020);  // HRESULT of ERROR_SHARING_VIOLATION

/// What is asked of a folder or an item that is not there finds nothing; what is to change it fails with
/// `result::not_found`, and has changed nothing. A failure of the database itself is a `automation::Failure`
/// with its own message: a call that stands alone has then changed nothing, and a transaction around it can't
/// be kept any more. Identities of what was removed are never given again.
class Store {
  public:
    /// Opens a database, or makes a new one (":memory:" makes one that is never written). Throws
    /// `automation::Failure`, whose text names the file, if it is not one of ours, is in use by another
    /// process
    /// (`database_in_use`), or can't be opened.
    static std::unique_ptr<Store> open(const std::filesystem::path& file);

    /// The same, and tries again as long as another process has the file open and `wait`, which waits a
    /// moment, answers true.
    static std::unique_ptr<Store> open_when_free(const std::filesystem::path& file,
                                                 const std::function<bool()>& wait);
    virtual ~Store() = default;

    virtual std::vector<FolderRow> folders() = 0;           ///< all of them, in the order of their making
    virtual RowId add_folder(const FolderRow& folder) = 0;  ///< the given id is not looked at
    virtual void update_folder(const FolderRow& folder) = 0;
    virtual void remove_folder(RowId folder) = 0;  ///< with everything below it

    virtual RowId add_item(RowId folder, const ItemData& data) = 0;

    /// Writes an item anew. `with_attachments` tells whether `data.attachments` are meant, or those stored
    /// stay.
    virtual void update_item(RowId item, const ItemData& data, bool with_attachments) = 0;

    /// Moves an item to the end of a folder; it keeps its identity.
    virtual void move_item(RowId item, RowId folder) = 0;
    virtual void remove_item(RowId item) = 0;

    virtual std::optional<ItemRow> load(RowId item) = 0;
    virtual std::vector<AttachmentData> attachments(RowId item) = 0;

    virtual std::vector<RowId> items(RowId folder) = 0;  ///< in the order of their making or arrival
    virtual std::int64_t count(RowId folder) = 0;
    virtual std::int64_t unread(RowId folder) = 0;  ///< items whose field "UnRead" is true

    /// The items of a folder whose indexed field equals a value without regard to case, in the order of
    /// `items`. By the index, never by a scan, but for an empty value, which takes a pass over the folder's
    /// identities and finds the items that have the field empty or unset. A value counts by its first 255
    /// characters, so one who looks up a longer one checks what was found; a value that is no text counts by
    /// its text. An item that bears the name twice, as a field and as a user property, is found by either.
    /// Nothing for a field that is not indexed.
    virtual std::vector<RowId> lookup(RowId folder, automation::TextView field,
                                      automation::TextView value) = 0;

    /// Everything between its making and `keep` is written together, or not at all. Transactions may stand
    /// inside each other; what an inner one kept is undone with the outer one.
    class Transaction {
      public:
        explicit Transaction(Store& store) : store_(store) { store_.begin(); }
        ~Transaction() {
            if (open_) store_.rollback();
        }
        Transaction(const Transaction&) = delete;
        Transaction& operator=(const Transaction&) = delete;

        /// Ends the transaction, the last step of it. Of an outermost one all is then in the file. Throws
        /// `automation::Failure` if that can't be done, and nothing is kept.
        void keep() {
            store_.commit();
            open_ = false;
        }

      private:
        Store& store_;
        bool open_ = true;
    };

  protected:
    virtual void begin() = 0;
    virtual void commit() = 0;
    virtual void rollback() noexcept = 0;
};

}  // namespace desk
