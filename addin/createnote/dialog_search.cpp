// The dialog's search: the records of the chosen target become rows.
#include "addin/createnote/dlg_send.h"
#include "addin/createnote/split.h"
#include "addin/ground/product.h"
#include "addin/records/database.h"
#include "addin/records/filters.h"
#include "addin/records/names.h"

namespace addin::createnote {

using automation::Text;
using automation::TextView;
using automation::Value;
using host::family::SafeRecordItem;
using host::outlook::Folder;
using host::outlook::Items;

namespace {

constexpr TextView no_target = u"Please select a folder to search (Create Note for: drop down on the right).";
constexpr TextView no_text = u"You must enter a valid search string!";
constexpr TextView searching = u"Please Wait - Searching for ", complete = u"Search Complete for ";
constexpr TextView nothing_found = u"No Items Found!", cancelled = u"Search Cancelled!";

constexpr char16_t tag_sign = u'&';
constexpr TextView hexadecimal = u"&H";
constexpr std::int32_t text_type = 30;  // PT_STRING8

/// A number as a definition writes it: "&H8083" or decimal digits. Throws `Failure` for anything else.
std::int32_t to_number(const Text& text) {
    const Text digits = automation::trimmed(text);
    if (!automation::upper(digits).starts_with(hexadecimal)) return Value(digits).to_integer();
    std::uint32_t number = 0;
    for (const char16_t digit : automation::upper(digits.substr(hexadecimal.size()))) {
        const TextView all = u"0123456789ABCDEF";
        const std::size_t value = all.find(digit);
        if (value == TextView::npos) throw automation::Failure(automation::result::type_mismatch, text);
        constexpr std::uint32_t base = 16;
        number = number * base + static_cast<std::uint32_t>(value);
    }
    // four digits with the highest bit set are a negative 16-bit number, as in the language of the
    // definitions
    constexpr std::size_t digits_of_16_bits = 4;
    if (digits.size() - hexadecimal.size() <= digits_of_16_bits) return static_cast<std::int16_t>(number);
    return static_cast<std::int32_t>(number);
}

/// Reads the fields of one item, by the notations of a definition.
class FieldReader {
  public:
    FieldReader(const Session& session, const SafeRecordItem& item)
        : steps_(session), item_(item), desktop_(session.desktop) {}

    /// The value into `target`, which stays as it is if it can't be read.
    void read(Text& target, const Text& name) {
        if (is_tag(name)) {
            read_tag(target, name);
        } else {
            read_named(target, name);
        }
    }

    void read_tag(Text& target, const Text& tag) {
        steps_.set(target, [&] { return desktop_.text_of(item_.field(Value(tag))); });
    }

    /// The same for a name that is none of a tag.
    void read_named(Text& target, const Text& name) {
        const std::vector<Text> parts = split(name, u',');
        const auto part = [&](std::size_t place) -> const Text& {
            if (place >= parts.size()) throw automation::Failure(automation::result::bad_index);
            return parts[place];
        };
        constexpr std::size_t by_number = 3;
        if (parts.size() == by_number) {
            steps_.set(id_, [&] { return item_.GetIDsFromNames(part(0), to_number(part(1))); });
            steps_.set(id_, [&] { return Value(id_.to_integer() | to_number(part(2))); });
        } else {
            steps_.set(id_,
                       [&] { return item_.GetIDsFromNames(part(0), Value(automation::trimmed(part(1)))); });
        }
        steps_.set(target, [&] { return desktop_.text_of(item_.field(id_)); });
    }

    void forget_id() { id_ = Value(); }

    static bool is_tag(const Text& name) { return !name.empty() && name.front() == tag_sign; }

