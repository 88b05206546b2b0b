#include "desk/store/item_codec.h"
#include "desk/store/sqlite_store.h"

namespace desk {
std::vector<FolderRow> SqliteStore::folders() {
    std::vector<FolderRow> folders;
    for (auto rows = folders_.rows(); rows.next();) {
        folders.push_back({.id = rows.integer(0),
                           .parent = rows.integer(1),
                           .name = read_text(rows.bytes(4)),
                           .item_type = static_cast<std::int32_t>(rows.integer(2)),
                           .default_number = static_cast<std::int32_t>(rows.integer(3)),
                           .default_class = read_text(rows.bytes(5)),
                           .description = read_text(rows.bytes(6)),
                           .store_uid = read_text(rows.bytes(7)),
                           .fields = read_fields(rows.bytes(8))});
    }
    return folders;
}

RowId SqliteStore::add_folder(const FolderRow& folder) {
    if (folder.parent != 0) require_folder(folder.parent);
    Step step(*this);
    add_folder_.run(folder.parent, folder.item_type, folder.default_number, write_text(folder.name),
                    write_text(folder.default_class), write_text(folder.description),
                    write_text(folder.store_uid), write_fields(folder.fields));
    const RowId id = connection_.last_id();
    step.done();
    return id;
}

void SqliteStore::update_folder(const FolderRow& folder) {
    require_folder(folder.id);
    if (folder.parent != 0) require_folder(folder.parent);
    Step step(*this);
    update_folder_.run(folder.parent, folder.item_type, folder.default_number, write_text(folder.name),
                       write_text(folder.default_class), write_text(folder.description),
                       write_text(folder.store_uid), write_fields(folder.fields), folder.id);
    step.done();
}

void SqliteStore::remove_folder(RowId folder) {
    require_folder(folder);
    Step step(*this);
    write_pending();
    std::vector<RowId> tree;
    for (auto rows = folders_below_.rows(folder); rows.next();) tree.push_back(rows.integer(0));
    for (const RowId one : tree) {
        remove_folder_attachments_.run(one);
        remove_folder_keys_.run(one);
        remove_folder_.run(one);
        remove_folder_items_.run(one);
    }
    step.done();
}

void SqliteStore::require_folder(RowId folder) {
    if (!counts_.rows(folder).next())
        throw automation::Failure(automation::result::not_found, u"The folder is not there.");
}

std::int64_t SqliteStore::count(RowId folder) {
    auto rows = counts_.rows(folder);
    return rows.next() ? rows.integer(0) : 0;
}

std::int64_t SqliteStore::unread(RowId folder) {
    auto rows = counts_.rows(folder);
    return rows.next() ? rows.integer(1) : 0;
}

}  // namespace desk
