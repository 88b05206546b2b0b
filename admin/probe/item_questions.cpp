// What an item is before and after it is saved, copied, moved and posted, and what becomes of its fields.
#include "admin/probe/questions.h"

namespace admin {
namespace {

using automation::Object;
using automation::Value;
using host::outlook::Folder;
using host::outlook::Item;

std::string has_id(const Item& item) { return item.EntryID().empty() ? "no id" : "an id"; }

std::string told(TextView text) { return "\"" + automation::to_utf8(text) + "\""; }

std::string number(const Object& object, TextView member) {
    return std::to_string(object.get(member).to_integer());
}

constexpr ProbeQuestion item_rows[] = {
    {"The id of a new post before it is saved", "no id", "PostItem.EntryID property",
     [](Probed& probed) { return has_id(probed.posts().Items().Add(u"IPM.Post")); }},
    {"The id of a post that was saved", "an id", "PostItem.EntryID property",
     [](Probed& probed) { return has_id(probed.post()); }},
    {"An item found by its id is the same item", "yes", "NameSpace.GetItemFromID method",
     [](Probed& probed) {
         const Item post = probed.post();
         const Item found = probed.name_space().GetItemFromID(post.EntryID(), probed.root().StoreID());
         return yes_or_no(found.EntryID() == post.EntryID());
     }},
    {"An item looked for by an id that is none", "an error", source::believed,
     [](Probed& probed) {
         return has_id(probed.name_space().GetItemFromID(u"00", probed.root().StoreID()));
     }},
    {"A new post counts among its folder's items before it is saved", "no", source::believed,
     [](Probed& probed) {
         const Folder folder = probed.posts();
         const Item post = folder.Items().Add(u"IPM.Post");
         return yes_or_no(folder.Items().Count() > 0);
     }},
    {"Post puts a new post into its folder", "1 item", "PostItem.Post method",
     [](Probed& probed) {
         const Folder folder = probed.posts();
         const Item post = folder.Items().Add(u"IPM.Post");
         post.Subject(u"Probe");
         post.Post();
         return std::to_string(folder.Items().Count()) + " item";
     }},
    {"A new post is unread when it was saved", "no", source::believed,
     [](Probed& probed) { return yes_or_no(probed.post().UnRead()); }},
    {"Saved says, of an item that was saved", "yes", "PostItem.Saved property",
     [](Probed& probed) { return yes_or_no(probed.post().Saved()); }},
    {"Saved says, after a change", "no", "PostItem.Saved property",
     [](Probed& probed) {
         const Item post = probed.post();
         post.Subject(u"Other");
         return yes_or_no(post.Saved());
     }},
    {"The id of a copy of a saved post, before the copy is saved", "an id", source::believed,
     [](Probed& probed) { return has_id(probed.post().Copy()); }},
    {"A copy stands beside its original before it is saved", "yes", source::believed,
     [](Probed& probed) {
         const Item post = probed.post();
         const Item copy = post.Copy();
         return yes_or_no(Folder(post.Parent()).Items().Count() == 2);
     }},
    {"A copy that was moved is where it was moved to", "1 item", source::believed,
     [](Probed& probed) {
         const Folder to = probed.posts();
         probed.post().Copy().Move(to);
         return std::to_string(to.Items().Count()) + " item";
     }},
    {"What Move gives back is in the other folder", "yes", "PostItem.Move method",
     [](Probed& probed) {
         const Folder to = probed.posts();
         const Item moved(probed.post().call(u"Move", {Value(to)}).to_object());
         return yes_or_no(Folder(moved.Parent()).EntryID() == to.EntryID());
     }},
    {"UserProperties.Find of a name that isn't there", "nothing", "UserProperties.Find method",
     [](Probed& probed) {
         return std::string(probed.post().UserProperties().Find(u"No Such Name") ? "something" : "nothing");
     }},
    {"UserProperties(name) of a name that isn't there", "an error", source::believed,
     [](Probed& probed) {
         return std::string(probed.post().UserProperties().Item(u"No Such Name") ? "something" : "nothing");
     }},
    {"ItemProperties(name) of a name that isn't there", "an error", source::believed,
     [](Probed& probed) {
         return std::string(probed.post().itemproperties().Item(u"No Such Name") ? "something" : "nothing");
     }},
    {"A user property is found by its name in other letters", "yes", source::believed,
     [](Probed& probed) {
         const Item post = probed.post();
         post.UserProperties().Add(u"Probe Name", host::outlook::text_property, false);
         return yes_or_no(static_cast<bool>(post.UserProperties().Find(u"probe name")));
     }},
    {"A user property that is there, added once more", "1 property", source::believed,
     [](Probed& probed) {
         const Item post = probed.post();
         for (int i = 0; i < 2; ++i)
             post.UserProperties().Add(u"Probe Name", host::outlook::text_property, false);
         return std::to_string(post.UserProperties().Count()) + " property";
     }},
    {"A user property that was added and never set, as text", "\"\"", source::believed,
     [](Probed& probed) {
         const Item post = probed.post();
         return told(
             post.UserProperties().Add(u"Probe Name", host::outlook::text_property, false).value().to_text());
     }},
    {"A user property of a copy", "\"Mill\"", source::believed,
     [](Probed& probed) {
         const Item post = probed.post();
         post.UserProperties().Add(u"Probe Name", host::outlook::text_property, false).value(Value(u"Mill"));
         post.Save();
         return told(post.Copy().UserProperties().Find(u"Probe Name").value().to_text());
     }},
    {"A mark on a mail stays", "1 \"Probe\" \"Auto\"", source::believed,
     [](Probed& probed) {
         const Item mail = probed.mail();
         mail.FlagStatus(host::outlook::flag_complete);
         mail.FlagRequest(u"Probe");
         mail.BillingInformation(u"Auto");
         mail.Save();
         const Item again = probed.name_space().GetItemFromID(mail.EntryID(), probed.root().StoreID());
         return number(again, u"FlagStatus") + " " + told(again.get(u"FlagRequest").to_text()) + " " +
                told(again.BillingInformation());
     }},
    {"A mail that is written was sent", "no", "MailItem.Sent property",
     [](Probed& probed) { return yes_or_no(probed.mail().Sent()); }},
    {"The subject of a contact whose name was set", "\"Ann Lee\"", source::believed,
     [](Probed& probed) { return told(probed.contact().Subject()); }},
    {"The first name of a contact whose full name was set", "\"Ann\"", "ContactItem.FullName property",
     [](Probed& probed) { return told(probed.contact().get(u"FirstName").to_text()); }},
    {"The subject of a sticky note", "\"First line\"", "NoteItem.Subject property",
     [](Probed& probed) {
         constexpr std::int32_t notes = 12;
         const Item note = probed.folder(notes).Items().Add(u"IPM.StickyNote");
         note.Body(u"First line\r\nSecond line");
         note.Save();
         return told(note.Subject());
     }},
    {"Setting the subject of a sticky note", "an error", source::type_library,
     [](Probed& probed) {
         constexpr std::int32_t notes = 12;
         const Item note = probed.folder(notes).Items().Add(u"IPM.StickyNote");
         note.Subject(u"Other");
         return std::string("nothing happens");
     }},
    {"An item as an attachment", "5 \"Probe\"", "Attachments.Add method",
     [](Probed& probed) {
         const Item holder = probed.post(u"Holder");
         holder.Attachments().Add(probed.mail(), 1);
         const Object attachment = holder.Attachments().Item(1);
         return number(attachment, u"Type") + " " + told(attachment.get(u"DisplayName").to_text());
     }},
    {"An item that was deleted is gone from its folder at once", "yes", source::believed,
     [](Probed& probed) {
         const Item post = probed.post(probed.own_subject());
         const Folder folder(post.Parent());
         post.call(u"Delete");
         const bool gone = folder.Items().Count() == 0;
         probed.empty_deleted();
         return yes_or_no(gone);
     }},
};

}  // namespace

std::span<const ProbeQuestion> item_questions() { return item_rows; }

}  // namespace admin