  private:
    Steps steps_;
    const SafeRecordItem& item_;
    host::Desktop& desktop_;
    Value id_;  ///< outlives a field: one that can't be read shows the field that it was set for
};

}  // namespace

void dlgSend::cmdSearch_Click() {
    host::Desktop& desktop = session_.desktop;
    if (control(u"Combo2").text().empty()) {
        desktop.message_box(no_target, product_title, host::box::ok);
        return;
    }
    const Text text = control(u"SearchString").text();
    if (text.empty()) {
        header(Text(no_text));
        return;
    }
    const Presence here(session_, *this);
    const Steps steps(session_);
    header(Text(searching) + text);
    desktop.pointer(forms::Pointer::hourglass);
    here.give_way();
    if (has_ended(here)) return;
    const records::Database database = records::open_database(session_);
    Folder folder = database.account_profiles;
    steps.set(folder, [&] {
        return Folder(database.main_add_in.ReturnFolderFromPath(state_.list_definition.SearchFolder));
    });
    SearchListTarget(folder);
    if (has_ended(here)) return;
    if (list().count() > 0) list().select(0);
    control(u"lstRecipients").focus();
    header(Text(complete) + control(u"SearchString").text());
    desktop.pointer(forms::Pointer::standard);
}

bool dlgSend::has_ended(const Presence& here) {
    if (here.lasts()) return false;
    session_.desktop.pointer(forms::Pointer::standard);
    return true;
}

void dlgSend::SearchListTarget(const Folder& folder) {
    host::Desktop& desktop = session_.desktop;
    const records::ListDefinition& definition = state_.list_definition;
    const Steps steps(session_);
    automation::Object application;
    steps.set(application, [&] { return desktop.create(host::outlook::application_prog_id); });
    header(Text(searching) + control(u"SearchString").text());
    const Presence here(session_, *this);
    desktop.pointer(forms::Pointer::hourglass);
    if (!here.give_way()) return;
    DialogSearch& run = state_.search;
    run.folder = folder;
    steps.run([&] { run.folder.DefaultItemType(); });  // for a mode that no filter depends on
    Text text = control(u"SearchString").text();       // as the user has left it meanwhile
    const Text filter = records::TemplateFilter(text, definition.filter_template);
    steps.set(run.items, [&] { return run.folder.Items().Restrict(filter); });
    list().clear();
    std::int32_t count = 0;
    steps.set(count, [&] { return run.items.Count(); });
    if (count < 1) {
        desktop.message_box(nothing_found, product_title, host::box::information);
    } else {
        state_.gSearchCancelled = false;
        Text key;  // of the item before, where an item's own can't be read
        for (std::int32_t i = 1; i <= count; ++i) {
            const bool contacts =
                steps.possibly([&] { return run.folder.DefaultItemType() == host::outlook::contact_items; });
            steps.set(run.safe_record, [&] {
                return contacts ? SafeRecordItem::of_contact(desktop) : SafeRecordItem::of_post(desktop);
            });
            steps.run([&] { run.safe_record.Item(run.items.Item(i)); });
            if (run.safe_record) add_row(here, run.safe_record, run.items, i, key);
            run.safe_record.reset();
            if (!here.give_way()) {
                run = {};
                return;
            }
            if (state_.gSearchCancelled) {
                desktop.message_box(cancelled, product_title, host::box::information);
                break;
            }
        }
    }
    if (!here.lasts()) {  // a box gives way, too
        run = {};
        return;
    }
    control(u"lstRecipients").focus();
    header(Text(complete) + control(u"SearchString").text());
    list().width(column::key, 0);
    list().width(column::entry_id, 0);
    here.give_way();
    run = {};
    desktop.pointer(forms::Pointer::standard);
}

void dlgSend::add_row(const Presence& here, const SafeRecordItem& safe_record, const Items& items,
                      std::int32_t place, Text& key) {
    const Steps steps(session_);
    const records::ListDefinition& definition = state_.list_definition;
    FieldReader reader(session_, safe_record);
    std::array<Text, column::entry_id + 1> cells;
    for (std::size_t i = 0; i < records::shown_fields; ++i) {
        reader.read(cells[i], definition.FieldName[i]);
        cells[i] = records::FormatFieldValue(cells[i], definition.FieldType[i], session_.desktop,
                                             session_.step_observer);
        if (i != 1) reader.forget_id();  // the second field's id stays for the third
    }
    if (FieldReader::is_tag(definition.KeyFieldName)) {
        reader.read_tag(key, definition.FieldName.back());  // the last field's, whatever the key's own tag
    } else {
        reader.read_named(key, definition.KeyFieldName);
    }
    std::int32_t contact_id = 0;  // asked for, and not used
    steps.set(contact_id, [&] {
        return safe_record.GetIDsFromNames(records::user_property_set, Value(records::property::contact_id))
                   .to_integer() +
               text_type;
    });
    cells[column::key] = key;
    steps.set(cells[column::entry_id], [&] { return items.Item(place).EntryID(); });
    if (here.lasts()) steps.run([&] { list().add(cells); });
}

}  // namespace addin::createnote
