#include "desk/office/add_ins.h"

#include "desk/base/desk.h"

namespace desk {

using automation::calls;
using automation::Failure;
using automation::Object;
using automation::Text;
using automation::Use;
using automation::Value;
namespace result = automation::result;

Object AddIn::parent() const { return desk().add_ins()->self(); }

const automation::Members<AddIn>& AddIn::members() {
    static const automation::Members<AddIn> table{
        {u"Description", 0x0, [](AddIn& self) { return self.description; },
         [](AddIn& self, const Text& given) { self.description = given; }},
        {u"ProgId", 0x3, Use::get, [](AddIn& self) { return self.prog_id; }},
        {u"Guid", 0x4, Use::get, [](AddIn& self) { return self.guid; }},
        {u"Connect", 0x6, [](AddIn& self) { return self.connected; },
         [](AddIn& self, bool given) { self.desk().surroundings().connect_add_in(self.prog_id, given); }},
        {u"Object", 0x7, [](AddIn& self) { return self.published; },
         [](AddIn& self, const Object& given) { self.published = given; }},
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
        {u"Item", 0x0, Use::method, {u"Index"}, calls<&AddIns::at>},
        {u"Count", 0x1, Use::get, [](AddIns& self) { return self.all.size(); }},
        {u"Update", 0x2, Use::method, [](AddIns&) {}},
    };
    return table;
}

}  // namespace desk
