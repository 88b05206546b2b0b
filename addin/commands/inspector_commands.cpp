#include "addin/commands/inspector_commands.h"

#include <algorithm>

#include "addin/commands/buttons.h"
#include "addin/commands/small_windows.h"
#include "addin/ground/settings.h"
#include "addin/host/cdo.h"
#include "addin/host/host_events.h"
#include "addin/records/database.h"
#include "addin/records/names.h"

namespace addin::commands {

using automation::Text;
using automation::TextView;
using host::office::CommandBar;
using host::office::CommandBarControl;
using host::outlook::Inspector;
using host::outlook::Item;
namespace message_class = records::message_class;
namespace object_class = host::outlook::object_class;
namespace default_folder = host::outlook::default_folder;

namespace {

constexpr TextView on_action = u"!<CreateNote.Connect>";
constexpr std::int32_t top_row = -1;

// what the host's menu bar shows of its button besides the caption
constexpr TextView menu_description = u"Description Text";
constexpr TextView menu_shortcut = u"Shortcut";

/// The classes of contacts that are records.
constexpr records::Name record_classes[] = {message_class::account_contact, message_class::lead,
                                            message_class::mailing};

bool is_record_class(const Text& name) {
    return std::ranges::find(record_classes, name) != std::end(record_classes);
}

bool IsStandardDpi(host::Desktop& desktop) {
    constexpr int standard = 96;
    return desktop.dots_per_inch() == standard;
}

/// The fitting of one window.
class Fitting {
  public:
    Fitting(Session& session, Links& links, replicas::Guards& guards, const Inspector& inspector)
        : session_(session), links_(links), guards_(guards), inspector_(inspector) {}

    void run();

  private:
    // the cases, in the order in which they are met
    void personal_appointment();
    void menu_button();
    void mail_without_bar();
    void other_without_bar();
    void contact_without_bar();
    void offer_conversions();
    void mail_with_bar();
    void contact_templates();

    // the moves that all cases are made of
    void add_bar(TextView name);
    void show_bar();
    void find(automation::Sink Links::*member);
    void build(automation::Sink Links::*member, bool begin_group);
    void write(automation::Sink Links::*member, bool begin_group);
    void visible(automation::Sink Links::*member, bool visible);
    void find_or_build(automation::Sink Links::*member, bool begin_group);
    template <class Expression>
    void assign(automation::Sink Links::*member, Expression expression);

    CommandBarControl control(automation::Sink Links::*member) const {
        return CommandBarControl((links_.*member).source());
    }
    bool is_missing(automation::Sink Links::*member) const { return !(links_.*member).source(); }

    /// Whether the explorer shows another folder than Sent Items; the names tell, not the folders.
    bool outside_sent_items() const;

