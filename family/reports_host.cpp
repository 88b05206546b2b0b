#include "family/reports_host.h"

namespace family {

const host::Members<ReportsHost>& ReportsHost::members() {
    static const host::Members<ReportsHost> table{
        {u"Initiate", host::no_id, host::Use::method,
         [](ReportsHost& self, const host::Arguments&) -> host::Value {
             self.record_call(u"Initiate");
             return {};
         }},
    };
    return table;
}

}  // namespace family
