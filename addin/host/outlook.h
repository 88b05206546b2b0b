// The faces of Outlook's object model, of the Outlook 2000 generation, as far as the add-in uses it.
#pragma once

#include "addin/host/item_classes.h"
#include "addin/host/office.h"
#include "automation/face.h"

namespace host::outlook {

using namespace automation;  // what the faces are written in

class Application;

inline constexpr TextView application_prog_id = u"Outlook.Application";

/// Numbers of the default folders (OlDefaultFolders).
namespace default_folder {
inline constexpr std::int32_t deleted_items = 3, sent_mail = 5, inbox = 6, calendar = 9, tasks = 13,
                              drafts = 16;
}

/// Numbers of object classes (OlObjectClass).
namespace object_class {
inline constexpr std::int32_t folder = 2, appointment = 26, contact = 40, mail = 43, note = 44, post = 45;
}

inline constexpr std::int32_t contact_items = 2;       // OlItemType
inline constexpr std::int32_t text_property = 1;       // OlUserPropertyType
inline constexpr std::int32_t flag_complete = 1;       // OlFlagStatus
inline constexpr std::int32_t sensitivity_normal = 0;  // OlSensitivity

class UserProperty : public Face<UserProperty> {
  public:
    static constexpr Kind kind{"UserProperty"};
    using Face::Face;

    Value value() const { return get(u"Value"); }
    void value(const Value& value) const { put(u"Value", value); }
};

class UserProperties : public CollectionFace<UserProperties, UserProperty> {
  public:
    static constexpr Kind kind{"UserProperties"};
    using CollectionFace::CollectionFace;

    UserProperty Find(TextView name) const { return UserProperty(call(u"Find", {Value(name)}).to_object()); }
    UserProperty Add(TextView name, std::int32_t type, bool add_to_folder_fields) const {
        return UserProperty(call(u"Add", {Value(name), type, add_to_folder_fields}).to_object());
    }
};

/// All properties of an item; not of the Outlook 2000 generation, so reached by name where a host has it.
class ItemProperties : public CollectionFace<ItemProperties, UserProperty> {
  public:
    static constexpr Kind kind{"ItemProperties"};
    using CollectionFace::CollectionFace;
};

class Attachments : public Face<Attachments> {
  public:
    static constexpr Kind kind{"Attachments"};
    using Face::Face;

    std::int32_t Count() const { return integer(u"Count"); }
    Object Item(std::int32_t index) const { return call(u"Item", {index}).to_object(); }

    /// Type and display name are left to the host.
    void Add(const Object& source, std::int32_t position) const {
        call(u"Add", {Value(source), Missing{}, position, Missing{}});
    }
};

/// An item of any class.
class Item : public Face<Item> {
  public:
    static constexpr Kind kind{"Item", parts_item_classes};
    using Face::Face;

    Object Parent() const { return object(u"Parent"); }
    std::int32_t Class() const { return integer(u"Class"); }
    Text EntryID() const { return text(u"EntryID"); }
    Text MessageClass() const { return text(u"MessageClass"); }
    void MessageClass(TextView value) const { put(u"MessageClass", value); }
    Text Subject() const { return text(u"Subject"); }
    void Subject(TextView value) const { put(u"Subject", value); }
    Text Body() const { return text(u"Body"); }
    void Body(TextView value) const { put(u"Body", value); }
    bool UnRead() const { return boolean(u"UnRead"); }
    std::int32_t Sensitivity() const { return integer(u"Sensitivity"); }
    Text BillingInformation() const { return text(u"BillingInformation"); }
    void BillingInformation(TextView value) const { put(u"BillingInformation", value); }
    void FlagStatus(std::int32_t value) const { put(u"FlagStatus", value); }
    void FlagRequest(TextView value) const { put(u"FlagRequest", value); }
    bool Saved() const { return boolean(u"Saved"); }
    bool Sent() const { return boolean(u"Sent"); }
    Value LastModificationTime() const { return get(u"LastModificationTime"); }
    Text CompanyName() const { return text(u"CompanyName"); }
    void CompanyName(TextView value) const { put(u"CompanyName", value); }
    Text FullName() const { return text(u"FullName"); }
    void FullName(TextView value) const { put(u"FullName", value); }
    void WebPage(TextView value) const { put(u"WebPage", value); }
    void Email1Address(TextView value) const { put(u"Email1Address", value); }
    Text Account() const { return text(u"Account"); }
    void Account(TextView value) const { put(u"Account", value); }
    Text CustomerID() const { return text(u"CustomerID"); }
    void CustomerID(TextView value) const { put(u"CustomerID", value); }
    ItemProperties itemproperties() const { return ItemProperties(object(u"itemproperties")); }
    outlook::UserProperties UserProperties() const {
        return outlook::UserProperties(object(u"UserProperties"));
    }
    outlook::Attachments Attachments() const { return outlook::Attachments(object(u"Attachments")); }

    void Save() const { call(u"Save"); }
    Item Copy() const { return Item(call(u"Copy").to_object()); }
    void Move(const Object& folder) const { call(u"Move", {Value(folder)}); }
    void Post() const { call(u"Post"); }
    void Display() const { call(u"Display"); }
    void Close(std::int32_t mode) const { call(u"Close", {mode}); }
};

class Items : public CollectionFace<Items, Item> {
  public:
    static constexpr Kind kind{"Items"};
    using CollectionFace::CollectionFace;

