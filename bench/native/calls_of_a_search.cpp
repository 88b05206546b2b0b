#include <fstream>
#include <iostream>

#include "bench/native/measures.h"
#include "bench/table.h"
#include "desk/tools/database/sample_data.h"

namespace bench {
namespace {

using automation::Object;
using automation::TextView;
using automation::Value;
using host::outlook::Item;

constexpr int record_counts[] = {500, 5'000};

/// What a row of the list reads: its wrapper is made and given the item, six fields and the key are read by
/// name (the number of the name, then the value), one number more is asked for, and the entry id.
constexpr double calls_per_row = 1 + 2 + 2 * 7 + 1 + 2;

constexpr const char* targets =
    "[Contacts]\r\nDisplay in=FIND\r\nFindDefinition=All contacts\r\nFolder Name=\r\n";
constexpr TextView folder_path =
    u"\\\\Public Folders\\All Public Folders\\Tarnwell\\Account Profiles\\Account Contacts";
constexpr TextView property_set = u"{00020329-0000-0000-C000-000000000046},";

void set_property(const Item& item, TextView name, TextView value) {
    constexpr std::int32_t text = 1;
    item.UserProperties().Add(name, text, false).value(Value(value));
}

/// The records that describe a search for contacts by their account's id.
void add_definition(native::NativeWorld& world) {
    const host::outlook::Items system =
        host::outlook::Folder(world.account_profiles().Parent()).Folders().Item(u"System Folder").Items();
    const Item entry = system.Add(u"IPM.Post.Folder Drop Down");
    entry.Subject(u"Contacts");
    set_property(entry, u"FindDefinition", u"All contacts");
    entry.Post();
    const Item definition = system.Add(u"IPM.Post.ListDefinition");
    definition.Subject(u"All contacts");
    definition.Body(u"[Email1Address] >= '<<mString>>'");
    for (const char16_t digit : {u'1', u'2', u'3', u'4', u'5', u'6'}) {
        set_property(definition, automation::Text(u"ColumnName") + digit, u"Column");
        set_property(definition, automation::Text(u"FieldName") + digit,
                     automation::Text(property_set) + u"Team");
        set_property(definition, automation::Text(u"FieldType") + digit, u"String");
    }
    set_property(definition, u"KeyFieldName", automation::Text(property_set) + u"ContactID");
    set_property(definition, u"KeyColumnName", u"ContactID");
    set_property(definition, u"SearchFolder", folder_path);
    definition.Post();
}

/// Opens the dialog on a mail and searches in the target. Answers the rows that came.
int search(native::NativeWorld& world) {
    const Item mail = world.deliver(acceptance::message());
    mail.Display();
    const Object bar = world.application().ActiveInspector().CommandBars().Item(u"TarnwellCreateNote");
    world.desk().call(u"Press", {bar.get(u"Controls").to_object().call(u"Item", {1})});
    const Object window = world.desk().call(u"Window", {u"Tarnwell Create Note"}).to_object();
    const auto control = [&](TextView name) { return window.call(u"Control", {Value(name)}).to_object(); };
    control(u"Combo2").call(u"Select", {1});
    control(u"SearchString").put(u"Text", u"a");
    world.boundary().forget_calls();
    control(u"cmdSearch").call(u"Click");
    const int rows = control(u"lstRecipients").get(u"Count").to_integer();
    return rows;
}

}  // namespace

bool calls_of_a_search() {
    bool right = true;
    Table table("A search of the Create Note dialog",
                {"records", "rows", "calls per row", "KB of memory per row"});
    static const desk::sample::Data forms =
        desk::sample::read_data(std::filesystem::path(TARNWELL_DATA_FOLDER) / "empty");
    for (const int count : record_counts) {
        const auto world = filing_world();
        desk::sample::add_contacts(forms, world->model().store(), count);
        world->quit();
        const automation::Text ini = world->write_file("twsystemfolder.ini", targets);
        world->family(u"SpecialFolder", ini.substr(0, ini.find_last_of(u"/\\")));
        world->start();
        add_definition(*world);
        const long before = peak_memory();
        const int rows = search(*world);
        const std::size_t calls = world->boundary().calls().size();
        const double per_row = static_cast<double>(calls) / rows;
        table.add_row({std::to_string(count), std::to_string(rows), decimal(per_row, 2),
                       decimal(static_cast<double>(peak_memory() - before) / rows, 2)});
        // what stands around the rows is little beside them
        right = right && rows >= count && per_row <= calls_per_row + 1;
    }
    table.print(std::cout);
    if (!right)
        std::cout << "WRONG: rows are missing, or one costs more than " << calls_per_row << " calls\n\n";
    return right;
}

}  // namespace bench
