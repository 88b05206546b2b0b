#include "desk/office/add_ins.h"

#include "desk/base/desk.h"

namespace desk {

using automation::Arguments;
using automation::Failure;
using automation::Object;
using automation::Use;
using automation::Value;
namespace result = automation::result;

Object AddIn::parent() const { return desk().add_ins()->self(); }

const automation::Members<AddIn>& AddIn::members() {
    static const automation::Members<AddIn> table{
        {u"Description", 0x0, Use::get_put,
         [](AddIn& self, const Arguments& a) {
             if (a.is_put()) self.description = a.assigned().to_text();
             return Value(self.description);
         }},
        {u"ProgId", 0x3, Use::get, [](AddIn& self, const Arguments&) { return Value(self.prog_id); }},
        {u"Guid", 0x4, Use::get, [](AddIn& self, const Arguments&) { return Value(self.guid); }},
        {u"Connect", 0x6, Use::get_put,
         [](AddIn& self, const Arguments& a) {
             if (a.is_put())
                 self.desk().surroundings().connect_add_in(self.prog_id, a.assigned().to_boolean());
             return Value(self.connected);
         }},
        {u"Object", 0x7, Use::get_put,
         [](AddIn& self, const Arguments& a) {
             if (a.is_put()) self.published = a.assigned().to_object();
             return Value(self.published);
         }},
    };
    return table;
}

Object AddIns::parent() const { return desk().application_object(); }

Object AddIns::at(const Value& index) const {
    if (index.is(Value::Type::text)) {
        for (const auto& add_in : all) {
            if (automation::same_ignoring_case(add_in->prog_id, index.to_text())) return add_in->self();
        }
        throw Failure(result::not_found, u"There is no add-in \"" + index.to_text() + u"\".");
    }
    const std::int32_t place = index.to_integer();
    if (place < 1 || static_cast<std::size_t>(place) > all.size()) {
        throw Failure(result::bad_index, u"Array index out of bounds.");
    }
    return all[static_cast<std::size_t>(place - 1)]->self();
}

const automation::Members<AddIns>& AddIns::members() {
    static const automation::Members<AddIns> table{
        {u"Item",
         0x0,
         Use::method,
         {{u"Index"}},
         [](AddIns& self, const Arguments& a) { return Value(self.at(a[0])); }},
        {u"Count", 0x1, Use::get,
         [](AddIns& self, const Arguments&) { return Value(static_cast<std::int32_t>(self.all.size())); }},
        {u"Update", 0x2, Use::method, [](AddIns&, const Arguments&) { return Value(); }},
    };
    return table;
}

}  // namespace desk
