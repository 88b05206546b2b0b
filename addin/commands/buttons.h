// The buttons that item windows get: one table.
#pragma once

#include <span>

#include "addin/commands/links.h"
#include "addin/commands/state.h"
#include "automation/text.h"

namespace addin::commands {

/// Names of the bars.
inline constexpr automation::TextView convert_appointment_bar = u"Convert Appointment";
inline constexpr automation::TextView create_note_bar = u"TarnwellCreateNote";
inline constexpr automation::TextView contact_templates_bar = u"Contact Templates";
inline constexpr automation::TextView menu_bar = u"Menu Bar";  ///< the host's own

/// A button as it is added. Two are looked up by a tag that isn't theirs, and that stands: the one for
/// "ApptButton2" is never found, so each window gets a fresh one, and the one for "OpenContactButton" finds
/// the button of a mail.
struct ButtonRow {
    automation::Sink Links::*member;  ///< holds the button and its click
    automation::TextView sought;      ///< the tag that it is looked up by
    automation::TextView tag;
    automation::TextView caption;
    std::int32_t face;
    Click click;
};

std::span<const ButtonRow> buttons();
const ButtonRow& button(automation::Sink Links::*member);

/// Opens a new Create Note dialog and waits until it is done. A failure travels to the caller.
void show_note_dialog(createnote::State& dialogs, bool from_explorer);

/// The clicks whose work stands with the inspectors' commands. A failure ends the first.
void goButton_Click(State& state, Links& links);
void OpenButton_Click(State& state, Links& links);
void OpenContactButton_Click(State& state, Links& links);

}  // namespace addin::commands
