#include "desk/office/found_controls.h"

namespace desk {

using automation::Use;
using automation::Value;

const automation::Members<FoundControls>& FoundControls::members() {
    using Self = FoundControls;
    static const automation::Members<Self> table{
        {u"Count", 0x60030001, Use::get, [](Self& self) { return self.controls().size(); }},
        {u"Item",
         0x0,
         Use::get,
         {u"Index"},
         [](Self& self, const Value& index) { return control_at(self.controls(), index); }},
    };
    return table;
}

}  // namespace desk
