// The commands of mails' and contacts' windows that have to do with templates.
#pragma once

#include "addin/ground/session.h"

namespace addin::templates {

/// Has the session's commands open the lists of templates, and make a template of a mail.
void furnish(Session& session);

}  // namespace addin::templates
