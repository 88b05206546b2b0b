#include "records/list_definition.h"

namespace addin::records {

host::Text as_template(host::TextView body) {
    host::Text fixed = host::trimmed(body);
    fixed.resize(template_length, u' ');
    return fixed;
}

}  // namespace addin::records
