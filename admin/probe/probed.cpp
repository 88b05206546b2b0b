#include "admin/probe/probed.h"

#include "admin/builder.h"
#include "admin/report.h"

namespace admin {

using automation::Value;
using host::outlook::Folder;
using host::outlook::Folders;
using host::outlook::Item;
namespace default_folder = host::outlook::default_folder;

namespace {

constexpr TextView name_of_root = u"Tarnwell probe";
constexpr std::int32_t contacts_folder = 10;   // OlDefaultFolders
constexpr int turns = 15, longest_wait = 100;  // of some 20 milliseconds each

/// Removes the folder of a name, whose removal may move it first.
void remove_named(const Folder& parent, TextView name) {
    const Folder folder = child_named(parent.Folders(), name);
    if (folder) folder.call(u"Delete");
}

}  // namespace

Probed::Probed(Machine& machine) : machine_(machine), host_(machine.application()), name_(name_of_root) {
    const Folders inbox = name_space().GetDefaultFolder(default_folder::inbox).Folders();
    const Folder deleted = name_space().GetDefaultFolder(default_folder::deleted_items);
    for (int number = 2; child_named(inbox, name_) || child_named(deleted.Folders(), name_) || deleted_post();
         ++number) {
        name_ = Text(name_of_root) + u" " + automation::to_text(static_cast<long long>(number));
    }
    root_ = Folder(inbox.call(u"Add", {Value(name_)}).to_object());
}

Item Probed::deleted_post() const {
    const Folder deleted = name_space().GetDefaultFolder(default_folder::deleted_items);
    return deleted.Items().Find(u"[Subject] = '" + own_subject() + u"'");
}

Probed::~Probed() {
    try {
        if (!removed_) remove();
    } catch (const std::exception&) {
        removed_ = true;  // who removes it himself is told
    }
}

void Probed::turn() const {
    for (int i = 0; i < turns; ++i) machine_.let_events_come();
}

void Probed::wait_until(const std::function<bool()>& condition) const {
    for (int i = 0; i < longest_wait && !condition(); ++i) machine_.let_events_come();
}

void Probed::remove() {
    removed_ = true;
    root_.reset();
    filtered_.reset();
    remove_named(name_space().GetDefaultFolder(default_folder::inbox), name_);
    remove_named(name_space().GetDefaultFolder(default_folder::deleted_items), name_);
}

void Probed::empty_deleted() const {
    if (const Item post = deleted_post()) post.call(u"Delete");
}

Folder Probed::folder(std::int32_t default_number) {
    const Text name = u"Folder " + automation::to_text(static_cast<long long>(++folders_));
    return Folder(root_.Folders().call(u"Add", {Value(name), default_number}).to_object());
}

Folder Probed::posts() { return folder(default_folder::inbox); }

Folder Probed::filtered() {
    if (filtered_) return filtered_;
    const Folder fresh = posts();
    for (const TextView subject : {u"One", u"Two", u"O'Hara"}) {
        const Item item = fresh.Items().Add(u"IPM.Post");
        item.Subject(subject);
        if (subject == u"One") {
            const auto properties = item.UserProperties();
            properties.Add(u"Probe Name", host::outlook::text_property, true).value(Value(u"Mill"));
            properties.Add(u"Probe Item Name", host::outlook::text_property, false).value(Value(u"Mill"));
        }
        item.Save();
    }
    filtered_ = fresh;
    return filtered_;
}

Item Probed::post(TextView subject) {
    const Item item = posts().Items().Add(u"IPM.Post");
    item.Subject(subject);
    item.Save();
    return item;
}

Item Probed::contact() {
    const Item item = folder(contacts_folder).Items().Add(u"IPM.Contact");
    item.FullName(u"Ann Lee");
    item.Save();
    return item;
}

Item Probed::mail() {
    const Item item = posts().Items().Add(u"IPM.Note");
    item.Subject(u"Probe");
    item.Save();
    return item;
}

}  // namespace admin
