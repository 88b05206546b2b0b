#include "family/reports_host.h"

namespace family {

const automation::Members<ReportsHost>& ReportsHost::members() {
    static const automation::Members<ReportsHost> table{
        {u"Initiate", automation::no_id, automation::Use::method,
         [](ReportsHost& self) { self.record_call(u"Initiate"); }},
    };
    return table;
}

}  // namespace family
