// The faces of the system's database objects, through which its search index is asked.
#pragma once

#include "automation/face.h"

namespace host::search {

using namespace automation;  // what the faces are written in

inline constexpr TextView connection_prog_id = u"ADODB.Connection", recordset_prog_id = u"ADODB.Recordset";

/// What a connection to the index is opened with.
inline constexpr TextView provider =
    u"Provider=Search.CollatorDSO;Extended Properties='Application=Windows';";

class Connection : public Face<Connection> {
  public:
    static constexpr Kind kind{"Connection"};
    using Face::Face;

    void Open(TextView connection_string) const { call(u"Open", {Value(connection_string)}); }
    void Close() const { call(u"Close"); }
};

class Field : public Face<Field> {
  public:
    static constexpr Kind kind{"Field"};
    using Face::Face;

    Value value() const { return get(u"Value"); }
};

class Fields : public CollectionFace<Fields, Field> {
  public:
    static constexpr Kind kind{"Fields"};
    using CollectionFace::CollectionFace;
};

/// The rows of an answer, of which one is the current one.
class Recordset : public Face<Recordset> {
  public:
    static constexpr Kind kind{"Recordset"};
    using Face::Face;

    void Open(TextView question, const Connection& connection) const {
        call(u"Open", {Value(question), Value(connection)});
    }
    void MoveFirst() const { call(u"MoveFirst"); }
    void MoveNext() const { call(u"MoveNext"); }
    bool at_end() const { return boolean(u"EOF"); }  ///< its own name is a macro of the standard library
    search::Fields Fields() const { return search::Fields(object(u"Fields")); }
    void Close() const { call(u"Close"); }
};

}  // namespace host::search
