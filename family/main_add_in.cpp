#include "family/main_add_in.h"

#include "addin/records/names.h"
#include "family/database_folders.h"
#include "family/new_id.h"
#include "family/template_list.h"

namespace family {

using automation::calls;
using automation::no_id;
using automation::Text;
using automation::TextView;
using automation::Use;

namespace {

constexpr TextView no_store = u"-";  ///< as the setting `StoreID`: the answer is empty

/// A member whose answer is a setting.
template <const TextView& setting>
Text read(MainAddIn& self) {
    return self.context().setting(setting);
}

/// A member with a text that is only recorded.
template <const TextView& member>
void record_text(MainAddIn& self, const Text& text) {
    self.record_call(member, {text});
}

constexpr TextView show_mailer = u"ShowMailer";
constexpr TextView show_list = u"Showlist";
constexpr TextView reload_toolbar = u"reloadtoolbar";
constexpr TextView message_id = u"messageid";

}  // namespace

const automation::Members<MainAddIn>& MainAddIn::members() {
    static const automation::Members<MainAddIn> table{
        {u"GetFolderId", no_id, Use::method, {u"FolderName"}, calls<&MainAddIn::folder_id>},
        {u"GetStoreId", no_id, Use::method, calls<&MainAddIn::store_id>},
        {u"generateid", no_id, Use::method, [](MainAddIn& self) { return new_id(self.context()); }},
        {u"GetUserName", no_id, Use::method, read<setting::user_name>},
        {u"getcurrentusername", no_id, Use::method, read<setting::current_user_name>},
        {u"GetAlignment", no_id, Use::method, read<setting::alignment>},
        {u"getEmailAutoFile", no_id, Use::method, read<setting::email_auto_file>},
        {u"GetDropDownsCache",
         no_id,
         Use::method,
         {u"ListName"},
         [](MainAddIn& self, const Text& list_name) {
             return automation::Array::of(DatabaseFolders(self.context()).drop_downs(list_name));
         }},
        {u"ReturnFolderFromPath",
         no_id,
         Use::method,
         {u"FolderPath"},
         [](MainAddIn& self, const Text& folder_path) {
             return DatabaseFolders(self.context()).folder_at(folder_path);
         }},
        {u"getspecialfolderlocation", no_id, Use::method, read<setting::special_folder>},
        {u"GetDLLPath", no_id, Use::method, read<setting::program_folder>},
        {message_id, no_id, [](MainAddIn& self) { return self.mail_id; },
         [](MainAddIn& self, const Text& given) {
             self.mail_id = given;
             self.record_put(message_id, self.mail_id);
         }},
        {show_mailer, no_id, Use::method,
         [](MainAddIn& self) {
             self.record_call(show_mailer);
             show_templates(self.context(), u"Email Templates", mail_templates);
         }},
        {show_list,
         no_id,
         Use::method,
         {u"Kind"},
         [](MainAddIn& self, const Text& kind) {
             self.record_call(show_list, {kind});
             show_templates(self.context(), kind + u" Templates", kind);
         }},
        {reload_toolbar, no_id, Use::method, {u"Action"}, record_text<reload_toolbar>},
    };
    return table;
}

Text MainAddIn::folder_id(TextView folder) const {
    const host::outlook::Folder found = DatabaseFolders(context()).folder(folder);
    return found ? found.EntryID() : Text();
}

Text MainAddIn::store_id() const {
    const Text chosen = context().setting(setting::store_id);
    if (chosen == no_store) return {};
    if (!chosen.empty()) return chosen;
    const host::outlook::Folder profiles =
        DatabaseFolders(context()).folder(addin::records::folder::account_profiles);
    return profiles ? profiles.StoreID() : Text();
}

}  // namespace family
