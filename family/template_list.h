// The window that lists the templates of one kind.
#pragma once

#include "addin/host/outlook.h"
#include "family/context.h"
#include "forms/form.h"

namespace family {

/// The kind of those that mails are made of.
inline constexpr automation::TextView mail_templates = u"Email Blast";

/// A template is a drop-down record of the database; a double click opens it, and a mail can be made of one
/// for mails.
class TemplateList final : public forms::Form {
  public:
    /// The context lives longer than the window.
    TemplateList(forms::Engine& engine, Context& context, automation::Text kind);

    /// Lists the records of the kind as they are now, none where the database can't be read, and shows
    /// itself.
    void show_with_title(automation::TextView title);

  private:
    void on_click(automation::TextView control) override;
    void on_double_click(automation::TextView control) override;
    void fill();
    host::outlook::Item selected();  ///< Nothing if no row is
    void open_selected();
    void make_mail();

    Context& context_;
    automation::Text kind_;
};

/// Shows the window of the templates of a kind, the one that is there, or a new one. It stays until somebody
/// closes it, or until the context closes its windows.
void show_templates(Context& context, automation::TextView title, automation::TextView kind);

}  // namespace family
