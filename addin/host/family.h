// The faces of the sibling objects of the family.
#pragma once

#include "addin/host/desktop.h"
#include "automation/face.h"

namespace host::family {

using namespace automation;  // what the faces are written in

/// The names by which sibling objects are made.
namespace prog_id {
inline constexpr TextView main_add_in = u"Tarnwell.connect";
inline constexpr TextView list_picker = u"ContactList.List";
inline constexpr TextView reports = u"TarnwellReports.Reports";
inline constexpr TextView safe_mail_item = u"TarnwellOMG.SafeMailItem";
inline constexpr TextView safe_post_item = u"TarnwellOMG.SafePostItem";
inline constexpr TextView safe_contact_item = u"TarnwellOMG.SafeContactItem";
}  // namespace prog_id

/// The add-in that owns the database's location. It is made for each use and never kept.
class MainAddIn : public Face<MainAddIn> {
  public:
    static constexpr Kind kind{"MainAddIn"};
    using Face::Face;

    Text GetFolderId(TextView name) const { return call(u"GetFolderId", {Value(name)}).to_text(); }
    Text GetStoreId() const { return call(u"GetStoreId").to_text(); }
    Text getcurrentusername() const { return call(u"getcurrentusername").to_text(); }
    Text getEmailAutoFile() const { return call(u"getEmailAutoFile").to_text(); }
    Text getspecialfolderlocation() const { return call(u"getspecialfolderlocation").to_text(); }
    Text GetDLLPath() const { return call(u"GetDLLPath").to_text(); }
    Text generateid() const { return call(u"generateid").to_text(); }
    Text GetUserName() const { return call(u"GetUserName").to_text(); }
    Text GetAlignment() const { return call(u"GetAlignment").to_text(); }
    Array GetDropDownsCache(TextView list) const {
        return call(u"GetDropDownsCache", {Value(list)}).to_array();
    }
    Object ReturnFolderFromPath(TextView path) const {
        return call(u"ReturnFolderFromPath", {Value(path)}).to_object();
    }
    void messageid(TextView entry_id) const { put(u"messageid", entry_id); }
    void ShowMailer() const { call(u"ShowMailer"); }
    void Showlist(TextView kind) const { call(u"Showlist", {Value(kind)}); }
    void reloadtoolbar(TextView what) const { call(u"reloadtoolbar", {Value(what)}); }
};

class ReportsHost : public Face<ReportsHost> {
  public:
    static constexpr Kind kind{"ReportsHost"};
    using Face::Face;

    void Initiate() const { call(u"Initiate"); }
};

/// The picker of accounts and contacts.
class ListPicker : public Face<ListPicker> {
  public:
    static constexpr Kind kind{"ListPicker"};
    using Face::Face;

    Text StoreID() const { return text(u"StoreID"); }
    void StoreID(TextView value) const { put(u"StoreID", value); }
    void FolderId(TextView value) const { put(u"FolderId", value); }
    void accountfolderid(TextView value) const { put(u"accountfolderid", value); }
    void refreshaccounts() const { call(u"refreshaccounts"); }
    bool dialogcancel() const { return boolean(u"dialogcancel"); }
    Array slist() const { return get(u"slist").to_array(); }
    void searchany(TextView definition, TextView title) const {
        call(u"searchany", {Value(definition), Value(title)});
    }
    void loaddialog() const { call(u"loaddialog"); }
    void showdialog() const { call(u"showdialog"); }
    /// Shows the records of the folder; comes back when the user is done.
    void searchany(TextView definition, TextView title, bool single) const {
        call(u"searchany", {Value(definition), Value(title), single});
    }
};

/// Tags of MAPI properties.
namespace tag {
inline constexpr std::int32_t sender_address = 0x0C1F001E;       // PR_SENDER_EMAIL_ADDRESS
inline constexpr std::int32_t sender_address_type = 0x0C1E001E;  // PR_SENDER_ADDRTYPE
inline constexpr std::int32_t smtp_address = 0x39FE001E;         // PR_SMTP_ADDRESS
inline constexpr std::int32_t address_type = 0x3002001E;         // PR_ADDRTYPE
inline constexpr std::int32_t address = 0x3003001E;              // PR_EMAIL_ADDRESS
inline constexpr std::int32_t text_type = 30;                    // PT_STRING8, the low bits of a tag
}  // namespace tag

/// The sender of a wrapped mail, or the entry of one of its recipients.
class SafeAddressEntry : public Face<SafeAddressEntry> {
  public:
    static constexpr Kind kind{"SafeAddressEntry"};
    using Face::Face;

