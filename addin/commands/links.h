// What one add-in object holds of the host for the commands.
#pragma once

#include "addin/host/office.h"
#include "automation/events.h"

namespace addin::commands {

struct State;
class Links;

/// What a click does.
using Click = void (*)(State& state, Links& links);

/// The windows that are followed, their bars, and the buttons that they get. The add-in object is one.
class Links {
  public:
    Links() = default;
    Links(const Links&) = delete;
    Links& operator=(const Links&) = delete;

    automation::Sink goExplorer, goInspector;
    automation::Sink ActiveExplorerCBars;
    automation::Sink goButton, OpenButton, OpenContactButton, ConvertContactButton, ConvertLeadButton;
    automation::Sink EmailTemplateButton, DocumentTemplateButton, ExcelTemplateButton, SaveAsTemplateButton;
    automation::Sink ApptButton1, ApptButton2, ApptButton3;
    automation::Sink ContextButton, CreateNoteButton;
    host::office::CommandBarControl Control;  ///< last found or added in the "Context Menu" bar
    host::office::CommandBar bar;             ///< the "Context Menu" bar while it is worked on

    /// Holds a button, or Nothing, in one of the members above; a click runs `click`.
    virtual void watch_button(automation::Sink Links::*member, const automation::Object& control,
                              Click click) = 0;
    /// Holds the window that opened last, and follows it.
    virtual void watch_inspector(const automation::Object& inspector) = 0;

  protected:
    ~Links() = default;
};

}  // namespace addin::commands
