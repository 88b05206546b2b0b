// The add-in's buttons as `bars_of` tells them, and the states in which a window's bar may be before the
// add-in comes to it.
#pragma once

#include "tests/world/bars.h"

namespace acceptance {

// as the add-in makes them

inline const std::string create_note =
    "  Create Tarnwell Note [CreateNoteButton] face 2041, style 3, !<CreateNote.Connect>, shown";
inline const std::string email_templates =
    "  Tarnwell Email Templates [EmailTemplateButton] face 1978, style 3, !<CreateNote.Connect>, group, "
    "shown";
inline const std::string save_as_template =
    "  Save as Email Template [SaveAsTemplateButton] face 1978, style 3, !<CreateNote.Connect>, group, shown";
inline const std::string open_contact_group_shown =
    "  Open Contact [OpenContactButton] face 1993, style 3, !<CreateNote.Connect>, group, shown";
inline const std::string open_contact_group_hidden =
    "  Open Contact [OpenContactButton] face 1993, style 3, !<CreateNote.Connect>, group, hidden";
inline const std::string open_contact_shown =
    "  Open Contact [OpenContactButton] face 1993, style 3, !<CreateNote.Connect>, shown";
inline const std::string open_contact_hidden =
    "  Open Contact [OpenContactButton] face 1993, style 3, !<CreateNote.Connect>, hidden";
inline const std::string open_tarnwell_contact =
    "  Open Tarnwell Contact [OpenTarnwellContactButton] face 1993, style 3, !<CreateNote.Connect>, shown";
inline const std::string convert_contact =
    "  Convert to Tarnwell Contact. [ConvertContactButton] face 1993, style 3, !<CreateNote.Connect>, group, "
    "shown";
inline const std::string convert_lead_shown =
    "  Convert to Tarnwell Lead. [ConvertLeadButton] face 1993, style 3, !<CreateNote.Connect>, group, shown";
inline const std::string convert_lead_hidden =
    "  Convert to Tarnwell Lead. [ConvertLeadButton] face 1993, style 3, !<CreateNote.Connect>, group, "
    "hidden";
inline const std::string document_templates =
    "  Tarnwell Document Templates [DocumentTemplateButton] face 567, style 3, !<CreateNote.Connect>, group, "
    "shown";
inline const std::string excel_templates =
    "  Tarnwell Excel Templates [ExcelTemplateButton] face 566, style 3, !<CreateNote.Connect>, group, shown";
inline const std::string convert_appointment =
    "  Convert to Tarnwell Appointment [ApptButton1] face 583, style 3, !<CreateNote.Connect>, shown";

// whole bars

/// The host's own bars of an item's window that the add-in has not touched.
Lines own_bars();

/// The host's own bars with the add-in's button, which bears the id of the item, if it has one.
Lines menu_bar(const std::string& id);

/// "TarnwellCreateNote" as the add-in shows it.
Lines shown_bar(const Lines& controls);

// before the add-in comes

enum class BarState {
    absent,
    empty,  ///< there without a control
    filled  ///< there with the controls that windows of several kinds get; only "Open Contact" is shown
};
const char* told(BarState state);

/// Makes "TarnwellCreateNote" in a window so that whatever the add-in does to it can be seen: shown, disabled
/// and in row 7. Answers it; Nothing if it is to be absent.
automation::Object prepare_bar(const automation::Object& window, BarState state);

/// The bar as it was made, and as it is if the add-in has only hidden it.
Lines bar_as_left(const Lines& controls);
Lines hidden_bar(const Lines& controls);

/// A control as it was made, "shown" or "hidden".
std::string left(const std::string& tag, const std::string& state);

/// The controls of a filled bar; the states are those in which they were made, unless a test says otherwise.
struct LeftStates {
    std::string create_note = "hidden", open_contact = "shown", email = "hidden", document = "hidden",
                excel = "hidden";
};
Lines left_controls(const LeftStates& states = {});

}  // namespace acceptance
