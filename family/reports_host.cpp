#include "family/reports_host.h"

namespace family {

const automation::Members<ReportsHost>& ReportsHost::members() {
    static const automation::Members<ReportsHost> table{
        {u"Initiate", automation::no_id, automation::Use::method,
         [](ReportsHost& self, const automation::Arguments&) -> automation::Value {
             self.record_call(u"Initiate");
             return {};
         }},
    };
    return table;
}

}  // namespace family
