#include "desk/base/desk.h"

#include <algorithm>

#include "desk/office/add_ins.h"
#include "desk/outlook/application.h"
#include "desk/outlook/explorers.h"
#include "desk/outlook/folder.h"
#include "desk/outlook/inspectors.h"
#include "desk/outlook/item.h"
#include "desk/outlook/items.h"
#include "desk/outlook/name_space.h"

namespace desk {

using automation::Failure;
using automation::Text;
using automation::TextView;
using automation::Value;
namespace result = automation::result;

namespace {

constexpr std::int32_t inbox = 6;

constexpr char16_t digits[] = u"0123456789ABCDEF";
constexpr TextView id_start = u"00000000";
constexpr TextView folder_kind = u"0100", item_kind = u"0700";
constexpr std::size_t uid_digits = 32, row_digits = 16;
constexpr std::size_t id_digits = 8 + uid_digits + 4 + row_digits;

Text hexadecimal(RowId row) {
    Text text(row_digits, u'0');
    auto value = static_cast<std::uint64_t>(row);
    for (std::size_t i = row_digits; i-- > 0; value >>= 4) text[i] = digits[value & 0xF];
    return text;
}

/// The row of an id of a kind; nothing for any other text.
std::optional<RowId> row_of(TextView id, TextView kind) {
    if (id.size() != id_digits || !id.starts_with(id_start)) return std::nullopt;
    if (id.substr(id_start.size() + uid_digits, kind.size()) != kind) return std::nullopt;
    std::uint64_t value = 0;
    for (const char16_t c : id.substr(id_digits - row_digits)) {
        const std::size_t digit = TextView(digits, 16).find(automation::upper(c));
        if (digit == TextView::npos) return std::nullopt;
        value = value << 4 | digit;
    }
    return static_cast<RowId>(value);
}

/// Tells all who watch and are still there.
template <class Watched>
void tell(std::vector<std::weak_ptr<Watched>> watchers, TextView event, const std::vector<Value>& arguments) {
    // the list is taken as it stands now: who is told may begin or end to watch
    for (const auto& watcher : watchers) {
        if (const std::shared_ptr<Watched> there = watcher.lock()) there->raise(event, arguments);
    }
}

}  // namespace

Desk::Desk(Surroundings& surroundings, std::unique_ptr<Store> store, Options options)
    : surroundings_(surroundings), store_(std::move(store)), options_(std::move(options)) {
    load_folders();
    application_ = std::make_shared<Application>(*this);
    name_space_ = std::make_shared<NameSpace>(*this);
    explorers_ = std::make_shared<Explorers>(*this);
    inspectors_ = std::make_shared<Inspectors>(*this);
    add_ins_ = std::make_shared<AddIns>(*this);
    if (const RowId folder = default_folder(inbox); folder != 0) {
        std::make_shared<Explorer>(*this, folder)->open_window(true);
    }
}

Desk::~Desk() = default;

void Desk::load_folders() {
    folders_ = store_->folders();
    folder_places_.clear();
    for (std::size_t i = 0; i < folders_.size(); ++i) folder_places_[folders_[i].id] = i;
}

void Desk::refresh_folders() { load_folders(); }

const FolderRow* Desk::folder_row(RowId id) const {
    const auto found = folder_places_.find(id);
    return found == folder_places_.end() ? nullptr : &folders_[found->second];
}

const FolderRow& Desk::existing_folder(RowId id) const {
    const FolderRow* const row = folder_row(id);
    if (!row) throw Failure(result::object_deleted, u"The folder has been deleted.");
    return *row;
}

RowId Desk::root_of(RowId folder) const {
    RowId root = folder;
    for (const FolderRow* row = folder_row(root); row && row->parent != 0; row = folder_row(root))
        root = row->parent;
    return root;
}

Text Desk::store_uid(RowId folder) const {
    const FolderRow* const root = folder_row(root_of(folder));
    return root && root->store_uid.size() == uid_digits ? root->store_uid : Text(uid_digits, u'0');
}

RowId Desk::default_folder(std::int32_t number) const {
    const auto found =
        number == 0 ? folders_.end() : std::ranges::find(folders_, number, &FolderRow::default_number);
    return found == folders_.end() ? 0 : found->id;
}

std::vector<RowId> Desk::folders_below(RowId parent) const {
    std::vector<RowId> below;
    for (const FolderRow& row : folders_) {
        if (row.parent == parent) below.push_back(row.id);
    }
    return below;
}

RowId Desk::add_folder(const FolderRow& row) {
    const RowId id = store_->add_folder(row);
    load_folders();
    tell_folders(row.parent, u"FolderAdd", id);
    surroundings_.changed();
    return id;
}

void Desk::change_folder(const FolderRow& row) {
    existing_folder(row.id);
    store_->update_folder(row);
    folders_[folder_places_[row.id]] = row;
    surroundings_.changed();
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

const std::vector<RowId>& Desk::contents(RowId folder) {
    const auto known = contents_.find(folder);
    return known != contents_.end() ? known->second : contents_[folder] = store_->items(folder);
}

std::int64_t Desk::departures(RowId folder) const {
    const auto found = departures_.find(folder);
    return found == departures_.end() ? 0 : found->second;
}

void Desk::item_added(RowId folder, RowId item) {
    if (contents_.contains(folder)) contents_[folder].push_back(item);
    surroundings_.changed();
}

void Desk::item_removed(RowId folder, RowId item) {
    if (contents_.contains(folder)) std::erase(contents_[folder], item);
    ++departures_[folder];
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
    if (!watchers_.contains(folder)) return;
    now_or_later(options_.at_once.adds, [this, folder, item] {
        const std::shared_ptr<Item> changed = open_item(item);
        if (!changed || changed->folder() != folder) return;  // it has left meanwhile
        tell(watchers_[folder], u"ItemChange", {Value(changed->self())});
    });
}

Text Desk::item_entry_id(RowId item, RowId folder) const {
    return Text(id_start) + store_uid(folder) + Text(item_kind) + hexadecimal(item);
}

Text Desk::folder_entry_id(RowId folder) const {
    return Text(id_start) + store_uid(folder) + Text(folder_kind) + hexadecimal(folder);
}

std::optional<RowId> Desk::item_of_entry_id(TextView id) { return row_of(id, item_kind); }

std::optional<RowId> Desk::folder_of_entry_id(TextView id) const {
    const std::optional<RowId> row = row_of(id, folder_kind);
    if (!row || !folder_row(*row) || !automation::same_ignoring_case(folder_entry_id(*row), id))
        return std::nullopt;
    return row;
}

void Desk::later(std::function<void()> what) {
    waiting_.push_back(std::move(what));
    surroundings_.wake();
}

void Desk::now_or_later(bool now, std::function<void()> what) {
    if (now) {
        what();
    } else {
        later(std::move(what));
    }
}

void Desk::yield() {
    while (!waiting_.empty()) {
        const std::function<void()> next = std::move(waiting_.front());
        waiting_.pop_front();
        next();
    }
}

void Desk::watch(RowId folder, const std::shared_ptr<Items>& items) {
    auto& watchers = watchers_[folder];
    std::erase_if(watchers, [](const auto& watcher) { return watcher.expired(); });
    const bool known =
        std::ranges::any_of(watchers, [&](const auto& watcher) { return watcher.lock() == items; });
    if (!known) watchers.push_back(items);
}

void Desk::watch_folders(RowId parent, const std::shared_ptr<FoldersCollection>& folders) {
    auto& watchers = folder_watchers_[parent];
    std::erase_if(watchers, [](const auto& watcher) { return watcher.expired(); });
    const bool known =
        std::ranges::any_of(watchers, [&](const auto& watcher) { return watcher.lock() == folders; });
    if (!known) watchers.push_back(folders);
}

void Desk::tell_item_added(RowId folder, RowId item) {
    if (!watchers_.contains(folder)) return;
    now_or_later(options_.at_once.adds, [this, folder, item] {
        const std::shared_ptr<Item> added = open_item(item);
        if (!added || added->folder() != folder) return;  // it has left again
        tell(watchers_[folder], u"ItemAdd", {Value(added->self())});
    });
}

void Desk::tell_item_changed(RowId folder, const std::shared_ptr<Item>& item) {
    surroundings_.changed();
    if (!watchers_.contains(folder)) return;
    now_or_later(options_.at_once.changes, [this, folder, item] {
        if (item->is_gone()) return;  // it has left meanwhile
        tell(watchers_[folder], u"ItemChange", {Value(item->self())});
    });
}

void Desk::tell_item_removed(RowId folder) {
    if (!watchers_.contains(folder)) return;
    now_or_later(options_.at_once.removals, [this, folder] { tell(watchers_[folder], u"ItemRemove", {}); });
}

void Desk::tell_folders(RowId parent, TextView event, RowId folder) {
    if (!folder_watchers_.contains(parent)) return;
    now_or_later(options_.at_once.adds, [this, parent, name = Text(event), folder] {
        std::vector<Value> arguments;
        if (folder != 0) arguments.emplace_back(std::make_shared<Folder>(*this, folder)->self());
        tell(folder_watchers_[parent], name, arguments);
    });
}

std::shared_ptr<Item> Desk::deliver(TextView path) {
    ItemData data = surroundings_.read_mail(path);
    data.fields[u"UnRead"] = true;
    const RowId folder = default_folder(inbox);
    if (folder == 0) throw Failure(result::not_found, u"The profile has no Inbox.");
    auto item = std::make_shared<Item>(*this, folder, std::move(data));
    item->save();
    now_or_later(options_.at_once.adds, [this] { application_->raise(u"NewMail"); });
    return item;
}

template <class Fits>
void Desk::post_planned(Fits fits) {
    std::vector<std::function<void()>> due;
    std::erase_if(planned_, [&](Planned& plan) {
        if (!fits(plan.moment)) return false;
        due.push_back(std::move(plan.action));
        return true;
    });
    ++telling_;  // they come at the next turn, also where nothing else runs
    for (auto& action : due) surroundings_.post(std::move(action));
    --telling_;
}

void Desk::when(TextView moment, std::function<void()> action) {
    planned_.push_back({Text(moment), std::move(action)});
}

void Desk::moment_comes(TextView event) {
    if (planned_.empty()) return;
    post_planned([&](const Text& moment) { return moment == event; });
}

void Desk::status_window_up(TextView text) {
    if (text == status_label) return;
    status_waits_ = true;
    later([this, shown = Text(text)] {
        if (status_waits_) status_shown(shown);
    });
}

void Desk::status_shown(TextView text) {
    status_waits_ = false;
    statuses.emplace_back(text);
    post_planned([&](const Text& moment) { return text.find(moment) != TextView::npos; });
}

void Desk::note_filter(TextView filter) {
    constexpr std::size_t most = 500;
    if (filters.size() == most) filters.pop_front();
    filters.emplace_back(filter);
}

int Desk::take_answer(TextView title, TextView text) {
    const auto found = std::ranges::find_if(answers, [&](const QueuedAnswer& answer) {
        return answer.title == title && text.find(answer.fragment) != TextView::npos;
    });
    if (found == answers.end()) return 0;
    const int button = found->button;
    answers.erase(found);
    return button;
}

void Desk::check_faults(std::string_view class_name, TextView member) {
    if (faults.empty()) return;
    const Text full = automation::from_utf8(class_name) + u"." + Text(member);
    for (PlannedFault& fault : faults) {
        if (!automation::same_ignoring_case(fault.member, full)) continue;
        if (fault.after > 0) {
            --fault.after;
            continue;
        }
        if (fault.times == 0) continue;
        if (fault.times > 0) --fault.times;
        throw Failure(fault.number, u"The call of " + full + u" was made to fail.");
    }
}

}  // namespace desk
