// The desk's memory: folders and items in an SQLite file. What was committed survives the death of the process.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

#include "desk/store/item_data.h"

namespace desk {

using RowId = std::int64_t;

/// A field that a folder knows beside the built-in ones.
struct FolderField {
    host::Text name;
    std::int32_t type = 1;
    friend bool operator==(const FolderField&, const FolderField&) = default;
};

struct FolderRow {
    RowId id = 0;
    RowId parent = 0;  ///< 0: the root of a message store
    host::Text name;
    std::int32_t item_type = 0;       ///< what it holds: 0 mail, 1 appointments, 2 contacts, 3 tasks, 5 notes, 6 posts
    std::int32_t default_number = 0;  ///< its number as a default folder of the profile, 0 if it is none
    host::Text default_class;         ///< message class of a new item
    host::Text description;
    host::Text store_uid;  ///< of a store's root: 32 upper-case hexadecimal digits
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
bool is_indexed(host::TextView field);

class Store {
  public:
    /// Opens a database, or makes a new one. Throws `host::Failure`, whose text names the file, if it is not one of ours
    /// or can't be opened.
    static std::unique_ptr<Store> open(const std::filesystem::path& file);
    virtual ~Store() = default;

    virtual std::vector<FolderRow> folders() = 0;          ///< all of them, in the order of their making
    virtual RowId add_folder(const FolderRow& folder) = 0;  ///< the given id is not looked at
    virtual void update_folder(const FolderRow& folder) = 0;
    virtual void remove_folder(RowId folder) = 0;  ///< with everything below it

    virtual RowId add_item(RowId folder, const ItemData& data) = 0;

    /// Writes an item anew. `with_attachments` tells whether `data.attachments` are meant, or those stored stay.
    virtual void update_item(RowId item, const ItemData& data, bool with_attachments) = 0;
    virtual void move_item(RowId item, RowId folder) = 0;
    virtual void remove_item(RowId item) = 0;

    virtual std::optional<ItemRow> load(RowId item) = 0;
    virtual std::vector<AttachmentData> attachments(RowId item) = 0;

    virtual std::vector<RowId> items(RowId folder) = 0;  ///< in the order of their making
    virtual std::int64_t count(RowId folder) = 0;
    virtual std::int64_t unread(RowId folder) = 0;  ///< items whose field "UnRead" is true

    /// The items of a folder whose indexed text field equals a value without regard to case, in the order of their
    /// making. By the index, never by a scan.
    virtual std::vector<RowId> lookup(RowId folder, host::TextView field, host::TextView value) = 0;

    /// Everything between is written together, or not at all. Transactions may stand inside each other.
    class Transaction {
      public:
        explicit Transaction(Store& store) : store_(store) { store_.begin(); }
        ~Transaction() { store_.end(kept_); }
        Transaction(const Transaction&) = delete;
        Transaction& operator=(const Transaction&) = delete;
        void keep() { kept_ = true; }

      private:
        Store& store_;
        bool kept_ = false;
    };

  protected:
    virtual void begin() = 0;
    virtual void end(bool keep) noexcept = 0;
};

}  // namespace desk
