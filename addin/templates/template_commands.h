// The commands of mails' and contacts' windows that have to do with templates.
#pragma once

#include "addin/ground/session.h"

namespace addin::templates {

/// Open a list of templates, for the item in the active window where the list goes by it.
void show_email_templates(Session& session);
void show_document_templates(Session& session);
void show_excel_templates(Session& session);

/// Makes a template of the mail in the active window, after a question.
void save_as_template(Session& session);

}  // namespace addin::templates
