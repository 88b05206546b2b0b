// What of the desk makes objects: those that all ways begin at, and one for each item while anybody holds it.
#include <algorithm>

#include "desk/base/desk.h"
#include "desk/office/add_ins.h"
#include "desk/outlook/application.h"
#include "desk/outlook/explorers.h"
#include "desk/outlook/inspectors.h"
#include "desk/outlook/item.h"
#include "desk/outlook/name_space.h"

namespace desk {

using automation::Failure;
using automation::TextView;
using automation::Value;
namespace result = automation::result;

namespace {

constexpr std::int32_t inbox = 6;
constexpr int first_with_new_mail_ex = 11, first_with_item_load = 12;  // versions of the host

}  // namespace

Desk::Desk(Surroundings& surroundings, std::unique_ptr<Store> store, Options options)
    : surroundings_(surroundings), store_(std::move(store)), options_(std::move(options)) {
    load_folders();
    application_ = std::make_shared<Application>(*this);
    name_space_ = std::make_shared<NameSpace>(*this);
    explorers_ = std::make_shared<Explorers>(*this);
    inspectors_ = std::make_shared<Inspectors>(*this);
    add_ins_ = std::make_shared<AddIns>(*this);
    application_object_ = application_->self();
    session_object_ = name_space_->self();
    if (const RowId folder = default_folder(inbox); folder != 0) {
        std::make_shared<Explorer>(*this, folder)->open_window(true);
    }
}

Desk::~Desk() = default;

RowId Desk::add_folder(const FolderRow& row) {
    const RowId id = store_->add_folder(row);
    load_folders();
    tell_folders(row.parent, u"FolderAdd", id);
    surroundings_.changed();
    return id;
}

void Desk::remove_folder(RowId id) {
    const RowId parent = existing_folder(id).parent;
    store_->remove_folder(id);
    load_folders();
    std::erase_if(contents_, [&](const auto& entry) { return !folder_row(entry.first); });
    std::erase_if(departures_, [&](const auto& entry) { return !folder_row(entry.first); });
    std::vector<std::shared_ptr<Item>> gone;
    for (const auto& [item, object] : open_items_) {
        std::shared_ptr<Item> open = object.lock();
        if (open && !folder_row(open->folder())) gone.push_back(std::move(open));
    }
    for (const std::shared_ptr<Item>& item : gone) item->folder_is_gone();
    tell_folders(parent, u"FolderRemove", 0);
    surroundings_.changed();
}

std::shared_ptr<Item> Desk::open_item(RowId id) {
    if (std::shared_ptr<Item> open = open_items_[id].lock()) return open;
    std::optional<ItemRow> row = store_->load(id);
    if (!row || !folder_row(row->folder)) {
        open_items_.erase(id);
        return nullptr;
    }
    auto item = std::make_shared<Item>(*this, std::move(*row));
    remember_open(id, item);
    if (options_.host_major() >= first_with_item_load) item->tell_loaded();
    return item;
}

std::shared_ptr<Item> Desk::existing_item(RowId id) {
    std::shared_ptr<Item> item = open_item(id);
    if (!item) throw Failure(result::object_deleted, u"The item has been moved or deleted.");
    return item;
}

void Desk::remember_open(RowId id, const std::shared_ptr<Item>& object) {
    // An entry keeps the memory of its item, though not what the item held. So entries of items that nobody
    // holds any more must not add up, whatever the session's length.
    constexpr std::size_t least = 32;
    if (open_items_.size() >= std::max(sweep_above_, least)) {
        std::erase_if(open_items_, [](const auto& e) { return e.second.expired(); });
        sweep_above_ = 2 * open_items_.size();
    }
    open_items_[id] = object;
}

void Desk::forget_open(RowId id) { open_items_.erase(id); }

void Desk::rewrite_item(RowId item, RowId folder, const ItemData& data) {
    constexpr bool with_attachments = false;
    store_->update_item(item, data, with_attachments);
    if (const std::shared_ptr<Item> open = open_items_[item].lock()) open->outdate();
    forget_open(item);
    surroundings_.changed();
    tell_item_rewritten(folder, item);
}

std::shared_ptr<Item> Desk::deliver(TextView path) { return receive(surroundings_.read_mail(path)); }

std::shared_ptr<Item> Desk::receive(ItemData mail) {
    mail.fields[u"UnRead"] = true;
    mail.fields[u"ReceivedByName"] = name_space_->user_name();
    mail.fields[u"ReceivedByEntryID"] = NameSpace::person_id(name_space_->user());
    const RowId folder = default_folder(inbox);
    if (folder == 0) throw Failure(result::not_found, u"The profile has no Inbox.");
    auto item = std::make_shared<Item>(*this, folder, std::move(mail));
    item->save();
    now_or_later(options_.at_once.adds, [this, id = item->entry_id()] {
        application_->raise(u"NewMail");
        if (options_.host_major() >= first_with_new_mail_ex) application_->raise(u"NewMailEx", {Value(id)});
    });
    return item;
}

}  // namespace desk
