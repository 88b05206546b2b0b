#include "family/filed_today.h"

#include <algorithm>
#include <array>
#include <set>
#include <vector>

#include "addin/ground/settings.h"
#include "addin/records/names.h"
#include "family/database_folders.h"
#include "family/note_add_in.h"
#include "forms/control_name.h"

namespace family {

using automation::Failure;
using automation::Text;
using automation::TextView;
using automation::Value;
using forms::ControlKind;
using host::outlook::Folder;
using host::outlook::Item;
namespace names = addin::records;

namespace {

constexpr TextView notes_list = u"lstNotes", count_label = u"lblCount", open_note = u"cmdOpen",
                   read_again = u"cmdRefresh", close_list = u"cmdClose";

namespace note_column {
constexpr std::size_t time = 0, subject = 1, account = 2, contact = 3, type = 4, entry_id = 5, count = 6;
}
constexpr forms::Column note_columns[] = {{u"Time", 1100},    {u"Subject", 3900}, {u"Account", 2300},
                                          {u"Contact", 2000}, {u"Type", 1600},    {u"EntryID", 0}};
static_assert(std::size(note_columns) == note_column::count);

constexpr forms::ControlRow note_controls[] = {
    {.kind = ControlKind::report_list,
     .name = notes_list,
     .place = {120, 120, 11250, 3900},
     .tool_tip = u"Double click a note to open it.",
     .columns = note_columns,
     .accessible_name = u"Notes"},
    {.kind = ControlKind::label, .name = count_label, .place = {120, 4215, 6600, 255}},
    {.kind = ControlKind::button, .name = open_note, .text = u"Open", .place = {6885, 4140, 1395, 375}},
    {.kind = ControlKind::button, .name = read_again, .text = u"Refresh", .place = {8430, 4140, 1395, 375}},
    {.kind = ControlKind::button, .name = close_list, .text = u"Close", .place = {9975, 4140, 1395, 375}},
};
constexpr forms::FormTable filed_table{.name = u"FiledToday",
                                       .caption = u"What Was Filed Today",
                                       .width = 11490,
                                       .height = 4650,
                                       .default_button = open_note,
                                       .cancel_button = close_list,
                                       .first_focus = notes_list,
                                       .controls = note_controls};
static_assert(forms::is_sound(filed_table));

/// The host knows best what today is, and finds it without a walk through all notes.
constexpr TextView made_today = u"@SQL=%today(\"DAV:creationdate\")%";

struct FiledNote {
    automation::Date made;
    std::array<Text, note_column::count> cells;
};

Text property_of(const Item& note, TextView name) {
    const host::outlook::UserProperty property = note.UserProperties().Find(name);
    return property ? property.value().to_text() : Text();
}

FiledNote described(Context& context, const Item& note) {
    FiledNote filed{note.get(u"CreationTime").to_date(), {}};
    filed.cells[note_column::time] = context.time_text(filed.made);
    filed.cells[note_column::subject] = note.Subject();
    filed.cells[note_column::account] = property_of(note, names::property::account_name);
    filed.cells[note_column::contact] = property_of(note, names::property::contact_name);
    filed.cells[note_column::type] = property_of(note, names::property::type);
    filed.cells[note_column::entry_id] = note.EntryID();
    return filed;
}

/// The folders that take notes: the option may name one for mails.
std::vector<Text> note_folders(Context& context) {
    std::vector<Text> all{Text(names::folder::notes), Text(names::folder::email)};
    try {
        const Text given = note_add_in(context)
                               .call(u"GetKeyValueEx", {host::current_user, Value(addin::Settings::key_name),
                                                        Value(addin::setting::saved_email_folder)})
                               .to_text();
        if (!given.empty()) all.push_back(given);
    } catch (const Failure&) {
        // without the add-in the option has no meaning
    }
    return all;
}

std::vector<FiledNote> read_filed_notes(Context& context) {
    DatabaseFolders folders(context);
    if (!folders.folder(names::folder::account_profiles))
        throw Failure(automation::result::not_found, u"There is no database in this profile.");
    std::vector<FiledNote> notes;
    std::set<Text> seen;
    for (const Text& name : note_folders(context)) {
        const Folder folder = folders.folder(name);
        if (!folder || !seen.insert(folder.EntryID()).second) continue;
        const host::outlook::Items today = folder.Items().Restrict(made_today);
        const std::int32_t count = today.Count();
        for (std::int32_t i = 1; i <= count; ++i) {
            const Item note = today.Item(i);
            if (!automation::same_ignoring_case(note.MessageClass(), names::message_class::note)) continue;
            notes.push_back(described(context, note));
        }
    }
    std::ranges::stable_sort(notes, std::ranges::greater(),
                             [](const FiledNote& note) { return note.made.days; });
    return notes;
}

Text told_count(std::size_t count) {
    if (count == 0) return u"Nothing was filed today.";
    if (count == 1) return u"One note was made today.";
    return automation::from_utf8(std::to_string(count)) + u" notes were made today.";
}

}  // namespace

FiledToday::FiledToday(forms::Engine& engine, Context& context)
    : Form(engine, filed_table), context_(context) {}

void FiledToday::show_list() {
    const bool is_new = !loaded();
    try {
        fill();
    } catch (...) {
        if (is_new) unload();
        throw;
    }
    show();
}

void FiledToday::fill() {
    const std::vector<FiledNote> notes = read_filed_notes(context_);
    forms::List& list = control(notes_list).list();
    list.clear();
    for (const FiledNote& note : notes) list.add(note.cells);
    if (list.count() > 0) list.select(0);
    control(count_label).text(told_count(notes.size()));
}

void FiledToday::open_selected() {
    forms::List& list = control(notes_list).list();
    const int row = list.selected();
    if (row < 0) return;
    const Text id = list.text(row, note_column::entry_id);
    const host::outlook::Application application(context_.application());
    application.GetNamespace(u"MAPI").call(u"GetItemFromID", {Value(id)}).to_object().call(u"Display");
}

void FiledToday::act(void (FiledToday::*deed)()) {
    try {
        (this->*deed)();
    } catch (const Failure& failure) {
        context_.tell(failure.description());
    }
}

void FiledToday::on_click(TextView name) {
    if (name == open_note) act(&FiledToday::open_selected);
    if (name == read_again) act(&FiledToday::fill);
    if (name == close_list) unload();
}

void FiledToday::on_double_click(TextView) { act(&FiledToday::open_selected); }

void show_filed_today(Context& context) {
    ShownFiledToday& shown = context.shown_filed_today();
    if (!shown.window) {
        shown.engine = context.engine();
        shown.window = std::make_shared<FiledToday>(*shown.engine, context);
    }
    shown.window->show_list();
}

}  // namespace family