    Session& session_;
    Links& links_;
    replicas::Guards& guards_;
    const Inspector& inspector_;
    Steps steps_{session_};
    Item item_;
    Text kind_;     ///< the item's class number, or the calendar's form
    Text item_id_;  ///< empty for an item that was never saved
    Text class_;
    CommandBar bar_;
    host::cdo::CdoSession cdo_;
};

void Fitting::run() {
    kind_ = automation::to_text(static_cast<long long>(inspector_.CurrentItem().Class()));
    item_id_ = inspector_.CurrentItem().EntryID();
    if (steps_.possibly([&] {
            const Text name = inspector_.CurrentItem().MessageClass();
            return name == message_class::sticky_note || name == message_class::conflict;
        })) {
        return;
    }
    steps_.run([&] { IsStandardDpi(session_.desktop); });  // nothing depends on the answer
    steps_.set(item_, [&] { return inspector_.CurrentItem(); });
    if (steps_.possibly([&] {
            const bool is_appointment = item_.Class() == object_class::appointment;
            return item_.MessageClass() != message_class::appointment && is_appointment;
        })) {
        personal_appointment();
    } else {
        menu_button();
    }

    steps_.run([&] { links_.watch_inspector(inspector_); });
    steps_.set(class_, [&] { return item_.MessageClass(); });
    if (class_ == message_class::appointment) {
        guards_.GlobalCalendar = true;
        return;
    }
    if (class_ == message_class::task) {
        guards_.GlobalTask = true;
        return;
    }

    bar_.reset();  // or a bar that isn't there would leave the one of before
    steps_.set(bar_, [&] { return CommandBar(inspector_.CommandBars().Item(create_note_bar)); });
    const auto is_no_mail = [&] { return item_.Class() != object_class::mail; };
    if (!bar_) {
        if (steps_.possibly(is_no_mail)) {
            other_without_bar();
        } else {
            mail_without_bar();
        }
        if (message_class::is_contact(class_)) contact_without_bar();
    } else if (steps_.possibly(is_no_mail)) {
        if (kind_ != message_class::appointment) steps_.run([&] { bar_.Visible(false); });
    } else {
        mail_with_bar();
    }
    contact_templates();
    steps_.run([&] { cdo_.Logoff(); });
}

void Fitting::personal_appointment() {
    steps_.set(cdo_,
               [&] { return host::cdo::CdoSession(session_.desktop.create(host::cdo::session_prog_id)); });
    steps_.run([&] { cdo_.Logon(); });
    host::cdo::Folder folder;
    steps_.set(folder, [&] {
        const auto calendar = [&] {
            return host::outlook::Application(session_.desktop.application())
                .GetNamespace(u"MAPI")
                .GetDefaultFolder(default_folder::calendar);
        };
        const Text entry_id = calendar().EntryID();
        return cdo_.GetFolder(entry_id, calendar().StoreID());
    });
    steps_.set(kind_, [&] { return folder.Fields(host::cdo::default_post_class).to_text(); });
    add_bar(convert_appointment_bar);
    show_bar();
    constexpr auto member = &Links::ApptButton1;
    find(member);
    if (is_missing(member)) {
        build(member, false);
    } else {
        write(member, false);
    }
    visible(member, true);
}

void Fitting::menu_button() {
    constexpr auto member = &Links::ApptButton2;
    steps_.set(bar_, [&] { return CommandBar(inspector_.CommandBars().Item(menu_bar)); });
    steps_.run([&] { bar_.RowIndex(top_row); });
    find(member);
    if (is_missing(member)) {
        build(member, false);
        steps_.run([&] { control(member).DescriptionText(menu_description); });
        steps_.run([&] { control(member).ShortcutText(menu_shortcut); });
        steps_.run([&] { control(member).Parameter(item_id_); });
        visible(member, true);
    } else {
        visible(member, true);
        steps_.run([&] { control(member).Parameter(item_id_); });
    }
}

void Fitting::mail_without_bar() {
    add_bar(create_note_bar);
    show_bar();
    find(&Links::goButton);
    find(&Links::OpenButton);
    if (is_missing(&Links::goButton)) {
        build(&Links::goButton, false);
        visible(&Links::goButton, true);
    }
    find_or_build(&Links::EmailTemplateButton, true);
    find_or_build(&Links::SaveAsTemplateButton, true);
    if (steps_.possibly([&] { return !item_.EntryID().empty(); })) {
        build(&Links::OpenButton, true);
        visible(&Links::OpenButton, steps_.possibly([&] { return outside_sent_items(); }));
    }
}

void Fitting::other_without_bar() {
    visible(&Links::goButton, true);
    if (steps_.possibly([&] {
            const bool outside = outside_sent_items();
            const bool saved = !item_.EntryID().empty();
            return outside && saved;
        })) {
        visible(&Links::OpenButton, true);
    }
    if (steps_.possibly([&] { return !outside_sent_items(); })) visible(&Links::OpenButton, false);
}

void Fitting::contact_without_bar() {
    add_bar(create_note_bar);
    const bool is_linked = steps_.possibly([&] {
        const bool has_account = !item_.Account().empty();
        const bool has_customer = !item_.CustomerID().empty();
        // differs from at least one of the three, which is always so
        const bool differs =
            std::ranges::any_of(record_classes, [&](records::Name name) { return class_ != name; });
        return has_account || (has_customer && differs);
    });
    if (is_record_class(class_)) return;
    if (is_linked) {
        show_bar();
        find_or_build(&Links::OpenContactButton, false);
    } else {
        offer_conversions();
    }
}

void Fitting::offer_conversions() {
    const auto is_unlinked = [&] { return item_.CustomerID().empty(); };
    show_bar();
    build(&Links::ConvertContactButton, true);
    visible(&Links::ConvertContactButton, steps_.possibly(is_unlinked));

    const host::outlook::Folder profiles = records::open_database(session_).account_profiles;
    host::outlook::Folder leads;
    steps_.set(leads, [&] {
        return host::outlook::Folder(profiles.Parent()).Folders().Item(records::folder::leads);
    });
    if (steps_.certainly([&] { return leads.Name() != records::folder::leads; })) return;
    show_bar();
    build(&Links::ConvertLeadButton, true);
    visible(&Links::ConvertLeadButton, steps_.possibly([&] {
        const bool unlinked = is_unlinked();
        return class_ == message_class::personal_contact && unlinked;
    }));
}

void Fitting::mail_with_bar() {
    show_bar();
    find(&Links::goButton);
    find(&Links::OpenButton);
    if (is_missing(&Links::goButton)) {
        build(&Links::goButton, false);
        visible(&Links::goButton, true);
        find(&Links::goButton);
        build(&Links::OpenButton, false);
        visible(&Links::OpenButton, steps_.possibly([&] { return outside_sent_items(); }));
    } else {
        visible(&Links::goButton, true);
        visible(&Links::OpenButton, false);
        if (steps_.possibly([&] { return outside_sent_items(); })) visible(&Links::OpenButton, true);
    }
}

void Fitting::contact_templates() {
    const Text without = Settings(session_).option(setting::no_contact_buttons);
    if (!message_class::is_contact(class_) || without == option_on) return;
    if (!bar_) add_bar(contact_templates_bar);
    show_bar();
    find_or_build(&Links::EmailTemplateButton, true);
    if (class_ != message_class::account_contact) return;
    find_or_build(&Links::DocumentTemplateButton, true);
    find_or_build(&Links::ExcelTemplateButton, true);
}

void Fitting::add_bar(TextView name) {
    steps_.set(bar_, [&] { return inspector_.CommandBars().AddTemporary(name, host::office::bar_top); });
}

void Fitting::show_bar() {
    steps_.run([&] { bar_.RowIndex(top_row); });
    steps_.run([&] { bar_.Visible(true); });
    steps_.run([&] { bar_.Enabled(true); });
}

template <class Expression>
void Fitting::assign(automation::Sink Links::*member, Expression expression) {
    steps_.run([&] { links_.watch_button(member, expression(), button(member).click); });
}

void Fitting::find(automation::Sink Links::*member) {
    assign(member, [&] { return bar_.FindControl(button(member).sought); });
}

void Fitting::build(automation::Sink Links::*member, bool begin_group) {
    assign(member, [&] { return bar_.Controls().AddTemporary(host::office::control_button); });
    write(member, begin_group);
}

void Fitting::write(automation::Sink Links::*member, bool begin_group) {
    const ButtonRow& row = button(member);
    if (begin_group) steps_.run([&] { control(member).BeginGroup(true); });
    steps_.run([&] { control(member).Caption(row.caption); });
    steps_.run([&] { control(member).OnAction(on_action); });
    steps_.run([&] { control(member).Tag(row.tag); });
    steps_.run([&] { control(member).Style(host::office::icon_and_caption); });
    steps_.run([&] { control(member).FaceId(row.face); });
}

void Fitting::visible(automation::Sink Links::*member, bool visible) {
    steps_.run([&] { control(member).Visible(visible); });
}

void Fitting::find_or_build(automation::Sink Links::*member, bool begin_group) {
    find(member);
    if (is_missing(member)) build(member, begin_group);
    visible(member, true);
}

bool Fitting::outside_sent_items() const {
    const Text shown = host::outlook::Explorer(links_.goExplorer.source()).CurrentFolder().Name();
    return shown != host::outlook::Application(session_.desktop.application())
                        .GetNamespace(u"MAPI")
                        .GetDefaultFolder(default_folder::sent_mail)
                        .Name();
}

}  // namespace

void goInspectors_NewInspector(State& state, Links& links, replicas::Guards& guards,
                               const Inspector& Inspector) {
    Fitting(state.session, links, guards, Inspector).run();
}

void goInspector_Activate(const State& state, const Links& links) {
    const Steps steps(state.session);
    steps.run([&] { Inspector(links.goInspector.source()).CurrentItem().Parent().call(u"DisplayName"); });
}

void goInspector_Close(State& state, Links& links) {
    const Steps steps(state.session);
    const Inspector inspector(links.goInspector.source());
    CommandBar bar;
    steps.set(bar, [&] { return CommandBar(inspector.CommandBars().Item(create_note_bar)); });
    if (steps.possibly([&] { return inspector.IsWordMail(); })) steps.run([&] { bar.Delete(); });
    links.goInspector.clear();
    steps.run([&] { state.Tarnwell.hide(); });
    steps.run([&] { state.Tarnwell.unload(); });
}

}  // namespace addin::commands