    outlook::Item Add(TextView message_class) const {
        return outlook::Item(call(u"Add", {Value(message_class)}).to_object());
    }
    /// The first item that matches, or Nothing.
    outlook::Item Find(TextView filter) const {
        return outlook::Item(call(u"Find", {Value(filter)}).to_object());
    }
    outlook::Item GetFirst() const { return outlook::Item(call(u"GetFirst").to_object()); }
    Items Restrict(TextView filter) const { return Items(call(u"Restrict", {Value(filter)}).to_object()); }
};

class Folders;

class Folder : public Face<Folder> {
  public:
    static constexpr Kind kind{"MAPIFolder"};
    using Face::Face;

    Object Parent() const { return object(u"Parent"); }
    std::int32_t Class() const { return integer(u"Class"); }
    Text Name() const { return text(u"Name"); }
    Text EntryID() const { return text(u"EntryID"); }
    Text StoreID() const { return text(u"StoreID"); }
    Text DefaultMessageClass() const { return text(u"DefaultMessageClass"); }
    std::int32_t DefaultItemType() const { return integer(u"DefaultItemType"); }
    inline outlook::Folders Folders() const;
    outlook::Items Items() const { return outlook::Items(object(u"Items")); }
};

class Folders : public CollectionFace<Folders, Folder> {
  public:
    static constexpr Kind kind{"Folders"};
    using CollectionFace::CollectionFace;
};

inline Folders Folder::Folders() const { return outlook::Folders(object(u"Folders")); }

class NameSpace : public Face<NameSpace> {
  public:
    static constexpr Kind kind{"NameSpace"};
    using Face::Face;

    outlook::Folders Folders() const { return outlook::Folders(object(u"Folders")); }
    Folder GetDefaultFolder(std::int32_t number) const {
        return Folder(call(u"GetDefaultFolder", {number}).to_object());
    }
    Folder GetFolderFromID(TextView entry_id, TextView store_id) const {
        return Folder(call(u"GetFolderFromID", {Value(entry_id), Value(store_id)}).to_object());
    }
    Item GetItemFromID(TextView entry_id) const {
        return Item(call(u"GetItemFromID", {Value(entry_id)}).to_object());
    }
    Item GetItemFromID(TextView entry_id, TextView store_id) const {
        return Item(call(u"GetItemFromID", {Value(entry_id), Value(store_id)}).to_object());
    }
};

class Selection : public CollectionFace<Selection, Item> {
  public:
    static constexpr Kind kind{"Selection"};
    using CollectionFace::CollectionFace;
};

class Explorer : public Face<Explorer> {
  public:
    static constexpr Kind kind{"Explorer"};
    using Face::Face;

    office::CommandBars CommandBars() const { return office::CommandBars(object(u"CommandBars")); }
    Folder CurrentFolder() const { return Folder(object(u"CurrentFolder")); }
    outlook::Selection Selection() const { return outlook::Selection(object(u"Selection")); }
};

class Explorers : public CollectionFace<Explorers, Explorer> {
  public:
    static constexpr Kind kind{"Explorers"};
    using CollectionFace::CollectionFace;
};

inline constexpr std::int32_t discard_changes = 1;  // OlInspectorClose

class Inspector : public Face<Inspector> {
  public:
    static constexpr Kind kind{"Inspector"};
    using Face::Face;

    Item CurrentItem() const { return Item(object(u"CurrentItem")); }
    office::CommandBars CommandBars() const { return office::CommandBars(object(u"CommandBars")); }
    bool IsWordMail() const { return call(u"IsWordMail").to_boolean(); }
    void Close(std::int32_t mode) const { call(u"Close", {mode}); }
};

class Inspectors : public CollectionFace<Inspectors, Inspector> {
  public:
    static constexpr Kind kind{"Inspectors"};
    using CollectionFace::CollectionFace;
};

class Application : public Face<Application> {
  public:
    static constexpr Kind kind{"Application"};
    using Face::Face;

    Text Version() const { return text(u"Version"); }
    Inspector ActiveInspector() const { return Inspector(call(u"ActiveInspector").to_object()); }
    Object CreateObject(TextView prog_id) const {
        return call(u"CreateObject", {Value(prog_id)}).to_object();
    }
    office::LanguageSettings LanguageSettings() const {
        return office::LanguageSettings(object(u"LanguageSettings"));
    }
    Explorer ActiveExplorer() const { return Explorer(call(u"ActiveExplorer").to_object()); }
    outlook::Explorers Explorers() const { return outlook::Explorers(object(u"Explorers")); }
    outlook::Inspectors Inspectors() const { return outlook::Inspectors(object(u"Inspectors")); }
    NameSpace GetNamespace(TextView type) const {
        return NameSpace(call(u"GetNamespace", {Value(type)}).to_object());
    }
    office::ComAddIns COMAddIns() const { return office::ComAddIns(object(u"COMAddIns")); }
};

}  // namespace host::outlook
