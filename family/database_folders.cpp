#include "family/database_folders.h"

#include <algorithm>

#include "addin/records/names.h"

namespace family {

using automation::Failure;
using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Folder;
using FolderList = std::vector<Folder>;

namespace {

namespace names = addin::records;
constexpr TextView anchor = names::folder::account_profiles;

/// The answer of a folder or store, empty if it can't be asked.
template <class Question>
Text answer_of(Question question) {
    try {
        return question();
    } catch (const Failure&) {
        return {};
    }
}

Text name_of(const Folder& folder) {
    return answer_of([&] { return folder.Name(); });
}

/// The folders of a collection. One that can't be read, as of a store that is offline, reads as an empty one.
FolderList list(const host::outlook::Folders& collection) {
    FolderList folders;
    try {
        const std::int32_t count = collection.Count();
        for (std::int32_t i = 1; i <= count; ++i) folders.push_back(collection.Item(i));
    } catch (const Failure&) {
    }
    return folders;
}

FolderList children(const Folder& folder) {
    try {
        return list(folder.Folders());
    } catch (const Failure&) {
        return {};
    }
}

Folder parent(const Folder& folder) {
    try {
        return folder ? Folder(folder.Parent()) : Folder();
    } catch (const Failure&) {
        return Folder();
    }
}

Folder named(const FolderList& folders, TextView name) {
    const auto found =
        std::ranges::find_if(folders, [&](const Folder& folder) { return name_of(folder) == name; });
    return found == folders.end() ? Folder() : *found;
}

/// A folder is tested before those below it.
Folder depth_first(const FolderList& folders, TextView name) {
    for (const Folder& folder : folders) {
        if (name_of(folder) == name) return folder;
        if (Folder found = depth_first(children(folder), name)) return found;
    }
    return Folder();
}

/// Follows a chain of names. Where two folders bear the same one, as two stores may, each is tried.
Folder follow(const FolderList& folders, TextView chain) {
    const std::size_t end = std::min(chain.find(u'\\'), chain.size());
    const TextView name = chain.substr(0, end);
    for (const Folder& folder : folders) {
        if (!automation::same_ignoring_case(name_of(folder), name)) continue;
        if (end == chain.size()) return folder;
        if (Folder found = follow(children(folder), chain.substr(end + 1))) return found;
    }
    return Folder();
}

bool is_of_list(const host::outlook::Item& record, TextView list) {
    if (!automation::same_ignoring_case(record.MessageClass(), names::message_class::drop_down)) return false;
    const host::outlook::UserProperty property = record.UserProperties().Find(names::property::record_type);
    return property && property.value().to_text() == list;
}

}  // namespace

DatabaseFolders::DatabaseFolders(Context& context)
    : context_(context),
      name_space_(host::outlook::Application(context.application()).GetNamespace(u"MAPI")) {}

Folder DatabaseFolders::folder(TextView name) {
    const Text key = context_.setting(setting::store_id) + u'\\' + Text(name);
    if (Folder known = remembered(key, name)) return known;
    Folder found = search(name);
    if (found) {
        context_.memory().folders[key] = {.entry_id = found.EntryID(), .store_id = found.StoreID()};
    } else {
        context_.memory().folders.erase(key);
    }
    return found;
}

Folder DatabaseFolders::remembered(const Text& key, TextView name) {
    const auto& places = context_.memory().folders;
    const auto place = places.find(key);
    if (place == places.end()) return Folder();
    try {
        Folder folder = name_space_.GetFolderFromID(place->second.entry_id, place->second.store_id);
        return folder && folder.Name() == name ? folder : Folder();
    } catch (const Failure&) {
        return Folder();  // it was deleted, or its store was closed
    }
}

Folder DatabaseFolders::search(TextView name) {
    if (name == anchor) return depth_first(stores(), anchor);
    if (const Folder root = parent(folder(anchor))) {
        const FolderList neighbours = children(root);
        if (Folder found = named(neighbours, name)) return found;
        if (Folder found = depth_first(neighbours, name)) return found;
    }
    return depth_first(stores(), name);
}

Folder DatabaseFolders::folder_at(TextView path) {
    const std::size_t first = path.find_first_not_of(u'\\');
    if (first == TextView::npos)
        throw Failure(automation::result::invalid_argument, u"The path of a folder is empty");
    const std::size_t last = path.find_last_not_of(u'\\');
    return follow(stores(), path.substr(first, last + 1 - first));
}

std::vector<host::outlook::Item> DatabaseFolders::drop_down_records(TextView list) {
    std::vector<host::outlook::Item> found;
    const Folder profiles = folder(anchor);
    const Folder records = profiles ? named(children(profiles), names::folder::drop_downs) : Folder();
    if (!records) return found;
    const host::outlook::Items items = records.Items();
    const std::int32_t count = items.Count();
    for (std::int32_t i = 1; i <= count; ++i) {
        const host::outlook::Item record = items.Item(i);
        if (is_of_list(record, list)) found.push_back(record);
    }
    return found;
}

std::vector<Value> DatabaseFolders::drop_downs(TextView list) {
    std::vector<Value> subjects;
    for (const host::outlook::Item& record : drop_down_records(list))
        subjects.push_back(record.get(u"Subject"));
    return subjects;
}

FolderList DatabaseFolders::stores() {
    FolderList all = list(name_space_.Folders());
    const Text chosen = context_.setting(setting::store_id);
    const auto is_chosen = [&](const Folder& store) {
        return answer_of([&] { return store.StoreID(); }) == chosen;
    };
    std::stable_partition(all.begin(), all.end(), is_chosen);
    return all;
}

}  // namespace family
