#include "addin/commands/buttons.h"

#include <algorithm>

#include "addin/conversions/appointment_conversion.h"
#include "addin/conversions/contact_conversion.h"
#include "addin/createnote/dlg_send.h"
#include "addin/ground/keyed.h"
#include "addin/templates/template_commands.h"

namespace addin::commands {
namespace {

/// Work of a room that needs no more than the session.
template <void (*work)(Session&)>
void run(State& state, Links&) {
    work(state.session);
}

void ApptButton2_Click(State& state, Links&) { state.TarnwellInfo.show(); }

// clang-format off
constexpr ButtonRow button_rows[] = {
    // member                          looked up by               tag                          caption                            face  click
    {&Links::ApptButton1,            u"ApptButton1",            u"ApptButton1",              u"Convert to Tarnwell Appointment",  583, run<conversions::convert_appointment>},
    {&Links::ApptButton2,            u"ApptButton2",            u"ApptButton1",              u"Tarnwell",                         583, ApptButton2_Click},
    {&Links::goButton,               u"CreateNoteButton",       u"CreateNoteButton",         u"Create Tarnwell Note",            2041, goButton_Click},
    {&Links::OpenButton,             u"OpenContactButton",      u"OpenContactButton",        u"Open Contact",                    1993, OpenButton_Click},
    {&Links::EmailTemplateButton,    u"EmailTemplateButton",    u"EmailTemplateButton",      u"Tarnwell Email Templates",        1978, run<templates::show_email_templates>},
    {&Links::SaveAsTemplateButton,   u"SaveAsTemplateButton",   u"SaveAsTemplateButton",     u"Save as Email Template",          1978, run<templates::save_as_template>},
    {&Links::OpenContactButton,      u"OpenContactButton",      u"OpenTarnwellContactButton",u"Open Tarnwell Contact",           1993, OpenContactButton_Click},
    {&Links::ConvertContactButton,   u"ConvertContactButton",   u"ConvertContactButton",     u"Convert to Tarnwell Contact.",    1993, run<conversions::convert_to_contact>},
    {&Links::ConvertLeadButton,      u"ConvertLeadButton",      u"ConvertLeadButton",        u"Convert to Tarnwell Lead.",       1993, run<conversions::convert_to_lead>},
    {&Links::DocumentTemplateButton, u"DocumentTemplateButton", u"DocumentTemplateButton",   u"Tarnwell Document Templates",      567, run<templates::show_document_templates>},
    {&Links::ExcelTemplateButton,    u"ExcelTemplateButton",    u"ExcelTemplateButton",      u"Tarnwell Excel Templates",         566, run<templates::show_excel_templates>},
};
// clang-format on
static_assert(is_keyed(button_rows, &ButtonRow::member));

std::shared_ptr<createnote::dlgSend> new_dialog(createnote::State& dialogs) {
    return std::make_shared<createnote::dlgSend>(dialogs);
}

}  // namespace

std::span<const ButtonRow> buttons() { return button_rows; }

const ButtonRow& button(automation::Sink Links::*member) {
    return *std::ranges::find(button_rows, member, &ButtonRow::member);
}

void show_note_dialog(createnote::State& dialogs, bool from_explorer) {
    dialogs.gNoteFromExplorer = from_explorer;
    const std::shared_ptr<createnote::dlgSend> dialog = new_dialog(dialogs);
    dialog->show_modal();
    dialog->unload();
}

void goButton_Click(State& state, Links&) { show_note_dialog(state.createnote, false); }

void OpenButton_Click(State& state, Links&) { new_dialog(state.createnote)->OpenContact(); }

void OpenContactButton_Click(State& state, Links&) { new_dialog(state.createnote)->OpenTarnwellContact(); }

}  // namespace addin::commands
