// The faces of CDO, as far as the add-in uses it.
#pragma once

#include "automation/face.h"

namespace host::cdo {

using namespace automation;  // what the faces are written in

inline constexpr TextView session_prog_id = u"MAPI.Session";
inline constexpr std::int32_t default_post_class = 0x36E5001E;  // PR_DEF_POST_MSGCLASS

class Folder : public Face<Folder> {
  public:
    static constexpr Kind kind{"CDO.Folder"};
    using Face::Face;

    Text ID() const { return text(u"ID"); }
    Text StoreID() const { return text(u"StoreID"); }

    /// A property's value by its tag.
    Value Fields(std::int32_t tag) const { return get(u"Fields", {tag}).to_object().get(u"Value"); }
};

/// A message by its stored properties, whatever class of item it is.
class Message : public Face<Message> {
  public:
    static constexpr Kind kind{"CDO.Message"};
    using Face::Face;

    /// Its message class.
    Text Type() const { return text(u"Type"); }
    void Type(TextView value) const { put(u"Type", value); }

    void Update(bool make_permanent, bool refresh) const { call(u"Update", {make_permanent, refresh}); }
};

class CdoSession : public Face<CdoSession> {
  public:
    static constexpr Kind kind{"CDO.Session"};
    using Face::Face;

    /// Shares the host's own session.
    void Logon() const { call(u"Logon", {Missing{}, Missing{}, Missing{}, false}); }
    Folder GetFolder(TextView entry_id, TextView store_id) const {
        return Folder(call(u"GetFolder", {Value(entry_id), Value(store_id)}).to_object());
    }
    Message GetMessage(TextView entry_id, TextView store_id) const {
        return Message(call(u"GetMessage", {Value(entry_id), Value(store_id)}).to_object());
    }
    void Logoff() const { call(u"Logoff"); }
};

}  // namespace host::cdo
