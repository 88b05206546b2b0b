#include "addin/commands/buttons.h"
#include "addin/ground/keyed.h"

#include <algorithm>

namespace addin::commands {
namespace {

template <Command command>
void run_command(Connect& connect) {
    if (const auto& work = connect.session().commands.at(static_cast<std::size_t>(command))) work(connect);
}

// clang-format off
constexpr ButtonRow button_rows[] = {
    // member                          looked up by               tag                          caption                            face  click
    {&Connect::ApptButton1,            u"ApptButton1",            u"ApptButton1",              u"Convert to Tarnwell Appointment",  583, run_command<Command::convert_appointment>},
    {&Connect::ApptButton2,            u"ApptButton2",            u"ApptButton1",              u"Tarnwell",                         583, run_command<Command::appointment_information>},
    {&Connect::goButton,               u"CreateNoteButton",       u"CreateNoteButton",         u"Create Tarnwell Note",            2041, goButton_Click},
    {&Connect::OpenButton,             u"OpenContactButton",      u"OpenContactButton",        u"Open Contact",                    1993, OpenButton_Click},
    {&Connect::EmailTemplateButton,    u"EmailTemplateButton",    u"EmailTemplateButton",      u"Tarnwell Email Templates",        1978, run_command<Command::email_templates>},
    {&Connect::SaveAsTemplateButton,   u"SaveAsTemplateButton",   u"SaveAsTemplateButton",     u"Save as Email Template",          1978, run_command<Command::save_as_template>},
    {&Connect::OpenContactButton,      u"OpenContactButton",      u"OpenTarnwellContactButton",u"Open Tarnwell Contact",           1993, OpenContactButton_Click},
    {&Connect::ConvertContactButton,   u"ConvertContactButton",   u"ConvertContactButton",     u"Convert to Tarnwell Contact.",    1993, run_command<Command::convert_contact>},
    {&Connect::ConvertLeadButton,      u"ConvertLeadButton",      u"ConvertLeadButton",        u"Convert to Tarnwell Lead.",       1993, run_command<Command::convert_lead>},
    {&Connect::DocumentTemplateButton, u"DocumentTemplateButton", u"DocumentTemplateButton",   u"Tarnwell Document Templates",      567, run_command<Command::document_templates>},
    {&Connect::ExcelTemplateButton,    u"ExcelTemplateButton",    u"ExcelTemplateButton",      u"Tarnwell Excel Templates",         566, run_command<Command::excel_templates>},
};
// clang-format on
static_assert(is_keyed(button_rows, &ButtonRow::member));

std::shared_ptr<NoteDialog> new_dialog(Connect& connect) {
    const auto& make = connect.session().dlgSend;
    return make ? make() : nullptr;
}

}  // namespace

std::span<const ButtonRow> buttons() { return button_rows; }

const ButtonRow& button(automation::Sink Connect::*member) {
    return *std::ranges::find(button_rows, member, &ButtonRow::member);
}

void show_note_dialog(Connect& connect, bool from_explorer) {
    connect.session().gNoteFromExplorer = from_explorer;
    if (const std::shared_ptr<NoteDialog> dialog = new_dialog(connect)) {
        dialog->show_modal();
        dialog->unload();
    }
}

void goButton_Click(Connect& connect) { show_note_dialog(connect, false); }

void OpenButton_Click(Connect& connect) {
    if (const std::shared_ptr<NoteDialog> dialog = new_dialog(connect)) dialog->OpenContact();
}

void OpenContactButton_Click(Connect& connect) {
    if (const std::shared_ptr<NoteDialog> dialog = new_dialog(connect)) dialog->OpenTarnwellContact();
}

}  // namespace addin::commands
