#include "addin/records/list_definition.h"

namespace addin::records {

automation::Text as_template(automation::TextView body) {
    automation::Text fixed = automation::trimmed(body);
    fixed.resize(template_length, u' ');
    return fixed;
}

}  // namespace addin::records
