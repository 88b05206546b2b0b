// Whether collections live, in which order they are, and what they say to what isn't there.
#include "admin/probe/questions.h"

namespace admin {
namespace {

using host::outlook::Folder;
using host::outlook::Item;
using host::outlook::Items;

void add_post(const Folder& folder, TextView subject) {
    const Item post = folder.Items().Add(u"IPM.Post");
    post.Subject(subject);
    post.Save();
}

std::string lives(std::int32_t before, std::int32_t after) {
    return after > before ? "it lives" : "a snapshot";
}

constexpr ProbeQuestion collection_rows[] = {
    {"Items that were held while one was added", "it lives", source::believed,
     [](Probed& probed) {
         const Folder folder = probed.posts();
         const Items items = folder.Items();
         const std::int32_t before = items.Count();
         add_post(folder, u"One");
         return lives(before, items.Count());
     }},
    {"What Restrict gave, held while an item was added that fits", "a snapshot", source::believed,
     [](Probed& probed) {
         const Folder folder = probed.posts();
         const Items found = folder.Items().Restrict(u"[Subject] = 'One'");
         const std::int32_t before = found.Count();
         add_post(folder, u"One");
         return lives(before, found.Count());
     }},
    {"The first of a folder's items", "the oldest", source::believed,
     [](Probed& probed) {
         const Folder folder = probed.posts();
         add_post(folder, u"One");
         add_post(folder, u"Two");
         return std::string(folder.Items().Item(1).Subject() == u"One" ? "the oldest" : "another one");
     }},
    {"GetFirst of an empty folder", "nothing", "Items.GetFirst method",
     [](Probed& probed) { return std::string(probed.posts().Items().GetFirst() ? "something" : "nothing"); }},
    {"An item beyond the last one", "an error", source::believed,
     [](Probed& probed) { return std::string(probed.posts().Items().Item(1) ? "something" : "nothing"); }},
    {"A folder by a name that isn't there", "an error", source::believed,
     [](Probed& probed) {
         return std::string(probed.root().Folders().Item(u"No Such Folder") ? "something" : "nothing");
     }},
    {"A folder by its name in other letters", "yes", source::believed,
     [](Probed& probed) {
         const Folder folder = probed.posts();
         const Text folded = automation::folded(folder.Name());
         return yes_or_no(probed.root().Folders().Item(folded).EntryID() == folder.EntryID());
     }},
    {"A folder by its id", "yes", "NameSpace.GetFolderFromID method",
     [](Probed& probed) {
         const Folder folder = probed.posts();
         const Folder found = probed.name_space().GetFolderFromID(folder.EntryID(), folder.StoreID());
         return yes_or_no(found.Name() == folder.Name());
     }},
    {"A second folder of the same name", "an error", source::believed,
     [](Probed& probed) {
         const Folder folder = probed.posts();
         const Folder again(
             probed.root().Folders().call(u"Add", {automation::Value(folder.Name())}).to_object());
         return std::string(again ? "something" : "nothing");
     }},
};

}  // namespace

std::span<const ProbeQuestion> collection_questions() { return collection_rows; }

}  // namespace admin