    Text Fields(std::int32_t tag) const { return get(u"Fields", {tag}).to_text(); }
    Text Address() const { return text(u"Address"); }
    Text Type() const { return text(u"Type"); }
};

class SafeRecipient : public Face<SafeRecipient> {
  public:
    static constexpr Kind kind{"SafeRecipient"};
    using Face::Face;

    Text name() const { return text(u"name"); }
    Text Address() const { return text(u"Address"); }
    SafeAddressEntry AddressEntry() const { return SafeAddressEntry(object(u"AddressEntry")); }
};

class SafeRecipients : public CollectionFace<SafeRecipients, SafeRecipient> {
  public:
    static constexpr Kind kind{"SafeRecipients"};
    using CollectionFace::CollectionFace;

    void ResolveAll() const { call(u"ResolveAll"); }
};

/// A mail's protected properties without the host's security prompt. Made for each use.
class SafeMailItem : public Face<SafeMailItem> {
  public:
    static constexpr Kind kind{"SafeMailItem"};
    using Face::Face;

    void Item(const Object& item) const { put(u"Item", item); }
    Text Fields(std::int32_t tag) const { return get(u"Fields", {tag}).to_text(); }
    SafeAddressEntry sender() const { return SafeAddressEntry(object(u"sender")); }
    SafeRecipients Recipients() const { return SafeRecipients(object(u"Recipients")); }
    void ResolveAll() const { call(u"ResolveAll"); }
    Text EntryID() const { return text(u"EntryID"); }
    Text SenderName() const { return text(u"SenderName"); }
    Text To() const { return text(u"To"); }
    Text Subject() const { return text(u"Subject"); }
    Text Body() const { return text(u"Body"); }
    Value SentOn() const { return get(u"SentOn"); }
    void FlagStatus(std::int32_t value) const { put(u"FlagStatus", value); }
    void FlagRequest(TextView value) const { put(u"FlagRequest", value); }
    void BillingInformation(TextView value) const { put(u"BillingInformation", value); }
    void Save() const { call(u"Save"); }
};

/// A record's protected properties: a post's or a contact's. Made for each use.
class SafeRecordItem : public Face<SafeRecordItem> {
  public:
    static constexpr Kind post_kind{"SafePostItem"}, contact_kind{"SafeContactItem"};
    SafeRecordItem() = default;

    /// Each of the two classes has dispatch ids of its own.
    static SafeRecordItem of_post(Desktop& desktop) {
        return {desktop.create(prog_id::safe_post_item), post_kind};
    }
    static SafeRecordItem of_contact(Desktop& desktop) {
        return {desktop.create(prog_id::safe_contact_item), contact_kind};
    }

    void Item(const Object& item) const { put(u"Item", item); }
    Text Body() const { return text(u"Body"); }
    void Display() const { call(u"Display"); }
    void Save() const { call(u"Save"); }
    void Close(std::int32_t mode) const { call(u"Close", {mode}); }

    /// A property by its tag: a number, its text, or what `GetIDsFromNames` answers.
    Text Fields(const Value& tag) const { return field(tag).to_text(); }
    Value field(const Value& tag) const { return get(u"Fields", {tag}); }  ///< in its own type
    Value GetIDsFromNames(TextView set, const Value& id_or_name) const {
        return call(u"GetIDsFromNames", {Value(set), id_or_name});
    }

  private:
    SafeRecordItem(const Object& made, const Kind& its_class) {
        Object::operator=(made);
        kind(&its_class);
    }
};

}  // namespace host::family
