#include "tests/world/bars.h"

#include "tests/world/people.h"

namespace acceptance {

using automation::Object;
using automation::TextView;
using automation::Value;
using host::outlook::Item;

namespace {

constexpr std::int32_t discard_changes = 1;  // OlInspectorClose

std::vector<Object> elements(const Object& collection) {
    const std::int32_t count = collection.get(u"Count").to_integer();
    std::vector<Object> all;
    for (std::int32_t i = 1; i <= count; ++i) all.push_back(collection.get(u"Item", {i}).to_object());
    return all;
}

std::vector<Object> controls_of(const Object& bar) { return elements(bar.get(u"Controls").to_object()); }

std::string text_of(const Object& object, TextView member) { return shown(object.get(member).to_text()); }

std::string number_of(const Object& object, TextView member) {
    return std::to_string(object.get(member).to_integer());
}

std::string word(const Object& object, TextView member, const char* yes, const char* no) {
    return object.get(member).to_boolean() ? yes : no;
}

std::string told_bar(const Object& bar) {
    return text_of(bar, u"Name") + ", row " + number_of(bar, u"RowIndex") +
           word(bar, u"Visible", ", shown", ", hidden") + word(bar, u"Enabled", ", enabled", ", disabled");
}

std::string told_control(const Object& control, const std::string& item_id) {
    std::string line = "  " + text_of(control, u"Caption") + " [" + text_of(control, u"Tag") + "] face " +
                       number_of(control, u"FaceId") + ", style " + number_of(control, u"Style");
    if (const std::string action = text_of(control, u"OnAction"); !action.empty()) line += ", " + action;
    line += word(control, u"BeginGroup", ", group", "") + word(control, u"Visible", ", shown", ", hidden");
    for (const TextView member : {u"DescriptionText", u"ShortcutText", u"Parameter"}) {
        const std::string text = text_of(control, member);
        if (!text.empty()) line += ", " + shown(member) + " " + (text == item_id ? "its id" : text);
    }
    return line;
}

}  // namespace

Lines bars_of(const Object& window) {
    std::string item_id;
    try {
        item_id = text_of(window.get(u"CurrentItem").to_object(), u"EntryID");
    } catch (const automation::Failure&) {
        // an explorer, or an item that has gone
    }
    Lines lines;
    for (const Object& bar : elements(window.get(u"CommandBars").to_object())) {
        lines.push_back(told_bar(bar));
        for (const Object& control : controls_of(bar)) {
            if (!control.get(u"BuiltIn").to_boolean()) lines.push_back(told_control(control, item_id));
        }
    }
    return lines;
}

Object find_bar(const Object& window, TextView name) {
    for (const Object& bar : elements(window.get(u"CommandBars").to_object())) {
        if (bar.get(u"Name").to_text() == name) return bar;
    }
    return {};
}

Object find_control(const Object& window, TextView bar, TextView tag) {
    const Object found = find_bar(window, bar);
    if (!found) return {};
    for (const Object& control : controls_of(found)) {
        if (control.get(u"Tag").to_text() == tag) return control;
    }
    return {};
}

std::int32_t count_controls(const Object& window, TextView bar, TextView tag) {
    std::int32_t count = 0;
    for (const Object& control : controls_of(find_bar(window, bar))) {
        if (control.get(u"Tag").to_text() == tag) ++count;
    }
    return count;
}

Object add_button(const Object& bar, TextView tag, bool temporary) {
    constexpr std::int32_t button = 1;  // MsoControlType
    const Object control = bar.get(u"Controls")
                               .to_object()
                               .call(u"Add", {button, automation::Missing{}, automation::Missing{},
                                              automation::Missing{}, temporary})
                               .to_object();
    control.put(u"Tag", tag);
    control.put(u"Visible", false);
    return control;
}

Lines joined(std::initializer_list<Lines> parts) {
    Lines all;
    for (const Lines& part : parts) all.insert(all.end(), part.begin(), part.end());
    return all;
}

OpenedItem::~OpenedItem() {
    try {
        close();
    } catch (const automation::Failure&) {
        // its item has been sent or deleted, and the window with it
    }
}

void OpenedItem::close() { window.call(u"Close", {discard_changes}); }

Item new_item(World& world, std::int32_t type) {
    return Item(world.application().call(u"CreateItem", {type}).to_object());
}

Item new_item(World& world, std::int32_t default_folder, TextView message_class) {
    return world.name_space().GetDefaultFolder(default_folder).Items().Add(message_class);
}

host::outlook::Item new_sticky_note(World& world, automation::TextView account_id) {
    const host::outlook::Item note = new_item(world, item_type::note);
    note.Body(u"Call Ann");
    note.get(u"PropertyAccessor")
        .to_object()
        .call(u"SetProperty",
              {u"http://schemas.microsoft.com/mapi/string/{00020329-0000-0000-C000-000000000046}/AccountID",
               automation::Value(account_id)});
    note.Save();
    return note;
}

void show_folder(World& world, const host::outlook::Folder& folder) {
    world.application()
        .get(u"Explorers")
        .to_object()
        .call(u"Item", {1})
        .to_object()
        .put(u"CurrentFolder", Value(folder));
}

}  // namespace acceptance
