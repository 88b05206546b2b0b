#include "tests/world/button_lines.h"

#include "tests/world/people.h"

namespace acceptance {

using automation::Object;
using automation::TextView;

namespace {

constexpr TextView bar_name = u"TarnwellCreateNote";
}  // namespace

Lines own_bars() { return {"Menu Bar, row 0, shown, enabled", "Standard, row 0, shown, enabled"}; }

Lines menu_bar(const std::string& id) {
    return {"Menu Bar, row -1, shown, enabled",
            "  Tarnwell [ApptButton1] face 583, style 3, !<CreateNote.Connect>, shown, DescriptionText "
            "Description "
            "Text, ShortcutText Shortcut" +
                (id.empty() ? std::string() : ", Parameter " + id),
            "Standard, row 0, shown, enabled"};
}

Lines shown_bar(const Lines& controls) {
    return joined({{"TarnwellCreateNote, row -1, shown, enabled"}, controls});
}

const char* told(BarState state) {
    switch (state) {
        case BarState::absent:
            return "absent";
        case BarState::empty:
            return "empty";
        case BarState::filled:
            break;
    }
    return "with controls";
}

Object prepare_bar(const Object& window, BarState state) {
    if (state == BarState::absent) return {};
    constexpr std::int32_t top = 1, row = 7;
    const Object bar =
        window.get(u"CommandBars").to_object().call(u"Add", {bar_name, top, false, true}).to_object();
    bar.put(u"Visible", true);
    bar.put(u"RowIndex", row);
    bar.put(u"Enabled", false);
    if (state == BarState::filled) {
        for (const TextView tag : {u"CreateNoteButton", u"OpenContactButton", u"EmailTemplateButton",
                                   u"DocumentTemplateButton", u"ExcelTemplateButton"}) {
            add_button(bar, tag).put(u"Visible", tag == TextView(u"OpenContactButton"));
        }
    }
    return bar;
}

Lines bar_as_left(const Lines& controls) {
    return joined({{"TarnwellCreateNote, row 7, shown, disabled"}, controls});
}

Lines hidden_bar(const Lines& controls) {
    return joined({{"TarnwellCreateNote, row 7, hidden, disabled"}, controls});
}

std::string left(const std::string& tag, const std::string& state) {
    return "   [" + tag + "] face 0, style 0, " + state;
}

Lines left_controls(const LeftStates& states) {
    return {left("CreateNoteButton", states.create_note), left("OpenContactButton", states.open_contact),
            left("EmailTemplateButton", states.email), left("DocumentTemplateButton", states.document),
            left("ExcelTemplateButton", states.excel)};
}

}  // namespace acceptance
